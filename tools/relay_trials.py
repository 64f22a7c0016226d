# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""What goes wrong in tools/check-relay: a relay that is killed, sources that are away, entries that are not true."""

import datetime
import pathlib
import re
import subprocess
import threading
import time

UNWATCHED = "RJZZ"  # a station that no desk has in its list
METAR = "/data/observations/metar/stations/{}.TXT"
LIST = "/api/data/metar?ids={}&format=raw"


def killed_in_a_round(office):
    """The relay is stopped while the desks ask it, and comes back a second later, in another slot."""
    begin = len(office.noaa.requests)
    asking, ended = [], []

    def kill():
        while len(office.noaa.requests) < begin + 40 and not ended:
            time.sleep(0.002)
        office.relay.stop()
        asking.append(not ended)
        time.sleep(1.1)
        office.relay.start()

    killer = threading.Thread(target=kill)
    killer.start()
    office.round()
    ended.append(True)
    killer.join()
    office.check("the relay was stopped while desks asked it", asking[0])


def first_source_away(office):
    office.rounds_to_the_hour()
    office.noaa.stop()
    before = len(office.awc.requests)
    states = office.round()
    office.noaa.start()
    served = {name for state in states for names in state["from"].values() for name in names}
    office.check("the first source is away: every report by the second",
                 served == {"awc"} and len(office.awc.requests) > before)


def both_sources_away(office):
    office.rounds_to_the_hour()
    told = [list(desk.told) for desk in office.desks]
    office.noaa.stop()
    office.awc.stop()
    office.round()
    office.check("both sources are away: nothing is told as new", told == [desk.told for desk in office.desks])
    office.check("both are away: every desk tells that the network is",
                 all("NETWORK DISCONNECTED" in desk.gained for desk in office.desks))
    office.check("both are away: the relay serves nothing of before",
                 {office.relay.ask("/noaa" + METAR.format(code))[0] for code in office.codes} == {502})
    office.noaa.start()
    office.awc.start()
    office.round()


def entries_of_files(office):
    """An entry of a file holds another station's report, one a report of before the latest known; the lists are good."""
    mixed, other, old = office.codes[:3]
    office.rounds_to_the_hour()
    former = former_answers(office, ["/noaa" + METAR.format(old)])
    begin_slot(office, ["/noaa" + METAR.format(code) for code in (mixed, other, old)])
    put_in(office, former)
    put_in(office, {"/noaa" + METAR.format(mixed): office.relay.answer_kept("/noaa" + METAR.format(other))})
    office.round(new_slot=False)
    office.relay.restart(1)
    office.check("an entry with another station's report: every desk refuses it, in its log",
                 all(f"{mixed} REFUSED: REPORT OF {other}" in desk.gained for desk in office.desks))
    office.check("an entry with an older report: every desk tells so in its log",
                 all(tells_older(desk, old) for desk in office.desks))
    office.check("the reports of both stations come from the second source",
                 all(told_now(desk, code) for desk in office.desks for code in (mixed, old)))


def entries_of_both(office):
    """The entries of both sources hold an older report of a station: nobody tells it, until they are good again."""
    old = office.codes[2]
    office.rounds_to_the_hour()
    paths = ["/noaa" + METAR.format(old), "/awc" + LIST.format(",".join(office.codes))]
    former = former_answers(office, paths)
    begin_slot(office, paths)
    put_in(office, former)
    office.round(new_slot=False)
    office.relay.restart(1)
    office.check("an older report in the entries of both sources: no desk tells it as new",
                 all(tells_older(desk, old) and not told_now(desk, old) for desk in office.desks))
    office.check("the other stations are told meanwhile", all(told_now(desk, office.codes[0]) for desk in office.desks))
    office.round()
    office.check("behind that slot every desk tells the report", all(told_now(desk, old) for desk in office.desks))


def told_now(desk, code):
    return f"{code} METAR CHANGED" in desk.gained


def tells_older(desk, code):
    return any(line.startswith(f"{code} OLDER REPORT") for line in desk.gained)


def former_answers(office, paths):
    """What the relay had for these addresses an hour before the desks' latest look, as its entries hold it."""
    office.relay.restart(1, left=0.5)
    office.noaa.now = office.awc.now = office.seen - datetime.timedelta(hours=1)
    return {path: office.relay.ask(path) and office.relay.answer_kept(path) for path in paths}


def begin_slot(office, paths):
    """A minute, with entries of these addresses."""
    office.relay.restart(60, left=15)
    office.serve_now()
    for path in paths:
        office.relay.ask(path)


def put_in(office, answers):
    for path, answer in answers.items():
        office.relay.put_in(path, answer)


