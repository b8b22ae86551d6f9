#!/usr/bin/env python3
"""Installs the box into a folder and looks at it as a desktop does: texts are valid, what they name is there, the copy
works, and the session bus starts it. Needs a display."""
import configparser
import contextlib
import os
import pathlib
import re
import select
import shlex
import shutil
import subprocess
import tempfile
import unittest

ID = "org.zelbox.ZelBox"
OBJECT = "/" + ID.replace(".", "/")


def run(*command):
    """Runs a command; returns its code and everything that it said."""
    done = subprocess.run([str(c) for c in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return done.returncode, done.stdout.strip()


def call(destination, path, method, *arguments):
    """A command that calls a method on the session bus and prints the answer as a tuple."""
    return ["gdbus", "call", "--session", "--dest", destination, "--object-path", path, "--method", method, *arguments]


def keys(path):
    """The groups and keys of a desktop file, a unit or a bus service."""
    parser = configparser.RawConfigParser(delimiters="=")
    parser.optionxform = str
    parser.read(path, encoding="utf-8")
    return parser


@contextlib.contextmanager
def session_bus(share):
    """A bus that knows only the services below `share`."""
    environment = dict(os.environ, XDG_DATA_DIRS=str(share))
    daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], env=environment,
                              stdout=subprocess.PIPE, text=True)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = daemon.stdout.readline().strip()
    try:
        yield
    finally:
        daemon.terminate()
        daemon.communicate()
        del os.environ["DBUS_SESSION_BUS_ADDRESS"]


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # The blank finds what forgot to quote.
        cls.prefix = pathlib.Path(tempfile.mkdtemp()) / "opt box"
        code, output = run(os.environ["ZEL_CMAKE"], "--install", os.environ["ZEL_BUILD_DIR"], "--prefix", cls.prefix)
        assert code == 0, output
        cls.share = cls.prefix / "share"
        cls.desktop_file = cls.share / f"applications/{ID}.desktop"

    def expect(self, *command, output=None):
        if not shutil.which(command[0]):
            self.skipTest(f"no {command[0]} on this machine")
        code, said = run(*command)
        self.assertEqual((code, said if output is not None else None), (0, output), said)
        return said

    def test_target_box_makes_what_is_installed(self):
        build = pathlib.Path(os.environ["ZEL_BUILD_DIR"])
        made = self.expect("ninja", "-C", build, "-t", "commands", "box")
        scripts = "".join(path.read_text(encoding="utf-8") for path in build.rglob("cmake_install.cmake"))
        for files in re.findall(r"^ *file\(INSTALL [^)]* FILES\s+([^)]*)\)", scripts, re.MULTILINE):
            for path in map(pathlib.Path, re.findall('"(.*?)"', files)):
                if build in path.parents and "filled" not in path.parts:
                    self.assertIn(str(path.relative_to(build)), made)

    def test_self_test(self):
        self.expect(self.prefix / "bin/zelbox", "--self-test", output="self-test: ok")

    def test_desktop_file(self):
        self.expect("desktop-file-validate", self.desktop_file, output="")

    def test_metainfo(self):
        self.expect("appstreamcli", "validate", "--no-net", self.share / f"metainfo/{ID}.metainfo.xml")

    def test_man_pages(self):
        for page in ("zelbox", "zelcloud"):
            path = self.share / f"man/man1/{page}.1"
            self.assertNotIn("@", path.read_text(encoding="utf-8"))
            self.assertIn("ENVIRONMENT", self.expect("man", "--warnings", "-P", "cat", "-l", path))
            self.expect("man", "--warnings", "-Tlatin1", "-Z", "-P", "true", "-l", path)

    def test_units(self):
        units = self.prefix / "lib/systemd/user"
        for unit in sorted(units.glob("*.service")):
            program = shlex.split(keys(unit)["Service"]["ExecStart"])[0]
            self.assertTrue(os.access(program, os.X_OK), program)
        self.expect("systemd-analyze", "--user", "--man=no", "verify", *units.iterdir(), output="")

    def test_menu_entry(self):
        desktop = keys(self.desktop_file)
        programs = {desktop[group]["Exec"].split()[0] for group in desktop.sections()}
        self.assertEqual({desktop["Desktop Entry"]["TryExec"]}, programs)
        for program in programs:
            self.assertTrue(os.access(self.prefix / "bin" / program, os.X_OK), program)
        for picture in ("scalable/apps/{}.svg", "symbolic/apps/{}-symbolic.svg", "16x16/apps/{}.png", "512x512/apps/{}.png"):
            self.assertTrue((self.share / "icons/hicolor" / picture.format(desktop["Desktop Entry"]["Icon"])).is_file())

    def test_started_by_the_bus(self):
        entry = keys(self.desktop_file)["Desktop Entry"]
        application = "org.freedesktop.Application."
        with session_bus(self.share):
            self.expect(*call(ID, OBJECT, application + "Activate", "{}"), output="()")
            self.expect(os.environ["ZEL_WINDOWSHOT"], entry["Name"], self.prefix / "window.png")
            # The task bar finds the window's entry by this.
            self.assertIn(f'"{entry["StartupWMClass"]}"', self.expect("xprop", "-name", entry["Name"], "WM_CLASS"))
            answer = self.expect(*call("org.freedesktop.DBus", "/", "org.freedesktop.DBus.GetConnectionUnixProcessID", ID))
            ended = select.poll()
            ended.register(os.pidfd_open(int(answer.strip("(),").split()[-1])), select.POLLIN)
            for action in entry["Actions"].strip(";").split(";"):  # the last one ends the box
                self.expect(*call(ID, OBJECT, application + "ActivateAction", action, "[]", "{}"), output="()")
            self.assertTrue(ended.poll(30000), "the box still runs")


if __name__ == "__main__":
    unittest.main()
