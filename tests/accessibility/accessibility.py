#!/usr/bin/python3
"""Reads the windows of the running box through AT-SPI, as a screen reader does, and goes through them by keyboard.

Needs an X display and a window manager (tests/support/private-home.sh). Exit code 77: AT-SPI is not installed.
"""

import os
import pathlib
import shutil
import sys

SKIPPED = 77
PRIVATE_BUS = "ZEL_ACCESSIBILITY_BUS"


def skip(reason):
    print(f"skipped: {reason}")
    sys.exit(SKIPPED)


if PRIVATE_BUS not in os.environ:
    if not shutil.which("dbus-run-session"):
        skip("no dbus-run-session (package dbus)")
    os.environ.update({PRIVATE_BUS: "1", "QT_ACCESSIBILITY": "1", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
    os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])

try:
    import pyatspi
except ImportError:
    skip("no pyatspi (package python3-pyatspi)")

from boxsession import BoxSession, DOWN, ESCAPE, HOME, ITEM_VIEWS, Missing, SPACE, TAB, has, press
from windowchecks import check_focus, check_names, children, label, tab_stops, walk

DOCUMENTS = ["Budget.ods", "Letter to Anna.odt", "Plan.pdf"]


def write_recent_list():
    home = pathlib.Path(os.environ["HOME"])
    data = pathlib.Path(os.environ["XDG_DATA_HOME"])
    data.mkdir(parents=True, exist_ok=True)
    entries = []
    for number, name in enumerate(DOCUMENTS):
        path = home / name
        path.write_text(name, encoding="utf-8")
        time = f"2026-0{number + 1}-03T10:00:00Z"
        entries.append(f'<bookmark href="{path.as_uri()}" added="{time}" modified="{time}" visited="{time}"/>')
    (data / "recently-used.xbel").write_text(
        '<?xml version="1.0" encoding="UTF-8"?><xbel version="1.0">' + "".join(entries) + "</xbel>", encoding="utf-8")


class Report:
    def __init__(self, session):
        self._session = session
        self.problems = []

    def check(self, scene, window, focus=True):
        found = check_names(window) + (check_focus(self._session, window) if focus else [])
        print(f"{scene}: {sum(1 for _ in walk(window))} elements, {len(found)} problems", flush=True)
        self.problems += [f"{scene}: {problem}" for problem in dict.fromkeys(found)]

    def step(self, scene, action):
        """What does not come up is a problem of this scene; the others are looked at all the same."""
        try:
            action(scene)
        except Missing as missing:
            self.problems.append(f"{scene}: missing: {missing}")


def main_window(session):
    window = session.wait_for(
        lambda: next((w for w in session.windows() if has(w, pyatspi.STATE_ACTIVE)), None), "the main window")
    session.wait_for(lambda: any(DOCUMENTS[0] in row.name for row in walk(window, True)), "the seeded documents")
    session.settle()
    return window


def check_pages(session, report, window):
    bar = next(place for place in walk(window) if place.name == "Pages")
    buttons = [button for button in children(bar) if button.getRole() in
               {pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_PAGE_TAB}]

    def check_page(number, scene):
        session.forward(f"/tab={number}")
        session.wait_for(lambda: has(buttons[number], pyatspi.STATE_CHECKED)
                         or has(buttons[number], pyatspi.STATE_SELECTED), "the chosen page")
        session.settle()
        report.check(scene, window)

    for number, button in enumerate(buttons):
        report.step(f"page “{button.name}”", lambda scene, number=number: check_page(number, scene))
    session.forward("/tab=0")
    session.settle()


def check_menu(session, report, window, scene):
    button = next((b for b in walk(window) if b.name in ("Menu", "Main menu")), None)
    if not button:
        raise Missing("the menu button")
    button.queryComponent().grabFocus()
    session.wait_for(lambda: has(button, pyatspi.STATE_FOCUSED), "the focus on the menu button")
    press(SPACE)
    session.settle()
    # Open menus are not among the windows; their entries tell who they are when the arrow keys come by.
    menu = session.focus_after(DOWN).parent
    if menu.getRole() not in (pyatspi.ROLE_POPUP_MENU, pyatspi.ROLE_MENU):
        raise Missing(f"the opened menu; the arrow key goes into {label(menu)}")
    report.check(scene, menu, focus=False)
    press(ESCAPE)
    session.wait_for(lambda: not has(menu, pyatspi.STATE_SHOWING), "the end of the menu after Escape")


def check_settings(session, report, scene):
    window = session.open_window("/options=settings")
    report.check(scene, window)
    sections = next(view for view in walk(window) if view.getRole() in ITEM_VIEWS)
    for number, item in enumerate(children(sections)):
        # A round ends anywhere, and Qt's lists cannot be given the focus.
        while [stop for stop in tab_stops(window) if stop != sections] and session.focus_after(TAB) != sections:
            pass
        press(DOWN if number else HOME)
        session.wait_for(lambda row=item: has(row, pyatspi.STATE_SELECTED), f"the section “{item.name}”")
        session.settle()
        report.check(f"{scene}, “{item.name}”", window)
    session.close_by_escape(window)


def check_window(session, report, scene, *arguments):
    window = session.open_window(*arguments)
    report.check(scene, window)
    if window.getRole() == pyatspi.ROLE_DIALOG:
        session.close_by_escape(window)


def main(program):
    write_recent_list()
    with BoxSession(program) as session:
        report = Report(session)
        window = main_window(session)
        check_pages(session, report, window)
        report.step("main menu", lambda scene: check_menu(session, report, window, scene))
        report.step("settings", lambda scene: check_settings(session, report, scene))
        for scene, arguments in {"mini window": "/options=showZelBoxMini", "exit dialog": "/action=exitdlg",
                                 "folder selector": "/options=folderselector"}.items():
            report.step(scene, lambda name, words=arguments: check_window(session, report, name, words))
    for problem in report.problems:
        print(f"PROBLEM {problem}")
    return 1 if report.problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
