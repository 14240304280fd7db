#!/usr/bin/python3
"""Works the forms of Quillbox over the accessibility bus and prints what a screen reader would
miss, one line for each finding: accessibility_walk.py PROGRAM FOLDER [SAMPLE...]

Every input must have its caption as its name, every list must show what is selected, every button
must do its work by its action, and the result of a command must be heard from the status line.
Works on copies of the samples in FOLDER. Run by tools/accessibility.sh, which provides a display
and a bus.
"""

import shutil
import struct
import subprocess
import sys
import time
from pathlib import Path

import pyatspi
from gi.repository import GLib

from accessibility_bus import (MEDIA, SAMPLES, TICK, Missed, Program, actions_of, cells_of, enabled,
                               has, labels_of, pause, pump, shows, text_of, walk)

INPUTS = {"text", "password text", "spin button", "combo box"}
CHOICES = {"check box", "radio button"}
BUTTONS = {"push button", "toggle button"}
NAMED = INPUTS | CHOICES | BUTTONS | {
    "list", "table", "tree table", "tree", "page tab", "page tab list", "menu item", "tool bar",
    "progress bar", "frame"}
WINDOWS = {"frame", "dialog", "alert"}
STEADY = 3  # seconds after which a fault is not about to go
MANY = 32_767  # albums: listing them takes long enough for the progress board to be heard
ALBUM = 2372  # bytes


