#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The window as a blind user hears it: what Orca speaks at each step, each phrase once and in order.

speech_test.py PROGRAM FOLDER [KEPT], on an X display with a session bus of its own (tools/check-speech). What the
reader wrote is kept in the file KEPT.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

import pyatspi

PROGRAM, FOLDER = sys.argv[1], pathlib.Path(sys.argv[2])
HEARD = FOLDER / "orca.debug"
RETURN, ESCAPE, TAB, BACKSPACE, DELETE, SPACE, UP, DOWN, RIGHT = (
    0xFF0D, 0xFF1B, 0xFF09, 0xFF08, 0xFFFF, 0x20, 0xFF52, 0xFF54, 0xFF53)
# A synthesiser that runs a command without a sound.
SPEECH_SERVER = {
    "speechd.conf": 'LogLevel 1\nAudioOutputMethod "libao"\nDefaultLanguage "en"\n'
                    'AddModule "silent" "sd_generic" "silent.conf"\nDefaultModule silent\n',
    "modules/silent.conf": 'GenericExecuteSynth "true"\nGenericLanguage "en" "en" "utf-8"\n'
                           'AddVoice "en" "MALE1" "silent"\nDefaultVoice "silent"\n',
}
PHRASE = re.compile(r"SPEECH OUTPUT: '(.*?)' ?(?=\{|$)(?:\{[^\n]*)?$", re.MULTILINE | re.DOTALL)
# The reader as it is installed, but what it writes is on the disk at once.
READER = """
import builtins, runpy, shutil, sys
plain = builtins.open
builtins.open = lambda file, mode="r", *more, **named: (
    plain(file, mode, 1) if file == sys.argv[2] else plain(file, mode, *more, **named))
sys.argv[0] = shutil.which("orca")
runpy.run_path(sys.argv[0], run_name="__main__")
"""
children = []


class Unheard(Exception):
    pass


def start(name, *command, **more):
    log = open(FOLDER / (name + ".log"), "wb")
    children.append((name, subprocess.Popen(command, stdout=log, stderr=log, **more)))


def start_reader(attempts=3):
    """It kills itself where its own start takes longer than ten seconds, as on a machine under load."""
    for attempt in range(attempts):
        start("orca", sys.executable, "-W", "ignore", "-c", READER, "--debug-file", str(HEARD))
        reader = children[-1][1]
        while not heard() and reader.poll() is None:
            time.sleep(0.1)
        if reader.poll() != -9 or attempt == attempts - 1:
            return
        children.pop()


def heard():
    """Every phrase so far."""
    text = HEARD.read_text(encoding="utf-8", errors="replace") if HEARD.exists() else ""
    return [" ".join(phrase.split()).rstrip(".") for phrase in PHRASE.findall(text)]


class Ear:
    """Listens step by step."""

    def __init__(self):
        self.from_phrase = 0

    def hear(self, step, expected, seconds=30, quiet=1.0):
        """The phrases since the last step are these, a regular expression for each."""
        end = time.monotonic() + seconds
        size, still_since = -1, time.monotonic()
        while time.monotonic() < end:
            for name, process in children:
                if process.poll() is not None:
                    raise Unheard(f"{step}: {name} ended with {process.returncode}\n" +
                                  (FOLDER / (name + ".log")).read_text(errors="replace"))
            grown = HEARD.stat().st_size if HEARD.exists() else 0
            if grown != size:
                size, still_since = grown, time.monotonic()
            # What comes twice comes soon.
            if len(heard()) - self.from_phrase >= len(expected) and time.monotonic() - still_since > quiet:
                break
            time.sleep(0.05)
        phrases = heard()[self.from_phrase:]
        self.from_phrase += len(phrases)
        fits = re.fullmatch("\n".join(expected), "\n".join(phrases)) is not None
        print(("ok      " if fits else "WRONG   ") + step, flush=True)
        if not fits or "-v" in sys.argv:
            print("".join(f"    heard     {phrase}\n" for phrase in phrases), end="")
        if not fits:
            print("".join(f"    expected  {phrase}\n" for phrase in expected), end="", flush=True)
        return fits


def strike(*symbols):
    for symbol in symbols:
        pyatspi.Registry.generateKeyboardEvent(symbol, None, pyatspi.KEY_SYM)


def named(node, name):
    """The first of the node and those below that has the name."""
    if node.name.strip() == name and node.getRole() == pyatspi.ROLE_PUSH_BUTTON:
        return node
    return next(filter(None, (named(node.getChildAtIndex(i), name) for i in range(node.childCount))), None)


