"""The same requests to pages on the board and on this machine: same output and same log.

Each machine runs its own build's pages and orvboardd. Only values that differ in every run are
masked: the session ID, the CSRF token, the IDs of notes, and the time and process ID of a line of
the log. The bytes of telegrams are tested by the suite wire, which runs on the board too.
"""

import hashlib
import os
import random
import re
import tempfile
import unittest
from pathlib import Path
from urllib.parse import urlencode

from console_client import BOUNDARY, multipart
from support.machines import Board, Host

LOGIN, FRAME, MENU = "/common/login.cgi", "/common/frame.cgi", "/common/menu.cgi"
INSPECTOR, REFRESH = "/common/request.cgi", "/network/orv_refresh_set.cgi"
CONTENT = random.Random(6).randbytes(200_000)
FORM, MULTIPART = "application/x-www-form-urlencoded", "multipart/form-data; boundary=" + BOUNDARY
LOG_LINE_BEGIN = re.compile(rb"^[\d-]{10} [\d:.]{15} \[\d+\] ", re.MULTILINE)
ANY_SESSION, ANY_TOKEN = b"s" * 31, b"t" * 32
TOKEN = re.compile(rb'name="form_end" value="([0-9a-f]{32})"')
NOTE = re.compile(rb'((?:draft|done)(?:=|" value="))[0-9a-f]{16}')
ADDRESS = re.compile(rb"^Location: (/.*[?&](?:draft|done)=.*)$", re.MULTILINE)


def form(**fields):
    return FORM, urlencode(fields).encode()


# Requests, their bodies, and a text that the answer must contain.
REQUESTS = (
    ("log-in page", LOGIN, None, b'name="password"'),
    ("wrong password", LOGIN, form(user="admin", password="wrong"), b"password is wrong"),
    ("log-in", LOGIN, form(user="admin", password="admin-pass"), b"Set-Cookie: sid="),
    ("console", FRAME, None, b"Location: /system/sys_status.cgi"),
    ("menu", MENU + "?load=1&tid=0&mid=3", None, b"/common/frame.cgi?fid="),
    ("setting", REFRESH, None, b'value="60"'),
    ("wrong input", REFRESH, form(page_state=3, interval="3601", form_end=ANY_TOKEN),
     b"from 0 to 3600"),
    ("confirmation", REFRESH, form(page_state=3, interval="45", form_end=ANY_TOKEN), b'value="45"'),
    ("change", REFRESH, form(page_state=4, interval="45", form_end=ANY_TOKEN),
     b"have been changed"),
    ("changed setting", REFRESH, None, b'value="45"'),
    ("upload", INSPECTOR, (MULTIPART, multipart({b"comment": b"firmware"}, b"image.bin", CONTENT)),
     hashlib.sha256(CONTENT).hexdigest().encode()),
    ("bad request", INSPECTOR, (FORM, b"text=%4"), b"Status: 400 Bad Request"),
    ("Japanese text", INSPECTOR, form(language=0, text="設定".encode("euc-jp")),
     "<code>設定</code>".encode("euc-jp")),
    ("every component", "/common/gallery.cgi?language=0", None, "部品一覧".encode("euc-jp")),
    ("Japanese log-in", LOGIN, form(user="operator", password="operator-pass"), b"Set-Cookie: "),
    ("Japanese setting", REFRESH, None, "<h1>リフレッシュ間隔</h1>".encode("euc-jp")),
)
WITH_A_FAULT = (
    ("error page", REFRESH, None, b"(00:0404)"),
)
WITH_THE_OTHERS_STATE = (
    ("log-in again", LOGIN, form(user="admin", password="admin-pass"), b"Set-Cookie: sid="),
    ("kept setting", REFRESH, None, b'value="45"'),
)
WITH_A_STALE_SESSION = (
    ("time-out", REFRESH, None, b"/common/timeout.cgi"),
    ("time-out page", "/common/timeout.cgi", None, b"session has ended"),
)


