"""The program as it is on the accessibility bus: what is there, and what can be done to it."""

import contextlib
import shutil
import subprocess
import time
from pathlib import Path

import pyatspi
from gi.repository import GLib

SAMPLES = Path(__file__).resolve().parent.parent / "samples"
MEDIA = ".GCS"  # not opened by the command line
SLOW = 60  # seconds that nothing takes, not even on a busy machine


class Missed(Exception):
    """What was waited for did not come."""


class Program:
    """One start of the program."""

    def __init__(self, program, folder, sample=None):
        self.where = sample or "start"
        self.names, self.app = [], None
        command = [program]
        if sample:
            self.sample = Path(shutil.copy(SAMPLES / sample, folder))
            command += [self.sample] if self.sample.suffix != MEDIA else []
        self.process = subprocess.Popen(command, cwd=folder)

    # ---- what is there

    def wait(self, condition, what):
        """What `condition` returns once it is true."""
        end = time.monotonic() + SLOW
        while time.monotonic() < end:
            with contextlib.suppress(GLib.Error, LookupError):  # what is looked at may just go
                if result := condition():
                    return result
            pump()
            time.sleep(0.02)
        raise Missed(what)

    def find_app(self):
        for app in children(pyatspi.Registry.getDesktop(0)):
            if app.get_process_id() == self.process.pid and app.childCount:
                self.app = app
                return True
        return False

    def windows(self):
        return [window for window in children(self.app) if shows(window)]

    def all(self, roles, within=None):
        roots = [within] if within is not None else self.windows()
        return [each for root in roots for each in walk(root) if each.getRoleName() in roles]

    def one(self, role, name, within=None):
        """The control on screen whose name begins so; None if there is none."""
        return next((each for each in self.all({role}, within)
                     if each.name.strip().startswith(name)
                     and (role == "menu item" or shows(each))),
                    None)

    def wanted(self, role, name, within=None):
        return self.wait(lambda: self.one(role, name, within), f"there is no {role} '{name}'")

    def window(self, *roles):
        """The window that came last, of these roles."""
        found = [each for each in self.windows() if each.getRoleName() in roles]
        return found[-1] if found else None

    # ---- what is done

    def press(self, control, action=None):
        actions = control.queryAction()
        names = [actions.getName(index) for index in range(actions.nActions)]
        if not names:
            raise Missed(f"'{control.name}' has no action")
        self.names.clear()
        # A menu item that opens a dialog returns when that is closed.
        with contextlib.suppress(GLib.Error):
            actions.doAction(names.index(action) if action else 0)

    def click(self, name, within=None):
        self.press(self.wanted("push button", name, within), "Press")

    def choose(self, *names):
        """Chooses the menu item that has one of these names; False if none has."""
        for name in names:
            if item := self.one("menu item", name):
                self.press(item, "Press")
                return True
        return False

    def type(self, control, text):
        control.queryEditableText().setTextContents(text)

    def words(self, window):
        return [window.name] + [each.name for each in self.all({"label"}, window)]

    def tell_name(self, event):
        with contextlib.suppress(GLib.Error, AttributeError):
            self.names.append((event.source.getRoleName(), event.source.name))

    def heard(self, role, beginning=""):
        return any(each == role and name.startswith(beginning) and name
                   for each, name in self.names)

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


def walk(accessible, most=200):
    """The accessible and all below it. Of a long list the first ones are enough."""
    yield accessible
    for child in children(accessible, most):
        yield from walk(child, most)


def children(accessible, most=200):
    with contextlib.suppress(GLib.Error, LookupError):  # what goes meanwhile
        for index in range(min(accessible.childCount, most)):
            child = accessible[index]
            if child is not None:
                yield child


def has(accessible, state):
    return accessible.getState().contains(state)


def shows(accessible):
    return has(accessible, pyatspi.STATE_SHOWING)


def enabled(accessible):
    return has(accessible, pyatspi.STATE_ENABLED)


def actions_of(accessible):
    try:
        return accessible.queryAction().nActions
    except NotImplementedError:
        return 0


def text_of(accessible):
    return accessible.queryText().getText(0, -1)


def labels_of(control):
    return {relation.getTarget(0).name for relation in control.getRelationSet()
            if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY}


def cells_of(table):
    return [each for each in walk(table, 20) if each.getRoleName() == "table cell"]


def pump():
    """Takes in what the bus has sent."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass


def pause():
    """An action may be animated, and only then begins."""
    time.sleep(0.3)
    pump()
