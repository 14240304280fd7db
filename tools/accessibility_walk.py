#!/usr/bin/python3
"""Works the forms of a running Quillbox over the accessibility bus and prints what a screen reader
would miss there, a line each: accessibility_walk.py PROGRAM FOLDER
[SAMPLE...]

Every input must have its caption as its name, every list say what is chosen, every button do its
work by its action, and what a command did be heard from the status line. Works on copies of the
samples in FOLDER. Run by tools/accessibility.sh, which brings a display and a bus of its own.
"""

import subprocess
import sys
from pathlib import Path

import pyatspi
from gi.repository import GLib

from accessibility_bus import (MEDIA, Missed, Program, actions_of, cells_of, enabled, has,
                               labels_of, pause, pump, shows, text_of, walk)

INPUTS = {"text", "password text", "spin button", "combo box"}
CHOICES = {"check box", "radio button"}
BUTTONS = {"push button", "toggle button"}
NAMED = INPUTS | CHOICES | BUTTONS | {
    "list", "table", "tree table", "tree", "page tab", "page tab list", "menu item", "tool bar"}


class Walk(Program):
    """One start of the program, and what was found wrong in it."""

    def __init__(self, program, folder, sample=None):
        super().__init__(program, folder, sample)
        self.found = []

    def miss(self, what):
        if what not in self.found:
            self.found.append(what)

    def check(self, window):
        """What must hold of every control, whatever form it is on."""
        title = window.name
        if not title:
            self.miss("a window has no name")
        captions = {each.name for each in self.all({"label"}, window) if shows(each)}
        for control in self.all(NAMED, window):
            if control.getRoleName() != "menu item" and not shows(control):
                continue
            role, name = control.getRoleName(), control.name
            what = f"'{title}': {role} '{name}'"
            if not name.strip():
                self.miss(f"{what} has no name")
            if role in INPUTS and name not in labels_of(control) | captions:
                self.miss(f"{what}: no caption has this name")
            if role == "combo box":
                self.check_combo(control, what)
            if role in BUTTONS | CHOICES | {"menu item"} and enabled(control) \
                    and not actions_of(control):
                self.miss(f"{what} has no action")
        for list_ in self.all({"list"}, window):
            if shows(list_) and list_.childCount and not any(
                    has(item, pyatspi.STATE_SELECTED) or has(item, pyatspi.STATE_FOCUSED)
                    for item in list_):
                self.miss(f"'{title}': list '{list_.name}' does not say what is chosen")

    def check_combo(self, combo, what):
        entries = [each.name for each in walk(combo) if each.getRoleName() == "list item"]
        if not entries:
            self.miss(f"{what} has no entries")
        if combo.description and combo.description not in entries:
            self.miss(f"{what} says '{combo.description}', which is no entry")

    def answer(self, button):
        """Answers the box on screen; it must be one that a screen reader can read."""
        box = self.wait(lambda: self.window("alert", "dialog"), "there is no message box")
        self.check(box)
        if not any(label.name for label in self.all({"label"}, box)):
            self.miss("a box without a text")
        asked = self.words(box)
        self.click(button, box)
        self.wait(lambda: all(self.words(each) != asked for each in self.windows()),
                  f"{button} does not close '{box.name}'")

    # ---- the forms

    def start(self):
        self.wait(self.find_app, "the program is not on the bus")
        self.answer("OK")

    def open(self):
        """Opens the sample from the start screen: what the command line opens is not all kinds."""
        self.click("Open Collection", self.wait(lambda: self.one_window("Quillbox V"), "no start"))
        dialog = self.wait(lambda: self.window("dialog"), "Open Collection asks for nothing")
        self.type(self.wanted("text", "File", dialog), str(self.sample))
        self.click("Open", dialog)

    def indicator(self):
        return next((each.name for each in self.all({"label"}) if shows(each)
                     and each.name.startswith(("Record #", "New Record"))), "")

    def editor(self, sample_chooses):
        self.wait(self.indicator, "there is no record indicator")
        form = self.window("frame")
        self.check(form)
        combos = self.all({"combo box"}, form)
        if sample_chooses and combos and not any(combo.description for combo in combos):
            self.miss("no list says what is chosen")
        if not self.all({"status bar"}, form):
            self.miss("there is no status line")
        self.steps()
        self.status_and_mark(form)
        self.delete(self.sample.suffix in (".MCS", MEDIA))

    def changes(self, button, what):
        before = self.indicator()
        self.click(button)
        self.wait(lambda: self.indicator() != before, f"{button} {what}")
        self.wait(lambda: self.heard("label"), f"the record number is not heard after {button}")

    def steps(self):
        self.changes("Next", "shows no other item")
        self.changes("Previous", "shows no other item")
        for number, button in (("3", "OK"), ("1", "Cancel"), ("1", "OK")):
            before = self.indicator()
            self.click("GoTo")
            box = self.wait(lambda: self.window("dialog"), "GoTo asks for nothing")
            self.type(self.wanted("text", "Record #", box), number)
            self.answer(button)
            if button == "OK":
                self.wait(lambda: self.indicator() != before, "GoTo shows no other item")
            elif self.indicator() != before:
                self.miss("Cancel of GoTo shows another item")

    def status(self):
        return next((each.name for each in self.all({"status bar"}) if shows(each)), "")

    def status_and_mark(self, form):
        self.click("Write")
        self.wait(lambda: self.status().startswith("Written"),
                  "the status line does not say what was written")
        self.wait(lambda: self.heard("status bar", "Written"), "what was written is not heard")
        box = next(each for each in self.all({"text"}, form) if shows(each) and enabled(each))
        was = text_of(box)
        self.type(box, "Typed over the bus")
        mark = self.wait(lambda: self.one("label", "Item", form), "the mark is not shown")
        if "not written" not in mark.name + mark.description:
            self.miss("the mark beside the record number does not say what it means")
        self.changes("Next", "shows no other item")
        self.wait(lambda: self.heard("status bar", "Item 1"), "what was left is not heard")
        self.click("Bring Back")
        self.wait(lambda: text_of(box).strip() == "Typed over the bus", "Bring Back brings nothing")
        self.type(box, was)
        self.wait(lambda: not self.one("label", "Item", form), "the mark stays")
        self.changes("Clear", "shows no new item")
        self.click("GoTo")
        asked = self.wait(lambda: self.window("dialog"), "GoTo asks for nothing")
        self.type(self.wanted("text", "Record #", asked), "1")
        self.answer("OK")

    def delete(self, speaks):
        """`speaks`: what was done is told in a box, too."""
        button = self.one("push button", "Delete")
        if button is None:
            return  # books
        before = self.indicator()
        self.press(button, "Press")
        self.answer("No")
        if speaks:
            self.answer("OK")
        if self.indicator() != before:
            self.miss("No deletes")
        self.press(button, "Press")
        self.answer("Yes")
        if speaks:
            self.answer("OK")
        self.wait(lambda: self.indicator() != before or self.status(),
                  "nothing is heard of a deletion")

    def other_form(self, exit_name, *items):
        """A form in the place of the editor, or in front of it, and the way back."""
        before = [window.name for window in self.windows()]
        self.wait(lambda: self.choose(*items), f"there is no menu item {items[0]}")
        self.wait(lambda: self.window("frame") and self.window("frame").name not in before,
                  f"{items[0]} shows no form")
        form = self.window("frame")
        self.check(form)
        yield form
        self.click(exit_name)  # of the form itself or of its second page
        self.wait(lambda: not shows(form) and self.indicator(), f"{exit_name} does not lead back")

    def list_pages(self):
        for page in self.other_form("Exit", "Songs", "Edit Titles", "Edit Programs"):
            if next_page := self.one("push button", "Next Page", page):
                self.press(next_page, "Press")
                self.wait(lambda: self.one("text", "Song 40"), "Next Page shows no other songs")
                self.check(page)
            elif self.one("push button", "Next", page):
                texts = [text_of(each) for each in self.all({"text"}, page)]
                # Its own position may lie before the item shown, and an item may have no list.
                self.wait(lambda: self.click("Next", page) or pause() or texts != [
                    text_of(each) for each in self.all({"text"}, page)],
                          "Next on the list page shows no other list")

    def search(self):
        for form in self.other_form("Exit", "Search Records", "Search"):
            box = next(each for each in self.all({"text"}, form) if enabled(each))
            self.type(box, "no item has this")
            self.click("Begin", form)
            self.answer("OK")

    def sort(self, sorts):
        for form in self.other_form("Exit", "Sort Records", "Sort"):
            keys = self.all(CHOICES, form)
            if not keys:
                continue  # media files are sorted by their name alone
            key = keys[0]
            before = has(key, pyatspi.STATE_CHECKED)
            self.press(key, "Toggle")
            self.wait(lambda: has(key, pyatspi.STATE_CHECKED) != before, "a key cannot be ticked")
        if sorts:
            self.choose("Sort Records", "Sort")
            form = self.wait(lambda: next((each for each in self.windows()
                                           if self.one("push button", "Begin", each)), None),
                             "no sort form comes")
            self.press(self.all(CHOICES, form)[0], "Toggle")
            self.click("Begin", form)
            self.answer("OK")
            self.wait(lambda: self.indicator() and not shows(form), "no editor comes after a sort")

    def panel(self):
        button = self.wait(lambda: next((each for each in self.all(BUTTONS | CHOICES)
                                         if each.name == "All Items"), None),
                           "the button of the panel cannot be reached")
        self.press(button, "Toggle")
        self.wait(lambda: self.all({"page tab list"}), "the button opens no panel")
        subprocess.run(["xdotool", "key", "F9"], check=True)
        self.wait(lambda: not self.all({"page tab list"}), "F9 does not close the panel")
        subprocess.run(["xdotool", "key", "F9"], check=True)
        tabs = self.wait(lambda: next(iter(self.all({"page tab list"})), None), "F9 opens no panel")
        table = self.wanted("table", "Items")
        self.wait(lambda: cells_of(table), "the panel lists nothing")
        if not any(each.getRoleName() in ("table column header", "column header") and each.name
                   for each in walk(table, 60)):
            self.miss("the columns of the panel have no names")
        if not all(cell.name for cell in cells_of(table)[:1]):
            self.miss("the first cell of the panel says nothing")
        rows = table.queryTable().nRows
        self.type(self.wanted("text", "Find:"), "zzzz")
        self.wait(lambda: table.queryTable().nRows == 0, "Find leaves what it does not find")
        self.type(self.wanted("text", "Find:"), "")
        self.wait(lambda: table.queryTable().nRows == rows, "Find does not list all items again")
        for tab in [each for each in tabs if each.getRoleName() == "page tab"]:
            self.press(tab, "Press")
            self.wait(lambda: has(tab, pyatspi.STATE_SELECTED) or tabs.name == tab.name,
                      f"tab {tab.name} cannot be chosen")
            pump()
            self.check(self.window("frame"))
        subprocess.run(["xdotool", "key", "F9"], check=True)
        self.wait(lambda: not self.all({"page tab list"}) or not shows(tabs), "F9 closes no panel")

    def about_and_help(self):
        if self.choose("About"):
            self.answer("OK")
        if self.choose("Content"):
            window = self.wait(lambda: next((each for each in self.windows()
                                             if each.name == "Quillbox Help"), None),
                               "no help comes")
            self.check(window)
            self.click("Find", window)
            self.check(window)
            self.click("Close", window)
            self.wait(lambda: not shows(window), "Close does not close the help")

    def start_screen(self):
        form = self.wait(lambda: self.one_window("Quillbox V"), "there is no start screen")
        self.check(form)
        self.click("New Collection", form)
        dialog = self.wait(lambda: self.one_window("New Collection"),
                           "no new-collection dialog comes")
        self.check(dialog)
        if len(self.all({"radio button"}, dialog)) != 9:
            self.miss("there are not nine kinds to choose from")
        self.type(self.wanted("text", "Collection Name:", dialog), "Heard")
        kind = self.wanted("radio button", "Book", dialog)
        self.press(kind, "Toggle")
        self.wait(lambda: has(kind, pyatspi.STATE_CHECKED), "a kind cannot be chosen")
        self.click("Cancel", dialog)
        self.wait(lambda: self.one_window("Quillbox V"), "Cancel does not lead back")
        self.click("Exit", self.one_window("Quillbox V"))
        self.wait(lambda: self.process.poll() is not None, "Exit does not end the program")

    def one_window(self, name):
        return next((each for each in self.windows() if each.name.startswith(name)
                     and each.getRoleName() != "alert"), None)

    def leave(self):
        self.wait(lambda: self.choose("Exit"), "there is no menu item Exit")
        self.start_screen()


