"""What each command of quillbox-cli prints and does."""
import json
import os
import signal
import struct
import subprocess
import unittest

from __main__ import CliTest, PROGRAM, ROOT


class Use(CliTest):
    def test_wrong_commands_are_status_2(self):
        for arguments in ([], ["nonsense"], ["info"], ["info", "--nonsense", "a.MCS"],
                          ["export", "a.MCS", "--format", "pdf"], ["export", "a.MCS", "b.MCS"],
                          ["export", "a.MCS", "--format", "sqlite"], ["import", "a.MCS"],
                          ["undelete", "a.MCS", "one", "--text", "x"], ["undelete", "a.MCS", "1"],
                          ["export", "a.MCS", "-f", "sqlite", "-o", "-"], ["sort", "a.MCS"],
                          ["export", "a.MCS", "-f", "json", "--for-spreadsheet"], ["restore", "a.MCS", "b.MCS"]):
            out, err = self.run_it(*arguments, status=2)
            self.assertTrue(err.startswith("quillbox-cli: "), err)
            self.assertEqual(out, b"", arguments)
            self.assertNotEqual(err, "", arguments)

    def test_what_is_not_known_is_named(self):
        for arguments in (["nonsense"], ["info", "-nonsense"], ["list", "a.MCS", "nonsense"]):
            _, err = self.run_it(*arguments, status=2)
            self.assertIn("nonsense", err)

    def test_an_unknown_key_is_a_wrong_command(self):
        shelf = self.sample("shelf.BCS")
        before = shelf.read_bytes()
        _, err = self.run_it("sort", shelf, "--by", "Title", status=2)
        self.assertIn("Author, Publisher, MediaType, Genre", err)
        self.assertEqual(shelf.read_bytes(), before)

    def test_help_and_version_are_printed(self):
        self.assertEqual(self.run_it("--version")[0], b"quillbox-cli 1.71\n")
        self.assertIn(b"export", self.run_it("--help")[0])
        for command in ("info", "export", "import", "check", "restore", "list", "loans", "doubles", "summary",
                        "sort", "undelete"):
            self.assertIn(b"FILE", self.run_it(command, "--help")[0])

    def test_a_missing_file_is_named(self):
        out, err = self.run_it("info", "gone.MCS", status=1)
        self.assertEqual(err, "quillbox-cli: gone.MCS: File not found\n")

    def test_several_files_go_on_behind_one_that_fails(self):
        self.sample("jazz.MCS")
        self.sample("shelf.BCS")
        out, err = self.run_it("info", "jazz.MCS", "gone.MCS", "shelf.BCS", status=1)
        self.assertIn(b"jazz.MCS\n", out)
        self.assertIn(b"shelf.BCS\n", out)
        self.assertIn("gone.MCS", err)

    def test_a_path_may_begin_with_a_dash(self):
        self.sample("jazz.MCS", "-jazz.MCS")
        self.assertIn(b"-jazz.MCS\n", self.run_it("info", "--", "-jazz.MCS")[0])

    def test_names_with_blanks_and_accents(self):
        path = self.sample("jazz.MCS", "mes disques été.mcs")
        out, _ = self.run_it("info", "--json", path.name)
        self.assertEqual(json.loads(out)[0]["file"], path.name)

    def test_other_files_are_no_collections(self):
        (self.folder / "list.txt").write_text("x")
        _, err = self.run_it("info", "list.txt", status=1)
        self.assertEqual(err, "quillbox-cli: list.txt: not a collection: no kind has this ending\n")

    def test_a_full_disk_is_said(self):
        self.sample("jazz.MCS")
        for arguments in (["--help"], ["--version"], ["import", "jazz.MCS", "/dev/null"],
                          *([command, "jazz.MCS"] for command in
                            ("info", "export", "check", "list", "loans", "doubles", "summary"))):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([PROGRAM, *arguments], stdout=full, cwd=self.folder,
                                      stderr=subprocess.PIPE)
            self.assertEqual(done.returncode, 1, arguments)
            if arguments[0] != "import":
                self.assertIn(b"Disk full", done.stderr, arguments)

    def test_a_pipe_that_nobody_reads_ends_it(self):
        self.sample("jazz.MCS")
        ours, theirs = os.pipe()
        os.close(ours)
        done = subprocess.run([PROGRAM, "export", "jazz.MCS"], stdout=theirs, cwd=self.folder,
                              stderr=subprocess.PIPE)
        os.close(theirs)
        self.assertEqual((done.returncode, done.stderr), (-signal.SIGPIPE, b""))

    @unittest.skipUnless(os.geteuid() == 0, "only the superuser can become somebody else")
    def test_what_may_not_be_read_is_named(self):
        path = self.sample("jazz.MCS")
        path.chmod(0)
        self.folder.chmod(0o755)
        done = subprocess.run([PROGRAM, "info", "jazz.MCS"], cwd=self.folder, user=65534, capture_output=True)
        self.assertEqual((done.returncode, done.stderr),
                         (1, b"quillbox-cli: jazz.MCS: Permission denied\n"))

    def test_files_without_items_or_with_too_many_are_read(self):
        (self.folder / "empty.BCS").write_bytes(b"")
        (self.folder / "huge.BCS").write_bytes(b"\xff\x7f\x01\x001.71    ")
        for command in ("info", "list", "doubles", "summary"):
            self.run_it(command, "empty.BCS", "huge.BCS" if command != "list" else "--tsv")
        self.assertEqual(self.run_it("check", "empty.BCS")[0], b"empty.BCS: 0 items, nothing wrong\n")
        self.assertEqual(self.run_it("check", "huge.BCS", status=1)[0],
                         b"huge.BCS: the file ends at item 0 of 32767\n")
        self.run_it("export", "huge.BCS", status=1)


