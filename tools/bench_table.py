#!/usr/bin/env python3
"""Writes the output of the benchmark as the table between the markers of a document.

tools/bench_table.py OUTPUT DOCUMENT
"""

import datetime
import os
import re
import sys
from pathlib import Path

BEGIN, END = "<!-- figures -->\n", "<!-- /figures -->"

# What the benchmark calls a case, and what the document calls it. Sizes are those of bench/.
CASES = {
    "open": "open and read the first item",
    "write item": "write an item",
    "step": "step to the next item",
    "skip": "skip 32,765 deleted items",
    "load folder": "load 20,000 files into 10,000 items",
    "load, memory": "the same, memory",
    "search, reads": "search 32,767 albums by all their texts, no hit, beside reading the file",
    "search, miss": "the same, beside the database",
    "search, hit": "the same, with a hit",
    "all items, read": "read 32,767 albums with their songs into the panel",
    "longest piece": "the longest piece of that",
    "memory": "the same, memory beside the texts",
    "filter, first key": "filter: a letter that begins words everywhere",
    "filter, rare word": "filter: a word of one album",
    "filter, no such": "filter: a word of none",
    "order by a column": "order them by the artist",
    "sort, memory": "sort 32,765 albums, memory beside the file's size",
    "listing": "list 32,767 albums to a text file",
    "listing, PDF": "list 2,000 albums as PDF",
    "export": "export the albums",
    "export VCS": "export as many videos",
    "export SCS": "export as many disks",
    "export CCS": "export as many comics",
    "listing, memory": "list, memory",
    "export, memory": "export, memory",
    "all as CSV": "all fields of 32,767 albums as CSV",
    "all as JSON": "the same as JSON",
    "all as SQLite": "the same as SQLite",
    "import, dry run": "import that CSV, dry run",
    "all out, memory": "CSV export, memory",
    "import, memory": "CSV import, memory",
    "start, time": "start, beside a window with as many plain controls",
    "start, memory": "start, memory",
    "start, empty form": "start, beside an empty window",
    "start, box shown": "start with its box shown",
    "start, 10,000": "start with 10,000 albums on a display, beside Tellico",
    "start, 10,000, memory": "the same, memory",
}

# The cases of the second table: what the benchmark calls them, and what the document does.
GROWING = {
    "search, reads": "search, no hit, beside reading the file",
    "all items, reads": "read into the panel, beside reading the file",
    "listing": "list to a text file",
    "export": "export",
    "all as CSV": "all fields as CSV",
    "all as JSON": "all fields as JSON",
    "all as SQLite": "all fields as SQLite",
    "import, reads": "import that CSV, dry run, beside reading both files",
    "load folder": "load a folder into an empty catalogue",
}


def name_of(case, peer):
    sort = re.fullmatch(r"sort (\d+)(, db)?", case)
    if not sort:
        return CASES.get(case, case)  # a new case is better told by its short name than left out
    beside = "the database" if sort[2] else "exchanging records"
    estimated = " (peer extrapolated)" if peer.startswith("~") else ""
    return f"sort {int(sort[1]):,} albums by five keys, beside {beside}{estimated}"


def row(line):
    """None for a line that is not a row of figures."""
    cells = [cell.strip() for cell in line.split("|")]
    if len(cells) != 5 or cells[0] == "case" or set(cells[0]) == {"-"}:
        return None
    case, quillbox, peer, ratio, goal = cells
    is_absolute = re.match(r"<= \d+ ms|>= ", goal)
    figure = quillbox if is_absolute or not ratio else ratio
    goal = re.sub(r" \(.*", "", goal)
    goal = re.sub(r"^(ratio )?<= ", "at most ", goal).replace(">= ", "at least ")
    goal = goal.replace(", met", "").replace(", MISSED", ", **missed**")
    return f"| {name_of(case, peer)} | {figure} | {goal} |"


def growth_table(lines):
    """How times and ratios grow with the collection, in the document's words."""
    sizes, *rows = ([cell.strip() for cell in line.split("|")] for line in lines)
    yield "| beside the same peers | " + " | ".join(f"{int(size):,}" for size in sizes[1:]) + " |"
    yield "|---" * len(sizes) + "|"
    for case, *figures in rows:
        cells = (re.sub(r"(\S+) ms, +(\S+)", r"\1 ms, \2", figure) for figure in figures)
        yield f"| {GROWING.get(case, case)} | " + " | ".join(cells) + " |"


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as info:
        names = re.findall(r"^model name\s*: (.+)$", info.read(), re.M)
    return f"{os.cpu_count()} cores" + (f" of {names[0]}" if names else "")


def main():
    output, document = map(Path, sys.argv[1:3])
    text = output.read_text(encoding="utf-8")
    figures, _, growth = text.partition("\ngrowth ")
    growth, _, others = ("growth " + growth).partition("\n\n")
    rows = [made for made in map(row, (figures + "\n" + others).splitlines()) if made]
    if not rows or "WARNING: not optimised" in text:
        sys.exit(f"{output} holds no figures of an optimised build.")
    page = document.read_text(encoding="utf-8")
    before, rest = page.split(BEGIN)
    day = datetime.date.fromtimestamp(output.stat().st_mtime).isoformat()
    table = [f"One run on {day}, {processor()}:", "", "| case | figure | goal |", "|---|---|---|"]
    table += [*rows, "", "Milliseconds and ratios for more and more items:", ""]
    table += growth_table(growth.splitlines())
    document.write_text(
        before + BEGIN + "\n".join(table) + "\n" + END + rest.split(END)[1], encoding="utf-8")


if __name__ == "__main__":
    main()
