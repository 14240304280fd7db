#!/usr/bin/env python3
"""Compares the reader in docs/examples/ with docs/file-format.md, and both with files:
examples_test.py SOURCE_DIR

Every field of every item of the samples must be what their readable sources say, of the collections
in tests/data what the JSON beside them says, and the page must state the reader's records.
"""
import importlib.util
import json
import re
import struct
import subprocess
import sys
import tempfile
from datetime import datetime, timedelta
from decimal import Decimal
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(sys.argv[1])
READER = ROOT / "docs/examples/read_collection.py"
MARKERS = {"MCS": "DETELED", "BCS": None}  # DELETED elsewhere
MEDIA = {"WCS": {".wav"}, "ICS": {".mid"}, "GCS": {".jpg", ".gif", ".bmp"}, "MPS": {".mp3"}}
failures = []


def check(where, found, expected):
    if found != expected:
        failures.append("%s: %r, expected %r" % (where, found, expected))


# ---- the page

TYPES = {"whole number": "whole", "flag": "flag", "choice": "choice", "money": "money",
         "real": "real", "date": "date"}


class PageKind:
    """The page's description of a kind's records."""

    def __init__(self, section, length):
        self.length = length
        self.fields = {}  # name: the reader's type, entries
        self.choices = {}  # name: the list
        rows = re.findall(r"^\| (\d+) \| (?:(\d+) × )?(\d+) \| (\w+|whole number) \| `(\w+)`",
                          section, re.M)
        end = 0
        for offset, times, width, kind, name in rows:
            check("offset of %s on the page" % name, int(offset), end)
            end += int(width) * int(times or 1)
            stored = width if kind in ("text", "texts") else TYPES[kind]
            self.fields[name] = (stored, int(times) if times else None)
        check("length of the fields on the page", end, length)
        for name, entries in re.findall(
                r"`(\w+)`(?: counts through)?:\s(.+?)(?: \||\.\s)", section, re.S):
            if self.fields.get(name, ("",))[0] == "choice":
                self.choices[name] = " ".join(entries.split()).split(", ")
        lists = [name for name, (stored, _) in self.fields.items() if stored == "choice"]
        check("lists on the page", sorted(self.choices), sorted(lists))


def read_page():
    page = (ROOT / "docs/file-format.md").read_text("utf-8")
    lengths = {}
    for line in page.splitlines():
        row = re.match(r"\| [^|]+ \| `\.(\w{3})` \| (\d+) \|", line)
        if row:
            lengths.setdefault(row[1], int(row[2]))  # of music the current type comes first
    kinds = {}
    for title, section in re.findall(r"^## (.+?)\n(.*?)(?=^## |\Z)", page, re.M | re.S):
        for extension in re.findall(r"`\.(\w{3})`", title):
            kinds[extension] = PageKind(section, lengths[extension])
    return kinds


def check_layout(page):
    spec = importlib.util.spec_from_file_location("read_collection", READER)
    reader = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(reader)
    check("kinds", sorted(page), sorted(reader.KINDS))
    for extension, (length, fields) in reader.KINDS.items():
        layout = {name: (stored, int(times) if times else None)
                  for name, stored, times in re.findall(r"(\w+):(\w+)\*?(\d*)", fields)}
        check("fields of " + extension, list(layout.items()), list(page[extension].fields.items()))
        check("length of " + extension, length, page[extension].length)


# ---- the files

def run(path):
    return subprocess.run([sys.executable, READER, path], capture_output=True, encoding="utf-8")


def read(path):
    done = run(path)
    check("status of %s" % path, (done.returncode, done.stderr), (0, ""))
    return json.loads(done.stdout)


def check_refused(path):
    done = run(path)
    check("status of %s" % path, (done.returncode, done.stdout), (1, ""))
    check("message of %s" % path, "not a collection" in done.stderr, True)
    check("lines for %s" % path, done.stderr.count("\n"), 1)


def date_of(days):
    return (datetime(1899, 12, 30) + timedelta(days=days)).isoformat()


def check_items(path, page, found, expected, value_of):
    """`expected` are the items with the names of the page; value_of(field, type, entry) converts
    an entry to what the reader prints."""
    extension = path.suffix[1:]
    check("%s: Count" % path.name, found["Count"], len(expected))
    check("%s: items" % path.name, len(found["items"]), len(expected))
    marker = MARKERS.get(extension, "DELETED")
    for number, (item, wanted) in enumerate(zip(found["items"], expected), 1):
        where = "%s: item %d" % (path.name, number)
        fields = dict(page.fields)
        if "BarCode" in fields and found["FileType"] == 4:
            del fields["BarCode"]
        check(where + " fields", list(item), ["deleted", *fields])
        check(where + " unknown", set(wanted) - set(fields), set())
        for name, (stored, times) in fields.items():
            kind = "text" if stored.isdigit() else stored
            if times:
                entries = wanted.get(name, [])
                entries = entries + [None] * (times - len(entries))
                value = [value_of(name, kind, entry) for entry in entries]
            else:
                value = value_of(name, kind, wanted.get(name))
            printed = Decimal(item[name]) if kind == "money" else item[name]
            check("%s %s" % (where, name), printed, value)
        first = item[next(iter(fields))]
        check(where + " deleted", item["deleted"], first == marker)


