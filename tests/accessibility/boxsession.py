"""A running box as a screen reader sees it: the program itself, its windows, waiting, keys."""

import ctypes
import os
import signal
import subprocess
import time

import pyatspi
from gi.repository import Atspi, GLib

TAB, HOME, DOWN, ESCAPE, SPACE = 0xFF09, 0xFF50, 0xFF54, 0xFF1B, 0x20
QUIET_SECONDS = 0.25
ITEM_VIEWS = {pyatspi.ROLE_LIST, pyatspi.ROLE_LIST_BOX, pyatspi.ROLE_TREE, pyatspi.ROLE_TABLE,
              pyatspi.ROLE_TREE_TABLE}
PR_SET_CHILD_SUBREAPER = 36


class Missing(Exception):
    """Something that had to appear did not."""


def has(accessible, *states):
    try:
        found = accessible.getState()
        return all(found.contains(state) for state in states)
    except GLib.Error:  # gone in the meantime
        return False


def children(accessible):
    try:
        found = [accessible.getChildAtIndex(i) for i in range(accessible.childCount)]
    except GLib.Error:
        return []
    return [child for child in found if child]


def press(key):
    pyatspi.Registry.generateKeyboardEvent(key, None, pyatspi.KEY_SYM)


class BoxSession:
    """Starts the box; as a context manager it leaves no process behind."""

    def __init__(self, program):
        self._program = program
        self._last_event = time.monotonic()
        self._focused = None  # what told so since the last Tab
        # What the box starts in its own session becomes a child of this process once the box has gone.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        pyatspi.Registry.registerEventListener(self._on_event, "object:children-changed", "object:state-changed",
                                               "object:bounds-changed", "object:visible-data-changed", "window")
        self._box = subprocess.Popen([program])
        self.application = self.wait_for(self._find_application, "the box among the accessible programs")
        self.application.set_cache_mask(Atspi.Cache.NONE)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self._box.poll() is None:
            self._box.terminate()
        self._box.wait(20)
        children_file = f"/proc/self/task/{os.getpid()}/children"
        for pid in open(children_file, encoding="ascii").read().split():
            os.kill(int(pid), signal.SIGTERM)
        try:
            while True:
                os.wait()
        except ChildProcessError:
            pass

    def _on_event(self, event):
        self._last_event = time.monotonic()
        if event.type == "object:state-changed:focused" and event.detail1:
            self._focused = event.source

    def _find_application(self):
        if self._box.poll() is not None:
            raise Missing(f"the box ended with {self._box.returncode}")
        return next((app for app in children(pyatspi.Registry.getDesktop(0)) if app.name == "zelbox"), None)

    def forward(self, *arguments):
        """Hands a command line to the running box, as a second start does."""
        subprocess.run([self._program, *arguments], check=True, timeout=20)

    def wait_for(self, condition, what, seconds=20):
        """The condition's first true value; looks again whenever an event came, and every 50 ms."""
        deadline = time.monotonic() + seconds
        ticks = GLib.timeout_add(50, lambda: True)
        try:
            while not (value := condition()):
                if time.monotonic() > deadline:
                    raise Missing(what)
                GLib.MainContext.default().iteration(True)
            return value
        finally:
            GLib.source_remove(ticks)

    def settle(self):
        """Until the box has told of no change for a moment."""
        self._last_event = time.monotonic()
        self.wait_for(lambda: time.monotonic() - self._last_event > QUIET_SECONDS, "a quiet box")

    def focus_after(self, key):
        """Presses a key; the element that then tells that it has the focus, and says so when asked."""
        def focused():
            # Qt's lists and trees tell, but when asked it is their current row that has the focus.
            return self._focused and (has(self._focused, pyatspi.STATE_FOCUSED)
                                      or self._focused.getRole() in ITEM_VIEWS)
        self._focused = None
        press(key)
        self.wait_for(focused, "a focused control", seconds=5)
        return self._focused

    def windows(self):
        return [window for window in children(self.application) if has(window, pyatspi.STATE_SHOWING)]

    def open_window(self, *arguments):
        """The window that comes up, active, for a command line."""
        before = self.windows()
        self.forward(*arguments)
        window = self.wait_for(
            lambda: next((w for w in self.windows() if w not in before and has(w, pyatspi.STATE_ACTIVE)), None),
            f"an active window for {' '.join(arguments)}")
        self.settle()
        return window

    def close_by_escape(self, window):
        press(ESCAPE)
        self.wait_for(lambda: window not in self.windows(), f"the end of “{window.name}” after Escape")
        self.settle()
