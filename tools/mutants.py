#!/usr/bin/env python3
"""Plants small mistakes in src/ at random, one at a time, and prints those that no test notices:
mutants.py core|forms COUNT [SEED]. tools/mutants.sh prepares the copy of the tree it works in, which
is the current folder."""

import hashlib
import json
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys

BUILD = pathlib.Path("build")
RECORDING = pathlib.Path("recording")  # of which lines the tests reach
PROGRAMS = {"core": ["core_tests", "form_tests"], "forms": ["form_tests"]}
FORMS = re.compile(r"src/(forms|panel|shell|platform/qt)/|/frm[^/]*$")
NOT_HERE = re.compile(r"windows|src/icons/|src/cli/|src/main\.cpp")
SLOW = 2  # seconds of a test
MINUTE = 60
HOUR = 3600  # seconds; more than all tests of a program take
# Tests of whole programs; nobody knows which lines they reach.
OTHERS = [[sys.executable, "tests/cli/cli_test.py", (BUILD / "quillbox-cli").resolve(), ".", "-f"],
          ["ctest", "--test-dir", BUILD, "-R", "^samples$"]]
# A short path, as usual, where nobody waits for a disk.
TEMPORARY = pathlib.Path("/dev/shm/mutants")
ADDRESSES, FILE_SIZE = 16 << 30, 1 << 30  # bytes; a mistake may be that something never ends

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
        either_way = re.search(r"\b(min|max|minmax)(<\w+>)?$", code[:match.start()])
        if match[2] != match[3] and not in_text(match.start()) and not either_way:
            swapped = f"{match[1]}{match[3]}, {match[2]}{match[4]}"
            yield "two values exchanged", line[:match.start()] + swapped + line[match.end():]


def all_mistakes(part):
    found = []
    # No headers: nearly everything would be built again for each.
    for path in sorted(pathlib.Path("src").rglob("*.cpp")):
        name = str(path)
        if NOT_HERE.search(name) or bool(FORMS.search(name)) != (part == "forms"):
            continue
        for number, line in enumerate(path.read_text().splitlines(), 1):
            found += [(path, number, what, changed) for what, changed in mistakes_of(line)]
    return found


def environment(**more):
    return {**os.environ, "QT_QPA_PLATFORM": "offscreen", "DISPLAY": "", "WAYLAND_DISPLAY": "",
            "TMPDIR": str(TEMPORARY), **more}


def ends_well(command, seconds, addresses=ADDRESSES, **more):
    """False when a command fails, computes for longer than that or uses too much of the machine."""
    def limits():
        resource.setrlimit(resource.RLIMIT_CPU, (int(seconds) + 1, int(seconds) + 1))
        resource.setrlimit(resource.RLIMIT_AS, (addresses, addresses))
        resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, FILE_SIZE))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    shutil.rmtree(TEMPORARY, ignore_errors=True)
    TEMPORARY.mkdir()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               env=environment(**more), preexec_fn=limits, start_new_session=True)
    try:
        return process.wait(MINUTE + 10 * seconds) == 0  # where it only waits
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        return False


def others_pass():
    """A browser reserves more addresses than there are."""
    return all(ends_well(each, MINUTE, resource.RLIM_INFINITY) for each in OTHERS)


def state_of_sources():
    found = hashlib.sha256()
    for folder in ("src", "tests"):
        for path in sorted(path for path in pathlib.Path(folder).rglob("*") if path.is_file()):
            found.update(str(path).encode() + path.read_bytes())
    return found.hexdigest()