class Visit:
    """A user's way through the pages of a machine."""

    def __init__(self, machine):
        self.machine, self.session, self.token = machine, "", ANY_TOKEN

    def ask(self, target, body):
        """The masked answer and log; after a form, with those of the page that it leads to."""
        content = body[1].replace(ANY_TOKEN, self.token) if body else b""
        output, log = self.machine.run_page(
            target.partition("?")[0], self._environment(target, body), content)
        opened = re.search(rb"^Set-Cookie: sid=([\w-]{31});", output, re.MULTILINE)
        if opened:
            self.session = opened[1].decode()
        if found := TOKEN.search(output):
            self.token = found[1]
        masked = self._masked(output), LOG_LINE_BEGIN.sub(b"", self._masked(log))
        if found := ADDRESS.search(output):
            return tuple(map(bytes.__add__, masked, self.ask(found[1].decode(), None)))
        return masked

    def _environment(self, target, body):
        path, _, query = target.partition("?")
        kind, content = body or ("", b"")
        return {"GATEWAY_INTERFACE": "CGI/1.1", "SERVER_PROTOCOL": "HTTP/1.1",
                "HTTP_HOST": "board.example", "SERVER_PORT": "443", "REMOTE_ADDR": "192.0.2.7",
                "REQUEST_METHOD": "POST" if body else "GET", "SCRIPT_NAME": path,
                "QUERY_STRING": query, "CONTENT_TYPE": kind, "CONTENT_LENGTH": str(len(content)),
                "HTTP_COOKIE": "sid=" + self.session, "ORV_TRACE_LEVEL": "200"}

    def _masked(self, data):
        data = NOTE.sub(rb"\1", data.replace(self.token, ANY_TOKEN))
        return data.replace(self.session.encode() or ANY_SESSION, ANY_SESSION)


class Pages(unittest.TestCase):
    maxDiff = 4000

    @classmethod
    def setUpClass(cls):
        board, host = (Path(os.environ[name]) for name in ("BOARD_BUILD", "HOST_BUILD"))
        cls.board = Board(board, board / "root", os.environ["EMULATOR"], os.environ["CMAKE"])
        cls.addClassCleanup(cls.board.close)
        cls.host = Host(host, cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.addClassCleanup(cls.host.close)
        for machine in (cls.board, cls.host):
            machine.start_daemon()

    def restart(self, *options, swap=False):
        """Starts the daemons again, if wanted with the state that the other one left."""
        machines = (self.board, self.host)
        for machine in machines:
            machine.stop_daemon()
        if swap:
            states = [machine.state.read_bytes() for machine in machines]
            for machine, state in zip(machines, reversed(states)):
                machine.state.write_bytes(state)
        for machine in machines:
            machine.start_daemon(*options)

    def compare(self, visits, requests):
        for name, target, body, expected in requests:
            with self.subTest(name):
                board, host = (visit.ask(target, body) for visit in visits)
                self.assertIn(expected, host[0].replace(b"&nbsp;", b" "))
                self.assertEqual(board, host)

    def test_the_board_answers_byte_for_byte_like_this_machine(self):
        page = (self.board.root / "usr/local/www/htdocs/common/login.cgi").read_bytes()
        self.assertEqual((page[:6], page[18:20]), (b"\x7fELF\x01\x02", b"\x00\x14"))
        visits = [Visit(machine) for machine in (self.board, self.host)]
        self.compare(visits, REQUESTS)
        self.restart("--fault", "checkSession:short-payload")
        self.compare(visits, WITH_A_FAULT)
        self.restart(swap=True)
        self.compare(visits, WITH_THE_OTHERS_STATE)
        for visit in visits:
            visit.session = "stale"
        self.compare(visits, WITH_A_STALE_SESSION)
        self.assertEqual(list((self.board.root / "var/tmp").iterdir()), [])
