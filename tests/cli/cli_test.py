#!/usr/bin/env python3
"""Runs quillbox-cli as a process: cli_test.py PROGRAM SOURCE_DIR [unittest arguments]."""
import csv
import io
import json
import os
import random
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from decimal import Decimal
from html.parser import HTMLParser
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).parent))
from collections_of_bytes import Format  # noqa: E402

PROGRAM = os.path.abspath(sys.argv[1])
ROOT = Path(sys.argv[2]).resolve()
ROUNDS = int(os.environ.get("QUILLBOX_ROUNDS", "3"))
FORMAT = Format(ROOT)


class CliTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def run_it(self, *arguments, stdin=None, status=0):
        done = subprocess.run([PROGRAM, *map(str, arguments)], input=stdin, capture_output=True,
                              cwd=self.folder)
        self.assertEqual(done.returncode, status, (arguments, done.stdout[-2000:], done.stderr[-2000:]))
        return done.stdout, done.stderr.decode("utf-8")

    def sample(self, name, new_name=None):
        path = self.folder / (new_name or name)
        shutil.copy(ROOT / "samples" / name, path)
        return path

    def names(self):
        return sorted(path.name for path in self.folder.iterdir())


def as_on_page(text):
    """Control characters become blanks, and all line ends the same."""
    return "".join(" " if c < " " and c != "\n" or c == "\x7f" else c for c in text)


class Page(HTMLParser):
    """The cells of the table and other contents that matter."""

    def __init__(self, text):
        super().__init__()
        self.rows, self.scripts, self._cell = [], 0, None
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        known = ("html head meta title style body h1 p div figure figcaption svg text rect label input "
                 "output table thead tbody tr th td button details summary ol li script")
        if tag not in known.split():
            raise AssertionError("a tag of some text: " + tag)
        if any(name.startswith("on") for name, _ in attributes):
            raise AssertionError("a handler of some text")
        self.scripts += tag == "script"
        if tag == "tr":
            self._row = []
        if tag == "td":
            self._cell = ""

    def handle_endtag(self, tag):
        if tag == "td":
            self._row.append(self._cell)
            self._cell = None
        if tag == "tr" and self._row:
            self.rows.append(self._row)

    def handle_data(self, data):
        if self._cell is not None:
            self._cell += data


