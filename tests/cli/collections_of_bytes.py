"""Collections of random bytes, and what an independent reader finds in them. The records are those of
docs/examples/read_collection.py, which was written from the file format alone."""
import importlib.util
import random
import re
import struct
import sys
from decimal import Decimal
from pathlib import Path

sys.dont_write_bytecode = True


def load_reader(root):
    spec = importlib.util.spec_from_file_location(
        "read_collection", Path(root) / "docs/examples/read_collection.py")
    reader = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(reader)
    return reader


class Format:
    """The kinds in the reader and in the file format document."""

    NAMES = {"MCS": "music", "VCS": "video", "CCS": "comics", "SCS": "software", "BCS": "books",
             "WCS": "wave", "ICS": "midi", "GCS": "graphic", "MPS": "mp3"}

    def __init__(self, root):
        self.reader = load_reader(root)
        self.lengths = {kind: length for kind, (length, _) in self.reader.KINDS.items()}
        self.fields = {kind: self._fields(fields) for kind, (_, fields) in self.reader.KINDS.items()}
        self.choices = self._choices((Path(root) / "docs/file-format.md").read_text("utf-8"))

    @staticmethod
    def _fields(fields):
        """(name, type or width, entries or None, offset) in their order."""
        widths = {"whole": 2, "choice": 2, "flag": 2, "money": 8, "real": 8, "date": 8}
        found, at = [], 0
        for name, kind, times in re.findall(r"(\w+):(\w+)\*?(\d*)", fields):
            width = widths.get(kind) or int(kind)
            found.append((name, kind, int(times) if times else None, at, width))
            at += width * int(times or 1)
        return found

    @staticmethod
    def _choices(page):
        choices = {}
        for title, section in re.findall(r"^## (.+?)\n(.*?)(?=^## |\Z)", page, re.M | re.S):
            for extension in re.findall(r"`\.(\w{3})`", title):
                choices[extension] = {
                    name: " ".join(entries.split()).split(", ") for name, entries in
                    re.findall(r"`(\w+)`(?: counts through)?:\s(.+?)(?: \||\.\s)", section, re.S)}
        return choices

    def random_bytes(self, kind, items, rng, wild=True):
        """A whole collection; wild: any bytes in any field."""
        file_type = 5 if kind == "MCS" else 1
        header = struct.pack("<hh8s", items, file_type, b"1.71    ")
        length = self.lengths[kind]
        return header.ljust(length, b"\0") + b"".join(
            self.random_item(kind, rng, wild) for _ in range(items))

    def random_item(self, kind, rng, wild):
        if wild and rng.random() < 0.2:
            return rng.randbytes(self.lengths[kind])
        item = b""
        for name, stored, times, _, width in self.fields[kind]:
            for _ in range(times or 1):
                item += self._random_value(kind, name, stored, width, rng, wild)
        if rng.random() < 0.1:
            marker = b"DETELED" if kind == "MCS" else b"DELETED"
            first = self.fields[kind][0][4]
            item = marker.ljust(first) + item[first:]
        return item

    def _random_value(self, kind, name, stored, width, rng, wild):
        if wild and rng.random() < 0.1:
            return rng.randbytes(width)
        if stored == "flag":
            return struct.pack("<h", rng.choice([0, 1]))
        if stored == "choice":
            return struct.pack("<h", rng.randint(-1, len(self.choices[kind][name]) - 1))
        if stored == "whole":
            return struct.pack("<h", rng.randint(-32768, 32767))
        if stored == "money":
            return struct.pack("<q", rng.choice([0, 125000, -1, rng.getrandbits(63)]))
        if stored == "date":
            return struct.pack("<d", rng.choice([0, rng.randint(-600000, 2900000),
                                                 rng.randint(1, 86399) / 86400 + 36526]))
        if stored == "real":
            return struct.pack("<d", rng.choice([0.0, rng.random() * 1e9, rng.randint(0, 10**15)]))
        pieces = ["a", "Z", "é", "Č".encode("cp1250").decode("latin-1"), "€", '"', ",", ";", "\t", "\n",
                  "\r", "\r\n", " ", "=", "+", "-", "@", "'", "<script>", "&amp;", "\x81", "\x7f", "\x01"]
        text = "".join(rng.choice(pieces) for _ in range(rng.randint(0, 20))) if rng.random() < .7 else ""
        raw = b"".join(self._byte(c) for c in text)[:width]
        if wild and rng.random() < 0.2:
            return (raw + b"\0" + rng.randbytes(width))[:width]
        return raw.ljust(width, b" ")

    @staticmethod
    def _byte(character):
        try:
            return character.encode("cp1252")
        except UnicodeEncodeError:
            return bytes([ord(character)]) if ord(character) < 256 else b"?"

    def values(self, kind, raw):
        """The item's values by column: text, or number where it is one; None for no choice."""
        values = {}
        for name, stored, times, at, width in self.fields[kind]:
            if name == "Reserved":
                continue
            if times:
                for entry in range(times):
                    start = at + entry * width
                    values["%s %d" % (name[:-1], entry + 1)] = self.reader.text(raw[start:start + width])
            else:
                values[name] = self._value(kind, name, stored, raw[at:at + width])
        return values

    def _value(self, kind, name, stored, raw):
        reader = self.reader
        if stored == "choice":
            place = reader.whole(raw)
            words = self.choices[kind][name]
            return None if place == -1 else words[place] if 0 <= place < len(words) else place
        if stored in ("flag", "whole"):
            return reader.whole(raw)
        if stored == "money":
            return Decimal(reader.money(raw))
        if stored == "real":
            return reader.real(raw)
        if stored == "date":
            return reader.date(raw) or reader.real(raw)
        return reader.text(raw)

    def items(self, kind, data):
        length = self.lengths[kind]
        return [data[at:at + length] for at in range(length, len(data), length)]

    def is_deleted(self, kind, raw):
        width = self.fields[kind][0][4]
        marker = b"DETELED" if kind == "MCS" else b"DELETED"
        return raw[:width].rstrip(b" ") == marker
