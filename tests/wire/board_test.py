"""Drives orvboardd over its socket, with the wire format written out here.

ORVBOARDD names the program.
"""

import calendar
import os
import re
import resource
import signal
import socket
import sqlite3
import struct
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

GET_LANGUAGE, LOGIN, LOGOUT, CHECK_SESSION = 0x02010001, 0x02010002, 0x02010004, 0x02010005
GET_USER_INFO = 0x02010025
OWN_LANGUAGE, OWN_REFRESH_INTERVAL, OWN_PASSWORD = 0x02010026, 0x02010027, 0x02010028
STATUS, PRODUCT, SYSTEM_NAMES, SYSTEM_POWER, LED = (
    0x02010003, 0x02010007, 0x02010008, 0x0201000A, 0x0201000B)
PARTITIONS, ADDRESSES, SERVICES, TRAPS = 0x02010030, 0x02010048, 0x0201004A, 0x0201004D
USERS, USER_ADD, USER_EDIT, USER_REMOVE, SESSIONS = (
    0x0201003C, 0x0201003D, 0x0201003E, 0x0201003F, 0x02010040)
CLOCK, EVENTS, OWN_FILTER = 0x02010046, 0x02010099, 0x0201009A
ACL, ACL_ADD, ACL_REMOVE, MAIL = 0x02010058, 0x02010059, 0x0201005A, 0x0201005C
POWER, SCHEDULE, BOOT = 0x02010300, 0x02010310, 0x02010320  # and the partition
HTTPS_PORT = 0x02010073
MAINTENANCE_MODE, PERMISSION = 0x020100B4, 0x020100D1
SOME_ITEM = 0x02010123
EXCHANGE = 0x4000
WRITE = 0x8000
ERROR = 0x87FF0001

BROKEN, BOARD_FAILURE = 1026, 1792
NO_SESSION, REFUSED, NOT_AUTHORISED, NO_ITEM, BAD_REQUEST = 1031, 1281, 1282, 1283, 1284
EXISTS, FULL, NOT_FOUND, LAST_ADMINISTRATOR, DAMAGED = 1286, 1287, 1288, 1289, 1290

LIMIT = 10


class BoardError(Exception):
    def __init__(self, payload):
        *_, self.action, self.detail, _ = struct.unpack(">6i", payload[:24])
        super().__init__(f"detail {self.detail}")


class Answer:
    def __init__(self, header, payload=None):
        self.header, self.payload = header, payload
        self.session = header[4:36].rstrip(b"\0")
        self.language = header[39]


def number(value):
    return struct.pack(">I", value)


def message(kind, payload=b""):
    return number(kind) + number(len(payload)) + payload


def record(*texts):
    return "".join(str(text) + "\0" for text in texts).encode()


def telegram(session=b""):
    return struct.pack(">I32s12x", 4711, session)


def login_record(user, password, address=b"192.0.2.7"):
    return struct.pack("36s36s132s", user, password, address)


class BoardTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.state, self.path = self.folder / "board.db", self.folder / "board.sock"

    def launch(self, *options, limit=None):
        def restrict():
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))

        return subprocess.Popen(
            [os.environ["ORVBOARDD"], "--state", self.state, "--socket", self.path, *options],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
            preexec_fn=restrict if limit else None)

    def start(self, *options, limit=None):
        self.daemon = self.launch(*options, limit=limit)
        self.addCleanup(self.end, signal.SIGKILL)
        ready = self.daemon.stdout.readline()
        self.assertEqual(ready, f"orvboardd: ready on {self.path}\n",
                         ready or self.daemon.stderr.read())

    def end(self, signal_number=signal.SIGTERM):
        """Ends the daemon; returns its exit status, what it printed and what it complained of."""
        if self.daemon.returncode is None:
            self.daemon.send_signal(signal_number)
        output, errors = self.daemon.communicate(timeout=LIMIT)
        return self.daemon.returncode, output, errors

    def connect(self, data=b""):
        connection = socket.socket(socket.AF_UNIX)
        self.addCleanup(connection.close)
        connection.connect(str(self.path))
        connection.settimeout(LIMIT)
        connection.sendall(data)
        return connection

    def exchange(self, data):
        """Sends a request; returns the type and payload of every message of the answer."""
        with self.connect(data) as connection:
            connection.shutdown(socket.SHUT_WR)
            answer = b"".join(iter(lambda: connection.recv(65536), b""))
        messages = []
        while answer:
            kind, length = struct.unpack(">II", answer[:8])
            messages.append((kind, answer[8:8 + length]))
            answer = answer[8 + length:]
        return messages

    def ask(self, kind, session=b"", request=None):
        payload = b"" if request is None else message(kind, request)
        answer = self.exchange(message(kind, telegram(session)) + payload)
        kinds = [answered for answered, _ in answer]
        if kinds == [ERROR]:
            raise BoardError(answer[0][1])
        self.assertEqual(kinds, [kind] * len(kinds))
        return Answer(*(payload for _, payload in answer))

    def login(self, user=b"admin", password=None, address=b"192.0.2.7"):
        record = login_record(user, user + b"-pass" if password is None else password, address)
        return self.ask(LOGIN, request=record)

    def check(self, session, option=b"\0"):
        return self.ask(CHECK_SESSION, session, option)

    def get(self, item, session=b""):
        return self.ask(item, session).payload

    def rows(self, item, session, columns, request=None):
        payload = self.get(item, session) if request is None else self.ask(
            item | EXCHANGE, session, request).payload
        texts = payload[:-1].decode().split("\0")
        return [] if texts == [""] else list(zip(*[iter(texts)] * columns, strict=True))

    def events(self, session, count, severity="info", source="", first="", last="", before=""):
        """The newest events of the log, without their numbers and times."""
        rows = self.rows(EVENTS, session, 7,
                         record(severity, source, first, last, count, before))
        return [row[2:] for row in rows]

    def put(self, item, session, content):
        self.ask(item | WRITE, session, content)

    def assertRefused(self, detail, operation, *arguments):
        with self.assertRaises(BoardError) as caught:
            operation(*arguments)
        self.assertEqual(caught.exception.detail, detail)

    def assertRefusesToStart(self, text, *arguments, status=1):
        daemon = self.launch(*arguments)
        output, errors = daemon.communicate(timeout=LIMIT)
        self.assertEqual((daemon.returncode, output), (status, ""))
        self.assertRegex(errors, r"^orvboardd: [^\n]*" + text + r"[^\n]*\n$")

    # Sessions

    def test_sample_users_have_their_language_interval_and_authority(self):
        self.start()
        for name, language, interval, roles, partitions in (
                (b"operator", 0, 30, 1 << 28, 0), (b"staff", 1, 0, 1 << 30, 0),
                (b"guest", 1, 0, 1 << 29, 0), (b"part", 1, 0, 0, 0b1001)):
            with self.subTest(name):
                login = self.login(name)
                self.assertRegex(login.session, rb"^[A-Za-z0-9_-]{31}$")
                check = self.check(login.session)
                info = self.ask(GET_USER_INFO, login.session)
                for answer in (login, check, info):
                    self.assertEqual(answer.header, struct.pack(
                        ">I32s3xBII", 4711, login.session, language, roles, partitions))
                self.assertEqual(check.payload, number(interval))
                self.assertEqual(info.payload, struct.pack(">36sI", name, interval))

    def test_refused_logins_look_the_same_and_cannot_forge_the_log(self):
        self.start()
        for name, password in ((b"admin", b"guess"), (b"nobody", b"nobody")):
            self.assertRefused(REFUSED, self.login, name, password)
        self.assertRefused(REFUSED, self.login, b"x\nadmin logged in", b"", b"a\x1b[2J")
        self.assertEqual(self.events(self.login().session, 4), [
            ("info", "security", "101", "admin", "192.0.2.7"),
            ("warning", "security", "102", "x?admin logged in", "a?[2J"),
            ("warning", "security", "102", "nobody", "192.0.2.7"),
            ("warning", "security", "102", "admin", "192.0.2.7")])

    def test_only_a_living_session_is_served(self):
        self.start()
        ended = self.login().session
        self.ask(LOGOUT, ended)
        living = self.login().session
        for other in (b"", b"A" * 32, living[:30], living.swapcase(), ended):
            with self.subTest(other):
                self.assertRefused(NO_SESSION, self.check, other)
                for kind in (LOGOUT, GET_USER_INFO, MAINTENANCE_MODE):
                    self.assertRefused(NO_SESSION, self.ask, kind, other)
                self.assertRefused(NO_SESSION, self.put, SOME_ITEM, other, b"x")

    def test_a_session_expires_unless_it_is_used(self):
        self.start("--session-timeout", "2")
        used, refreshed = self.login().session, self.login().session
        for half_seconds in range(5):
            time.sleep(0.5)
            self.check(used)
            if half_seconds < 2:
                self.check(refreshed, b"\1")
        self.assertRefused(NO_SESSION, self.check, refreshed)
        self.check(used)
        self.assertEqual(self.end(), (0, "", ""))
        self.assertFalse(self.path.exists())
        time.sleep(1.1)
        self.start("--session-timeout", "1")
        self.assertRefused(NO_SESSION, self.check, used)

    def test_a_user_cannot_fill_the_board_with_sessions(self):
        self.start()
        other = self.login(b"guest").session
        sessions = [self.login().session for _ in range(65)]
        self.assertEqual(len(set(sessions)), 65)
        self.assertRefused(NO_SESSION, self.check, sessions[0])
        for session in (sessions[1], sessions[64], other):
            self.check(session)

    # Items

    def test_known_items(self):
        self.start()
        admin = self.login().session
        for item, first, another, *unfit in (
                (HTTPS_PORT, number(443), number(8443), number(0), number(65536), b"\1\xbb"),
                (MAINTENANCE_MODE, bytes(34), bytes(range(34)), bytes(33), bytes(35)),
                (PERMISSION, struct.pack(">4I", 1, 1, 4, 0), struct.pack(">3Ii", 1, 1, 4, -2),
                 struct.pack(">4I", 1, 2, 4, 0)),
                (OWN_LANGUAGE, number(1), number(0), number(256)),
                (OWN_REFRESH_INTERVAL, number(60), number(5), number(86401))):
            with self.subTest(hex(item)):
                self.assertEqual(self.get(item, admin), first)
                for content in unfit:
                    self.assertRefused(BAD_REQUEST, self.put, item, admin, content)
                self.put(item, admin, another)
                self.assertEqual(self.get(item, admin), another)
        check = self.check(admin)
        self.assertEqual((check.language, check.payload), (0, number(5)))
        # Pages build addresses, and choose a language, before anybody is logged in.
        self.assertEqual(self.get(HTTPS_PORT), number(8443))
        self.assertEqual(self.ask(GET_LANGUAGE).language, 1)
        self.put(GET_LANGUAGE, admin, number(0))
        self.assertEqual(self.ask(GET_LANGUAGE).language, 0)

    def test_any_other_item_keeps_any_bytes(self):
        self.start()
        admin = self.login().session
        self.assertRefused(NO_ITEM, self.get, SOME_ITEM, admin)
        longest = bytes(range(256)) * 255 + bytes(255)
        self.put(SOME_ITEM, admin, longest)
        self.assertEqual(self.get(SOME_ITEM, admin), longest)
        self.assertEqual(self.ask(SOME_ITEM | EXCHANGE, admin, b"new").payload, b"new")
        self.assertEqual(self.get(SOME_ITEM, admin), b"new")
        for unknown in (0x02020123, SOME_ITEM | WRITE | EXCHANGE):
            self.assertRefused(NO_ITEM, self.ask, unknown, admin, b"x")

    def test_who_may_write_and_read(self):
        self.start()
        for name in (b"admin", b"operator", b"staff", b"part", b"guest"):
            session = self.login(name).session
            self.put(OWN_LANGUAGE, session, number(0))
            refused = [STATUS | WRITE, STATUS | EXCHANGE, LOGIN | WRITE]
            if name != b"admin":
                refused += [HTTPS_PORT | WRITE, SOME_ITEM | WRITE, SOME_ITEM | EXCHANGE]
                self.assertRefused(NOT_AUTHORISED, self.get, ACL, session)
            for kind in refused:
                with self.subTest(name, kind=hex(kind)):
                    self.assertRefused(NOT_AUTHORISED, self.ask, kind, session, number(256))

    # Records

    RIGHTS = (  # item, readers, writers, what is written: of admin, part, staff, operator, guest
        (STATUS, "apsog", "", b"x"), (PRODUCT, "apsog", "", b"x"), (PARTITIONS, "apsog", "", b"x"),
        (SYSTEM_NAMES, "apsog", "a", record("board", "", "", "")),
        (LED, "apsog", "apsog", record("blink")),
        (ADDRESSES, "apsog", "a", record("b", "192.0.2.1", 8, "", "", "")),
        (SERVICES, "apsog", "a", record(0, 1, 1, 2, 1, 3, 1, 4)),
        (TRAPS, "apsog", "a", record(1, "192.0.2.1", "c", 0, "", "", 0, "", "")),
        (ACL, "a", "", b"x"), (ACL_ADD, "", "a", record("192.0.2.1", 32)),
        (ACL_REMOVE, "", "a", record("192.0.2.1", 32)),
        (MAIL, "a", "a", record(0, "", "", "", "", "")),
        (SYSTEM_POWER, "apsog", "a", record("on")), (POWER, "apsog", "apo", record("off")),
        (POWER + 1, "apsog", "ao", record("reset")), (POWER + 3, "apsog", "apo", record("on")),
        (SCHEDULE, "apsog", "apo", record(0, "2026-01-01", "2026-01-01", "0000000", "", "")),
        (BOOT + 1, "apsog", "ao", record("dvd", "none", "disk", 9, 1)),
        (USERS, "a", "", b"x"), (SESSIONS, "apsog", "", b"x"), 
        (USER_ADD, "", "a", record("new", "password", "guest", "0" * 16, 1)),
        (USER_EDIT, "", "a", record("new", "", "staff", "0" * 16, 1)),
        (USER_REMOVE, "", "a", record("new")),
        (CLOCK, "apsog", "a", record("2026-01-01", "00:00:00", "+00:00", "manual", "", "")),
        (OWN_FILTER, "apsog", "apsog", record("error", "power", 1)),
        (MAINTENANCE_MODE, "apsog", "as", bytes(34)),
        (PERMISSION, "apsog", "a", struct.pack(">4I", 1, 1, 4, 0)),
    )

    def login_all(self):
        return {name[0]: self.login(name.encode()).session
                for name in ("admin", "part", "staff", "operator", "guest")}

    def assertAllowed(self, allowed, operation, *arguments):
        if allowed:
            operation(*arguments)
        else:
            self.assertRefused(NOT_AUTHORISED, operation, *arguments)

    def test_who_may_use_which_item(self):
        self.start()
        for user, session in self.login_all().items():
            for item, readers, writers, content in self.RIGHTS:
                with self.subTest(item=hex(item), user=user):
                    self.assertAllowed(user in readers, self.get, item, session)
                    self.assertAllowed(user in writers, self.put, item, session, content)
                    if user in readers and user not in writers:
                        self.assertRefused(NOT_AUTHORISED, self.ask, item | EXCHANGE, session,
                                           content)

    def test_technical_staff_has_the_power_in_permitted_maintenance(self):
        self.start()
        admin, staff = self.login().session, self.login(b"staff").session
        partition_2 = bytes(19) + b"\1" + bytes(14)
        for mode, permission, allowed in (
                (bytes(34), 1, False), (partition_2, 0, False), (partition_2, 1, True),
                (bytes(33) + b"\1", 1, True), (b"\1" * 17 + bytes(17), 1, False)):
            self.put(MAINTENANCE_MODE, admin, mode)
            self.put(PERMISSION, admin, struct.pack(">4I", 1, 1, 4, permission))
            for item in (POWER + 1, SYSTEM_POWER):
                self.assertAllowed(allowed, self.put, item, staff, record("on"))
        for item in (SCHEDULE, BOOT, SYSTEM_NAMES):
            self.assertRefused(NOT_AUTHORISED, self.put, item, staff, b"x")

    CONTENTS = (  # item, what is there first, what fits, what does not
        (SYSTEM_NAMES, None, [("x" * 32, "~" * 32, " " * 64, "y" * 64)],
         [("", "", "", ""), ("x" * 33, "", "", ""), ("x", "", "y" * 65, ""), ("x", "", ""),
          ("x", "", "", "", ""), ("\x7f", "", "", ""), ("a\nb", "", "", "")]),
        (LED, ("off",), [("on",), ("blink",), ("off",)], [("On",), ("",), ("on|off",), ("o",)]),
        (ADDRESSES, None, [("x" * 64, "255.255.255.255", 32, "", "", "0.0.0.0")],
         [("", "192.0.2.1", 24, "", "", ""), ("b", "", 24, "", "", ""),
          ("b", "192.0.2.256", 24, "", "", ""), ("b", "192.0.2", 24, "", "", ""),
          ("b", "192.0.02.1", 24, "", "", ""), ("b", " 192.0.2.1", 24, "", "", ""),
          ("b", "192.0.2.1", 0, "", "", ""), ("b", "192.0.2.1", 33, "", "", ""),
          ("b", "192.0.2.1", "024", "", "", ""), ("b", "192.0.2.1", 24, "x", "", "")]),
        (SERVICES, (1, 80, 1, 443, 1, 22, 0, 23), [(1, 65535, 0, 1, 0, 2, 0, 3)],
         [(0, 80, 0, 443, 1, 22, 1, 23), (1, 80, 1, 80, 1, 22, 0, 23), (1, 0, 1, 443, 1, 22, 0, 23),
          (1, 65536, 1, 443, 1, 22, 0, 23), (2, 80, 1, 443, 1, 22, 0, 23),
          (1, "-1", 1, 443, 1, 22, 0, 23)]),
        (TRAPS, None, [(1, "192.0.2.1", "x" * 32, 0, "", "public", 0, "192.0.2.2", "")],
         [(1, "", "x", 0, "", "", 0, "", ""), (0, "", "", 1, "192.0.2.1", "", 0, "", ""),
          (0, "", "x" * 33, 0, "", "", 0, "", ""), (0, "", "", 0, "", ""),
          (0, "", "", 0, "", "", 0, "", "", 0, "", "")]),
        (MAIL, None, [(1, "mail", 25, "a@b", "c@d", ""), (0, "", "", "", "", "")],
         [(1, "", 25, "a@b", "c@d", ""), (1, "mail", "", "a@b", "c@d", ""),
          (1, "mail", 25, "", "c@d", ""), (1, "mail", 25, "a@b", "", "c@d"),
          (0, "x" * 65, "", "", "", ""), (0, "", 0, "", "", "")]),
        (SCHEDULE, None, [(1, "2028-02-29", "2028-02-29", "0000001", "", "23:59"),
                          (0, "1970-01-01", "2037-12-31", "0000000", "", "")],
         [(1, "2026-02-29", "2026-03-01", "1111111", "07:00", ""),
          (0, "2026-01-02", "2026-01-01", "0000000", "", ""),
          (1, "2026-01-01", "2026-01-01", "0000000", "07:00", ""),
          (1, "2026-01-01", "2026-01-01", "1111111", "", ""),
          (1, "2026-01-01", "2026-01-01", "11111111", "07:00", ""),
          (0, "2026-13-01", "2037-12-31", "0000000", "", ""),
          (0, "2026-01-01", "2038-01-01", "0000000", "", ""),
          (0, "2026-01-01", "2026-01-01", "0000000", "24:00", ""),
          (0, "2026-1-01", "2026-01-01", "0000000", "7:00", "")]),
        (BOOT + 3, None, [("network", "none", "none", 0, 0), ("dvd", "disk", "network", 9, 1)],
         [("none", "disk", "dvd", 1, 0), ("disk", "dvd", "disk", 1, 0), ("disk", "dvd", "usb", 1, 0),
          ("disk", "none", "none", 10, 0), ("disk", "none", "none", 0, "")]),
        (POWER + 3, ("off",), [], [("standby",), ("",), ("on", "")]),
    )

    def test_records_are_kept_when_they_fit(self):
        self.start()
        admin = self.login().session
        for item, first, fit, unfit in self.CONTENTS:
            if first is not None:
                self.assertEqual(self.get(item, admin), record(*first))
            for texts in fit:
                with self.subTest(hex(item), texts=texts):
                    self.put(item, admin, record(*texts))
                    self.assertEqual(self.get(item, admin), record(*texts))
            before = self.get(item, admin)
            for content in [record(*texts) for texts in unfit] + [before[:-1], before + b"\0"]:
                with self.subTest(hex(item), content=content):
                    self.assertRefused(BAD_REQUEST, self.put, item, admin, content)
            self.assertEqual(self.get(item, admin), before)
        for missing in (POWER + 4, SCHEDULE + 15, BOOT + 4):
            self.assertRefused(NO_ITEM, self.get, missing, admin)
            self.assertRefused(NO_ITEM, self.put, missing, admin, record("on"))

    def test_the_https_port_is_that_of_the_services(self):
        self.start()
        admin = self.login().session
        self.put(HTTPS_PORT, admin, number(8443))
        self.assertEqual(self.get(SERVICES, admin), record(1, 80, 1, 8443, 1, 22, 0, 23))
        self.assertRefused(BAD_REQUEST, self.put, HTTPS_PORT, admin, number(23))
        self.put(SERVICES, admin, record(1, 80, 1, 444, 1, 22, 0, 23))
        self.assertEqual(self.get(HTTPS_PORT), number(444))

    def test_the_access_list(self):
        self.start()
        admin = self.login().session
        self.assertEqual(self.get(ACL, admin), b"\0")
        rows = [(f"192.0.2.{n}", n) for n in range(1, 33)]
        for row in rows:
            self.put(ACL_ADD, admin, record(*row))
        self.assertEqual(self.get(ACL, admin), record(*sum(rows, ())))
        self.assertRefused(EXISTS, self.put, ACL_ADD, admin, record(*rows[8]))
        self.assertRefused(FULL, self.put, ACL_ADD, admin, record("192.0.2.1", 2))
        self.put(ACL_REMOVE, admin, record(*rows.pop(8)))
        self.assertRefused(NOT_FOUND, self.put, ACL_REMOVE, admin, record("192.0.2.1", 2))
        self.assertEqual(self.get(ACL, admin), record(*sum(rows, ())))

    def test_power(self):
        self.start()
        admin = self.login().session
        for item, operation, powers, status in (
                (POWER + 3, None, ("on", "on", "on", "off"), ("normal", "degraded", "normal", "off")),
                (POWER + 3, "on", ("on", "on", "on", "on"), ("normal", "degraded", "normal", "normal")),
                (POWER + 1, "force-off", ("on", "off", "on", "on"),
                 ("normal", "off", "normal", "normal")),
                (SYSTEM_POWER, "off", ("off",) * 4, ("off",) * 4),
                (SYSTEM_POWER, "on", ("on",) * 4, ("normal", "degraded", "normal", "normal"))):
            with self.subTest(item=hex(item), operation=operation):
                if operation:
                    self.put(item, admin, record(operation))
                self.assertEqual(self.get(PARTITIONS, admin), record(*sum(enumerate(powers), ())))
                system = "on" if "on" in powers else "off"
                self.assertEqual(self.get(SYSTEM_POWER, admin), record(system))
                expected = [("partition", str(n), state, power)
                            for n, (state, power) in enumerate(zip(status, powers))]
                rows = self.rows(STATUS, admin, 4)
                self.assertEqual(rows[:5], [("power", "0", {"on": "normal"}.get(system, "off"), system)]
                                 + expected)
        self.assertIn(("fan", "2", "warning"), [row[:3] for row in rows])
        self.assertIn(("power-supply", "2", "error"), [row[:3] for row in rows])
        self.put(POWER, admin, record("off"))
        self.assertRefused(BAD_REQUEST, self.put, POWER, admin, record("reset"))
        self.put(MAINTENANCE_MODE, admin, bytes(18) + b"\1" + bytes(15))
        rows = self.rows(STATUS, admin, 4)
        self.assertEqual(rows[2], ("partition", "1", "maintenance", "on"))
        self.assertEqual(rows[-1], ("maintenance", "0", "maintenance", "on"))

    # Events

    def test_events_are_found(self):
        self.start()
        session = self.login(b"guest").session
        for query in ((), ("info", "", "", "", 0, ""), ("info", "", "", "", 201, ""),
                      ("all", "", "", "", 1, ""), ("info", "disk", "", "", 1, ""),
                      ("info", "", "2026-02-30", "", 1, ""), ("info", "", "", "", 1, "x"),
                      ("info", "", "", "", 1)):
            self.assertRefused(BAD_REQUEST, self.ask, EVENTS | EXCHANGE, session, record(*query))
        self.assertRefused(BAD_REQUEST, self.get, EVENTS, session)
        self.assertRefused(NOT_AUTHORISED, self.put, EVENTS, session,
                           record("info", "", "", "", 1, ""))

        everything = self.rows(EVENTS, session, 7, record("info", "", "", "", 200, ""))
        numbers, times = ([int(row[column]) for row in everything] for column in (0, 1))
        self.assertEqual(numbers, sorted(numbers, reverse=True))
        self.assertEqual(times, sorted(times, reverse=True))
        self.assertEqual({row[2] for row in everything if row[3] == "hardware"},
                         {"info", "warning", "error"})
        days = [time.strftime("%Y-%m-%d", time.gmtime(seconds)) for seconds in times]
        middle = len(everything) // 2
        for request, expected in (
                (("warning", "", "", "", 200, ""), [r for r in everything if r[2] != "info"]),
                (("error", "hardware", "", "", 1, ""),
                 [r for r in everything if r[2] == "error"][:1]),
                (("info", "power", "", "", 200, ""), [r for r in everything if r[3] == "power"]),
                (("info", "", "", "", 3, numbers[middle]), everything[middle + 1:middle + 4]),
                (("info", "", days[middle], days[middle], 200, ""),
                 [r for r, day in zip(everything, days) if day == days[middle]]),
                (("info", "", "", "1970-01-01", 200, ""), [])):
            with self.subTest(request):
                self.assertEqual(self.rows(EVENTS, session, 7, record(*request)), expected)

    def test_what_happens_is_in_the_log(self):
        self.start()
        admin = self.login().session
        for item, content, *events in (
                (LED, record("blink"), ("info", "hardware", "406", "admin", "blink")),
                (SYSTEM_NAMES, record("x", "", "", ""),
                 ("info", "settings", "201", "admin", "system names")),
                (BOOT + 2, record("disk", "dvd", "none", 0, 0),
                 ("info", "settings", "201", "admin", "boot settings of partition 2")),
                (SOME_ITEM, b"x", ("info", "settings", "201", "admin", "item 0x02010123")),
                (POWER + 3, record("on"), ("info", "power", "301", "admin", "partition 3")),
                (POWER + 3, record("on")),  # is on already
                (POWER + 2, record("force-off"), ("warning", "power", "303", "admin", "partition 2")),
                (SYSTEM_POWER, record("reset"),
                 *(("warning", "power", "304", "admin", f"partition {n}") for n in (3, 1, 0))),
                (SYSTEM_POWER, record("off"),
                 *(("info", "power", "302", "admin", f"partition {n}") for n in (3, 1, 0))),
                (MAINTENANCE_MODE, bytes(17) + b"\1\0\1" + bytes(13) + b"\1",
                 ("info", "maintenance", "601", "admin", "system, partitions 0 2")),
                (MAINTENANCE_MODE, bytes(34), ("info", "maintenance", "601", "admin", "off"))):
            with self.subTest(hex(item), content=content):
                before = self.events(admin, 10)
                self.put(item, admin, content)
                self.assertEqual(self.events(admin, 10), (events + before)[:10])

    def test_an_event_filter_is_the_users(self):
        self.start()
        guest, admin = self.login(b"guest").session, self.login().session
        self.put(OWN_FILTER, guest, record("warning", "hardware", 200))
        self.assertRefused(BAD_REQUEST, self.put, OWN_FILTER, guest, record("info", "", 201))
        self.end(signal.SIGKILL)
        self.start()
        self.assertEqual(self.get(OWN_FILTER, guest), record("warning", "hardware", 200))
        self.assertEqual(self.get(OWN_FILTER, admin), record("info", "", 50))

    # Users

    NOBODY, PARTITIONS_0_AND_2 = "0" * 16, "101" + "0" * 13

    def test_what_a_user_may_be(self):
        self.start()
        admin = self.login().session
        for name, password, role, partitions, language in (
                ("", "password", "guest", self.NOBODY, 1),
                ("1x", "password", "guest", self.NOBODY, 1),
                ("x y", "password", "guest", self.NOBODY, 1),
                ("x" * 33, "password", "guest", self.NOBODY, 1),
                ("x", "seven77", "guest", self.NOBODY, 1), ("x", "", "guest", self.NOBODY, 1),
                ("x", "y" * 33, "guest", self.NOBODY, 1),
                ("x", "pass word", "guest", self.NOBODY, 1),
                ("x", "password", "root", self.NOBODY, 1),
                ("x", "password", "guest", self.NOBODY[1:], 1),
                ("x", "password", "guest", self.PARTITIONS_0_AND_2, 1),
                ("x", "password", "partition", self.NOBODY, 1),
                ("x", "password", "guest", self.NOBODY, 2)):
            with self.subTest(name=name, password=password, role=role):
                self.assertRefused(BAD_REQUEST, self.put, USER_ADD, admin,
                                   record(name, password, role, partitions, language))
        self.assertEqual(len(self.rows(USERS, admin, 4)), 5)
        self.put(USER_ADD, admin, record("A" + "z" * 31, "!" * 32, "staff", self.NOBODY, 0))
        self.login(b"A" + b"z" * 31, b"!" * 32)

    def test_user_management(self):
        self.start()
        admin = self.login().session
        new = ("u-1._", "password", "partition", self.PARTITIONS_0_AND_2, 0)
        self.put(USER_ADD, admin, record(*new))
        self.assertRefused(EXISTS, self.put, USER_ADD, admin, record(*new))
        self.assertIn(("u-1._", "partition", self.PARTITIONS_0_AND_2, "0"),
                      self.rows(USERS, admin, 4))
        session = self.login(b"u-1._", b"password").session
        other = self.login(b"u-1._", b"password").session
        self.assertRefused(NOT_AUTHORISED, self.put, POWER + 1, session, record("off"))
        self.put(POWER + 2, session, record("off"))

        # A role counts at once; without a new password the sessions stay.
        self.put(USER_EDIT, admin, record("u-1._", "", "operator", self.NOBODY, 1))
        self.put(POWER + 1, session, record("off"))
        self.assertEqual(self.check(session).language, 1)
        self.put(USER_EDIT, admin, record("u-1._", "another-one", "administrator", self.NOBODY, 1))
        for ended in (session, other):
            self.assertRefused(NO_SESSION, self.check, ended)
        self.assertRefused(REFUSED, self.login, b"u-1._", b"password")
        session, other = (self.login(b"u-1._", b"another-one").session for _ in range(2))
        self.put(USER_EDIT, session, record("u-1._", "yet-another", "administrator", self.NOBODY, 1))
        self.check(session)
        self.assertRefused(NO_SESSION, self.check, other)

        # Somebody who can manage users is left.
        self.assertRefused(LAST_ADMINISTRATOR, self.put, USER_REMOVE, admin, record("admin"))
        self.put(USER_EDIT, admin, record("admin", "", "guest", self.NOBODY, 1))
        self.assertRefused(NOT_AUTHORISED, self.get, USERS, admin)
        self.assertRefused(LAST_ADMINISTRATOR, self.put, USER_EDIT, session,
                           record("u-1._", "", "guest", self.NOBODY, 1))
        self.put(USER_REMOVE, session, record("admin"))
        self.assertRefused(NO_SESSION, self.check, admin)
        self.assertRefused(REFUSED, self.login)
        for item, content in ((USER_REMOVE, record("admin")),
                              (USER_EDIT, record("admin", "", "guest", self.NOBODY, 1))):
            self.assertRefused(NOT_FOUND, self.put, item, session, content)
        self.assertEqual([event[2:] for event in self.events(session, 5, source="security")][1:4],
                         [("108", "u-1._", "admin"), ("107", "admin", "admin"),
                          ("107", "u-1._", "u-1._")])
        self.end(signal.SIGKILL)
        self.start()
        self.assertNotIn("admin", [row[0] for row in self.rows(USERS, session, 4)])

    def test_the_board_has_room_for_64_users(self):
        self.start()
        admin = self.login().session
        for n in range(59):
            self.put(USER_ADD, admin, record(f"user{n}", "password", "guest", self.NOBODY, 1))
        self.assertRefused(FULL, self.put, USER_ADD, admin,
                           record("user59", "password", "guest", self.NOBODY, 1))
        self.assertEqual(len(self.rows(USERS, admin, 4)), 64)

    def test_sessions_are_listed_without_their_ids(self):
        self.start()
        begin = int(time.time())
        admin = self.login(address=b"198.51.100.9").session
        part = self.login(b"part").session
        rows = self.rows(SESSIONS, part, 5)
        self.assertCountEqual([row[:3] for row in rows], [
            ("admin", "administrator", "198.51.100.9"), ("part", "partition", "192.0.2.7")])
        for _, _, _, login, used in rows:
            self.assertTrue(begin <= int(login) <= int(used) <= time.time())
        self.assertNotIn(admin, self.get(SESSIONS, part))
        self.end()
        self.start()
        self.assertEqual([row[:4] for row in self.rows(SESSIONS, part, 5)],
                         [row[:4] for row in rows])

    # Clock

    def test_the_clock_runs_from_where_it_was_set(self):
        self.start()
        admin = self.login().session

        def shown():
            day, clock, *rest = self.rows(CLOCK, admin, 6)[0]
            return calendar.timegm(time.strptime(day + clock, "%Y-%m-%d%H:%M:%S")), rest

        self.assertAlmostEqual(shown()[0], time.time(), delta=2)
        self.put(CLOCK, admin, record("2037-12-31", "23:59:50", "-05:30", "manual", "", "192.0.2.1"))
        local = calendar.timegm((2037, 12, 31, 23, 59, 50))
        for _ in range(2):
            seconds, rest = shown()
            self.assertAlmostEqual(seconds, local, delta=9)
            self.assertEqual(rest, ["-05:30", "manual", "", "192.0.2.1"])
            self.end(signal.SIGKILL)
            self.start()
        self.put(LED, admin, record("on"))
        event, = self.rows(EVENTS, admin, 7, record("info", "", "", "", 1, ""))
        self.assertAlmostEqual(int(event[1]), local + 19800, delta=20)
        self.put(CLOCK, admin, record("", "now", "+14:00", "servers", "192.0.2.1", ""))
        self.assertAlmostEqual(shown()[0], time.time() + 50400, delta=2)
        for texts in (("2037-12-32", "00:00:00", "+00:00", "manual", "", ""),
                      ("2026-01-01", "24:00:00", "+00:00", "manual", "", ""),
                      ("2026-01-01", "00:00:60", "+00:00", "manual", "", ""),
                      ("1970-01-01", "00:59:59", "+01:00", "manual", "", ""),
                      ("2026-01-01", "00:00:00", "+14:01", "manual", "", ""),
                      ("2026-01-01", "00:00:00", "01:00", "manual", "", ""),
                      ("2026-01-01", "00:00:00", "+00:00", "servers", "", "192.0.2.1"),
                      ("2026-01-01", "00:00:00", "+00:00", "gps", "192.0.2.1", "")):
            with self.subTest(texts):
                self.assertRefused(BAD_REQUEST, self.put, CLOCK, admin, record(*texts))

    # What comes over the wire

    def test_damaged_requests_are_refused(self):
        self.start("--client-timeout", "1000")
        session = self.login().session
        login = message(LOGIN, telegram())
        for data, detail in (
                (message(GET_LANGUAGE, bytes(47)), BAD_REQUEST),
                (message(GET_LANGUAGE, bytes(49)), BAD_REQUEST),
                (number(GET_LANGUAGE) + number(65536), BROKEN),
                (number(GET_LANGUAGE) + number(0xFFFFFFFF), BROKEN),
                (login + message(LOGOUT, bytes(204)), BAD_REQUEST),
                (login + message(LOGIN, bytes(203)), BAD_REQUEST),
                (login + message(LOGIN, b"x" * 204), BAD_REQUEST),
                (message(CHECK_SESSION, telegram(session)) + message(CHECK_SESSION, bytes(2)),
                 BAD_REQUEST),
                (message(SOME_ITEM | WRITE, telegram(session)), BAD_REQUEST)):  # no payload comes
            with self.subTest(data[:80]):
                answer = self.connect(data).recv(65536)
                self.assertEqual(answer[:4], number(ERROR))
                self.assertEqual(BoardError(answer[8:]).detail, detail)
        self.check(session)

    def test_a_request_may_arrive_in_pieces(self):
        self.start()
        session = self.login().session
        connection = self.connect()
        for byte in message(CHECK_SESSION, telegram(session)) + message(CHECK_SESSION, b"\0"):
            connection.sendall(bytes([byte]))
            time.sleep(0.001)
        self.assertTrue(connection.recv(65536).endswith(message(CHECK_SESSION, number(60))))

    def test_silent_clients_cost_only_themselves(self):
        self.start("--client-timeout", "1000")
        session = self.login().session
        silent = [self.connect() for _ in range(300)]
        silent[-1].sendall(message(LOGIN, telegram()))
        self.connect(message(GET_LANGUAGE, telegram()))  # never reads the answer
        begin = time.monotonic()
        for _ in range(100):
            self.check(session)
        self.assertLess(time.monotonic() - begin, 0.9)
        self.assertEqual(silent[-2].recv(1), b"")  # dropped after its second
        self.assertLess(time.monotonic() - begin, 3)

    def test_logins_hold_up_no_check_and_nobody_gets_anothers_verdict(self):
        self.start()
        session = self.login().session
        login = message(LOGIN, login_record(b"admin", b"admin-pass"))
        waiting = [self.connect(message(LOGIN, telegram()) + login) for _ in range(20)]
        self.check(session)
        waiting[-1].setblocking(False)
        with self.assertRaises(BlockingIOError):
            waiting[-1].recv(1)  # its turn has not come
        for connection in waiting:
            connection.close()
        self.assertRefused(REFUSED, self.login, b"admin", b"guess")

    def test_a_fault_is_that_of_its_procedure(self):
        self.start("--fault", "0x020100B4:error", "--fault", "20100d1:wrong-type")
        session = self.login().session
        self.assertRefused(BOARD_FAILURE, self.get, MAINTENANCE_MODE, session)
        self.assertNotIn(self.exchange(message(PERMISSION, telegram(session)))[0][0],
                         (PERMISSION, ERROR))
        self.check(session)
        self.end()
        self.start("--fault", "any:short-payload", "--fault", "login:error")
        self.assertRefused(BOARD_FAILURE, self.login)
        self.assertEqual(self.get(HTTPS_PORT), number(443)[:3])

    # The state

    def test_a_changed_password_ends_the_users_other_sessions(self):
        self.start()
        own, other, admin = (self.login(name).session for name in (b"guest", b"guest", b"admin"))

        def change(old, new):
            self.put(OWN_PASSWORD, own, struct.pack("36s36s", old, new))

        self.assertRefused(REFUSED, change, b"wrong", b"new one")
        for unfit in (b"", b"x" * 33, b"x" * 36):
            self.assertRefused(BAD_REQUEST, change, b"guest-pass", unfit)
        self.assertRefused(BAD_REQUEST, self.put, OWN_PASSWORD, own, b"short")
        self.assertRefused(NOT_AUTHORISED, self.get, OWN_PASSWORD, own)
        self.assertRefused(NOT_AUTHORISED, self.ask, OWN_PASSWORD | EXCHANGE, own, bytes(72))
        self.check(other)
        change(b"guest-pass", b"new one")
        self.assertRefused(NO_SESSION, self.check, other)
        self.end(signal.SIGKILL)
        self.start()
        self.assertRefused(REFUSED, self.login, b"guest", b"guest-pass")
        self.login(b"guest", b"new one")
        self.check(own)
        self.check(admin)
        self.assertRefused(NO_SESSION, self.check, other)

    def test_secrets_are_for_nobody_else(self):
        self.start()
        self.assertEqual(self.state.stat().st_mode & 0o077, 0)
        self.assertEqual(self.path.stat().st_mode & 0o777, 0o600)
        self.end()
        with sqlite3.connect(self.state) as database:
            hashes = {row[0] for row in database.execute("SELECT password FROM users")}
        database.close()
        self.assertEqual([text[:3] for text in hashes], ["$y$"] * 5)

    def test_a_setting_that_cannot_be_stored_is_an_error(self):
        self.start(limit=200 * 1024)
        session = self.login().session
        self.put(SOME_ITEM, session, b"before")
        with self.assertRaises(BoardError) as caught:
            for item in range(0x02010200, 0x02010208):
                self.put(item, session, bytes(60000))
        self.assertEqual((caught.exception.detail, caught.exception.action), (BOARD_FAILURE, 1))
        self.check(session)
        self.assertEqual(self.get(SOME_ITEM, session), b"before")
        self.assertRefused(NO_ITEM, self.get, item, session)
        self.end(signal.SIGKILL)
        self.start()
        self.assertEqual(self.get(SOME_ITEM, session), b"before")

    def test_a_state_that_cannot_be_used_is_kept(self):
        self.start()
        self.end()
        good = self.state.read_bytes()
        for content in (b"not a database" * 100, good[:len(good) // 2],
                        good[:4096] + b"\xa5" * 4096 + good[8192:]):
            with self.subTest(content[:20]):
                self.state.write_bytes(content)
                self.assertRefusesToStart("damaged")
                self.assertEqual(self.state.read_bytes(), content)
                self.assertFalse(self.path.exists())
        self.state.write_bytes(good)
        with sqlite3.connect(self.state) as holder:
            holder.execute("BEGIN IMMEDIATE")
            self.assertRefusesToStart("in use by another program")
            holder.execute("PRAGMA user_version = 1")
        holder.close()
        self.assertRefusesToStart("another program")
        for self.state, text in ((self.folder / "missing" / "board.db", "cannot be opened"),
                                 ("/proc/version", "cannot be opened for writing")):
            self.assertRefusesToStart(text)

    # The socket and the command line

    def test_only_a_dead_daemons_socket_is_replaced(self):
        self.start()
        session = self.login().session
        self.assertRefusesToStart("another daemon already serves")
        os.unlink(f"{self.path}.lock")
        self.assertRefusesToStart("another daemon already serves")
        self.check(session)
        self.path = self.folder / "other.sock"
        self.assertRefusesToStart(re.escape(str(self.state)) + " is in use by another program")
        self.path.write_text("precious")
        self.assertRefusesToStart("is not a socket")
        self.assertEqual(self.path.read_text(), "precious")
        self.path = self.folder / ("x" * 120)
        self.assertRefusesToStart("too long")

    def test_bad_options(self):
        for text, *arguments in (
                ("--nonsense", "--nonsense"), ("extra", "extra"), ("--fault", "--fault"),
                ("--session-timeout", "--session-timeout", "0"),
                ("--session-timeout", "--session-timeout", "99999999999"),
                ("--client-timeout", "--client-timeout", "1s"),
                ("PROCEDURE:KIND", "--fault", "login"), ("odd", "--fault", "login:odd"),
                ("0xzz", "--fault", "0xzz:error"), ("--state", "--state", "")):
            with self.subTest(arguments):
                self.assertRefusesToStart(text, *arguments, status=2)
        self.assertEqual(list(self.folder.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