class RoundTrips(CliTest):
    """Any bytes in any field: an export equals what an independent reader finds, and importing it
    changes nothing."""

    def each(self, wild=True):
        for kind in FORMAT.lengths:
            for seed in range(ROUNDS):
                rng = random.Random("%s %d" % (kind, seed))
                data = FORMAT.random_bytes(kind, rng.randint(0, 40), rng, wild)
                path = self.folder / ("seed %d.%s" % (seed, kind))
                path.write_bytes(data)
                yield kind, path, data
                path.unlink()

    def expect_untouched(self, path, data, text, *options):
        out, _ = self.run_it("import", path, "-", *options, stdin=text)
        self.assertEqual(out.decode(), "nothing to change\n")
        self.assertEqual(path.read_bytes(), data)
        self.assertEqual(self.names(), [path.name])

    def expect_value(self, found, wanted, where):
        if isinstance(wanted, float):
            found = float(found)
            if wanted != wanted:
                return self.assertNotEqual(found, found, where)
        elif isinstance(wanted, Decimal):
            self.assertRegex(found, r"\.\d{4}$", where)
            found = Decimal(found)
        elif isinstance(wanted, int):
            found = int(found)
        self.assertEqual(found, "" if wanted is None else wanted, where)

    def test_csv(self):
        for kind, path, data in self.each():
            out, _ = self.run_it("export", path)
            rows = list(csv.reader(io.StringIO(out.decode("utf-8"), newline="")))
            items = FORMAT.items(kind, data)
            self.assertEqual(len(rows), len(items) + 1)
            for number, (row, raw) in enumerate(zip(rows[1:], items), 1):
                values = FORMAT.values(kind, raw)
                self.assertEqual(rows[0], ["Item", *values])
                self.assertEqual(row[0], str(number))
                for name, text in zip(rows[0][1:], row[1:]):
                    wanted = values[name]
                    if isinstance(wanted, str) and wanted.endswith("T00:00:00"):
                        wanted = wanted[:10]
                    self.expect_value(text, wanted, (number, name))
            self.expect_untouched(path, data, out)

    def test_csv_for_spreadsheets(self):
        for kind, path, data in self.each():
            out, _ = self.run_it("export", path, "--for-spreadsheet")
            rows = list(csv.reader(io.StringIO(out.decode("utf-8"), newline="")))
            plain = csv.reader(io.StringIO(self.run_it("export", path)[0].decode("utf-8"), newline=""))
            self.assertEqual(rows[0][0], "'Item")
            for row, told in zip(rows[1:], list(plain)[1:]):
                for guarded, text in zip(row, told):
                    if guarded != text:
                        self.assertEqual(guarded, "'" + text)
                    elif text[:1] in ("=", "+", "@", "\t", "\r", "\n"):
                        self.fail("a spreadsheet would run %r" % text)
            self.expect_untouched(path, data, out)

    def test_csv_as_spreadsheets_write_it(self):
        for kind, path, data in self.each():
            out, _ = self.run_it("export", path)
            rows = list(csv.reader(io.StringIO(out.decode("utf-8"), newline="")))
            for separator, line_end in ((";", "\n"), ("\t", "\r\n"), (",", "\n")):
                text = io.StringIO()
                csv.writer(text, delimiter=separator, lineterminator=line_end,
                           quoting=csv.QUOTE_ALL).writerows(rows)
                self.expect_untouched(path, data, b"\xef\xbb\xbf" + text.getvalue().encode())

    def test_json(self):
        for kind, path, data in self.each():
            out, _ = self.run_it("export", path, "--format", "json")
            found = json.loads(out, parse_float=str)
            self.assertEqual((found["kind"], found["version"]), (FORMAT.NAMES[kind], "1.71"))
            items = FORMAT.items(kind, data)
            self.assertEqual(len(found["items"]), len(items))
            for number, (item, raw) in enumerate(zip(found["items"], items), 1):
                self.assertEqual(item.pop("item"), number)
                self.assertEqual(item.pop("deleted", False), FORMAT.is_deleted(kind, raw))
                self.expect_item(item, FORMAT.values(kind, raw), number)
            self.expect_untouched(path, data, out)
            # Written again by another program.
            if b"inf" not in out and b"nan" not in out:
                again = json.dumps(json.loads(out, parse_float=Decimal), default=float, indent=1)
                exact = json.loads(out, parse_float=Decimal)
                if json.loads(again, parse_float=Decimal) == exact:
                    self.expect_untouched(path, data, again.encode())

    def test_json_is_what_the_schema_says(self):
        try:
            import jsonschema
        except ImportError:
            self.skipTest("there is no jsonschema here")
        schema = json.loads((ROOT / "docs/quillbox-collection.schema.json").read_text("utf-8"))
        jsonschema.Draft7Validator.check_schema(schema)
        validator = jsonschema.Draft7Validator(schema)
        for kind, path, data in self.each():
            found = json.loads(self.run_it("export", path, "--format", "json")[0])
            self.assertEqual([error.message for error in validator.iter_errors(found)], [])
            named = {name for item in found["items"] for name in item}
            names = {"item", "deleted", *(name for name, *_ in FORMAT.fields[kind])} - {"Reserved"}
            self.assertLessEqual(named - {"deleted"}, names)
            if found["items"]:
                found["items"][0]["Colour"] = "red"
                self.assertNotEqual(list(validator.iter_errors(found)), [])

    def expect_item(self, item, values, number):
        for name, found in item.items():
            if isinstance(found, list):
                entries = [value for key, value in values.items() if key.rsplit(" ", 1)[0] == name[:-1]]
                self.assertEqual(found, entries[:len(found)])
                self.assertFalse(any(entries[len(found):]))
                self.assertTrue(not found or found[-1])
                continue
            wanted = values[name]
            if isinstance(wanted, str) and wanted.endswith("T00:00:00") and name == "AquireDate":
                wanted = wanted[:10]
            found = "" if found is None else str(int(found)) if isinstance(found, (bool, int)) else found
            self.expect_value(found, wanted, (number, name))

    def test_sqlite(self):
        for kind, path, data in self.each():
            out = self.folder / "out.db"
            self.run_it("export", path, "-f", "sqlite", "-o", out)
            database = sqlite3.connect(out)
            self.assertEqual(database.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
            self.assertEqual(database.execute("PRAGMA foreign_key_check").fetchall(), [])
            items = FORMAT.items(kind, data)
            self.assertEqual(database.execute("SELECT * FROM collection").fetchall(),
                             [(FORMAT.NAMES[kind], "1.71", 5 if kind == "MCS" else 1, len(items))])
            database.row_factory = sqlite3.Row
            rows = database.execute("SELECT * FROM items ORDER BY item").fetchall()
            self.assertEqual(len(rows), len(items))
            for number, (row, raw) in enumerate(zip(rows, items), 1):
                self.assertEqual((row["item"], row["deleted"]),
                                 (number, int(FORMAT.is_deleted(kind, raw))))
                self.expect_row(kind, database, row, raw)
            shown = sum(not FORMAT.is_deleted(kind, raw) for raw in items)
            self.assertEqual(database.execute("SELECT count(*) FROM catalogue").fetchone()[0], shown)
            database.close()
            out.unlink()

    def expect_row(self, kind, database, row, raw):
        entries = {}
        for name, wanted in FORMAT.values(kind, raw).items():
            if " " in name:
                entries[int(name.rsplit(" ", 1)[1])] = wanted
                continue
            found = row[name]
            if isinstance(wanted, Decimal):
                wanted = int(wanted * 10000)
            elif isinstance(wanted, str) and wanted.endswith("T00:00:00"):
                wanted = wanted[:10]
            elif isinstance(wanted, float) and wanted != wanted:
                wanted = None  # in a table it is NULL unless it is a number
            self.assertEqual(found, wanted, (row["item"], name))
        if entries:
            found = database.execute("SELECT position, text FROM entries WHERE item = ?", (row["item"],))
            self.assertEqual({position: text for position, text in found},
                             {position: text for position, text in entries.items() if text})

    def test_html(self):
        """Every text is on the page unchanged, and only the page's own markup is markup."""
        for kind, path, data in self.each():
            out, _ = self.run_it("export", path, "-f", "html")
            page = Page(out.decode("utf-8"))
            items = FORMAT.items(kind, data)
            shown = [number for number, raw in enumerate(items, 1) if not FORMAT.is_deleted(kind, raw)]
            self.assertEqual([int(row[0]) for row in page.rows], shown)
            self.assertEqual(page.scripts, 1)
            first = FORMAT.fields[kind][0][0]
            texts = [FORMAT.values(kind, items[number - 1])[first] for number in shown]
            if any(texts):
                self.assertEqual([row[1] for row in page.rows], [as_on_page(text) for text in texts])

    def test_into_a_new_collection(self):
        """An export creates the same collection again, except for what text cannot express."""
        for kind, path, data in self.each(wild=False):
            for form in ("csv", "json"):
                out, _ = self.run_it("export", path, "-f", form)
                again = self.folder / ("again." + kind)
                self.run_it("import", "--new", again, "-", stdin=out)
                self.assertEqual(self.run_it("export", again, "-f", form)[0], out)
                again.unlink()


if __name__ == "__main__":
    from cli_browser import *  # noqa: E402,F401,F403
    from cli_completion import *  # noqa: E402,F401,F403
    from cli_commands import *  # noqa: E402,F401,F403
    from cli_keep import *  # noqa: E402,F401,F403
    from cli_overview import *  # noqa: E402,F401,F403
    from cli_terminal import *  # noqa: E402,F401,F403
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
