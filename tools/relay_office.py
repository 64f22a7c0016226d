# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The office of tools/check-relay: nginx with the shipped configuration, and the desks."""

import http.client
import json
import os
import pathlib
import queue
import re
import shutil
import socket
import subprocess
import threading
import time

from relay_sources import SLOT_HEADER

ROOT = pathlib.Path(__file__).resolve().parent.parent
SHIPPED = ROOT / "packaging/relay"


class Broken(Exception):
    """The check itself cannot go on."""


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


def replaced(text, pairs):
    """The text with each of the pairs put in; ends the check where there is nothing to replace."""
    for old, new in pairs:
        if old not in text:
            raise Broken(f"the shipped file has no {old!r}")
        text = text.replace(old, new)
    return text


class Relay:
    """nginx with the shipped configuration; in its copy stand other places, addresses and ports, the sources are asked
    without TLS, and their requests tell the slot that the key has."""

    # How many characters of the time make a slot.
    SLOTS = {1: ".{19}", 60: ".{16}"}

    def __init__(self, folder, noaa, awc):
        folder.mkdir()
        self.folder, self.noaa, self.awc = folder, noaa, awc
        self.port = free_port()
        self.process = None
        self.log = folder / "access.log"
        self.cache = folder / "cache"

    def configure(self, seconds, **tls):
        """With `trusted`, the first source is asked with TLS, and believed by these certificates, or by those that are
        shipped where it is None."""
        self.seconds = seconds
        shipped = (SHIPPED / "soran-relay.conf").read_text(encoding="utf-8")
        hosts = [("noaa", "tgftp.nws.noaa.gov", self.noaa), ("awc", "aviationweather.gov", self.awc)]
        pairs = [("/var/cache/soran-relay", str(self.cache)), ("/var/log/nginx/soran-relay.log", str(self.log)),
                 ("listen 8080;", f"listen 127.0.0.1:{self.port};"), (self.SLOTS[60], self.SLOTS[seconds])]
        if seconds == 1:
            pairs.append(("inactive=2m", "inactive=10s"))  # the entries of a whole day take long to remove at the end
        for name, host, source in hosts:
            pairs += [(f"server {host}:443;", f"server 127.0.0.1:{source.port};"),
                      (f"Host {host};", f"Host {host}; proxy_set_header {SLOT_HEADER} $soran_minute;")]
            if not tls or source is not self.noaa:
                pairs.append((f"https://soran_{name}", f"http://soran_{name}"))
        if tls.get("trusted"):
            pairs.append(("/etc/ssl/certs/ca-certificates.crt", str(tls["trusted"])))
        (self.folder / "relay.conf").write_text(replaced(shipped, pairs), encoding="utf-8")
        temporary = " ".join(f"{kind}_temp_path {self.folder}/{kind};"
                             for kind in ("client_body", "proxy", "fastcgi", "uwsgi", "scgi"))
        user = "user root;" if os.geteuid() == 0 else ""
        (self.folder / "nginx.conf").write_text(f"""{user} daemon off; worker_processes 2;
pid {self.folder}/pid; error_log {self.folder}/error.log warn;
events {{ worker_connections 768; }}
http {{ {temporary} include {self.folder}/relay.conf; }}
""", encoding="utf-8")

    def start(self):
        program = shutil.which("nginx", path=os.environ["PATH"] + ":/usr/sbin:/sbin")
        if not program:
            raise Broken("there is no nginx")
        errors = str(self.folder / "error.log")
        self.process = subprocess.Popen(
            [program, "-p", str(self.folder), "-e", errors, "-c", str(self.folder / "nginx.conf")])
        until = time.monotonic() + 20
        while time.monotonic() < until and self.process.poll() is None:
            try:
                socket.create_connection(("127.0.0.1", self.port), 1).close()
                return
            except OSError:
                time.sleep(0.05)
        raise Broken("nginx did not come up:\n" + pathlib.Path(errors).read_text(encoding="utf-8"))

    def stop(self):
        """At once, what is under way is cut."""
        if self.process:
            self.process.terminate()
            self.process.wait(20)
            self.process = None

    def restart(self, seconds, left=0, **tls):
        """With slots of so many seconds; with `left`, without any entry, in a slot of which so many are left."""
        self.stop()
        if left:
            self.cache = self.cache.with_name(self.cache.name + "-")  # to empty the former takes longer
            if seconds - time.time() % seconds < left:
                time.sleep(seconds - time.time() % seconds + 0.02)
        self.configure(seconds, **tls)
        self.start()

    def new_slot(self):
        """Waits until a slot begins."""
        time.sleep(self.seconds - time.time() % self.seconds + 0.02)

    def asked(self):
        """The addresses of all requests that were answered so far."""
        return re.findall(r'"([^"\n]*)"\n', self.log.read_text(encoding="utf-8"))

    def ask(self, path, method="GET", headers=None):
        """Status, headers and body of an answer; of a cut one, status 0."""
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=60)
        try:
            connection.request(method, path, headers=headers or {})
            answer = connection.getresponse()
            return answer.status, answer.headers, answer.read().decode()
        except (http.client.HTTPException, ConnectionError):
            return 0, {}, ""
        finally:
            connection.close()

    def entry(self, path):
        """The file of the one entry of an address, and the place at which its answer begins. The entry comes a moment
        behind the answer."""
        key = re.compile(rb"\nKEY: [^\n]* " + re.escape(path.encode()) + rb"\n")
        until = time.monotonic() + 10
        while time.monotonic() < until:
            for file in self.cache.glob("?/??/????????????????????????????????"):
                found = key.search(file.read_bytes())
                if found:
                    return file, found.end()
            time.sleep(0.01)
        raise Broken(f"the cache has no entry of {path}")

    def answer_kept(self, path):
        file, place = self.entry(path)
        return file.read_bytes()[place:]

    def put_in(self, path, answer):
        """Gives the entry of an address another answer of the same length."""
        file, place = self.entry(path)
        data = file.read_bytes()
        if len(data) - place != len(answer):
            raise Broken(f"the answers differ in length at {path}")
        with file.open("r+b") as entry:
            entry.seek(place)
            entry.write(answer)


