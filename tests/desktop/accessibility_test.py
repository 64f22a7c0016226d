#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The window as assistive technology has it: over AT-SPI, on an X display with a session bus of its own.

accessibility_test.py PROGRAM WINDOW_TESTS
"""

import os
import subprocess
import sys
import tempfile
import time
import unittest

import pyatspi
from gi.repository import GLib

PROGRAM, WINDOW_TESTS = sys.argv.pop(1), sys.argv.pop(1)
ON_THE_BUS = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb")
NAMED_ROLES = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE,
    pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_MENU_ITEM,
    pyatspi.ROLE_POPUP_MENU, pyatspi.ROLE_PROGRESS_BAR, pyatspi.ROLE_FRAME, pyatspi.ROLE_DIALOG,
}
BACKSPACE, RETURN, ESCAPE, TAB, DOWN, RIGHT, ALT = 0xFF08, 0xFF0D, 0xFF1B, 0xFF09, 0xFF54, 0xFF53, 64


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


def shows(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def wait(what, condition, seconds=30):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        for process in Accessibility.program, Accessibility.manager:
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


def start(at_the_end, command, **options):
    """A process that ends with the test or the class whose cleanups `at_the_end` adds to."""
    process = subprocess.Popen(command, **options)

    def stop():
        process.kill()
        process.wait()

    at_the_end(stop)
    return process


def strike(symbol):
    pyatspi.Registry.generateKeyboardEvent(symbol, None, pyatspi.KEY_SYM)


def type_line(line):
    for letter in line:
        strike(ord(letter))
    strike(RETURN)


def alt(letter):
    pyatspi.Registry.generateKeyboardEvent(ALT, None, pyatspi.KEY_PRESS)
    strike(ord(letter))
    pyatspi.Registry.generateKeyboardEvent(ALT, None, pyatspi.KEY_RELEASE)


class Accessibility(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        home = tempfile.TemporaryDirectory()
        cls.addClassCleanup(home.cleanup)
        # Without a manager no window would have the keys.
        cls.manager = start(cls.addClassCleanup, ["openbox", "--sm-disable"])
        cls.program = start(cls.addClassCleanup, [PROGRAM, "--demo", "--home", home.name], env=ON_THE_BUS)
        cls.screen = wait("the screen", lambda: cls.find(name="画面", role=pyatspi.ROLE_TEXT))
        wait("the prompt", lambda: "READY / PRESS ESC TO EXIT" in cls.text())

    @classmethod
    def nodes(cls):
        desktop = pyatspi.Registry.getDesktop(0)
        for i in range(desktop.childCount):
            application = desktop.getChildAtIndex(i)
            if application is not None and application.name == "soran":
                yield from below(application)

    @classmethod
    def find(cls, name=None, role=None):
        for node in cls.nodes():
            if (name is None or node.name == name) and (role is None or node.getRole() == role) and shows(node):
                return node
        return None

    @classmethod
    def text(cls):
        text = cls.screen.queryText()
        return text.getText(0, text.characterCount)

    def focused(self):
        return next((node for node in self.nodes() if node.getState().contains(pyatspi.STATE_FOCUSED)), None)

    def assert_named(self):
        for node in self.nodes():
            if node.getRole() in NAMED_ROLES and shows(node):
                self.assertNotEqual(node.name.strip(), "", f"{node.getRoleName()} in {node.parent}")

    def test_new_reports_alert(self):
        told = []

        def hear(event):
            try:
                if event.detail1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
                    told.append(event.source.name)
            except GLib.GError:  # a widget that went meanwhile
                pass

        pyatspi.Registry.registerEventListener(hear, "object:state-changed:showing")
        program = start(self.addCleanup, [WINDOW_TESTS, "--gtest_filter=WindowTest.NewReportsAlert*",
                                          "--gtest_repeat=5", "--gtest_brief=1"], env=ON_THE_BUS)
        while program.poll() is None or GLib.MainContext.default().pending():
            GLib.MainContext.default().iteration(False)
            time.sleep(0.001)
        pyatspi.Registry.deregisterEventListener(hear, "object:state-changed:showing")
        self.assertEqual(program.returncode, 0)
        self.assertIn("RJTT SPECI RECEIVED", told)

    def has_the_keys(self):
        strike(ord("z"))
        time.sleep(0.3)
        typed = next((node.name for node in self.nodes()
                      if node.getRole() == pyatspi.ROLE_LABEL and set(node.name) == {"Z"}), "")
        for _ in typed:
            strike(BACKSPACE)
        return typed != ""

    def test_notice_is_told(self):
        # The windows of the test before had them.
        wait("the keys", self.has_the_keys)
        type_line("reset")
        button = wait("the notice", lambda: self.find(name="OK"))
        notice = [node.name for node in below(button.parent.parent) if node.getRole() == pyatspi.ROLE_LABEL]
        button.queryAction().doAction(0)
        self.assertIn("データベース リセット シーケンスを設定しました", "".join(notice))
        wait("the end of the notice", lambda: not self.find(name="OK"))

    def test_window_names_its_controls_and_its_state(self):
        self.assert_named()
        labels = {node.description: node.name for node in self.nodes() if node.getRole() == pyatspi.ROLE_LABEL}
        self.assertTrue(labels["ネットワークの状態"].startswith("ネットワーク"), labels)
        self.assertEqual(labels["試験データの表示"], "DEMONSTRATION DATA")
        strike(ord("r"))
        wait("the echo of a key", lambda: self.find(name="R", role=pyatspi.ROLE_LABEL))
        strike(BACKSPACE)

    def test_screen_is_read_line_by_line(self):
        type_line("rjtt")
        wait("the report", lambda: "*** RJTT - WEATHER" in self.text() and self.text().endswith("PRESS ESC TO EXIT"))
        text = self.screen.queryText()
        lines, offset = [], 0
        while offset < text.characterCount:
            line, start, end = text.getTextAtOffset(offset, pyatspi.TEXT_BOUNDARY_LINE_START)
            self.assertEqual(start, offset)
            lines.append(line)
            offset = end + (self.text()[end:end + 1] == "\n")
        self.assertEqual("\n".join(lines).rstrip(), self.text().rstrip())
        self.assertTrue(any(line.startswith("RJTT  METAR") for line in lines), lines)

    def test_menus_open_by_key_and_escape_leaves_them(self):
        for letter in "fsgwti":
            alt(letter)
            menu = wait("the menu of Alt+" + letter,
                        lambda: next((node for node in self.nodes()
                                      if node.getRole() == pyatspi.ROLE_MENU_ITEM and shows(node)), None))
            self.assertNotEqual(menu.name, "")
            strike(DOWN)
            wait("a chosen item", lambda: any(node.getRole() == pyatspi.ROLE_MENU_ITEM and shows(node) and
                                              node.getState().contains(pyatspi.STATE_FOCUSED) for node in self.nodes()))
            strike(ESCAPE)
            wait("the focus on the bar", lambda: self.focused().getRole() == pyatspi.ROLE_MENU_BAR)
            strike(ESCAPE)
            wait("the focus on the screen", lambda: self.focused().name == "画面")

    def test_tab_walks_the_buttons_and_comes_back(self):
        wait("the focus on the screen", lambda: self.focused().name == "画面")
        seen = []
        while True:
            before = self.focused().name
            strike(TAB)
            wait("the next control", lambda: self.focused().name != before)
            name = self.focused().name
            if name == "画面":
                break
            self.assertNotIn(name, seen)
            seen.append(name)
        self.assertEqual(seen[:3], ["SORAN を終了", "保存", "印刷"])

    def dialog(self):
        return next((node for node in self.nodes() if node.getRole() == pyatspi.ROLE_DIALOG and shows(node)), None)

    def test_forms_name_their_controls(self):
        for command in ("log", "ap", "de", "gp", "cam", "picture"):
            with self.subTest(command):
                type_line(command)
                wait(command, self.dialog)
                self.assert_named()
                strike(ESCAPE)
                wait("the closed form of " + command, lambda: self.dialog() is None)
                wait("the focus on the screen", lambda: self.focused().name == "画面")
        for _ in "picture":  # the command leaves its word in the line
            strike(BACKSPACE)


if __name__ == "__main__":
    unittest.main(verbosity=2)