def press(button):
    desktop = pyatspi.Registry.getDesktop(0)
    programs = (desktop.getChildAtIndex(i) for i in range(desktop.childCount))
    program = next(filter(lambda each: each.name == "soran", programs))
    # Not by its action, whose answer would come when the form is closed.
    place = named(program, button).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    pyatspi.Registry.generateMouseEvent(place.x + place.width // 2, place.y + place.height // 2, "b1c")


WINDOW = ["SORAN - DEMONSTRATION DATA frame", "画面の枠", "画面 read only text"]
HINT = ["気象通報を表示する画面。文字を入力して Enter で実行します"]
READY = "READY / PRESS ESC TO EXIT"
BACK = ["escape", *WINDOW, READY, *HINT]
BUTTON = " (push )?button"
EDITOR = ["グループ編集 dialog", "グループ", "table with 3 rows 2 columns"]


def any_order(one, other):
    return f"({one}\n{other}|{other}\n{one})"


def echo(line):
    return [*line, "return"]


def typed(line):
    for letter in line:
        strike(ord(letter))
        time.sleep(0.3)  # at a speed at which a reader speaks each key
    strike(RETURN)


# What the user does, and what is then to be heard: each phrase once, in this order, and nothing else.
STEPS = [
    ("a key", lambda: strike(ord("r")), ["r"]),
    ("back space", lambda: strike(BACKSPACE), ["backspace"]),
    ("a report and the prompt", lambda: typed("rjtt"), [
        *echo("rjtt"), r"notification \*\*\* RJTT - WEATHER OBSERVATION AND FORECASTS \*\*\* RJTT METAR .* "
        "RJTT TAF .*" + READY]),
    ("the next report alone", lambda: typed("rjcc"), [
        *echo("rjcc"), r"notification \*\*\* RJCC - (?!.*RJTT).* RJCC METAR .* RJCC TAF .*" + READY]),
    ("an error", lambda: typed("rj1"), [*echo("rj1"), "notification SYNTAX ERROR " + READY]),
    ("a notice", lambda: typed("reset"), [
        *echo("reset"), any_order("notification DATABASE RESET SEQUENCE COMPLETED " + READY,
                                  "alert 確認\nデータベース リセット シーケンスを設定しました "
                                  "SORAN を再起動してください\nOK" + BUTTON)]),
    ("its end", lambda: strike(RETURN), ["return", *WINDOW, READY, *HINT]),
    ("a line by its key", lambda: strike(UP), ["blank"]),
    ("the line above", lambda: strike(UP), ["DATABASE RESET SEQUENCE COMPLETED"]),
    ("a list editor", lambda: typed("gp"), [
        *echo("gp"), any_order("notification " + READY, "\n".join(EDITOR))]),
    ("its first row", lambda: strike(DOWN), ["TTAH", "RJTT ROAH"]),
    ("the row below", lambda: strike(DOWN), ["KANTO", "RJTT RJAA RJAH RJTF RJTY RJTO"]),
    ("a question", lambda: strike(DELETE), [
        "alert 確認", "KANTO を削除しますか？", r"はい\(Y\)" + BUTTON]),
    ("its other button", lambda: strike(TAB), ["tab", r"いいえ\(N\)" + BUTTON]),
    ("the answer no", lambda: strike(ESCAPE), [
        "escape", *EDITOR]),
    ("a button of the editor", lambda: strike(TAB), ["tab", "追加" + BUTTON, "Ins"]),
    ("back to the screen", lambda: strike(ESCAPE), BACK),
    # Behind a click the reader may leave the title out.
    ("the settings", lambda: press("動作設定"), ["(動作設定 dialog\n)?接続設定 page tab list"]),
    ("a control", lambda: strike(TAB), [
        "tab", "layered pane", "自動デコード panel", "自動デコードを有効にする check box checked"]),
    ("its change", lambda: strike(SPACE), ["space", "not checked"]),
    ("the next group", lambda: strike(TAB), [
        "tab", "バージョンアップ panel", "起動時にバージョンアップを確認する check box checked"]),
    ("the control beside", lambda: strike(RIGHT), ["プログラム更新時に確認メッセージを表示する check box not checked"]),
    ("back from the settings", lambda: strike(ESCAPE), BACK),
]


def starts(ear):
    """The window and the first run."""
    if not ear.hear("the reader starts", ["Screen reader on"]):
        raise Unheard("the reader did not start")
    start("soran", PROGRAM, "--demo", "--now", "2026-11-24T14:20:00+09:00", "--home", str(FOLDER / "soran"))
    return ear.hear("the window and the first run", [
        *WINDOW, *HINT, "(notification SYSTEM INITIALIZED.*\n)?" + r"notification .*\*\*\* AUTO DECODE - .*" + READY])


def main():
    for name, text in SPEECH_SERVER.items():
        (FOLDER / "speechd" / name).parent.mkdir(parents=True, exist_ok=True)
        (FOLDER / "speechd" / name).write_text(text)
    socket = str(FOLDER / "run/speechd.sock")
    os.environ["SPEECHD_ADDRESS"] = "unix_socket:" + socket
    start("speech-dispatcher", "speech-dispatcher", "-s", "-t", "0", "-c", "unix_socket", "-S", socket,
          "-C", str(FOLDER / "speechd"), "-P", str(FOLDER / "speechd.pid"))
    start("openbox", "openbox", "--sm-disable")
    start_reader()
    ear = Ear()
    fits = [starts(ear)]
    for step, act, expected in STEPS:
        act()
        fits.append(ear.hear(step, expected))
    if len(sys.argv) > 3:
        shutil.copy(HEARD, sys.argv[3])
    return 0 if all(fits) else 1


try:
    status = main()
except Unheard as reason:
    print(reason)
    status = 1
finally:
    for name, process in reversed(children):
        process.terminate()
    for name, process in children:
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
sys.exit(status)
