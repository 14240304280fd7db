#!/usr/bin/env python3
"""Checks the includes of src/ against the layers in docs/architecture.md; prints violations.

tools/floors.py [COMPILE_COMMANDS]: with the commands of a build, the sources of the core, too, are
checked, whose headers may include no form.
"""

import json
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SRC = ROOT / "src"
ROW = re.compile(r"^\| (\d+) \| ([^|]+) \|")


def floors():
    """The layer of each directory. Directories on one layer may not include each other."""
    text = (ROOT / "docs/architecture.md").read_text(encoding="utf-8")
    table = text.split("<!-- floors -->")[1].split("<!-- /floors -->")[0]
    rows = [ROW.match(line) for line in table.splitlines()]
    return {room: int(row[1]) for row in rows if row for room in re.findall(r"`([^`]+)`", row[2])}


def room_of(file):
    """src/platform/qt/x.h is in platform/qt, src/text/x.h in text, src/main.cpp in main.cpp."""
    parts = Path(file).parts
    return "platform/qt" if parts[:2] == ("platform", "qt") else parts[0]


def includes():
    files = sorted(path for path in SRC.rglob("*") if path.suffix in (".h", ".cpp"))
    quoted = re.compile(r'^#include "([^"]+)"', re.M)
    return {
        path.relative_to(SRC).as_posix(): quoted.findall(path.read_text(encoding="utf-8"))
        for path in files
    }


def reached(file, graph, seen):
    for other in graph.get(file, []):
        if other not in seen:
            seen.add(other)
            reached(other, graph, seen)
    return seen


def main():
    floor, graph, broken = floors(), includes(), []
    for file, others in graph.items():
        here = room_of(file)
        if here not in floor:
            broken.append(f"src/{file}: the directory {here} is on no layer")
            continue
        for other in others:
            there = room_of(other)
            if other not in graph:
                broken.append(f"src/{file}: there is no {other}")
            elif here != there and floor.get(there, 99) >= floor[here]:
                broken.append(f"src/{file} includes {other}, which is not on a lower layer")
        if file in reached(file, graph, set()):
            broken.append(f"src/{file} includes itself indirectly")

    if len(sys.argv) > 1:
        commands = json.loads(Path(sys.argv[1]).read_text(encoding="utf-8"))
        for command in commands:
            path = Path(command["file"])
            if "/quillbox_core.dir/" not in command["command"] or not path.is_relative_to(SRC):
                continue
            file = path.relative_to(SRC).as_posix()
            for other in sorted(reached(file, graph, set())):
                if other.startswith("forms/") or Path(other).name.startswith("frm"):
                    broken.append(f"src/{file} is of the core and reaches {other}")

    print("\n".join(broken), end="\n" if broken else "")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
