#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a command on an X display, on a session bus and in a home of its own, which all end with it.

on_a_display.py COMMAND...
"""

import os
import secrets
import struct
import subprocess
import sys
import tempfile

ANY_ADDRESS = 0xFFFF


def write_authority(path):
    """Keeps everybody off the display who cannot read this file."""
    with open(path, "wb") as file:
        file.write(struct.pack(">H", ANY_ADDRESS))
        for field in b"", b"", b"MIT-MAGIC-COOKIE-1", secrets.token_bytes(16):
            file.write(struct.pack(">H", len(field)) + field)


def start_display(authority):
    """The server and the number that it found free."""
    told, tells = os.pipe()
    # A display that resets as its last client goes cuts off those that come just then, so -noreset.
    server = subprocess.Popen(
        ["setpriv", "--pdeathsig", "TERM", "Xvfb", "-displayfd", str(tells), "-auth", authority,
         "-screen", "0", "1280x800x24", "-noreset", "-nolisten", "tcp"], pass_fds=[tells])
    os.close(tells)
    with os.fdopen(told) as line:
        return server, line.readline().strip()


def stop(server):
    server.terminate()
    try:
        server.wait(10)
    except subprocess.TimeoutExpired:
        server.kill()
        server.wait()


def main():
    with tempfile.TemporaryDirectory(prefix="soran-", ignore_cleanup_errors=True) as home:
        authority, runtime = os.path.join(home, ".Xauthority"), os.path.join(home, "run")
        os.mkdir(runtime, 0o700)
        write_authority(authority)
        server, number = start_display(authority)
        try:
            if not number:
                sys.exit("on_a_display.py: no display can be had")
            environment = {name: value for name, value in os.environ.items()
                           if not (name.startswith("XDG_") and name.endswith("_HOME"))}
            environment.update(DISPLAY=":" + number, XAUTHORITY=authority, HOME=home, XDG_RUNTIME_DIR=runtime)
            return subprocess.call(["dbus-run-session", "--", *sys.argv[1:]], env=environment)
        finally:
            stop(server)


if __name__ == "__main__":
    sys.exit(main())
