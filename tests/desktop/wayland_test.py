#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The window under a Wayland compositor that has its keys and its mouse from an X display without a screen.

wayland_test.py PROGRAM: within such a display of 1280 x 800 and a session bus of its own.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import pyatspi
from gi.repository import Gio, GLib

PROGRAM = sys.argv.pop(1)
WIDTH, HEIGHT = 1280, 800
BACKSPACE, TAB, RETURN, ESCAPE = 0xFF08, 0xFF09, 0xFF0D, 0xFF1B
CONTROL_KEY, SUPER_KEY = 37, 133
# Of the frame that the toolkit draws round a maximised window.
MINIMISE_BUTTON = (WIDTH - 64, 15)

GET_POPUP = r"xdg_surface@\d+\.get_popup"

MANAGER = """<openbox_config xmlns="http://openbox.org/3.4/rc"><applications><application class="*">
<decor>no</decor><focus>yes</focus><position force="yes"><x>0</x><y>0</y></position>
</application></applications></openbox_config>"""
COMPOSITOR = "[shell]\npanel-position=none\nlocking=false\nanimation=none\nstartup-animation=none\n"
PLACE_UNDER_X = "geometry=left as it was"
WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg direction="in" type="s"/></method>
<method name="RegisterStatusNotifierHost"><arg direction="in" type="s"/></method>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
</interface></node>"""


def own_bus():
    address = Gio.dbus_address_get_for_bus_sync(Gio.BusType.SESSION, None)
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)


class Tray:
    """Stands for the tray of a desktop; answers in a thread of its own."""

    def __init__(self):
        self.items, self.ready = [], threading.Event()
        threading.Thread(target=self.serve, daemon=True).start()
        self.ready.wait()

    def serve(self):
        context = GLib.MainContext()
        context.push_thread_default()
        self.bus = own_bus()
        self.bus.register_object("/StatusNotifierWatcher", Gio.DBusNodeInfo.new_for_xml(WATCHER).interfaces[0],
                                 self.called, self.asked, None)
        self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                           GLib.Variant("(su)", ("org.kde.StatusNotifierWatcher", 0)), None, 0, -1, None)
        self.ready.set()
        GLib.MainLoop(context).run()

    def called(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        self.items.append(arguments.unpack()[0])
        invocation.return_value(None)

    def asked(self, _bus, _sender, _path, _interface, name):
        return GLib.Variant("i", 0) if name == "ProtocolVersion" else GLib.Variant("b", True)

    def click(self):
        own_bus().call_sync(self.items[-1], "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate",
                            GLib.Variant("(ii)", (0, 0)), None, 0, -1, None)


def below(node):
    """The node and all under it, as far as they still exist."""
    try:
        yield node
        for i in range(node.childCount):
            child = node.getChildAtIndex(i)
            if child is not None:
                yield from below(child)
    except Exception:  # a widget that went meanwhile
        return


def strike(symbol, held=None):
    if held:
        pyatspi.Registry.generateKeyboardEvent(held, None, pyatspi.KEY_PRESS)
    pyatspi.Registry.generateKeyboardEvent(symbol, None, pyatspi.KEY_SYM)
    if held:
        pyatspi.Registry.generateKeyboardEvent(held, None, pyatspi.KEY_RELEASE)


def type_line(line):
    for letter in line:
        strike(ord(letter))
    strike(RETURN)


def switch_windows(pace):
    """`pace` seconds before each key; at that of a hand the compositor's switcher is seen between them."""
    for key, what in ((SUPER_KEY, pyatspi.KEY_PRESS), (TAB, pyatspi.KEY_SYM), (SUPER_KEY, pyatspi.KEY_RELEASE)):
        time.sleep(pace)
        pyatspi.Registry.generateKeyboardEvent(key, None, what)


def mouse(place, what):
    pyatspi.Registry.generateMouseEvent(*place, what)


def compositor_arguments(runtime):
    version = subprocess.run(["weston", "--version"], stdout=subprocess.PIPE, text=True, check=True).stdout
    newer = int(re.search(r"(\d+)\.", version)[1]) >= 12
    return ["weston", *(["--backend=x11", "--renderer=pixman"] if newer else
                        ["--backend=x11-backend.so", "--use-pixman"]),
            f"--width={WIDTH}", f"--height={HEIGHT}", "--socket=display", "--idle-time=0",
            f"--config={runtime / 'weston.ini'}"]


