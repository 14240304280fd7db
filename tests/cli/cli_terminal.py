"""quillbox-cli on a terminal: progress and colours, which appear nowhere else."""
import os
import pty
import re
import subprocess
import threading

from __main__ import CliTest, PROGRAM

PROGRESS = re.compile(rb"\r\x1b\[K[^\r\n]*: (\d+)( of \d+)?")


class Terminal(CliTest):
    def setUp(self):
        super().setUp()
        rows = "Author,Title\n" + "".join("A%d,T%d\n" % (n, n) for n in range(3500, 0, -1))
        (self.folder / "rows.csv").write_text(rows)
        self.run_it("import", "new.BCS", "rows.csv", "--new")

    def on_terminal(self, *arguments, out=True, err=True, status=0, environment=()):
        """The output on a terminal as standard output, standard error, or both."""
        ours, theirs = pty.openpty()
        pieces = []

        def read():
            try:
                while piece := os.read(ours, 65536):
                    pieces.append(piece)
            except OSError:
                pass  # the other side is closed

        reader = threading.Thread(target=read)
        reader.start()
        done = subprocess.run([PROGRAM, *map(str, arguments)], stdout=theirs if out else subprocess.PIPE,
                              stderr=theirs if err else subprocess.PIPE, stdin=subprocess.DEVNULL,
                              cwd=self.folder, env={**os.environ, "TERM": "xterm", **dict(environment)})
        os.close(theirs)
        reader.join()
        os.close(ours)
        self.assertEqual(done.returncode, status, (arguments, pieces))
        return b"".join(pieces), done

    def expect_cleared(self, told):
        """No line of progress is left, and none is mixed with other output."""
        for line in told.split(b"\r\n"):
            self.assertNotRegex(line.rsplit(b"\x1b[K", 1)[-1], rb": \d+ of \d+")
            self.assertTrue(b"\x1b[K" not in line or line.startswith(b"\r\x1b[K"), line)

    LONG = (["check", "new.BCS"], ["list", "new.BCS", "-w", "Item=3500"], ["summary", "new.BCS"],
            ["doubles", "new.BCS"], ["export", "new.BCS", "-o", "out.csv"], ["info", "new.BCS"],
            ["export", "new.BCS", "-f", "json", "-o", "out.json"], ["sort", "new.BCS", "--by", "Author"],
            ["export", "new.BCS", "-f", "sqlite", "-o", "out.db"],
            ["export", "new.BCS", "-f", "html", "-o", "out.html"])

    def test_long_work_is_shown_and_cleared(self):
        for arguments in self.LONG:
            if arguments[0] == "info":
                continue
            told, _ = self.on_terminal(*arguments)
            found = PROGRESS.findall(told)
            self.assertIn((b"1000", b" of 3500"), found, arguments)
            self.expect_cleared(told)

    def test_an_import_is_shown_and_cleared(self):
        told, _ = self.on_terminal("import", "other.BCS", "rows.csv", "--new", "--json", out=False)
        self.assertEqual([int(rows) for rows, _ in PROGRESS.findall(told)], [1000, 2000, 3000])
        self.assertTrue(told.endswith(b"\r\x1b[K"), told)
        told, _ = self.on_terminal("import", "other.BCS", "rows.csv", "-n")
        self.assertTrue(PROGRESS.search(told))

    def test_a_complaint_does_not_stand_behind_progress(self):
        (self.folder / "bad.csv").write_text("Author\n" + "a\n" * 1500 + '"b\n')
        told, _ = self.on_terminal("import", "other.BCS", "bad.csv", "--new", out=False, status=1)
        self.assertIn(b"\r\x1b[Kquillbox-cli: bad.csv: row 1502: quotes that do not end\r\n", told)

    def test_no_progress_where_standard_error_is_no_terminal(self):
        for arguments in self.LONG:
            told, done = self.on_terminal(*arguments, err=False)
            self.assertEqual(done.stderr, b"", arguments)
            self.assertNotIn(b"\x1b[K", told)
            self.assertEqual(self.run_it(*arguments)[1], "")

    def test_output_on_the_terminal_is_not_torn(self):
        plain, _ = self.run_it("export", "new.BCS", "-f", "json")
        told, _ = self.on_terminal("export", "new.BCS", "-f", "json")
        shown = PROGRESS.sub(b"", told).replace(b"\r\x1b[K", b"").replace(b"\r\n", b"\n")
        self.assertEqual(shown, plain)
        self.expect_cleared(told)

    def test_heads_are_bold_on_a_terminal_alone(self):
        list_it = ["list", "new.BCS", "-w", "Item=3500", "-c", "Author"]
        bold = b"\x1b[1mAuthor\x1b[0m"
        self.assertIn(bold, self.on_terminal(*list_it, err=False)[0])
        self.assertNotIn(b"\x1b", self.on_terminal(*list_it, err=False, environment={"NO_COLOR": "1"})[0])
        self.assertNotIn(b"\x1b", self.on_terminal(*list_it, err=False, environment={"TERM": "dumb"})[0])
        self.assertNotIn(b"\x1b", self.on_terminal(*list_it, out=False)[1].stdout)

    def test_no_message_steers_the_terminal(self):
        evil = "\x1b]0;owned\x07"
        _, err = self.run_it("import", "new.BCS", "-", stdin=(evil + ",Author\na,b\n").encode(), status=1)
        self.assertNotIn("\x1b", err)
        _, err = self.run_it("info", evil + ".BCS", status=1)
        self.assertNotIn("\x1b", err)
        data = bytearray((self.folder / "new.BCS").read_bytes())
        data[4:12] = b"\x1b[2J    "
        (self.folder / (evil + ".BCS")).write_bytes(data)
        out, _ = self.run_it("info", evil + ".BCS")
        self.assertNotIn(b"\x1b", out)
