#!/usr/bin/env python3
"""Plants small mistakes in src/ at random, one at a time, and prints those that no test notices:
mutants.py core|forms COUNT [SEED]. tools/mutants.sh prepares the copy of the tree it works in, which
is the current folder."""

import json
import os
import pathlib
import random
import re
import subprocess
import sys

BUILD = pathlib.Path("build")
PROGRAMS = {"core": ["core_tests", "form_tests"], "forms": ["form_tests"]}
PROCESSES = {"core": ["quillbox-cli", "make_samples"], "forms": []}  # that other tests run
FORMS = re.compile(r"src/(forms|panel|shell|platform/qt)/|/frm[^/]*$|src/main\.cpp")
NOT_HERE = re.compile(r"windows|src/icons/|src/cli/")
TIMEOUT = 600  # seconds; a mistake that keeps a test from ending is noticed

EXCHANGED = {
    " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ", " != ": " == ",
    " + ": " - ", " - ": " + ", " * ": " + ", " += ": " -= ", " -= ": " += ", "++": "--",
    " && ": " || ", " || ": " && ", "true": "false", "false": "true",
}
CALL = re.compile(r"^ +[\w.\->:\[\]()*]+\(.*\);$|^ +[\w.\->\[\]()]+ [+\-|]?= [^=].*;$")
DECLARATION = re.compile(r"^ *(const |auto |return|static |using |throw |case |break|constexpr )")
PAIR = re.compile(r"([({])([\w.\"]+), ([\w.\"]+)([,)}])")


def mistakes_of(line):
    """(description, changed line) for each mistake that can be made in a line of code."""
    code = line.split("//")[0]
    if not code.strip() or code.lstrip().startswith(("#", "static_assert", "namespace", "template", "/")):
        return
    texts = [match.span() for match in re.finditer(r'"(?:[^"\\]|\\.)*"', code)]

    def in_text(at):
        return any(start <= at < end for start, end in texts)

    for operator, other in EXCHANGED.items():
        for match in re.finditer(re.escape(operator), code):
            at = match.start()
            around = code[max(at - 1, 0):at] + code[match.end():match.end() + 1]
            if in_text(at) or (operator in ("true", "false") and re.search(r"\w", around)):
                continue
            yield f"{other.strip()} for {operator.strip()}", line[:at] + other + line[match.end():]
    for match in re.finditer(r"(?<![\w.'])\d+(?![\w.'])", code):
        if not in_text(match.start()):
            more = str(int(match.group()) + 1)
            yield "a number one too large", line[:match.start()] + more + line[match.end():]
    for start, end in texts:
        if end - start > 2 and "include" not in code:
            yield "another text", line[:end - 1] + "x" + line[end - 1:]
    condition = re.match(r"^( *(?:\} else )?if )\((.*)\)( \{| return.*| continue;| .*;)?$", code.rstrip())
    if condition and ";" not in condition[2] and condition[2].count("(") == condition[2].count(")"):
        rest = condition[3] or ""
        yield "a condition negated", f"{condition[1]}(!({condition[2]})){rest}"
    if CALL.match(code) and not DECLARATION.match(code):
        yield "a statement left out", code[:len(code) - len(code.lstrip())] + ";"
    for match in PAIR.finditer(code):
        if match[2] != match[3] and not in_text(match.start()):
            swapped = f"{match[1]}{match[3]}, {match[2]}{match[4]}"
            yield "two values exchanged", line[:match.start()] + swapped + line[match.end():]


def all_mistakes(part):
    found = []
    # No headers: nearly everything would be built again for each.
    for path in sorted(pathlib.Path("src").rglob("*.cpp")):
        name = str(path)
        if NOT_HERE.search(name) or bool(FORMS.search(name)) != (part == "forms"):
            continue
        for number, line in enumerate(path.read_text().splitlines()):
            found += [(path, number, what, changed) for what, changed in mistakes_of(line)]
    return found


def tests_of(program):
    """The full name and the file of each test."""
    out = BUILD / "tests.json"
    subprocess.run([BUILD / "tests" / program, "--gtest_list_tests", f"--gtest_output=json:{out}"],
                   stdout=subprocess.DEVNULL, check=True, env=environment())
    return [(f"{suite['name']}.{test['name']}", test["file"])
            for suite in json.loads(out.read_text())["testsuites"] for test in suite["testsuite"]]


def environment():
    return {**os.environ, "QT_QPA_PLATFORM": "offscreen", "DISPLAY": "", "WAYLAND_DISPLAY": ""}


def fails(program, names):
    """True when one of these tests fails."""
    if not names:
        return False
    flags = pathlib.Path(BUILD / "filter")
    flags.write_text("--gtest_filter=" + ":".join(names) + "\n")
    try:
        ended = subprocess.run([BUILD / "tests" / program, f"--gtest_flagfile={flags}", "--gtest_fail_fast",
                                "--gtest_brief=1"], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, timeout=TIMEOUT, env=environment())
    except subprocess.TimeoutExpired:
        return True
    return ended.returncode != 0


def is_noticed(path, part, tests):
    """Runs the tests of the file first, then those in its folder, then all others."""
    stem, folder = path.stem, "/" + path.parent.name + "/"
    for program in PROGRAMS[part]:
        own = [name for name, file in tests[program] if pathlib.Path(file).stem.startswith(stem)]
        beside = [name for name, file in tests[program] if folder in file and name not in set(own)]
        rest = sorted({name for name, _ in tests[program]} - set(own) - set(beside))
        for names in (own, beside, rest):
            if fails(program, names):
                return True
    if not PROCESSES[part]:
        return False
    others = subprocess.run(["ctest", "--test-dir", BUILD, "-R", "^(cli|samples|examples)$"],
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return others.returncode != 0


def builds(programs):
    return subprocess.run(["cmake", "--build", BUILD, "--target", *programs],
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0


def main():
    part, count = sys.argv[1], int(sys.argv[2])
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(1_000_000)
    programs = PROGRAMS[part]
    targets = programs + PROCESSES[part]
    if not builds(targets):
        sys.exit("The tree does not build as it is.")
    tests = {program: tests_of(program) for program in programs}
    candidates = all_mistakes(part)
    random.Random(seed).shuffle(candidates)
    planted = noticed = 0
    print(f"seed {seed}, {len(candidates)} places in {part}", flush=True)
    for path, number, what, changed in candidates:
        if planted == count:
            break
        before = path.read_text()
        lines = before.splitlines()
        lines[number] = changed
        path.write_text("\n".join(lines) + "\n")
        try:
            if not builds(targets):
                continue  # the compiler noticed
            planted += 1
            if is_noticed(path, part, tests):
                noticed += 1
            else:
                print(f"{path}:{number + 1}: {what}: {changed.strip()}", flush=True)
        finally:
            path.write_text(before)
    print(f"{noticed} of {planted} noticed")


if __name__ == "__main__":
    main()
