"""The commands of quillbox-cli that maintain a collection: check, restore, undelete, sort."""
import json
import struct

from __main__ import CliTest, ROOT


class Check(CliTest):
    def found(self, name, status=1):
        out, _ = self.run_it("check", "--json", name, status=status)
        return [(finding.get("item"), finding["what"]) for finding in json.loads(out)[0]["findings"]]

    def patched(self, name, *patches):
        path = self.sample(name)
        data = bytearray(path.read_bytes())
        for at, some in patches:
            data[at:at + len(some)] = some
        path.write_bytes(data)

    def test_samples_are_clean(self):
        for path in sorted((ROOT / "samples").glob("*.?[CP]S")):
            self.sample(path.name)
            self.assertEqual(self.found(path.name, status=0), [])

    def test_values(self):
        self.patched("jazz.MCS", (2372, b"a\tb"), (2 * 2372 + 2186, b"\7\0"), (3 * 2372 + 2334, b"\x0f\0"),
                     (4 * 2372, b"x\0hidden"))
        self.assertEqual(self.found("jazz.MCS"), [
            (1, "Artist: control characters"), (2, "HasBook: 7, neither 0 nor 1"),
            (3, "Genre: place 15 of a list from 0 to 14"),
            (4, "Artist: characters behind a zero byte, which nothing shows")])
        self.patched("tapes.VCS", (678 + 620, struct.pack("<d", float("nan"))))
        self.assertEqual(self.found("tapes.VCS"), [(1, "AquireDate: not a date")])
        self.patched("songs.MPS", (328 + 192, struct.pack("<d", -1)))
        self.assertEqual(self.found("songs.MPS"), [(1, "FileSize: not a size")])

    def test_sizes(self):
        path = self.sample("shelf.BCS")
        data = path.read_bytes()
        count = struct.unpack_from("<h", data)[0]
        path.write_bytes(data + b"x")
        self.assertEqual(self.found("shelf.BCS"), [(None, "1 bytes behind the last item")])
        path.write_bytes(data[:224 * 3 + 10])
        self.assertEqual(self.found("shelf.BCS"), [
            (None, "the file ends at item 3 of %d" % count), (3, "is cut off")])
        path.write_bytes(data[:224 + 10])
        self.assertEqual(self.found("shelf.BCS"), [
            (None, "the file ends at item 1 of %d" % count), (1, "is cut off")])
        path.write_bytes(data[:224])
        self.assertEqual(self.found("shelf.BCS"), [(None, "the file ends at item 0 of %d" % count)])
        path.write_bytes(b"\xff\xff" + data[2:12])
        self.assertEqual(self.found("shelf.BCS"), [(None, "the count is -1")])
        path.write_bytes(data[:-224])  # a program that was ended between header and item
        self.assertEqual(self.found("shelf.BCS", status=0), [])

    def test_an_interrupted_sort(self):
        self.sample("shelf.BCS", "shelf.bak")
        self.sample("shelf.BCS")
        self.assertEqual(self.found("shelf.BCS"),
                         [(None, "backup of a sort beside it: %s" % (self.folder / "shelf.bak"))])


class Restore(CliTest):
    def test_puts_a_lost_collection_back(self):
        before = self.sample("shelf.BCS", "shelf.bak").read_bytes()
        self.run_it("restore", "shelf.BCS")
        self.assertEqual(self.names(), ["shelf.BCS"])
        self.assertEqual((self.folder / "shelf.BCS").read_bytes(), before)

    def test_keeps_what_is_there(self):
        whole = self.sample("shelf.BCS", "shelf.bak").read_bytes()
        (self.folder / "shelf.BCS").write_bytes(whole[:1000])
        (self.folder / "shelf.BCS~").write_bytes(b"earlier")
        out, _ = self.run_it("restore", "shelf.BCS")
        self.assertEqual(self.names(), ["shelf.BCS", "shelf.BCS~", "shelf.BCS~2"])
        self.assertEqual((self.folder / "shelf.BCS").read_bytes(), whole)
        self.assertEqual((self.folder / "shelf.BCS~").read_bytes(), b"earlier")
        self.assertEqual((self.folder / "shelf.BCS~2").read_bytes(), whole[:1000])
        self.assertIn(b"kept as", out)

    def test_refuses_a_backup_that_is_not_whole_or_of_another_kind(self):
        whole = self.sample("shelf.BCS").read_bytes()
        for backup in (whole[:1000], b"", (ROOT / "samples/jazz.MCS").read_bytes()):
            (self.folder / "shelf.bak").write_bytes(backup)
            _, err = self.run_it("restore", "shelf.BCS", status=1)
            self.assertEqual(err, "quillbox-cli: shelf.BCS: %s is not a whole collection of books\n"
                             % (self.folder / "shelf.bak"))
            self.assertEqual((self.folder / "shelf.BCS").read_bytes(), whole)
            self.assertEqual((self.folder / "shelf.bak").read_bytes(), backup)

    def test_asks_which_of_two(self):
        old = (ROOT / "tests/data/albums-type4.MCS").read_bytes()
        (self.folder / "jazz.BAK").write_bytes(old)
        now = self.sample("jazz.MCS").read_bytes()
        self.sample("jazz.MCS", "jazz.bak")
        _, err = self.run_it("restore", "jazz.MCS", status=1)
        self.assertEqual(err, "quillbox-cli: jazz.MCS: there are two backups, %s and %s; say which with --from\n"
                         % tuple(self.folder / name for name in ("jazz.bak", "jazz.BAK")))
        self.run_it("restore", "jazz.MCS", "--from", "upgrade")
        self.assertEqual((self.folder / "jazz.MCS").read_bytes(), old)
        self.assertEqual((self.folder / "jazz.MCS~").read_bytes(), now)

    def test_nothing_to_put_back(self):
        self.sample("shelf.BCS")
        _, err = self.run_it("restore", "shelf.BCS", status=1)
        self.assertEqual(err, "quillbox-cli: shelf.BCS: there is no backup beside it\n")


