# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The far side of tools/check-relay: reports that come out by a timetable, and the sources that serve them."""

import datetime
import hashlib
import http.server
import re
import socket
import ssl
import threading
import time

SLOT_HEADER = "X-Soran-Slot"


def station_codes(count):
    """So many, the one that the desks' probe asks for among them."""
    return [f"RJ{chr(65 + i // 26)}{chr(65 + i % 26)}" for i in range(count - 1)] + ["RJTT"]


class Reports:
    """METAR at 00, and at 30 minutes another, or in some hours SPECI or TAF at 25 or an amended TAF at 35; so there are 25
    minutes between two of a station. All METARs have the same length, so that one can take another's place byte by byte."""

    def __init__(self, codes, begin, days=2):
        self.codes = codes
        first = begin.replace(hour=0, minute=0) - datetime.timedelta(days=1)
        self.issued = {code: [] for code in codes}  # code: [(time, kind)]
        for number, code in enumerate(codes):
            for hour in range((days + 1) * 24):
                turn = (hour + number * 5) % 24
                kind = "taf" if hour % 6 == 4 else "speci" if turn % 8 == 3 else "amd" if turn == 13 else "metar"
                minute = {"metar": 30, "amd": 35}.get(kind, 25)
                self.issued[code] += [(first + datetime.timedelta(hours=hour, minutes=at), one)
                                      for at, one in ((0, "metar"), (minute, kind))]

    def latest(self, code, taf, now):
        for when, kind in reversed(self.issued.get(code, [])):
            if when <= now and (kind in ("taf", "amd")) == taf:
                return when, kind
        return None

    def notices(self, code, begin, end):
        """The lines by which the watch tells of what came out behind `begin` and up to `end`, in order."""
        words = {"metar": " METAR CHANGED", "speci": " SPECI RECEIVED", "taf": " TAF   CHANGED", "amd": " TAF(AMD) RECEIVED"}
        return [code + words[kind] for when, kind in self.issued[code] if begin < when <= end]

    @staticmethod
    def text(code, when, kind):
        turn = sum(map(ord, code)) + when.hour * 3 + when.minute
        if kind in ("metar", "speci"):
            return (f"{code} {when:%d%H%M}Z {turn % 36:02}0{4 + turn % 20:02}KT 9999 FEW030 {turn % 30:02}/{turn % 25:02} "
                    f"Q10{turn % 40:02} NOSIG")
        heading = "TAF AMD" if kind == "amd" else "TAF"
        return (f"{heading} {code} {when:%d%H%M}Z {when:%d}06/{when:%d}24 20010KT 9999 FEW030\n"
                f"     BECMG {when:%d}10/{when:%d}12 BKN008")

    def file(self, code, taf, now):
        found = self.latest(code, taf, now)
        return found and f"{found[0]:%Y/%m/%d %H:%M}\n{self.text(code, *found)}\n"

    def list(self, codes, taf, now):
        found = [(code, self.latest(code, taf, now)) for code in codes]
        return "".join(self.text(code, *report) + "\n" for code, report in found if report)

    def cycle(self, hour, now):
        lines = [f"{when:%Y/%m/%d %H:%M}\n{self.text(code, when, kind)}\n\n" for code in self.codes
                 for when, kind in self.issued[code]
                 if when.hour == hour and now - datetime.timedelta(hours=24) < when <= now and kind in ("metar", "speci")]
        return "".join(lines)


class Source:
    """A server of reports on loopback: slow, and with headers that would keep a cache from sharing its answers."""

    CACHING = ["no-store", "private, max-age=0", "max-age=86400", None]
    SECONDS = 0.004
    SLOW_EACH, SLOW_SECONDS = 150, 0.3

    def __init__(self, name, reports):
        self.name, self.reports = name, reports
        self.now = None
        self.answer_with = None  # a status in the place of each answer, or "cut"
        self.requests = []  # (slot, address)
        self.lock = threading.Lock()
        self.server = None
        self.port = 0
        self.start()

    def start(self, certificate=None):
        """Listens; with a certificate, by TLS."""
        source, connections = self, set()

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"
            disable_nagle_algorithm = True
            wbufsize = -1

            def setup(self):
                super().setup()
                connections.add(self.connection)

            def finish(self):
                connections.discard(self.connection)
                super().finish()

            def do_GET(self):
                source.answer(self)

            def log_message(self, *_):
                pass

        class Server(http.server.ThreadingHTTPServer):
            request_queue_size = 128

            def handle_error(self, *_):
                pass  # a relay that is stopped hangs up

        self.connections = connections
        self.server = Server(("127.0.0.1", self.port), Handler)
        self.port = self.server.server_port
        if certificate:
            tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            tls.load_cert_chain(certificate)
            self.server.socket = tls.wrap_socket(self.server.socket, server_side=True)
        threading.Thread(target=self.server.serve_forever, kwargs={"poll_interval": 0.05}, daemon=True).start()

    def stop(self):
        """Nobody listens any more."""
        self.server.shutdown()
        self.server.server_close()
        for connection in list(self.connections):
            try:
                connection.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass

    def body(self, path):
        kind = re.fullmatch(r"/data/(observations/metar|forecasts/taf)/stations/([A-Z]{4})\.TXT", path)
        if kind:
            return self.reports.file(kind[2], "taf" in kind[1], self.now)
        kind = re.fullmatch(r"/data/observations/metar/cycles/(\d\d)Z\.TXT", path)
        if kind:
            return self.reports.cycle(int(kind[1]), self.now)
        kind = re.fullmatch(r"/api/data/(metar|taf)\?ids=([A-Z,]+)&format=raw", path)
        return kind and self.reports.list(kind[2].split(","), kind[1] == "taf", self.now)

    def answer(self, request):
        with self.lock:
            self.requests.append((request.headers.get(SLOT_HEADER), request.path))
            count = len(self.requests)
        time.sleep(self.SLOW_SECONDS if count % self.SLOW_EACH == 0 else self.SECONDS)
        body = self.body(request.path)
        status = self.answer_with if isinstance(self.answer_with, int) else 404 if body is None else 200
        data = ("" if status != 200 else body).encode()
        request.send_response(status)
        request.send_header("Content-Length", str(len(data)))
        request.send_header("ETag", '"' + hashlib.sha256(data).hexdigest()[:16] + '"')
        request.send_header("Vary", "*")
        request.send_header("Set-Cookie", "visitor=1")
        caching = self.CACHING[len(request.path) % len(self.CACHING)]
        if caching:
            request.send_header("Cache-Control", caching)
        if status == 429:
            request.send_header("Retry-After", "30")
        request.end_headers()
        request.wfile.write(data[: len(data) // 2] if self.answer_with == "cut" else data)
        if self.answer_with == "cut":
            request.close_connection = True