class Info(CliTest):
    def test_tells_what_a_collection_is(self):
        path = self.sample("shelf.BCS")
        (self.folder / "shelf.bak").write_bytes(path.read_bytes())
        out, _ = self.run_it("info", "--json", "shelf.BCS")
        [info] = json.loads(out)
        items = struct.unpack_from("<h", path.read_bytes())[0]
        self.assertEqual((info["kind"], info["items"], info["deleted"]), ("books", items, 0))
        self.assertEqual((info["size"], info["whole"]), (224 * (items + 1), True))
        self.assertEqual(info["beside"], [{"file": str(self.folder / "shelf.bak"),
                                           "what": "backup of a sort"}])

    def test_points_to_the_backup_of_a_missing_collection(self):
        self.sample("shelf.BCS", "shelf.bak")
        _, err = self.run_it("info", "shelf.BCS", status=1)
        self.assertIn("there is a backup of a sort", err)


class Export(CliTest):
    def test_never_writes_over_a_collection(self):
        jazz, shelf = self.sample("jazz.MCS"), self.sample("shelf.BCS")
        before = jazz.read_bytes(), shelf.read_bytes()
        os.symlink("jazz.MCS", self.folder / "link.csv")
        os.symlink("shelf.BCS", self.folder / "other.csv")
        for output in ("jazz.MCS", "shelf.BCS", "new.mcs", "link.csv", "other.csv"):
            self.run_it("export", "jazz.MCS", "-o", output, status=1)
        self.assertEqual((jazz.read_bytes(), shelf.read_bytes()), before)

    def test_writes_a_file(self):
        self.sample("jazz.MCS")
        out, _ = self.run_it("export", "jazz.MCS")
        self.assertEqual(self.run_it("export", "jazz.MCS", "-o", "jazz.csv")[0], b"")
        self.assertEqual((self.folder / "jazz.csv").read_bytes(), out)

    def test_a_dash_is_standard_output(self):
        self.sample("jazz.MCS")
        out, _ = self.run_it("export", "jazz.MCS")
        self.assertEqual(self.run_it("export", "jazz.MCS", "-o", "-")[0], out)
        self.assertEqual(self.names(), ["jazz.MCS"])

    def test_a_database_takes_the_place_of_files_alone(self):
        self.sample("jazz.MCS")
        to_database = ["export", "jazz.MCS", "-f", "sqlite", "-o"]
        os.mkfifo(self.folder / "pipe.db")
        self.run_it(*to_database, "pipe.db", status=1)
        self.assertTrue((self.folder / "pipe.db").is_fifo())
        (self.folder / "pipe.db").unlink()
        (self.folder / "real").mkdir()
        (self.folder / "real/old.db").write_text("old")
        os.symlink("real/old.db", self.folder / "link.db")
        self.run_it(*to_database, "link.db")
        self.assertTrue((self.folder / "link.db").is_symlink())
        self.assertTrue((self.folder / "real/old.db").read_bytes().startswith(b"SQLite format 3"))
        self.assertEqual(len(list((self.folder / "real").iterdir())), 1)

    def test_the_pages_of_the_samples_are_those_in_the_tree(self):
        """docs/pages is created by: quillbox-cli export samples/NAME -f html -o docs/pages/NAME.html"""
        samples = sorted((ROOT / "samples").glob("*.?[CP]S"))
        for path in samples:
            out, _ = self.run_it("export", path, "-f", "html")
            self.assertEqual((ROOT / "docs/pages" / path.with_suffix(".html").name).read_bytes(), out)
        self.assertEqual(len(samples), len(list((ROOT / "docs/pages").iterdir())))

    def test_a_short_file_gives_what_is_there_and_says_so(self):
        path = self.sample("shelf.BCS")
        path.write_bytes(path.read_bytes()[:224 * 4 + 100])
        out, err = self.run_it("export", "shelf.BCS", status=1)
        self.assertEqual(out.count(b"\r\n"), 5)
        self.assertIn("the file ends at item 4 of", err)

    def test_the_older_music_type_is_read(self):
        data = (ROOT / "tests/data/albums-type4.MCS").read_bytes()
        (self.folder / "old.MCS").write_bytes(data)
        out, _ = self.run_it("export", "old.MCS")
        self.assertNotIn(b"BarCode", out)
        self.assertEqual(out.count(b"\r\n"), 4)

    def test_own_media_types_have_their_words(self):
        path = self.sample("jazz.MCS")
        (self.folder / "QBX Music.ini").write_text("[MEDIA]\nx,Wax Cylinder\ny,12\nz,Tin Foil \n")
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item,MediaType\n1,wax cylinder\n2,8\n3,9\n")
        data = path.read_bytes()
        self.assertEqual([struct.unpack_from("<h", data, 2372 * n + 2188)[0] for n in (1, 2)], [7, 8])
        out, _ = self.run_it("export", "jazz.MCS")
        # "12" would be read back as another index, and no import sees blanks at the end.
        self.assertIn(b",Wax Cylinder,", out.splitlines()[1])
        self.assertIn(b",8,", out.splitlines()[2])
        self.assertIn(b",9,", out.splitlines()[3])