class Desk:
    """A session of soran-cli with the shipped addresses; its clock moves by events alone."""

    SECONDS = 120  # for the longest event

    def __init__(self, program, home, name):
        self.program, self.home, self.name = program, home, name
        home.mkdir()
        self.process = None
        self.log, self.told = [], []  # newest first; code and line, in their order
        self.since = None
        self.told_before = self.issued_before = 0  # before it was started anew

    def write_addresses(self, port, hosts):
        """`hosts` are those that stand for the two names of the relay."""
        shipped = (SHIPPED / "endpoints.ini").read_text(encoding="utf-8")
        pairs = [(f"{source}.relay.example:8080", f"{host}:{port}") for source, host in zip(("noaa", "awc"), hosts)]
        (self.home / "endpoints.ini").write_text(replaced(shipped, pairs), encoding="utf-8")

    def start(self, now):
        environment = {"HOME": str(self.home), "PATH": os.environ["PATH"], "LANG": "C.UTF-8", "TZ": "UTC"}
        command = [str(self.program), "--home", str(self.home), "--now", f"{now:%Y-%m-%dT%H:%M:%SZ}", "session"]
        self.process = subprocess.Popen(command, env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=(self.home / "errors").open("ab"))
        self.lines = queue.Queue()
        threading.Thread(target=self.listen, args=(self.process.stdout, self.lines), daemon=True).start()
        self.log, self.told, self.ticks = [], [], False
        return self.state()

    @staticmethod
    def listen(stream, lines):
        for line in stream:
            lines.put(line)
        lines.put(None)

    def stop(self):
        if self.process:
            self.process.stdin.close()
            try:
                self.process.wait(20)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
            self.process = None

    def send(self, **event):
        self.ticks = "tick" in event
        self.process.stdin.write(json.dumps(event).encode() + b"\n")
        self.process.stdin.flush()

    def state(self):
        """The state behind an event. What the log gained is in `gained`, oldest first; notices go to `told`."""
        try:
            line = self.lines.get(timeout=self.SECONDS)
        except queue.Empty:
            line = None
        state = json.loads(line) if line else {"error": "no state"}
        if "error" in state:
            raise Broken(f"{self.name}: {state['error']}")
        fresh = 0
        while state["log"][fresh : fresh + len(self.log)] != self.log[: len(state["log"]) - fresh]:
            fresh += 1
        self.gained = state["log"][:fresh][::-1]
        self.log = state["log"]
        # A list that is loaded writes that it received each, too.
        if self.ticks:
            self.told += [line for line in self.gained if line.endswith(("CHANGED", "RECEIVED"))]
        return state
