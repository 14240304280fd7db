#!/usr/bin/env python3
"""Prints a collection as JSON: read_collection.py FILE. It goes by docs/file-format.md alone."""
import json, math, re, struct, sys
from datetime import datetime, timedelta
from decimal import Decimal
from pathlib import Path

# The fields in their order, NAME:TYPE, or NAME:TYPE*N for N in a row; a number is a text that wide.
MUSIC4 = """Artist:50 Album:50 RecordCo:50 Songs:50*40 AquireDate:20 AquireCost:money CurrCost:money
  HasBook:flag MediaType:choice CurrLoaned:flag Borrower:50 DateLoaned:20 DueDate:20 BookLoaned:flag
  Notes:50 Genre:choice"""
MEDIA = "FileName:64 FilePath:128 FileSize:real Description:128"
KINDS = {  # by extension: the length of a record, its fields
  "MCS": (2372, MUSIC4 + " BarCode:36"),
  "VCS": (678, """Label:50 Commercial:flag Movies:50*10 Publisher:50 MediaType:choice PurPrice:money
    CurrPrice:money AquireDate:date Notes:50"""),
  "SCS": (662, """DiskLabel:50 Commercial:flag Shareware:flag MediaType:choice PurPrice:whole
    CurrPrice:whole Programs:50*10 Notes:50 Publisher:50 CDRequired:flag"""),
  "CCS": (640, """BookTitle:50 ComicTitle:50 Notes:50*5 Artists:50 Bagged:flag Boarded:flag
    Heroes:50 Villains:50 FirstApp:50 PurPrice:money CurrPrice:money AquireDate:20 Publisher:50"""),
  "BCS": (224, """Author:50 Title:50 Publisher:50 Genre:choice MediaType:choice Notes:50
    Reserved:20"""),
  "WCS": (328, MEDIA), "ICS": (328, MEDIA), "GCS": (328, MEDIA), "MPS": (328, MEDIA)}
MARKERS = {"MCS": b"DETELED"}  # of deleted items; DELETED in every other kind
# Windows-1252, and for the five bytes that it leaves open the characters of the same number.
CHARACTERS = [bytes([byte]).decode("cp1252", "ignore") or chr(byte) for byte in range(256)]
def text(raw): return "".join(CHARACTERS[byte] for byte in raw.split(b"\0")[0].rstrip(b" "))
def whole(raw): return int.from_bytes(raw, "little", signed=True)
def money(raw): return str(Decimal(whole(raw)) / 10000)  # as a text, which rounds nothing
def real(raw): return struct.unpack("<d", raw)[0]
def size(raw): return real(raw) if math.isfinite(real(raw)) else None
def date(raw):
    part, days = math.modf(real(raw))
    if not -657434 <= days <= 2958465:  # the years 100 to 9999
        return None
    seconds = min(round(abs(part) * 86400), 86399)  # the part counts forward, before day zero too
    return (datetime(1899, 12, 30) + timedelta(days, seconds)).isoformat()
TYPES = {"whole": (2, whole), "choice": (2, whole), "flag": (2, lambda raw: whole(raw) != 0),
         "money": (8, money), "real": (8, size), "date": (8, date)}  # widths and meanings

def read_record(data, at, fields):
    record = {}
    for name, kind, times in re.findall(r"(\w+):(\w+)\*?(\d*)", fields):
        width, decode = TYPES.get(kind) or (int(kind), text)
        starts = range(at, at + width * int(times or 1), width)
        values = [decode(data[i:i + width].ljust(width, b"\0")) for i in starts]  # missing: zeros
        record[name], at = values if times else values[0], starts.stop
    return record

def read_collection(path):
    kind = path[-3:].upper()
    if kind not in KINDS:
        raise ValueError("not a collection, no kind has this extension")
    data = Path(path).read_bytes()
    header = read_record(data, 0, "Count:whole FileType:whole Version:8")
    if kind == "MCS" and header["FileType"] < 4:
        raise ValueError("not a collection, or of file type %d" % header["FileType"])
    length, fields = (2336, MUSIC4) if kind == "MCS" and header["FileType"] == 4 else KINDS[kind]
    first = int(re.search(r"\d+", fields)[0])  # the width of the field that holds the marker
    items = [{"deleted": data[at:at + first].rstrip(b" ") == MARKERS.get(kind, b"DELETED"),
              **read_record(data, at, fields)}
             for at in range(length, length * (header["Count"] + 1), length)]
    return {"kind": kind, **header, "Count": len(items), "items": items}

if __name__ == "__main__":
    path = sys.argv[1] if len(sys.argv) == 2 else sys.exit(__doc__)
    try:
        print(json.dumps(read_collection(path), indent=1))
    except (OSError, ValueError) as error:
        sys.exit("%s: %s" % (path, error))
