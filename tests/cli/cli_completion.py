"""Completion and the man page know every command and every option."""
import re
import shutil
import subprocess
import unittest

from __main__ import CliTest, ROOT

COMMANDS = "info export import check restore list loans doubles summary sort undelete".split()
COMPLETIONS = ROOT / "packaging/completions"


class Completion(CliTest):
    def options_of(self, command):
        """Long and short names of options as --help lists them, without those of help itself."""
        out, _ = self.run_it(command, "--help")
        lines = re.findall(r"^  (-[^ ]+)", out.decode().split("Options:")[1], re.M)
        names = {name for line in lines for name in line.split(",")} - {"-h", "--help"}
        return {name for name in names if name.startswith("--")}, {name for name in names if name[1] != "-"}

    def options(self):
        return {name[2:] for command in COMMANDS for name in self.options_of(command)[0]} | {"help"}

    def test_the_page_of_the_manual_shows_each_command_with_its_options(self):
        page = (ROOT / "packaging/quillbox-cli.1").read_text("utf-8").replace("\\-", "-")
        synopsis = page.split(".SH SYNOPSIS")[1].split(".SH DESCRIPTION")[0]
        lines = re.sub(r"\s*\n\.(RB|BR|IR|B|I) |\n", " ", synopsis.replace("\n.br", "@")).split("@")
        described = page.split(".SH OPTIONS")[1].split(".SH EXIT")[0]
        for command in COMMANDS:
            [line] = [line for line in lines if re.search(r"\b%s\b" % command, line.split("FILE")[0])]
            long, short = self.options_of(command)
            shown = set(re.findall(r"(?<![\w-])--?[a-z-]+", line))
            self.assertEqual(len(shown), len(long), (command, shown, long))
            self.assertLessEqual(shown, long | short)
            for name in long | short:
                self.assertRegex(described, r"(?<![\w-])%s(?![\w-])" % re.escape(name))

    def test_zsh_and_fish_know_the_options_of_each_command(self):
        zsh = (COMPLETIONS / "_quillbox-cli").read_text("utf-8")
        for name in ("json", "cut", "replace"):
            zsh = re.sub(r"\$%s\b" % name, "--" + name, zsh)
        fish = (COMPLETIONS / "quillbox-cli.fish").read_text("utf-8").splitlines()
        for command in COMMANDS:
            long, short = self.options_of(command)
            [part] = re.findall(r"^  [^\n]*\b%s\b[^\n]*\)\n(.*?)^    ;;" % command, zsh, re.M | re.S)
            known = set(re.findall(r"(?<![\w-])--?[a-z][a-z-]*", part))
            self.assertEqual(known, long | short, command)
            its = [line for line in fish if re.search(r"subcommand_from [^']*\b%s\b" % command, line)]
            self.assertEqual({"--" + name for line in its for name in re.findall(r" -l ([a-z-]+)", line)}, long)
            self.assertEqual({"-" + name for line in its for name in re.findall(r" -s ([a-z])", line)}, short)

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

        for command in COMMANDS:
            self.assertEqual(set(completed(command, "--")), self.options_of(command)[0] | {"--help"})
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
