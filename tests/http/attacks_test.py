"""Attacks without an account: what each of them costs is bounded, and others are served."""

import re
import select
import signal
import socket
import time
import unittest
import unittest.mock

from console_client import LOGIN
from support.site_case import WAY, SiteCase, running_pages

STATUS, INSPECTOR = "/system/sys_status.cgi", "/common/request.cgi"
TIMEOUT, STYLES = "/common/timeout.cgi", "/default.css"
FORM_LIMIT = 65536
LIMIT = 30  # of an answer, in seconds
OTHER_ADDRESS = "127.0.0.2"
PLACES_OF_AN_ADDRESS = 96
ENTRIES_A_MINUTE = 60
SECURITY_HEADERS = (b"X-Content-Type-Options: nosniff", b"Referrer-Policy: same-origin",
                    b"Content-Security-Policy: default-src", b"Cache-Control: no-store",
                    b"Content-Type: text/html; charset=")


class Attacks(SiteCase):
    environment = {"ORV_IPC_TIMEOUT_MS": 15000}  # pages start slowly under a sanitizer

    def connect(self, request, address="127.0.0.1"):
        connection = socket.create_connection(("127.0.0.1", self.site.port), LIMIT, (address, 0))
        self.addCleanup(connection.close)
        connection.sendall(request)
        return connection

    def answer(self, request):
        with self.connect(request).makefile("rb") as stream:
            return stream.read()

    def serve_other(self, path):
        """Status and duration of another client's request."""
        begun = time.monotonic()
        answer = self.connect(f"GET {path} HTTP/1.0\r\n\r\n".encode(), OTHER_ADDRESS).recv(64)
        return int(answer.split()[1]), time.monotonic() - begun

    def test_a_request_bomb_is_refused(self):
        for path in (LOGIN, TIMEOUT, STATUS, "/no"):
            for size in (FORM_LIMIT + 1, 100_000_000):
                head = f"POST {path} HTTP/1.1\r\nHost: a\r\nConnection: close\r\nContent-Length: "
                self.assertIn(b"413 ", self.answer(f"{head}{size}\r\n\r\n".encode())[:20])
        for path, size, status in ((LOGIN, FORM_LIMIT, 200), (INSPECTOR, 2 * 2**20, 200),
                                   (INSPECTOR, 2 * 2**20 + 6, 413)):
            self.assertEqual(self.client.request("POST", path, "%05x&" % 1 * (size // 6) +
                                                 "x" * (size % 6)).status, status)

    def test_refusals_and_what_follows_a_page_have_the_security_headers(self):
        end = b" HTTP/1.1\r\nHost: a\r\nConnection: close\r\n"
        for request, *statuses in (
                (b"GET /common/login.cgi/x" + end, 404), (b"GET /common/login.cgi%2fx" + end, 404),
                (b"GET /common/login.cgi/" + end, 404), (b"GET /default.css/x" + end, 404),
                (b"GET /no.cgi" + end, 404), (b"GET /common/" + end, 403, 404),
                (b"GET /\1" + end, 400), (b"GET / HTTP/1.1\r\n", 400),
                (b"nothing known\r\n", 400), (b"FOO /" + end, 501),
                (b"PUT /default.css" + end, 501), (b"GET /" + b"a" * 9000 + end, 414, 431),
                (b"POST /common/login.cgi" + end + b"Content-Length: 99999999\r\n", 413)):
            answer = self.answer(request + b"\r\n")
            self.assertIn(int(answer.split()[1]), statuses, request[:40])
            for header in SECURITY_HEADERS:
                self.assertIn(header, answer, request[:40])

    def test_the_same_host_with_a_final_dot_is_no_other_site(self):
        for host, origin, status in (("localhost.", "localhost.", 200), ("a", "a.", 200),
                                     ("a.", "b.", 403), ("a.b", "ab", 403)):
            answer = self.client.post(LOGIN, {}, {"Host": f"{host}:{self.site.port}",
                                                  "Origin": f"http://{origin}:{self.site.port}"})
            self.assertEqual(answer.status, status, (host, origin))

    def test_slow_clients_keep_nobody_out(self):
        for _ in range(1600):
            self.connect(b"GET / HTTP/1.1\r\nHost:")
        status, seconds = self.serve_other(LOGIN)
        self.assertEqual(status, 200)
        self.assertLess(seconds, 1)

    @unittest.skipUnless(WAY["scgi"], "pages run as CGI programs")
    def test_a_page_server_that_is_killed_refuses_nobody(self):
        for _ in range(3):
            self.site.page_server.process.kill()
            status, seconds = self.serve_other(LOGIN)
            self.assertEqual((status, seconds < 1), (200, True))

    def test_a_board_that_hangs_holds_a_bounded_number_of_pages(self):
        request = f"GET {STATUS} HTTP/1.1\r\nHost: a\r\nCookie: sid=x\r\nConnection: close\r\n\r\n"
        self.site.board.send_signal(signal.SIGSTOP)
        self.addCleanup(self.site.board.send_signal, signal.SIGCONT)
        waiting = [self.connect(request.encode()) for _ in range(PLACES_OF_AN_ADDRESS + 30)]
        deadline, refused = time.monotonic() + LIMIT, []
        while len(refused) < 30:  # the others have the places
            self.assertLess(time.monotonic(), deadline)
            ready = select.select(waiting, [], [], 1)[0]
            refused += [connection.recv(4096) for connection in ready]
            waiting = [connection for connection in waiting if connection not in ready]
        self.assertEqual({(b" 503 " in head, b"Retry-After: 2" in head) for head in refused},
                         {(True, True)})
        self.assertLessEqual(len(running_pages()), PLACES_OF_AN_ADDRESS + 10)
        self.assertEqual(self.serve_other(STYLES)[0], 200)
        status, seconds = self.serve_other(TIMEOUT)
        self.assertEqual((status, seconds < 5), (200, True))
        self.site.board.send_signal(signal.SIGCONT)
        self.assertIn(b" 200 ", waiting[0].recv(4096))
        self.assertEqual(self.serve_other(STATUS)[0], 200)

    def test_the_trace_log_is_ascii_and_hostile_requests_do_not_fill_it(self):
        request = b"GET /common/logout.cgi HTTP/1.0\r\nCookie: sid=\x9b2J\xff\x85\r\n\r\n"
        before = len(self.trace_log())
        for _ in range(300):
            self.assertIn(b" 200 ", self.connect(request, "127.0.0.3").recv(4096))
        log = self.site.trace_log.read_bytes()[before:]
        self.assertIsNone(re.search(rb"[^\n\x20-\x7e]", log))
        entries = log.count(rb"CGIRequester::checkSession sid=\x9b2J\xff\x85")
        self.assertIn(entries, range(1, 2 * ENTRIES_A_MINUTE + 1))  # a minute may begin meanwhile
        with unittest.mock.patch("console_site.LARGEST_LOG", 0):
            self.site.rotate_logs()
        self.assertTrue(self.site.trace_log.with_name("trace.log.1").exists())
        deadline = time.monotonic() + LIMIT
        while not self.trace_log():
            self.assertLess(time.monotonic(), deadline)
            self.connect(request, "127.0.0.4").recv(4096)