class Undelete(CliTest):
    def test_gives_the_first_text_back(self):
        path = self.sample("jazz.MCS")
        before = path.read_bytes()
        data = bytearray(before)
        data[2 * 2372:2 * 2372 + 50] = b"DETELED".ljust(50)
        path.write_bytes(data)
        self.run_it("undelete", "jazz.MCS", "2", "--text", "John Coltrane")
        self.assertEqual(path.read_bytes()[2 * 2372:], before[2 * 2372:])

    def test_says_when_nothing_else_is_left(self):
        for name, length, rest in (("tapes.VCS", 678, bytes(628)), ("shelf.BCS", 224, None)):
            path = self.sample(name)
            data = bytearray(path.read_bytes())
            data[length:length + 50] = b"DELETED".ljust(50)
            if rest:
                data[length + 50:2 * length] = rest
            path.write_bytes(data)
            out, _ = self.run_it("undelete", name, "1", "--text", "back")
            self.assertEqual(b"emptied everything else" in out, rest is not None)
            data[length:length + 50] = b"back".ljust(50)
            self.assertEqual(path.read_bytes(), data)

    def test_refuses_what_is_not_deleted(self):
        self.sample("jazz.MCS")
        self.sample("shelf.BCS")
        for name, item, why in (("jazz.MCS", "1", "item 1 is not deleted"),
                                ("jazz.MCS", "0", "there is no item 0, the last one is 42"),
                                ("jazz.MCS", "43", "there is no item 43, the last one is 42"),
                                ("shelf.BCS", "1", "item 1 is not deleted")):
            _, err = self.run_it("undelete", name, item, "--text", "x", status=1)
            self.assertEqual(err, "quillbox-cli: %s: %s\n" % (name, why))

    def test_refuses_texts_that_would_not_do(self):
        path = self.sample("jazz.MCS")
        data = bytearray(path.read_bytes())
        data[2372:2372 + 50] = b"DETELED".ljust(50)
        path.write_bytes(data)
        for text, why in (("", "the text is empty"), (" ", "the text is empty"),
                          ("DETELED", "the text is the deleted marker"),
                          ("x" * 51, "too long: 51 characters where 50 fit"),
                          ("Č", "a character that the file cannot hold")):
            _, err = self.run_it("undelete", "jazz.MCS", "1", "--text", text, status=1)
            self.assertEqual(err, "quillbox-cli: jazz.MCS: %s\n" % why)
        self.assertEqual(path.read_bytes(), data)


class Sort(CliTest):
    def test_books_are_sorted_under_their_own_name(self):
        path = self.sample("shelf.BCS")
        data = path.read_bytes()
        items = [data[at:at + 224] for at in range(224, len(data), 224)]
        self.run_it("sort", "shelf.BCS", "--by", "author")
        self.assertEqual(self.names(), ["shelf.BCS"])
        self.assertEqual(path.read_bytes(), data[:224].replace(data[12:224], b"\0" * 212) + b"".join(
            sorted(items, key=lambda item: item[:50].upper())))

    def test_a_backup_stops_it(self):
        path = self.sample("shelf.BCS")
        before = path.read_bytes()
        (self.folder / "shelf.bak").write_bytes(b"x")
        _, err = self.run_it("sort", "shelf.BCS", "--by", "Author", status=1)
        self.assertIn("shelf.bak: File already exists", err)
        self.assertEqual(path.read_bytes(), before)