class Session(unittest.TestCase):
    """A compositor and the program in its window, maximised and ready for input."""

    @classmethod
    def setUpClass(cls):
        cls.processes = []
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.addClassCleanup(cls.stop)
        runtime = pathlib.Path(folder.name, "runtime")
        runtime.mkdir(0o700)
        (runtime / "openbox.xml").write_text(MANAGER)
        (runtime / "weston.ini").write_text(COMPOSITOR)
        cls.home = pathlib.Path(folder.name, "home")
        cls.home.mkdir()
        (cls.home / "window.ini").write_text(f"[view]\n{PLACE_UNDER_X}\n")
        # The compositor's window has the keys only where a manager gives them.
        cls.begin(["openbox", "--sm-disable", "--config-file", runtime / "openbox.xml",
                   "--startup", f"touch {runtime / 'managed'}"])
        cls.wait("the manager", (runtime / "managed").exists)
        environment = dict(os.environ, XDG_RUNTIME_DIR=str(runtime))
        with open(runtime / "weston.log", "wb") as log:
            cls.begin(compositor_arguments(runtime), env=environment, stdout=log, stderr=log)
        cls.wait("the compositor", (runtime / "display").exists)
        environment.update(WAYLAND_DISPLAY="display", QT_QPA_PLATFORM="wayland", QT_WAYLAND_DECORATION="bradient",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", WAYLAND_DEBUG="client")
        del environment["DISPLAY"]
        cls.log = runtime / "soran.log"
        with open(cls.log, "wb") as log:
            cls.program = cls.begin([PROGRAM, "--demo", "--home", cls.home], env=environment, stderr=log)
        cls.screen = cls.wait("the screen", lambda: cls.find(name="画面", role=pyatspi.ROLE_TEXT))
        cls.wait("the prompt", lambda: "READY / PRESS ESC TO EXIT" in cls.text())
        cls.window = cls.wait("the window", lambda: cls.find(role=pyatspi.ROLE_FRAME))
        cls.wait("the keys", cls.type_and_take_back)

    @classmethod
    def begin(cls, command, **options):
        process = subprocess.Popen(command, **options)
        cls.processes.append(process)
        return process

    @classmethod
    def stop(cls):
        for process in reversed(cls.processes):
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    @classmethod
    def wait(cls, what, condition, seconds=30):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            for process in cls.processes:
                if process.poll() is not None:
                    raise AssertionError(f"{process.args[0]} ended with {process.returncode} before {what} came")
            try:
                found = condition()
            except Exception:  # a widget that went meanwhile
                found = None
            if found:
                return found
            time.sleep(0.05)
        raise AssertionError("did not come: " + what)

    @classmethod
    def find(cls, name=None, role=None):
        desktop = pyatspi.Registry.getDesktop(0)
        for i in range(desktop.childCount):
            application = desktop.getChildAtIndex(i)
            if application is None or application.name != "soran":
                continue
            for node in below(application):
                if ((name is None or node.name == name) and (role is None or node.getRole() == role)
                        and node.getState().contains(pyatspi.STATE_SHOWING)):
                    return node
        return None

    @classmethod
    def text(cls):
        text = cls.screen.queryText()
        return text.getText(0, text.characterCount)

    @classmethod
    def type_and_take_back(cls):
        strike(ord("z"))
        time.sleep(0.3)
        if not cls.find(name="Z", role=pyatspi.ROLE_LABEL):
            return False
        strike(BACKSPACE)
        return True

    @classmethod
    def requests(cls, pattern):
        """What the program asked of the compositor."""
        return re.findall(r"-> " + pattern, cls.log.read_text(errors="replace").replace("#", "@"))

    def keys(self, last):
        """True where the compositor's last word on the keys is that they enter, or leave."""
        told = re.findall(r"wl_keyboard[@#]\d+\.(enter|leave)\(", self.log.read_text(errors="replace"))
        return told[-1] == last

    def echo(self, typed):
        self.wait("the echo of " + typed, lambda: self.find(name=typed, role=pyatspi.ROLE_LABEL))

    def frame(self):
        place = self.window.queryComponent().getExtents(pyatspi.WINDOW_COORDS)
        return place.width, place.height

    def place_of(self, word):
        """Where the word stands on the display: the frame is as wide on the left as on the right and below."""
        width, height = self.frame()
        side = (WIDTH - width) // 2
        character = self.screen.queryText().getCharacterExtents(self.text().index(word), pyatspi.WINDOW_COORDS)
        return side + character[0] + 2, HEIGHT - height - side + character[1] + character[3] // 2

    def mark(self, place):
        """Clicks twice. False where that marked nothing: a loaded machine may part the clicks."""
        mouse(place, "b1d")
        time.sleep(0.6)
        return self.screen.queryText().getNSelections() == 1

    def minimise(self, times):
        mouse(MINIMISE_BUTTON, "b1c")
        self.wait("the wish to be minimised",
                  lambda: len(self.requests(r"xdg_toplevel@\d+\.set_minimized\(\)")) == times)

    def tearDown(self):
        told = [line for line in self.log.read_text(errors="replace").splitlines()
                if re.search(r"(?i)qt\.qpa|not support|protocol error", line) and not line.startswith("[")]
        self.assertEqual(told, [])


class Working(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # Once: what is clicked in the former report goes when the next one comes.
        type_line("rjtt")
        cls.wait("the report", lambda: "AND FORECASTS" in cls.text() and cls.text().endswith("PRESS ESC TO EXIT"))

    def test_selected_word_is_explained_beside_the_mouse(self):
        place = self.place_of("AND FORECASTS")
        before = len(self.requests(GET_POPUP))
        tip = self.wait("the explanation", lambda: self.mark(place) and self.find(name="AND : および",
                                                                                 role=pyatspi.ROLE_LABEL))
        self.wait("its place", lambda: len(self.requests(GET_POPUP)) > before)
        left, top = map(int, self.requests(r"xdg_positioner@\d+\.set_anchor_rect\((-?\d+), (-?\d+),")[-1])
        height = tip.parent.queryComponent().getExtents(pyatspi.DESKTOP_COORDS).height
        self.assertAlmostEqual(left, place[0] + 7, delta=4)
        self.assertAlmostEqual(top + height, place[1] - 7, delta=4)
        strike(ord("r"))
        self.echo("R")
        strike(BACKSPACE)
        mouse(self.place_of("READY"), "b1c")
        self.wait("the end of the explanation", lambda: not self.find(name="AND : および"))

    def test_copied_word_is_pasted(self):
        self.wait("the selection", lambda: self.mark(self.place_of("WEATHER")))
        strike(ord("c"), CONTROL_KEY)
        self.wait("the copy", lambda: self.requests(r"wl_data_device@\d+\.set_selection"))
        strike(ord("v"), CONTROL_KEY)
        self.echo("WEATHER")
        for _ in "WEATHER":
            strike(BACKSPACE)

    def test_menu_opens_at_the_mouse(self):
        place = self.place_of("METAR")
        before = len(self.requests(GET_POPUP))
        mouse(place, "b3c")
        self.wait("the menu", lambda: len(self.requests(GET_POPUP)) > before)
        left, top = map(int, self.requests(r"xdg_positioner@\d+\.set_anchor_rect\((-?\d+), (-?\d+),")[-1])
        self.assertAlmostEqual(left, place[0], delta=4)
        self.assertAlmostEqual(top, place[1], delta=4)
        strike(ESCAPE)
        self.wait("the keys", self.type_and_take_back)


class WithoutTray(Session):
    def test_minimised_window_stays_with_the_others(self):
        whole = self.frame()
        for times, pace in ((1, 0.3), (2, 0)):
            self.minimise(times)
            self.wait("the loss of the keys", lambda: self.keys("leave"))
            time.sleep(1)
            switch_windows(pace)
            # Older compositors fall over keys that are struck while they still switch.
            self.wait("the return of the keys", lambda: self.keys("enter"))
            self.wait("the keys", self.type_and_take_back)
            self.wait("the whole window", lambda: self.frame() == whole)


class WithTray(Session):
    @classmethod
    def setUpClass(cls):
        cls.tray = Tray()
        super().setUpClass()

    def test_minimised_window_waits_in_the_tray(self):
        whole = self.frame()
        for times in (1, 2):
            self.minimise(times)
            self.wait("the icon", lambda: len(set(self.tray.items)) == times)
            self.wait("the hidden window", lambda: not self.window.getState().contains(pyatspi.STATE_SHOWING))
            self.tray.click()
            self.wait("the keys", self.type_and_take_back)
            self.wait("the whole window", lambda: self.frame() == whole)
        # Where the window stands under X is kept for the next time there.
        strike(ESCAPE)
        self.assertEqual(self.program.wait(30), 0)
        stored = (self.home / "window.ini").read_text()
        self.assertIn(PLACE_UNDER_X, stored)
        self.assertIn("size=", stored)


del Session

if __name__ == "__main__":
    unittest.main(verbosity=2)