def certificates(office):
    """The relay believes a source by its certificate alone."""
    noaa, relay = office.noaa, office.relay
    path = "/noaa" + METAR.format(office.codes[0])
    noaa.stop()
    certificate = self_signed(relay.folder, "tgftp.nws.noaa.gov")
    stranger = self_signed(relay.folder, "stranger.example")
    answered = []
    for shown, trusted in ((certificate, certificate), (certificate, None), (stranger, stranger)):
        noaa.start(shown)
        relay.restart(60, left=5, trusted=trusted)
        answered.append(relay.ask(path)[0])
        noaa.stop()
    noaa.start()
    relay.restart(1)
    office.check("a source whose certificate nobody vouches for, or that of another name, is not believed",
                 answered == [200, 502, 502])


def self_signed(folder, host):
    """A certificate for the host, and its key, in one file."""
    file = folder / f"{host}.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                    "-days", "2", "-subj", f"/CN={host}", "-addext", f"subjectAltName=DNS:{host}",
                    "-keyout", file, "-out", f"{file}.crt"], check=True, stderr=subprocess.DEVNULL)
    with file.open("ab") as whole:
        whole.write(pathlib.Path(f"{file}.crt").read_bytes())
    return file


def answers(office):
    """What the relay itself does with what it is asked and answered."""
    relay, noaa = office.relay, office.noaa
    relay.restart(60, left=10)
    path = "/noaa" + METAR.format(office.codes[0])
    status, headers, _ = relay.ask(path)
    count = len(noaa.requests)
    again = relay.ask(path, headers={"If-None-Match": headers["ETag"]})[0]
    office.check("a desk that has the report gets 304, and no source is asked",
                 (status, again, len(noaa.requests)) == (200, 304, count))
    office.check("a source's cookie goes to no desk", "Set-Cookie" not in headers)
    strange = "/awc" + LIST.format(office.codes[0]).replace("?", "%3F")
    office.check("a question mark within a name makes another entry",
                 (relay.ask(strange)[0], relay.ask("/awc" + LIST.format(office.codes[0]))[0]) == (404, 200))
    office.check("other methods and addresses are refused",
                 (relay.ask(path, "POST")[0], relay.ask("/")[0], relay.ask("/noaa/data/../x")[0]) == (403, 404, 404))
    address = "/noaa" + METAR.format(UNWATCHED)
    office.cut.add(address)
    noaa.answer_with = "cut"
    cut = relay.ask(address)[0]
    noaa.answer_with = None
    office.check("an answer that was cut is not kept, but asked for once more", (cut, relay.ask(address)[0]) == (0, 200))
    noaa.answer_with = 500
    count = len(noaa.requests)
    statuses = [relay.ask("/noaa" + METAR.format(office.codes[1]))[0] for _ in range(3)]
    noaa.answer_with = None
    office.check("a source that fails is asked once in a slot", (statuses, len(noaa.requests)) == ([500] * 3, count + 1))
    relay.restart(1)


def as_shipped(office):
    """Slots of a minute. Half of the desks know the relay by its two names, and so begin with lists."""
    named = office.desks[: len(office.desks) // 2]
    office.relay.restart(60, left=25)
    office.begin_watching(named, ("noaa.localhost", "awc.localhost"))
    office.round(new_slot=False)
    for _ in range(3):
        states = office.all(type="ATO")
        time.sleep(1)
    office.check("each desk's screen has the latest METAR of each station",
                 all(shows_latest(office, state["screen"], code) for state in states for code in office.codes))
    # Whom a source told to wait leaves it alone, and not the other one.
    office.noaa.answer_with = 429
    count = len(office.noaa.requests)
    states = office.all(named, type=UNWATCHED)
    office.noaa.answer_with = None
    office.check("a source that wants to be left alone is asked once, and the second one serves",
                 len(office.noaa.requests) == count + 1 and all(state["from"][UNWATCHED][0] == "awc" for state in states))


def shows_latest(office, screen, code):
    report = office.reports.text(code, *office.reports.latest(code, False, office.seen))
    return re.search(rf"{code}  (METAR|SPECI) \d{{4}}I\s+{re.escape(report.removeprefix(code).strip())}", screen)


def run(office):
    office.phase("the first source away", "1 s", lambda: first_source_away(office))
    office.phase("both away, and back", "1 s", lambda: both_sources_away(office))
    office.phase("untrue entries of files", "1 s, 60 s", lambda: entries_of_files(office))
    office.phase("untrue entries of both sources", "1 s, 60 s", lambda: entries_of_both(office))
    office.phase("the relay alone", "60 s", lambda: answers(office))
    office.phase("certificates", "60 s", lambda: certificates(office))
    office.phase("as shipped", "60 s", lambda: as_shipped(office))