class Import(CliTest):
    def test_prints_the_change_and_keeps_the_earlier_collection(self):
        path = self.sample("jazz.MCS")
        before = path.read_bytes()
        rows = "Item,Artist,CurrCost\n1,Miles Davis,\n2,Čapek,99.5\n,New One,1\n".replace("Č", "É")
        out, _ = self.run_it("import", "jazz.MCS", "-", "--dry-run", stdin=rows.encode())
        self.assertEqual(path.read_bytes(), before)
        self.assertEqual(self.names(), ["jazz.MCS"])
        self.assertIn('item 1: CurrCost: "14.5000" -> "0.0000"\n', out.decode())
        self.assertIn('item 2: Artist: "John Coltrane" -> "Éapek"\n', out.decode())
        self.assertIn('item 43: added: Artist: "New One", CurrCost: "1.0000"\n', out.decode())
        self.assertTrue(out.endswith(b"would be 2 items changed, 1 item added\n"), out)
        self.run_it("import", "jazz.MCS", "-", stdin=rows.encode())
        after = path.read_bytes()
        self.assertEqual((self.folder / "jazz.MCS~").read_bytes(), before)
        self.assertEqual(self.names(), ["jazz.MCS", "jazz.MCS~"])
        self.assertEqual(struct.unpack_from("<hh8s", after), (43, 5, b"1.71    "))
        self.assertEqual(after[2372 * 2:2372 * 2 + 50], b"\xc9apek".ljust(50))
        self.assertEqual(after[2372 * 3:2372 * 43], before[2372 * 3:])
        self.assertEqual(after[2372 * 43:2372 * 43 + 50], b"New One".ljust(50))

    def test_a_second_import_keeps_one_earlier_collection(self):
        path = self.sample("jazz.MCS")
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item,Artist\n1,A\n")
        between = path.read_bytes()
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item,Artist\n1,B\n")
        self.assertEqual(self.names(), ["jazz.MCS", "jazz.MCS~"])
        self.assertEqual((self.folder / "jazz.MCS~").read_bytes(), between)

    def test_one_wrong_row_and_nothing_is_written(self):
        path = self.sample("jazz.MCS")
        before = path.read_bytes()
        cases = [
            (b"Item,Artist\n1,A\n43,B\n", "row 3: there is no item 43, the last one is 42"),
            (b"Item,Artist\n1,A\n1,B\n", "row 3: item 1 is there twice"),
            (b"Item,Artist\n1,A\nx,B\n", 'row 3: "x" is no item number'),
            (b"Item,Artist\n1,A\n2," + b"x" * 51 + b"\n", "row 3, Artist: too long: 51 characters where 50 fit"),
            ("Item,Artist\n1,A\n2,Č\n".encode(), "row 3, Artist: a character that the file cannot hold"),
            (b"Item,Artist\n1,A\n2,\xff\n", "row 3, Artist: the text is not UTF-8"),
            (b"Item,CurrCost\n1,1\n2,922337203685477.5808\n", "row 3, CurrCost: the amount is out of range"),
            (b"Item,CurrCost\n1,1\n2,1.00001\n", "row 3, CurrCost: an amount has at most four places"),
            (b"Item,CurrCost\n1,1\n2,a lot\n", "row 3, CurrCost: no amount"),
            (b"Item,MediaType\n1,8\n2,40000\n", "row 3, MediaType: no entry of the list"),
            (b"Item\n1\n", "no column but the number"),
            (b"Item,Genre\n1,Rock\n2,Polka\n", "row 3, Genre: no entry of the list"),
            (b"Item,HasBook\n1,1\n2,maybe\n", "row 3, HasBook: neither 0 nor 1"),
            (b"Item,Colour\n1,1\n", 'unknown column "Colour"'),
            (b"Item,Name\n1,1\n", 'unknown column "Name"'),
            (b"Item,Artist,artist\n1,1,1\n", 'the column "artist" is there twice'),
            (b"Item,Artist\n1\n", "row 2: 1 fields where the header has 2"),
            (b'Item,Artist\n1,"a\n', "row 2: quotes that do not end"),
            (b'Item,Artist\n1,"a"b\n', "row 2: text behind closing quotes"),
            (b"", "there is no header"),
            ("\ufeffItem,Artist\n".encode("utf-16-le"), "the text is UTF-16; save it as UTF-8"),
            ("\ufeffItem,Artist\n".encode("utf-16-be"), "the text is UTF-16; save it as UTF-8"),
            (b'{"items":[{"item":1,"Colour":1}]}', 'items[0]: unknown name "Colour"'),
            (b'{"items":[{"item":1,"Artist":"a","Artist":"b"}]}', 'items[0]: "Artist" is there twice'),
            (b'{"kind":"books","items":[]}', 'the data is of the kind "books", the collection of "music"'),
            (b'{"items":[{"item":1,"deleted":true}]}',
             'items[0]: "deleted" is not what the marker in Artist says'),
            (b'{"items":[{"item":1,"deleted":"no"}]}', 'items[0]: "deleted" is true or false'),
            (b'{"items":1}', "the items are no list"),
            (b'{"kind":{}}', "no object belongs here"),
            (b'{"items":[{"item":1,"Artist":{}}]}', "items[0]: no object belongs here"),
            (b'{"kind":[]}', "no list belongs here"),
            (b'{"items":[{"item":1,"Artist":[]}]}', "items[0]: no list belongs here"),
            (b'{"colour":1}', 'unknown name "colour"'),
            (b"1", 'unknown column "1"'),
            (b"{}", "there are no items"),
            (b'{"items":[{"item":1,"Artist":"a"}',
             "parse error at line 1, column 34: syntax error while parsing array - "
             "unexpected end of input; expected ']'"),
            (b'{"items":[{"Songs":"a"}]}', 'items[0]: "Songs" is a list'),
            (b'{"items":[{"Songs":[' + b'"a",' * 40 + b'"b"]}]}', 'items[0]: "Songs" has more than 40 entries'),
        ]
        for text, why in cases:
            _, err = self.run_it("import", "jazz.MCS", "-", stdin=text, status=1)
            self.assertIn("quillbox-cli: -: " + why + "\n", err)
            self.assertIn("jazz.MCS: nothing was written", err)
            self.assertEqual(path.read_bytes(), before)
            self.assertEqual(self.names(), ["jazz.MCS"])

    def test_a_header_without_an_end_is_read_once(self):
        self.sample("jazz.MCS")
        _, err = self.run_it("import", "jazz.MCS", "-", stdin=b"x" * 30_000_000, status=1)
        self.assertIn("a record that does not end", err)

    def test_a_long_name_is_not_told_in_full(self):
        self.sample("jazz.MCS")
        for text in (b"x" * 5000, b'{"items":[{"' + b"x" * 5000 + b'":1}]}'):
            _, err = self.run_it("import", "jazz.MCS", "-", stdin=text, status=1)
            self.assertIn("xxx...\n", err)
            self.assertLess(len(err), 1000)

    def test_cut_and_replace_allow_what_is_refused(self):
        path = self.sample("jazz.MCS")
        text = "Item,Artist\n1,%s\n2,Čapek\n" % ("x" * 60)
        self.run_it("import", "jazz.MCS", "-", "--cut", "--replace", stdin=text.encode())
        data = path.read_bytes()
        self.assertEqual(data[2372:2422], b"x" * 50)
        self.assertEqual(data[2 * 2372:2 * 2372 + 50], b"?apek".ljust(50))

    def test_new_rows_take_deleted_places_where_the_kind_does(self):
        for name, marker, places in (("jazz.MCS", b"DETELED", [7, 43]), ("shelf.BCS", b"DELETED", [56, 57]),
                                     ("tapes.VCS", b"DELETED", None), ("songs.MPS", b"DELETED", None)):
            path = self.sample(name)
            data = bytearray(path.read_bytes())
            kind = path.suffix[1:]
            length = {"MCS": 2372, "BCS": 224, "VCS": 678, "MPS": 328}[kind]
            count = struct.unpack_from("<h", data)[0]
            at = 7 if count > 7 else 1
            width = 64 if kind == "MPS" else 50
            data[at * length:at * length + width] = marker.ljust(width)
            path.write_bytes(data)
            field = {"MCS": "Artist", "BCS": "Author", "VCS": "Label", "MPS": "FileName"}[kind]
            reuses = kind in ("MCS", "MPS")
            wanted = [at, count + 1] if reuses else [count + 1, count + 2]
            out, _ = self.run_it("import", name, "-", stdin=(field + "\nfirst\nsecond\n").encode())
            for text, place in zip((b"first", b"second"), wanted):
                self.assertEqual(path.read_bytes()[place * length:place * length + width],
                                 text.ljust(width), name)
            self.assertIn(b"item %d: added" % wanted[0], out)

    def test_a_place_that_a_row_changes_is_not_taken(self):
        path = self.sample("jazz.MCS")
        data = bytearray(path.read_bytes())
        data[7 * 2372:7 * 2372 + 50] = b"DETELED".ljust(50)
        path.write_bytes(data)
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item,Artist,Notes\n,New,\n7,DETELED,kept\n")
        self.assertEqual(path.read_bytes()[43 * 2372:43 * 2372 + 50], b"New".ljust(50))

    def test_a_new_collection_is_made_of_all_rows_in_their_order(self):
        out, _ = self.run_it("import", "new.BCS", "-", "--new", stdin=b"Item;Author\n9;B\n;A\n")
        data = (self.folder / "new.BCS").read_bytes()
        self.assertEqual(struct.unpack_from("<hh8s", data), (2, 1, b"1.71    "))
        self.assertEqual(len(data), 3 * 224)
        self.assertEqual((data[224:225], data[448:449]), (b"B", b"A"))
        self.assertEqual(struct.unpack_from("<hh", data, 224 + 150), (-1, -1))
        self.run_it("import", "new.BCS", "-", "--new", stdin=b"Author\nC\n", status=1)
        self.assertEqual((self.folder / "new.BCS").read_bytes(), data)
        self.assertEqual(self.names(), ["new.BCS"])

    def test_too_many_items_are_refused(self):
        text = b"Author\n" + b"a\n" * 32768
        _, err = self.run_it("import", "new.BCS", "-", "--new", stdin=text, status=1)
        self.assertIn("too many items: a collection has at most 32767\n", err)
        self.assertEqual(self.names(), [])
        self.run_it("import", "new.BCS", "-", "--new", "--json", stdin=text[:-2])
        self.assertEqual((self.folder / "new.BCS").stat().st_size, 224 * 32768)

    def test_a_decimal_comma_is_taken_between_semicolons(self):
        path = self.sample("jazz.MCS")
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item;CurrCost\n1;12,5\n")
        self.assertEqual(struct.unpack_from("<q", path.read_bytes(), 2372 + 2178)[0], 125000)
        self.run_it("import", "jazz.MCS", "-", stdin=b'Item,CurrCost\n1,"12,5"\n', status=1)

    def test_a_formula_comes_back_as_it_was(self):
        path = self.sample("jazz.MCS")
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item,Artist,Album\n1,=1+1,'=2\n2,@x,-y\n")
        before = path.read_bytes()
        for options in ([], ["--for-spreadsheet"]):
            out, _ = self.run_it("export", "jazz.MCS", *options)
            self.run_it("import", "new.MCS", "-", "--new", stdin=out)
            data = (self.folder / "new.MCS").read_bytes()
            self.assertEqual(data[2372:2372 + 100], before[2372:2372 + 100])
            self.assertEqual(data[2 * 2372:2 * 2372 + 100], before[2 * 2372:2 * 2372 + 100])
            (self.folder / "new.MCS").unlink()

    def test_the_older_music_type_is_never_written(self):
        data = (ROOT / "tests/data/albums-type4.MCS").read_bytes()
        path = self.folder / "old.MCS"
        path.write_bytes(data)
        _, err = self.run_it("import", "old.MCS", "-", stdin=b"Item,Artist\n1,changed\n", status=1)
        older = "the collection is of an older file type; Quillbox upgrades it when it opens it\n"
        self.assertIn(older, err)
        _, err = self.run_it("undelete", "old.MCS", "1", "--text", "x", status=1)
        self.assertEqual(err, "quillbox-cli: old.MCS: " + older)
        self.assertEqual(path.read_bytes(), data)
        path.write_bytes(data[:2] + b"\3\0" + data[4:])
        _, err = self.run_it("info", "old.MCS", status=1)
        self.assertEqual(err, "quillbox-cli: old.MCS: not a music collection that can be read: "
                              "it is of file type 3\n")

    def test_what_was_left_unfinished_stops_an_import(self):
        self.sample("jazz.MCS")
        (self.folder / "jazz.MCS.new~").write_bytes(b"half")
        _, err = self.run_it("import", "jazz.MCS", "-", stdin=b"Item,Artist\n1,changed\n", status=1)
        self.assertIn("jazz.MCS.new~: File already exists\n"
                      "quillbox-cli: -: Another import is at work, or one was cut off and left this file.\n", err)
        self.assertEqual((self.folder / "jazz.MCS.new~").read_bytes(), b"half")
        self.run_it("check", "jazz.MCS", status=1)

    def test_behind_a_link_the_link_stays(self):
        (self.folder / "real").mkdir()
        self.sample("jazz.MCS").rename(self.folder / "real/jazz.MCS")
        os.symlink("real/jazz.MCS", self.folder / "jazz.MCS")
        self.run_it("import", "jazz.MCS", "-", stdin=b"Item,Artist\n1,changed\n")
        self.assertTrue((self.folder / "jazz.MCS").is_symlink())
        self.assertEqual(sorted(p.name for p in (self.folder / "real").iterdir()),
                         ["jazz.MCS", "jazz.MCS~"])

    def test_json_says_what_changes(self):
        self.sample("jazz.MCS")
        out, _ = self.run_it("import", "jazz.MCS", "-", "--json", stdin=b"Item,Artist\n1,A\n,B\n")
        told = json.loads(out)
        self.assertEqual(told["changes"], [
            {"item": 1, "what": "changed", "column": "Artist", "before": "Miles Davis", "after": "A"},
            {"item": 43, "what": "added", "values": {"Artist": "B"}}])
        self.assertEqual((told["rows"], told["changed"], told["added"], told["written"]), (2, 1, 1, True))
