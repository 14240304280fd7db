"""The program on the accessibility bus: its controls, and the actions on them."""

import contextlib
import shutil
import subprocess
import time
from pathlib import Path

import pyatspi
from gi.repository import Atspi, GLib

SAMPLES = Path(__file__).resolve().parent.parent / "samples"
MEDIA = (".WCS", ".ICS", ".GCS", ".MPS")  # not opened by the command line
SLOW = 60  # seconds that nothing takes, not even on a busy machine
PRESSED = 100  # milliseconds
TICK = 0.1  # seconds after which a condition is tried again without an event
HEARD = ("object:property-change:accessible-name", "object:property-change:accessible-value")
WAKING = ("window", "object:state-changed")
# Large controls are entered only in search of these roles, or from within.
INSIDE = {
    "menu bar": {"menu item"}, "combo box": {"list item"},
    "table": {"table cell"}, "tree table": {"table cell"}, "tree": {"table cell"},
}


class Missed(Exception):
    """A condition that was waited for did not come true."""


class Program:
    """One start of the program."""

    def __init__(self, program, folder, sample=None):
        self.where, self.folder = sample or "start", Path(folder)
        self.events, self.app = [], None
        command = [program]
        if sample:
            self.sample = self.folder / sample
            if not self.sample.exists():
                shutil.copy(SAMPLES / sample, folder)
            command += [self.sample] if self.sample.suffix not in MEDIA else []
        pyatspi.Registry.registerEventListener(self.hear, *HEARD)
        pyatspi.Registry.registerEventListener(wake, *WAKING)
        self.process = subprocess.Popen(command, cwd=folder)

    # ---- controls

    def wait(self, condition, what):
        """Waits until `condition` is true, and returns its value. Events wake it."""
        end = time.monotonic() + SLOW
        while time.monotonic() < end:
            with contextlib.suppress(GLib.Error, LookupError):  # a control may just have gone
                if result := condition():
                    return result
            pump(TICK)
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
        return [each for root in roots for role, each in walk(root, roles) if role in roles]

    def one(self, role, name, within=None):
        """The visible control whose name begins like this; None if there is none."""
        return next((each for each in self.all({role}, within)
                     if each.name.strip().startswith(name)
                     and (role == "menu item" or shows(each))),
                    None)

    def wanted(self, role, name, within=None):
        return self.wait(lambda: self.one(role, name, within), f"there is no {role} '{name}'")

    def window(self, *roles):
        """The newest window with one of these roles."""
        found = [each for each in self.windows() if each.getRoleName() in roles]
        return found[-1] if found else None

    # ---- actions

    def press(self, control, action=None):
        actions = control.queryAction()
        names = [actions.getName(index) for index in range(actions.nActions)]
        if not names:
            raise Missed(f"'{control.name}' has no action")
        self.events.clear()
        # What opens a dialog returns when the dialog is closed: the call is not waited for.
        Atspi.set_timeout(PRESSED, 0)
        with contextlib.suppress(GLib.Error):
            actions.doAction(names.index(action) if action else 0)
        Atspi.set_timeout(SLOW * 1000, 0)

    def click(self, name, within=None):
        self.press(self.wanted("push button", name, within), "Press")

    def choose(self, *names):
        """Chooses the menu item with one of these names; False if there is none."""
        for name in names:
            if item := self.one("menu item", name):
                self.press(item, "Press")
                return True
        return False

    def type(self, control, text):
        control.queryEditableText().setTextContents(text)

    def words(self, window):
        return [window.name] + [each.name for each in self.all({"label"}, window)]

    def hear(self, event):
        with contextlib.suppress(GLib.Error, AttributeError):
            self.events.append((event.source.getRoleName(), event.source.name))

    def heard(self, role, beginning=""):
        """True when the name or value of such a control has changed since the last action."""
        return any(each == role and name.startswith(beginning) and name
                   for each, name in self.events)

    def end(self):
        pyatspi.Registry.deregisterEventListener(self.hear, *HEARD)
        pyatspi.Registry.deregisterEventListener(wake, *WAKING)
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


def walk(accessible, wanted=None, most=200, inside=True):
    """Role and accessible of this one and all below it; of a long list, the first ones. With
    `wanted`, the roles searched for, large controls without such parts are not entered."""
    role = accessible.getRoleName()
    yield role, accessible
    if wanted is not None and not inside and INSIDE.get(role, wanted).isdisjoint(wanted):
        return
    for child in children(accessible, most):
        yield from walk(child, wanted, most, False)


def children(accessible, most=200):
    with contextlib.suppress(GLib.Error, LookupError):  # it may go meanwhile
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
    return [each for role, each in walk(table, most=20) if role == "table cell"]


def wake(_event):
    """Events of windows and states only end a wait."""


def pump(seconds=0):
    """Handles the events that have come; waits that long for the first one."""
    context = GLib.MainContext.default()
    if seconds and not context.pending():
        late = []
        timer = GLib.timeout_add(int(seconds * 1000), late.append, True)
        context.iteration(True)
        if not late:
            GLib.source_remove(timer)
    while context.iteration(False):
        pass


def pause():
    """An animated action only begins when it returns."""
    pump(0.3)
