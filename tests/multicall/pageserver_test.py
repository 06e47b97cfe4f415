"""The page server, from malformed requests to the death of the server and of pages."""

import os
import re
import resource
import signal
import socket
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from console_client import BOUNDARY, multipart
from support.fault_case import uploads
from support.scgi_client import ask, connect, header, netstring, request, rest

SERVER = os.environ["PAGE_SERVER"]
LIMIT = 10
KIB = 1024
PARAMETERS = ("CONTENT_LENGTH", 0, "SCGI", 1, "SCRIPT_NAME", "/test/echo.cgi")
# Starts the server as a supervisor does, with the socket as descriptor 3.
SUPERVISED = ["sh", "-c", 'LISTEN_PID=$$ LISTEN_FDS=1 exec "$@"', "sh"]
FORM = ("CONTENT_TYPE", "multipart/form-data; boundary=" + BOUNDARY)
UPLOAD = multipart({}, b"file.bin", bytes(300 * KIB))


class PageServer(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.path, self.log = self.folder / "pages.sock", self.folder / "log"
        self.uploads = uploads()

    def tearDown(self):
        self.waitFor(lambda: uploads() <= self.uploads)
        log = self.log.read_text() if self.log.exists() else ""
        self.assertNotRegex(log, "Sanitizer|runtime error")

    def launch(self, *options, before=(), **more):
        server = subprocess.Popen([*before, SERVER, "--scgi", self.path, "--log", self.log,
                                   *map(str, options)], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, text=True, **more)
        self.addCleanup(server.communicate)
        self.addCleanup(server.kill)
        return server

    def start(self, *options, **more):
        self.server = self.launch(*options, **more)
        self.assertEqual(self.server.stdout.readline(), "orvguid: ready\n")
        return self.server

    def supervise(self, listener):
        """Starts the server with a socket that outlives it."""
        def pass_socket():
            os.set_inheritable(os.dup2(listener.fileno(), 3), True)

        self.start("--page-time", 1, before=SUPERVISED, preexec_fn=pass_socket, close_fds=False)

    def waitFor(self, condition):
        deadline = time.monotonic() + LIMIT
        while not condition():
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.01)

    def ask(self, page, body=b"", *more):
        return ask(self.path, request(page, body, *more))

    def begin(self, page, body=b"", *more):
        """A connection on which a page has begun to print."""
        connection = connect(self.path, request(page, body, *more))
        self.assertTrue(connection.recv(6))
        return connection

    def assertLogged(self, text):
        self.waitFor(lambda: re.search(r"^\S+ \S+ \[\d+\] level=0 1/3/1 " + text + "$",
                                       self.log.read_text(), re.MULTILINE))

    def stack(self):
        """The address of the server's stack; nothing while it is executed anew."""
        return re.findall(r"(\w+)-.*\[stack\]",
                          Path(f"/proc/{self.server.pid}/maps").read_text())

    def test_a_bad_start_is_one_line_that_says_what_to_do(self):
        plain = self.folder / "plain"
        plain.touch()
        self.start()
        for options, status, text in (
                (["--children", 0], 2, "--children takes a number from 1 to 1000, not '0'"),
                (["--none"], 2, "unknown option --none; --help"), (["x"], 2, "unexpected"),
                (["--scgi"], 2, "argument is missing after --scgi"), (["--scgi", ""], 2, "--scgi"),
                (["--scgi", self.folder / "no" / "sock"], 1, "make its folder"),
                (["--scgi", self.folder / ("n" * 110)], 1, "too long"),
                (["--scgi", plain], 1, "move it away"), ([], 1, "stop it first"),
                (["--log", self.folder / "no" / "log"], 1, "make its folder")):
            server = self.launch(*options)
            output, errors = server.communicate(timeout=LIMIT)
            self.assertEqual((server.returncode, output), (status, ""), options)
            self.assertRegex(errors, rf"^orvguid: [^\n]*{text}[^\n]*\n$")
        self.assertEqual(self.path.stat().st_mode & 0o777, 0o600)
        self.begin("short").close()
        self.server.kill()
        self.server.wait()
        self.start()  # replaces the socket that is left, while the page runs
        self.assertIn(b"/test/echo.cgi", self.ask("echo"))

    def test_malformed_requests_are_refused(self):
        self.start("--largest-header", 200, "--largest-body", 100, "--request-time", 1)
        good = header(*PARAMETERS)
        for data, status in (
                (b"GET / HTTP/1.0\r\n\r\n", 400), (b":,", 400), (b"-1:,", 400), (b"07:a,", 400),
                (b" 7:", 400), (b"201:", 413), (b"99999999999999999999", 413), (b"0:,", 400),
                (good[:-1] + b";", 400), (netstring(good[3:-2]), 400), (netstring(b"A\0\0"), 400),
                (header("LENGTH", *PARAMETERS[1:]), 400), (header(*PARAMETERS[:2]), 400),
                (header(*PARAMETERS[:3], 2), 400), (header(*PARAMETERS, "SCGI", 1), 400),
                (header("CONTENT_LENGTH", ""), 400),
                (header("CONTENT_LENGTH", "+1"), 400),
                (header("CONTENT_LENGTH", 101, *PARAMETERS[2:]) + bytes(10**6), 413),
                (header(*PARAMETERS[:4]), 404), (header(*PARAMETERS[:5], "/echo.cgi"), 404),
                (header(*PARAMETERS[:5], "/x\n\x1b/echo.cgi"), 404),
                (good[:-1], 408), (b"", 408), (good[:5], 408),
                (header("CONTENT_LENGTH", 9, *PARAMETERS[2:]) + b"12345678", 408)):
            with self.subTest(data=data[:100]):
                answer = ask(self.path, data)
                self.assertRegex(answer, rb"^Status: %d [^\n]*\nContent-Type: text/plain" % status)
        with connect(self.path) as slow:
            for byte in good[:15]:
                slow.sendall(bytes([byte]))
                time.sleep(0.1)
            self.assertIn(b"Status: 408", slow.recv(100))
        end = time.monotonic() + LIMIT
        with connect(self.path, b"x") as endless, self.assertRaises(ConnectionError):
            while time.monotonic() < end:
                endless.sendall(bytes(KIB**2))
        log = self.log.read_bytes()
        self.assertRegex(log, rb"level=0 1/3/1 request refused: 404, no page is at /x\\x0a\\x1b/e")
        self.assertNotRegex(log, rb"[^ -~\n]")
        with connect(self.path, good[:9]) as half:
            half.shutdown(socket.SHUT_WR)
            self.assertIn(b"Status: 400", half.recv(100))
        connect(self.path).close()  # a probe
        self.assertEqual(self.log.read_bytes().count(b"\n"), log.count(b"\n") + 1)

    def test_a_page_is_a_cgi_program(self):
        self.start(env={"ORV_X": "own", "PATH": "own", "LISTEN_PID": "1", "LISTEN_FDS": "1",
                        "LISTEN_FDNAMES": "x"})
        names = ("ORV_X", "PATH", "LD_PRELOAD", "ORV_Y", "PATH_INFO", "HTTP_COOKIE", "a", "A-B", "")
        for size in (0, 1, 64 * KIB, 64 * KIB + 1, KIB**2 + 1):
            body = os.urandom(size)
            texts = [text for name in names for text in (name, "given")]
            head, environment, echoed = [
                *self.ask("echo", body, *texts, "HTTP_COOKIE", "again").split(b"\n\n", 2)]
            self.assertEqual((head, echoed == body), (b"Content-Type: text/plain", True), size)
            self.assertEqual(environment.decode().split("\n")[0], "test/echo.cgi")
            self.assertEqual(sorted(environment.decode().split("\n")[1:]), sorted([
                "ORV_X=own", "PATH=own", "PATH_INFO=given", "HTTP_COOKIE=given",
                f"CONTENT_LENGTH={size}", "SCGI=1", "SCRIPT_NAME=/test/echo.cgi",
                f"REQUEST_METHOD={'POST' if size else 'GET'}"]))
        data = request("echo", b"body")
        self.assertTrue(ask(self.path, data + b"more").endswith(b"\n\nbody"))
        with connect(self.path) as connection:
            for byte in data:
                connection.sendall(bytes([byte]))
            self.assertTrue(rest(connection).endswith(b"\n\nbody"))

    def test_limits(self):
        self.start("--children", 2, "--page-time", 1, "--request-time", 2, preexec_fn=lambda:
                   resource.setrlimit(resource.RLIMIT_FSIZE, (512 * KIB, 512 * KIB)))
        began = time.monotonic()
        slow = [self.begin("long", UPLOAD, *FORM) for _ in range(2)]
        waiting = self.ask("echo")  # until one of the pages was ended
        self.assertGreater(time.monotonic() - began, 0.9)
        self.assertIn(b"/test/echo.cgi", waiting)
        self.assertEqual([rest(connection) for connection in slow], [b""] * 2)
        self.assertLogged(r"process \d+ of long.cgi was ended by signal 14 \(Alarm clock\)")
        self.assertIn(b"Status: 507 ", self.ask("echo", bytes(KIB**2)))
        self.assertLogged("request refused: 507, cannot store a body of 1048576 bytes in /var/tmp:"
                          " File too large")

    def test_a_server_stops_and_restarts_without_losing_a_request(self):
        self.start("--children", 2)
        for number in (signal.SIGHUP, signal.SIGTERM):
            before = self.stack()
            running = [self.begin("short") for _ in range(2)]
            queued = connect(self.path, request("echo"))
            self.log.rename(self.folder / f"log{number}")
            self.server.send_signal(number)
            if number == signal.SIGHUP:
                self.waitFor(lambda before=before: self.stack() not in ([], before))
                self.waitFor(self.log.exists)
                queued.settimeout(0.1)  # the pages from before are still counted
                self.assertRaises(TimeoutError, queued.recv, 1)
                queued.settimeout(LIMIT)
            self.assertEqual([rest(connection) for connection in running], [b"ended\n"] * 2)
            self.assertIn(b"/test/echo.cgi", rest(queued))
        self.assertEqual(self.server.wait(LIMIT), 0)
        self.assertFalse(self.path.exists())

    def test_a_killed_server_leaves_nothing_and_refuses_nothing(self):
        with socket.socket(socket.AF_UNIX) as listener:
            listener.bind(str(self.path))
            listener.listen(128)
            self.supervise(listener)
            longest = 0
            for page, body, more in (("long", UPLOAD, FORM), ("flood", b"", ()),
                                     ("echo", bytes(200 * KIB), ()),
                                     ("short", b"", ())):
                data = request(page, body, *more)
                # Cut within the body; a page that has begun is left to itself.
                with connect(self.path, data[:150 * KIB] if page == "echo" else data) as client:
                    if page != "echo":
                        client.recv(6)
                    self.server.kill()
                    self.server.wait()
                    began = time.monotonic()
                    with connect(self.path, request("echo")) as queued:
                        self.supervise(listener)
                        self.assertIn(b"/test/echo.cgi", rest(queued))
                    longest = max(longest, time.monotonic() - began)
                    if page == "short":
                        self.assertIn(b"ended", rest(client))
            print(f"A killed server was replaced within {1000 * longest:.0f} ms")
            self.assertLess(longest, 2)
            self.server.send_signal(signal.SIGHUP)
            self.assertIn(b"/test/echo.cgi", self.ask("echo"))
            self.server.terminate()
            self.assertEqual(self.server.wait(LIMIT), 0)
            queued = connect(self.path, request("echo"))  # for the next server
            self.supervise(listener)
            self.assertIn(b"/test/echo.cgi", rest(queued))

    def test_a_crash_changes_the_addresses_and_nothing_for_others(self):
        self.start()
        before = self.stack()
        other = self.begin("short")
        for body, name in ((b"x", r"15 \(Terminated\)"), (b"", r"6 \(Aborted\)")):
            self.assertEqual(self.ask("crash", body), b"")
            self.assertLogged(rf"process \d+ of crash.cgi was ended by signal {name}")
        self.assertIn(b"/test/echo.cgi", self.ask("echo"))
        self.waitFor(lambda: self.stack() not in ([], before))
        self.assertEqual(rest(other), b"ended\n")


if __name__ == "__main__":
    unittest.main()