class Walk(Program):
    """One start of the program, and the findings in it."""

    def __init__(self, program, folder, sample=None):
        super().__init__(program, folder, sample)
        self.found = []

    def miss(self, what):
        if what not in self.found:
            self.found.append(what)

    def check(self, window):
        """Checks what must hold for every control of any form. Only what is found again and again
        counts: a control that goes while it is read has lost its name."""
        found = self.faults(window)
        end = time.monotonic() + STEADY
        while found and time.monotonic() < end:
            pump(TICK)
            again = self.faults(window)
            found = [fault for fault in found if fault in again]
        for fault in found:
            self.miss(fault)

    def faults(self, window):
        found = []
        title = window.name
        if not title:
            found.append("a window has no name")
        if window.getRoleName() not in WINDOWS:
            found.append(f"'{title}' is a {window.getRoleName()} instead of a window")
        captions = {each.name for each in self.all({"label"}, window) if shows(each)}
        for control in self.all(NAMED, window):
            if control.getRoleName() != "menu item" and not shows(control):
                continue
            role, name = control.getRoleName(), control.name
            what = f"'{title}': {role} '{name}'"
            if not name.strip():
                found.append(f"{what} has no name")
            if role in INPUTS and name not in labels_of(control) | captions:
                found.append(f"{what}: no caption has this name")
            if role == "combo box":
                found += self.combo_faults(control, what)
            if role in BUTTONS | CHOICES | {"menu item"} and enabled(control) \
                    and not actions_of(control):
                found.append(f"{what} has no action")
        for list_ in self.all({"list"}, window):
            if shows(list_) and list_.childCount and not any(
                    has(item, pyatspi.STATE_SELECTED) or has(item, pyatspi.STATE_FOCUSED)
                    for item in list_):
                found.append(f"'{title}': list '{list_.name}' does not show what is selected")
        return found

    def combo_faults(self, combo, what):
        found = []
        entries = [each.name for role, each in walk(combo) if role == "list item"]
        if not entries:
            found.append(f"{what} has no entries")
        if combo.description and combo.description not in entries:
            found.append(f"{what} says '{combo.description}', which is no entry")
        return found

    def answer(self, button):
        """Answers the visible box, which must be readable."""
        box = self.wait(lambda: self.window("alert", "dialog"), "there is no message box")
        self.check(box)
        if not any(label.name for label in self.all({"label"}, box)):
            self.miss("a box without a text")
        asked = self.words(box)
        self.click(button, box)
        self.wait(lambda: all(self.words(each) != asked for each in self.windows()),
                  f"{button} does not close '{box.name}'")

    def dialog(self, after):
        return self.wait(lambda: self.window("dialog"), f"{after} shows no dialog")

    def pick(self, path, button, after):
        """Enters a path in the toolkit's file dialog."""
        dialog = self.dialog(after)
        self.type(self.wanted("text", "File", dialog), str(path))
        self.click(button, dialog)
        self.wait(lambda: not shows(dialog), f"{button} does not close the dialog of {after}")

    def says(self, beginning, after):
        """Waits for a status, which must also be heard."""
        self.wait(lambda: self.status().startswith(beginning),
                  f"the status line after {after} does not begin with '{beginning}'")
        self.wait(lambda: self.heard("status bar", beginning), f"'{beginning}' is not heard")

    # ---- the forms

    def start(self):
        self.wait(self.find_app, "the program is not on the bus")
        self.answer("OK")

    def open(self):
        """Opens the sample from the start screen; the command line cannot open every kind."""
        self.click("Open Collection", self.wait(lambda: self.one_window("Quillbox V"), "no start"))
        self.pick(self.sample, "Open", "Open Collection")

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
        self.undo(form)
        self.delete(self.sample.suffix in (".MCS", *MEDIA))

    def changes(self, button, what):
        before = self.indicator()
        self.click(button)
        self.wait(lambda: self.indicator() != before, f"{button} {what}")
        self.wait(lambda: self.heard("label"), f"the record number is not heard after {button}")

    def steps(self):
        self.changes("Next", "shows no other item")
        self.changes("Previous", "shows no other item")
        last = self.indicator().lower().split(" of ")[-1]
        for number, button in ((last, "OK"), ("1", "Cancel"), ("1", "OK")):
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
        self.says("Written", "Write Data")
        box = self.first_box(form)
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

    def first_box(self, form):
        return next(each for each in self.all({"text"}, form) if shows(each) and enabled(each))

    def undo(self, form):
        box = self.first_box(form)
        was = text_of(box).strip()
        self.type(box, "Written over the bus")
        self.click("Write")
        self.click("Undo Write")
        self.says("Item 1 is as it was", "Undo Write")
        self.wait(lambda: text_of(box).strip() == was, "Undo Write does not restore the text")

    def delete(self, speaks):
        """`speaks`: boxes report the result, too."""
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
        self.wait(lambda: self.status().startswith("Item 1 deleted"), "a deletion has no status")
        self.click("Undo Delete")
        self.says("Item 1 is as it was", "Undo Delete")
        self.wait(lambda: self.indicator() == before, "Undo Delete does not show the item")

    def other_form(self, exit_name, *items):
        """A form instead of the editor, or in front of it, and the way back."""
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
                # Its own position may be before the item, and an item may have no list.
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
        if not any(role in ("table column header", "column header") and each.name
                   for role, each in walk(table, most=60)):
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

    def print_to_file(self):
        """To a text file; the name is asked for before the pages are composed."""
        self.wait(lambda: self.choose("Print List"), "there is no menu item Print List")
        dialog = self.dialog("Print List")
        self.check(dialog)
        box = self.wanted("check box", "Print to file", dialog)
        self.press(box, "Toggle")
        self.wait(lambda: has(box, pyatspi.STATE_CHECKED), "Print to file cannot be ticked")
        self.click("OK", dialog)
        self.wait(lambda: not shows(dialog), "OK does not close the print dialog")

    def listing(self):
        self.print_to_file()
        name = self.sample.name + ".txt"
        self.pick(self.folder / name, "Save", "Print to file")
        self.wait(self.indicator, "no editor comes after a listing")
        self.wait(lambda: self.status().startswith("Listed"), "a listing has no status")
        if not (self.folder / name).read_bytes():
            self.miss("the listing is empty")

    def paper(self):
        """To a PDF document, with the questions for the pages."""
        self.choose("Setup Printer")
        self.click("Cancel", self.dialog("Setup Printer"))
        self.wait(lambda: not self.window("dialog"), "Cancel does not close the printer set-up")
        self.wait(lambda: self.choose("Print List"), "there is no menu item Print List")
        dialog = self.dialog("Print List")
        chosen = [each.name for each in self.all({"list item"}, dialog)
                  if has(each, pyatspi.STATE_SELECTED)]
        if chosen != ["PDF document"]:  # but a real printer of this machine
            self.click("Cancel", dialog)
            self.wait(self.indicator, "no editor comes after a cancelled listing")
            return
        self.click("OK", dialog)
        self.wait(lambda: self.window("dialog") and self.one("text", "File"), "no name is asked")
        self.pick(self.folder / "paper.pdf", "Save", "Print List")
        for page in ("Starting Page", "Ending Page"):
            box = self.wait(lambda page=page: self.one("text", page), f"no question '{page}'")
            if not text_of(box):
                self.miss(f"'{page}' offers nothing")
            self.answer("OK")
        self.wait(self.indicator, "no editor comes after printing")
        if not (self.folder / "paper.pdf").exists():
            self.miss("no PDF document is written")

    def export(self):
        self.wait(lambda: self.choose("Export Data"), "there is no menu item Export Data")
        if self.sample.suffix != ".BCS":  # which have a fixed name
            self.pick(self.folder / (self.sample.stem + ".csv"), "Save", "Export Data")
        self.answer("OK")
        if self.sample.suffix not in MEDIA:  # which end in an error
            self.wait(lambda: self.status().startswith("Exported"), "an export has no status")

    def load_folder(self):
        """Loads the samples' folder, whose files the catalogue already has, and one more."""
        files = self.folder / "media"
        if not files.exists():
            shutil.copytree(SAMPLES / "media", files)
        endings = {".WCS": ".wav", ".ICS": ".mid", ".GCS": ".gif", ".MPS": ".mp3"}
        ending = endings[self.sample.suffix]
        another = files / f"Another{ending}"
        another.touch()
        self.wait(lambda: self.choose("Load"), "there is no menu item Load")
        self.pick(another, "Open", "Load")
        self.wait(lambda: self.status().startswith("1 added"), "loading a folder has no status")

    def progress_board(self):
        """With work long enough to be heard."""
        self.wait(self.indicator, "there is no record indicator")
        self.print_to_file()
        self.pick(self.folder / "long.txt", "Save", "Print to file")
        self.wait(lambda: self.heard("progress bar", "Progress"), "no progress is heard")
        self.wait(lambda: self.status().startswith("Listed"), "a long listing has no status")

    def empty_collection(self):
        """The board stays after a listing of nothing."""
        form = self.wait(lambda: self.one_window("Quillbox V"), "there is no start screen")
        self.click("New Collection", form)
        dialog = self.wait(lambda: self.one_window("New Collection"), "there is no dialog")
        self.type(self.wanted("text", "Collection Name:", dialog), "Heard")
        self.press(self.wanted("radio button", "Book", dialog), "Toggle")
        self.click("Go", dialog)
        self.wait(self.indicator, "Go leads to no editor")
        self.print_to_file()
        self.pick(self.folder / "nothing.txt", "Save", "Print to file")
        self.answer("OK")
        board = self.wait(lambda: self.one_window("Printing Status"), "the board does not stay")
        self.check(board)
        if not self.status().startswith("Nothing printed"):
            self.miss("the board does not say that nothing was printed")
        self.wait(lambda: has(board, pyatspi.STATE_ACTIVE), "the board gets no keys")
        subprocess.run(["xdotool", "key", "alt+F4"], check=True)
        self.wait(lambda: not shows(board), "the board cannot be closed")

    def about_and_help(self):
        if self.choose("About"):
            self.answer("OK")
        if self.choose("Content"):
            window = self.wait(lambda: next((each for each in self.windows()
                                             if each.name == "Quillbox Help"), None),
                               "no help comes")
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
        self.exit()

    def exit(self):
        self.click("Exit", self.wait(lambda: self.one_window("Quillbox V"), "no start screen"))
        self.wait(lambda: self.process.poll() is not None, "Exit does not end the program")

    def one_window(self, name):
        return next((each for each in self.windows() if each.name.startswith(name)
                     and each.getRoleName() != "alert"), None)

    def leave(self):
        self.wait(lambda: self.choose("Exit"), "there is no menu item Exit")
        self.exit()


