"""The commands of quillbox-cli that read all items: list, loans, doubles, summary."""
import json
import struct

from __main__ import CliTest, FORMAT


class List(CliTest):
    def listed(self, *arguments):
        out, _ = self.run_it("list", *arguments)
        return [line.split("\t") for line in out.decode("utf-8").splitlines()]

    def test_lines_its_columns_up(self):
        self.sample("jazz.MCS")
        out, _ = self.run_it("list", "jazz.MCS", "--where", "album=kind of", "-c", "Item,Artist,CurrCost,Genre")
        self.assertEqual(out.decode(), "Item  Artist       CurrCost  Genre\n"
                                       "   1  Miles Davis   14.5000  Popular/Top 40\n")

    def test_looks_for_texts_without_capitals_and_accents(self):
        self.sample("jazz.MCS")
        rows = self.listed("jazz.MCS", "--tsv", "-w", "Artist=JOAO", "-w", "songs=doralice", "-c", "Album")
        self.assertEqual(rows, [["Album"], ["Getz/Gilberto"]])

    def test_an_empty_text_looks_for_nothing_there(self):
        path = self.sample("jazz.MCS")
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item,Artist\n5,\n")
        self.assertEqual(self.listed("jazz.MCS", "--tsv", "-w", "Artist=", "-c", "Item"), [["Item"], ["5"]])

    def test_orders_by_several_fields(self):
        rows = b"Author,Title\nB,Vol. 10\nA,Vol. 2\nB,Vol. 2\nA,Vol. 10\n"
        self.run_it("import", "new.BCS", "-", "--new", stdin=rows)
        found = self.listed("new.BCS", "--tsv", "-s", "Author", "-s", "Title:down", "-c", "Item")
        self.assertEqual([row[0] for row in found[1:]], ["4", "2", "1", "3"])
        found = self.listed("new.BCS", "--tsv", "-s", "Title", "-c", "Item")
        self.assertEqual([row[0] for row in found[1:]], ["2", "3", "1", "4"])
        found = self.listed("new.BCS", "--tsv", "-s", "Item:down", "-c", "Item")
        self.assertEqual([row[0] for row in found[1:]], ["4", "3", "2", "1"])

    def test_deleted_items_are_listed_when_asked_for(self):
        path = self.sample("tapes.VCS")
        data = bytearray(path.read_bytes())
        data[678:678 * 2] = b"DELETED".ljust(50) + bytes(628)
        path.write_bytes(data)
        self.assertEqual(self.listed("tapes.VCS", "--tsv", "-c", "Item")[1], ["2"])
        self.assertEqual(self.listed("tapes.VCS", "--tsv", "-c", "Item", "--deleted")[1], ["1"])

    def test_nothing_steers_the_terminal(self):
        path = self.sample("jazz.MCS")
        data = bytearray(path.read_bytes())
        data[2372:2372 + 12] = b"a\x1b[31m\x9bb\tc\n\x90d"[:12]
        path.write_bytes(data)
        for options in ([], ["--tsv"]):
            out, _ = self.run_it("list", "jazz.MCS", "-c", "Artist", "-w", "Item=1", *options)
            for character in out.decode("utf-8"):
                self.assertTrue(character in "\n\t" or character.isprintable(), repr(character))

    def test_json(self):
        self.sample("jazz.MCS")
        out, _ = self.run_it("list", "jazz.MCS", "--json", "-w", "Album=kind of", "-c", "item,artist")
        self.assertEqual(json.loads(out), [{"Item": "1", "Artist": "Miles Davis"}])

    def test_unknown_fields_are_a_wrong_command(self):
        self.sample("jazz.MCS")
        for arguments in (["-w", "Colour=red"], ["-w", "Artist"], ["-s", "Colour"], ["-c", "Colour"]):
            self.run_it("list", "jazz.MCS", *arguments, status=2)


class Loans(CliTest):
    def test_tells_who_has_what(self):
        self.sample("jazz.MCS")
        out, _ = self.run_it("loans", "--json", "jazz.MCS")
        loans = json.loads(out)[0]["loans"]
        self.assertEqual([loan["Borrower"] for loan in loans], ["Ellen S.", "Jonas B.", "Martin K.", "Ruth M."])
        self.assertEqual((loans[0]["Item"], loans[0]["Overdue"], loans[0]["Booklet"]),
                         ("11", "overdue", "with booklet"))

    def test_says_when_there_is_nothing(self):
        self.run_it("import", "new.MCS", "-", "--new", stdin=b"Artist\nA\n")
        self.assertEqual(self.run_it("loans", "new.MCS")[0], b"nothing is on loan\n")

    def test_only_music_has_them(self):
        self.sample("shelf.BCS")
        self.run_it("loans", "shelf.BCS", status=1)


class Doubles(CliTest):
    def test_tells_what_is_there_twice(self):
        rows = "Artist,Album\nThe Béatles,Help!\nX,Y\nbeatles,HELP\n"
        self.run_it("import", "new.MCS", "-", "--new", stdin=rows.encode())
        out, _ = self.run_it("doubles", "new.MCS", status=1)
        self.assertEqual(out.decode(), "item 1: The Béatles, Help!\nitem 3: beatles, HELP\n\n")
        out, _ = self.run_it("doubles", "--json", "new.MCS", status=1)
        self.assertEqual([[item["item"] for item in group] for group in json.loads(out)[0]["doubles"]], [[1, 3]])
        out, _ = self.run_it("check", "new.MCS", status=1)
        self.assertEqual(out, b"new.MCS: item 3: the same as item 1\n")


class Summary(CliTest):
    def test_all_commands_take_the_same_items_for_deleted(self):
        for kind, length in FORMAT.lengths.items():
            marker = b"DETELED" if kind == "MCS" else b"DELETED"
            path = self.folder / ("some." + kind)
            texts = (b"a", marker, marker + b"x", b" " + marker)
            path.write_bytes(struct.pack("<hh8s", 4, 5 if kind == "MCS" else 1, b"1.71").ljust(length, b"\0") +
                             b"".join(text.ljust(100)[:length].ljust(length, b"\0") for text in texts))
            [info] = json.loads(self.run_it("info", "--json", path.name)[0])
            [summary] = json.loads(self.run_it("summary", "--json", path.name)[0])
            exported = json.loads(self.run_it("export", path.name, "-f", "json")[0])["items"]
            listed = json.loads(self.run_it("list", path.name, "--json", "-c", "Item")[0])
            self.assertEqual((info["deleted"], summary["deleted"], summary["items"]), (1, 1, 3))
            self.assertEqual([item["item"] for item in exported if "deleted" in item], [2])
            self.assertEqual([item["Item"] for item in listed], ["1", "3", "4"])

    def test_tells_what_items_come_to(self):
        rows = b"Artist,AquireCost,CurrCost,MediaType\nA,1.25,2,Compact Disc\nDETELED,9,9,Cart\nB,1,1,\n"
        self.run_it("import", "new.MCS", "-", "--new", stdin=rows)
        out, _ = self.run_it("summary", "--json", "new.MCS")
        [found] = json.loads(out)
        self.assertEqual((found["items"], found["deleted"], found["paid"], found["worth"]), (2, 1, 2.25, 3))
        self.assertEqual(found["groups"][0]["bars"],
                         [{"label": "Compact Disc", "items": 1, "paid": 1.25, "worth": 2},
                          {"label": "(none)", "items": 1, "paid": 1, "worth": 1}])
        out, _ = self.run_it("summary", "new.MCS")
        self.assertTrue(out.startswith(b"2 albums and 1 deleted, paid 2.25, worth 3\n"))