def run(program, folder, sample, *steps):
    """The findings of a walk; each step goes on from where the one before it left."""
    one = Walk(program, folder, sample)
    name_changes = "object:property-change:accessible-name"
    pyatspi.Registry.registerEventListener(one.tell_name, name_changes)
    at = "start"
    try:
        for at, step in [("start", lambda one: one.start()), *steps]:
            step(one)
    except Missed as missed:
        one.miss(f"{at}: {missed}")
    except (GLib.Error, StopIteration, NotImplementedError, LookupError) as error:
        one.miss(f"{at}: {type(error).__name__}: {error}")
    finally:
        pyatspi.Registry.deregisterEventListener(one.tell_name, name_changes)
        one.end()
    return [f"{one.where}: {what}" for what in one.found]


def main():
    program, folder, wanted = sys.argv[1], Path(sys.argv[2]), sys.argv[3:]
    editors = {
        "jazz.MCS": True, "tapes.VCS": True, "longbox.CCS": True, "disks.SCS": True,
        "shelf.BCS": True, "pictures.GCS": False,
    }
    found = run(program, folder, None, ("start screen", Walk.start_screen))
    for sample, sorts in editors.items():
        if wanted and sample not in wanted:
            continue
        is_media, is_books = sample.endswith(MEDIA), sample.endswith("BCS")
        steps = [("open", Walk.open)] if is_media else []
        steps += [("editor", lambda one: one.editor(not is_media))]
        if not is_media and not is_books:
            steps.append(("list page", Walk.list_pages))
        steps += [
            ("search", Walk.search),
            ("sort", lambda one: one.sort(sorts and not is_books)),  # which ends the program
            ("panel", Walk.panel),
            ("help", Walk.about_and_help),
            ("leaving", Walk.leave),
        ]
        found += run(program, folder, sample, *steps)
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