# ---- tests/data: raw values, texts of zero bytes as {"nul": width}

def check_fixture(path, page):
    expected = json.loads((path.parent / (path.name + ".json")).read_text("utf-8"))
    if path.suffix == ".MCS" and expected["header"]["FileType"] < 4:
        return check_refused(path)
    found = read(path)
    header = expected["header"]
    check("%s: header" % path.name, (found["Count"], found["FileType"], found["Version"]),
          (header["Count"], header["FileType"], header["Version"].rstrip(" ")))

    def value_of(name, stored, entry):
        if stored == "text":
            return "" if isinstance(entry, dict) else entry
        if stored == "money":
            return Decimal(str(entry))
        if stored == "date":
            return date_of(entry)
        return entry != 0 if stored == "flag" else entry

    check_items(path, page, found, expected["items"], value_of)


# ---- samples: "Field: value", "- entry", an empty line after each item; left out is blank or 0

def source_items(path, fields):
    items = []
    item = {}
    for line in path.read_text("utf-8").splitlines() + [""]:
        if line.startswith("#"):
            continue
        if not line:
            if item:
                items.append(item)
            item = {}
        elif line.startswith("- "):
            item[name].append(line[2:])
        else:
            name, _, value = line.partition(":")
            item[name] = [] if fields[name][1] else value.strip()
    return items


def check_sample(path, page):
    found = read(path)
    check("%s: FileType" % path.name, found["FileType"], 5 if path.suffix == ".MCS" else 1)
    check("%s: Version" % path.name, found["Version"], "1.71")
    endings = MEDIA.get(path.suffix[1:])
    if endings:
        names = sorted(file.name for file in (path.parent / "media").iterdir()
                       if file.suffix in endings)
        expected = [{"FileName": name, "FilePath": "media"} for name in names]
    else:
        expected = source_items(path.parent / "sources" / (path.stem + ".txt"), page.fields)
    check("%s: no items" % path.name, len(expected) > 1, True)

    def value_of(name, stored, entry):
        if stored == "text":
            return entry or ""
        if stored == "choice" and entry in page.choices[name]:
            return page.choices[name].index(entry)
        if stored == "date":
            return datetime.fromisoformat(entry).isoformat() if entry else date_of(0)
        if stored == "flag":
            return entry == "1"
        return Decimal(entry or 0)

    check_items(path, page, found, expected, value_of)


# ---- what no file at hand shows

def check_odd_files(folder):
    blank = {"Label": "", "AquireDate": date_of(0), "Commercial": False, "PurPrice": "0"}
    cases = [  # name, bytes, what some fields of the last item are; None for a refusal
        ("a.txt", b"\1\0\1\0", None),
        ("empty.mcs", b"", None),
        ("empty.vcs", b"", {}),
        ("negative.BCS", b"\xfe\xff\1\0", {}),
        ("missing.VCS", b"\2\0\1\0", blank),
        ("cut off.VCS", b"\1\0\1\0".ljust(678) + b"DELETED",
         {**blank, "Label": "DELETED", "deleted": True}),
        ("zeros.VCS", b"\1\0\1\0".ljust(678) + b"DELETED\0", {"deleted": False}),
        ("marker.MCS", b"\1\0\5\0".ljust(2372) + b"DELETED ", {"deleted": False}),
        ("book.BCS", b"\1\0\1\0".ljust(224) + b"DELETED ", {"deleted": True}),
        ("bytes.WCS", b"\1\0\1\0".ljust(328) + b"\x81\x80\xe9 \0x", {"FileName": "\x81€é"}),
        ("newer.MCS", b"\1\0\6\0".ljust(2 * 2372 - 36) + b"1 2  ", {"BarCode": "1 2"}),
    ]
    for name, data, expected in cases:
        path = Path(folder) / name
        path.write_bytes(data)
        if expected is None:
            check_refused(path)
            continue
        found = read(path)
        item = found["items"][-1] if found["items"] else {}
        check("%s: Count" % name, found["Count"], len(found["items"]))
        check(name, {field: item.get(field) for field in expected}, expected)
        check("%s: an item" % name, bool(item), bool(expected))
    for days, text in [("-1.25", "1899-12-29T06:00:00"), ("36526.75", "2000-01-01T18:00:00"),
                       ("nan", None), ("-657435", None), ("2958466", None)]:
        path = Path(folder) / "date.VCS"
        path.write_bytes(b"\1\0\1\0".ljust(678 + 620) + struct.pack("<d", float(days)))
        check("date " + days, read(path)["items"][0]["AquireDate"], text)


def main():
    page = read_page()
    check_layout(page)
    samples = sorted(ROOT.glob("samples/*.?[CP]S"))
    fixtures = [path.with_suffix("") for path in sorted(ROOT.glob("tests/data/*.json"))]
    for files in (samples, fixtures):
        check("kinds among the files", {path.suffix[1:] for path in files}, set(page))
    for path in samples:
        check_sample(path, page[path.suffix[1:]])
    for path in fixtures:
        check_fixture(path, page[path.suffix[1:]])
    with tempfile.TemporaryDirectory() as folder:
        check_odd_files(folder)
    print("\n".join(failures) or "%d files are read as they should be" % len(samples + fixtures))
    sys.exit(1 if failures else 0)


main()