def run(program, folder, sample, *steps):
    """The findings of a walk; each step begins where the last one ended."""
    one = Walk(program, folder, sample)
    at = "start"
    try:
        for at, step in [("start", Walk.start), *steps]:
            step(one)
    except Missed as missed:
        one.miss(f"{at}: {missed}")
    except (GLib.Error, StopIteration, NotImplementedError, LookupError, OSError) as error:
        one.miss(f"{at}: {type(error).__name__}: {error}")
    finally:
        one.end()
    return [f"{one.where}: {what}" for what in one.found]


def steps_of(sample, sorts):
    """All of an editor; of the three other catalogues only what differs."""
    is_media, is_books = sample.endswith(MEDIA), sample.endswith("BCS")
    if is_media and not sample.endswith("GCS"):
        return [("open", Walk.open), ("editor", lambda one: one.editor(False)),
                ("folder", Walk.load_folder), ("leaving", Walk.leave)]
    steps = [("open", Walk.open)] if is_media else []
    steps += [("editor", lambda one: one.editor(not is_media))]
    if not is_media and not is_books:
        steps.append(("list page", Walk.list_pages))
    steps += [
        ("search", Walk.search),
        ("sort", lambda one: one.sort(sorts and not is_books)),  # which ends the program
        ("panel", Walk.panel),
        ("listing", Walk.listing),
        ("export", Walk.export),
    ]
    if sample.endswith("MCS"):
        steps.append(("paper", Walk.paper))
    if is_media:
        steps.append(("folder", Walk.load_folder))
    return [*steps, ("help", Walk.about_and_help), ("leaving", Walk.leave)]


def make_long_collection(path):
    """The first album of a sample, as often as there can be."""
    sample = (SAMPLES / "jazz.MCS").read_bytes()
    path.write_bytes(struct.pack("<h", MANY) + sample[2:ALBUM] + MANY * sample[ALBUM:2 * ALBUM])


def main():
    program, folder, wanted = sys.argv[1], Path(sys.argv[2]), sys.argv[3:]
    editors = {
        "jazz.MCS": True, "tapes.VCS": True, "longbox.CCS": True, "disks.SCS": True,
        "shelf.BCS": True, "pictures.GCS": False, "sounds.WCS": False, "tunes.ICS": False,
        "songs.MPS": False,
    }
    make_long_collection(folder / "long.MCS")
    found = run(program, folder, None, ("empty collection", Walk.empty_collection),
                ("start screen", Walk.start_screen))
    found += run(program, folder, "long.MCS", ("progress board", Walk.progress_board))
    for sample, sorts in editors.items():
        if not wanted or sample in wanted:
            found += run(program, folder, sample, *steps_of(sample, sorts))
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
