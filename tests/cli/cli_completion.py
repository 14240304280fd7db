"""Completion and the page of the manual know every command and every option."""
import re
import shutil
import subprocess
import unittest

from __main__ import CliTest, ROOT

COMMANDS = "info export import check restore list loans doubles summary sort undelete".split()
COMPLETIONS = ROOT / "packaging/completions"


class Completion(CliTest):
    def options(self):
        found = set()
        for command in COMMANDS:
            out, _ = self.run_it(command, "--help")
            found |= set(re.findall(r"--([a-z-]+)", out.decode().split("Options:")[1].split("A path")[0]))
        return found

    def test_every_command_and_option_is_known(self):
        main = self.run_it("--help")[0].decode()
        for command in COMMANDS:
            self.assertIn("\n  " + command + " ", main)
        self.assertEqual(len(re.findall(r"^  [a-z]+ {2}", main.split("Subcommands:")[1], re.M)), len(COMMANDS))
        page = (ROOT / "packaging/quillbox-cli.1").read_text("utf-8").replace("\\-", "-")
        bash = (COMPLETIONS / "quillbox-cli.bash").read_text("utf-8")
        zsh = (COMPLETIONS / "_quillbox-cli").read_text("utf-8")
        fish = (COMPLETIONS / "quillbox-cli.fish").read_text("utf-8")
        for option in self.options():
            for text in (page, bash, zsh):
                self.assertIn("--" + option, text)
            self.assertIn("-l " + option, fish)
        for command in COMMANDS:
            for text in (page, bash, zsh, fish):
                self.assertRegex(text, r"\b%s\b" % command)

    @unittest.skipUnless(shutil.which("bash"), "there is no bash here")
    def test_bash_completes(self):
        self.sample("jazz.MCS")
        self.sample("shelf.BCS")
        (self.folder / "notes.txt").write_text("x")

        def completed(*words):
            script = 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); compopt() { :; }; ' \
                     '_quillbox_cli; printf "%s\\n" "${COMPREPLY[@]}"'
            done = subprocess.run(["bash", "-c", script, "bash", COMPLETIONS / "quillbox-cli.bash",
                                   "quillbox-cli", *words], capture_output=True, cwd=self.folder, check=True)
            return done.stdout.decode().split()

        self.assertEqual(completed("ex"), ["export"])
        self.assertEqual(completed("export", ""), ["jazz.MCS", "shelf.BCS"])
        self.assertEqual(completed("export", "--f"), ["--format", "--for-spreadsheet"])
        self.assertEqual(completed("export", "-f", ""), ["csv", "json", "sqlite", "html"])
        self.assertEqual(completed("import", "-f", ""), ["csv", "json"])
        self.assertEqual(completed("import", "jazz.MCS", "no"), ["notes.txt"])

    def test_shells_read_theirs(self):
        for shell, name in (("zsh", "_quillbox-cli"), ("fish", "quillbox-cli.fish")):
            if shutil.which(shell):
                done = subprocess.run([shell, "-n", COMPLETIONS / name], capture_output=True)
                self.assertEqual((done.returncode, done.stderr), (0, b""))