def builds(target, folder=BUILD):
    return subprocess.run(["cmake", "--build", folder, "--target", target],
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0


class Tests:
    """The tests of one program, and the lines of src/ that each of them runs."""

    def __init__(self, program):
        self.program = BUILD / "tests" / program
        self.seconds = {}  # of each test
        self.reaching = {}  # file -> line -> names of tests
        recorded = RECORDING / "tests" / program
        listing, record = RECORDING / f"{program}.json", RECORDING / f"{program}.reached"
        stamp = RECORDING / f"{program}.stamp"
        if not stamp.exists() or stamp.read_text() != state_of_sources():
            command = [recorded, f"--gtest_output=json:{listing}"]
            if not builds(program, RECORDING) or not ends_well(
                    command, HOUR, QUILLBOX_REACHED=str(record)):
                sys.exit(f"{program} fails as it is.")
            stamp.write_text(state_of_sources())
        suites = json.loads(listing.read_text())["testsuites"]
        self.files = {f"{suite['name']}.{test['name']}": pathlib.Path(test["file"])
                      for suite in suites for test in suite["testsuite"]}
        names_of = {}  # offset -> names
        with record.open() as lines:
            for line in lines:
                name, seconds, *offsets = line.split()
                self.seconds[name] = float(seconds)
                for offset in offsets:
                    names_of.setdefault(offset, []).append(name)
        self.seconds.pop("*")
        offsets = list(names_of)
        places = subprocess.run(["addr2line", "-e", recorded], input="\n".join(offsets), text=True,
                                capture_output=True, check=True).stdout.splitlines()
        for offset, place in zip(offsets, places):
            file, _, line = place.split(" ")[0].rpartition(":")
            if "/src/" in file and line.isdigit():
                lines = self.reaching.setdefault("src/" + file.rpartition("/src/")[2], {})
                lines.setdefault(int(line), set()).update(names_of[offset])

    def that_reach(self, path, number):
        """Those that may run line `number` (from 1) of a file. None where that cannot be said: of a
        table, of what is computed by the compiler, of what no test runs."""
        lines = path.read_text().splitlines()
        first = number  # of the function or table that the line is in
        while first > 1 and not re.match(r"[\w~]", lines[first - 1]):
            first -= 1
        reached = self.reaching.get(str(path), {})
        blocks = [line for line in reached if first <= line <= number]
        if not any(re.match(r" +static ", line) for line in lines[first - 1:number]):
            # A condition belongs to the block before what it guards in the same line.
            before = max((line for line in blocks if line < number), default=number)
            blocks = [line for line in blocks if line in (number, before)]
        names = set().union(*(reached[line] for line in blocks))
        return names if names and "*" not in names else None

    def notice(self, path, number, with_slow):
        """Runs those that reach a line: of its file first, then those beside them, slow ones last."""
        reaching = self.that_reach(path, number)
        names = reaching or set(self.seconds)
        quick = {name for name in names if self.seconds[name] < SLOW}
        own = {name for name in quick if self.files[name].stem.startswith(path.stem)}
        beside = {name for name in quick - own if self.files[name].parent.name == path.parent.name}
        slow = {}  # of each, one kind of collection has to do
        if reaching and with_slow:
            slow = {re.sub(r"/\w+$", "", name): name for name in reaching - quick}
        groups = (own, beside, quick - own - beside, set(slow.values()))
        return any(group and not self.pass_(group) for group in groups)

    def pass_(self, names):
        flags = BUILD / "flags"
        flags.write_text("--gtest_filter=" + ":".join(sorted(names)) + "\n")
        seconds = 3 + 5 * sum(self.seconds[name] for name in names)
        return ends_well([self.program, f"--gtest_flagfile={flags}", "--gtest_fail_fast"], seconds)


def main():
    part, count = sys.argv[1], int(sys.argv[2])
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(1_000_000)
    if not builds("all"):
        sys.exit("The tree does not build as it is.")
    tests = {program: Tests(program) for program in PROGRAMS[part]}
    # A test that fails without any mistake would notice them all.
    if not others_pass() or not all(each.pass_(each.seconds) for each in tests.values()):
        sys.exit("A test fails as it is.")
    candidates = all_mistakes(part)
    random.Random(seed).shuffle(candidates)
    print(f"seed {seed}, {len(candidates)} places in {part}", flush=True)

    def is_noticed(path, number):
        own, *others = tests
        if tests[own].notice(path, number, with_slow=True):
            return True
        if part == "core":
            if not builds("all") or not others_pass():
                return True
        # What only a long walk through a form notices wants a test of its own.
        return any(tests[program].notice(path, number, with_slow=False) for program in others)

    planted = noticed = 0
    for path, number, what, changed in candidates:
        if planted == count:
            break
        before = path.read_text()
        lines = before.splitlines()
        lines[number - 1] = changed
        path.write_text("\n".join(lines) + "\n")
        try:
            if not builds(next(iter(tests))):
                continue  # the compiler noticed
            planted += 1
            if is_noticed(path, number):
                noticed += 1
            else:
                print(f"{path}:{number}: {what}: {changed.strip()}", flush=True)
            print(f"{noticed} of {planted}", end="\r", file=sys.stderr, flush=True)
        finally:
            path.write_text(before)
    print(f"{noticed} of {planted} noticed")


if __name__ == "__main__":
    main()
