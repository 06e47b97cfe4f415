"""Drives orvboardd over its socket, with the wire format written out here.

ORVBOARDD names the program.
"""

import os
import re
import resource
import signal
import socket
import sqlite3
import struct
import subprocess
import tempfile
import threading
import time
import unittest

GET_LANGUAGE = 0x02010001
LOGIN = 0x02010002
LOGOUT = 0x02010004
CHECK_SESSION = 0x02010005
GET_USER_INFO = 0x02010025
OWN_LANGUAGE = 0x02010026
OWN_REFRESH_INTERVAL = 0x02010027
OWN_PASSWORD = 0x02010028
EVENT_LOG = 0x02010041
HTTPS_PORT = 0x02010073
MAINTENANCE_MODE = 0x020100B4
PERMISSION = 0x020100D1
SOME_ITEM = 0x02010123
EXCHANGE = 0x4000
WRITE = 0x8000
ERROR = 0x87FF0001

NO_SESSION, REFUSED, NOT_AUTHORISED, NO_ITEM, BAD_REQUEST = 1031, 1281, 1282, 1283, 1284
BOARD_FAILURE = 1792

LIMIT = 10


class BoardError(Exception):
    def __init__(self, payload):
        numbers = struct.unpack(">6i", payload[:24])
        self.action, self.detail = numbers[3], numbers[4]
        super().__init__(f"detail {self.detail}")


class Connection:
    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.socket.settimeout(LIMIT)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.socket.close()

    def send(self, kind, payload):
        self.socket.sendall(struct.pack(">II", kind, len(payload)) + payload)

    def read(self, size):
        data = b""
        while len(data) < size:
            part = self.socket.recv(size - len(data))
            if not part:
                raise EOFError(len(data))
            data += part
        return data

    def receive(self):
        kind, length = struct.unpack(">II", self.read(8))
        return kind, self.read(length)


class Answer:
    def __init__(self, kind, header, payload):
        self.kind, self.header, self.payload = kind, header, payload
        self.session = header[4:36].rstrip(b"\0")
        self.language = header[39]
        self.roles, self.partitions = struct.unpack(">II", header[40:48])


def telegram(session=b""):
    return struct.pack(">I32s12x", 4711, session)


def login_record(user, password, address=b"192.0.2.7"):
    return struct.pack("36s36s132s", user, password, address)


def read_file(path):
    with open(path, "rb") as file:
        return file.read()


class Board:
    """A daemon on a socket of its own."""

    def __init__(self, folder, *options, limit=None):
        self.folder = folder
        self.path = os.path.join(folder, "board.sock")
        self.state = os.path.join(folder, "board.db")
        self.process = self.launch(*options, limit=limit)
        self.ready = self.process.stdout.readline()

    def launch(self, *options, limit=None):
        def restrict():
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))

        return subprocess.Popen(
            [os.environ["ORVBOARDD"], "--state", self.state, "--socket", self.path, *options],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
            preexec_fn=restrict if limit else None)

    def end(self, number=signal.SIGTERM):
        """Ends the daemon; returns its exit status, what it printed and what it complained of."""
        if self.process.returncode is None:
            self.process.send_signal(number)
        output, errors = self.process.communicate(timeout=LIMIT)
        return self.process.returncode, output, errors

    def connect(self):
        return Connection(self.path)

    def ask(self, kind, session=b"", request=None, has_payload=False):
        with self.connect() as connection:
            connection.send(kind, telegram(session))
            if request is not None:
                connection.send(kind, request)
            answered, header = connection.receive()
            if answered == ERROR:
                raise BoardError(header)
            payload = connection.receive()[1] if has_payload else None
            return Answer(answered, header, payload)

    def login(self, user=b"admin", password=b"admin-pass", address=b"192.0.2.7"):
        return self.ask(LOGIN, b"", login_record(user, password, address))

    def check(self, session, option=b"\0"):
        return self.ask(CHECK_SESSION, session, option, True)

    def get(self, item, session=b""):
        return self.ask(item, session, None, True).payload

    def put(self, item, session, content):
        return self.ask(item | WRITE, session, content)


class BoardTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def start(self, *options, limit=None):
        board = Board(self.folder.name, *options, limit=limit)
        self.addCleanup(board.end, signal.SIGKILL)
        self.assertEqual(board.ready, f"orvboardd: ready on {board.path}\n",
                         "" if board.ready else board.process.stderr.read())
        return board

    def assertRefused(self, detail, operation, *arguments):
        with self.assertRaises(BoardError) as caught:
            operation(*arguments)
        self.assertEqual(caught.exception.detail, detail)
        return caught.exception

    # Sessions

    def test_sample_users_have_their_language_interval_and_authority(self):
        board = self.start()
        self.assertEqual(board.ask(GET_LANGUAGE).language, 1)
        users = [(b"admin", b"admin-pass", 1, 60, 1 << 31, 0),
                 (b"operator", b"operator-pass", 0, 30, 1 << 28, 0),
                 (b"staff", b"staff-pass", 1, 0, 1 << 30, 0),
                 (b"guest", b"guest-pass", 1, 0, 1 << 29, 0),
                 (b"part", b"part-pass", 1, 0, 0, 0b1001)]
        for name, password, language, interval, roles, partitions in users:
            with self.subTest(name):
                login = board.login(name, password)
                self.assertRegex(login.session, rb"^[A-Za-z0-9_-]{31}$")
                check = board.check(login.session)
                info = board.ask(GET_USER_INFO, login.session, None, True)
                for answer in (login, check, info):
                    self.assertEqual(answer.header[:4], struct.pack(">I", 4711))
                    self.assertEqual(answer.session, login.session)
                    self.assertEqual((answer.language, answer.roles, answer.partitions),
                                     (language, roles, partitions))
                self.assertEqual(check.payload, struct.pack(">I", interval))
                self.assertEqual(info.payload, struct.pack(">36sI", name, interval))

    def test_session_ids_differ(self):
        board = self.start()
        self.assertNotEqual(board.login().session, board.login().session)

    def test_wrong_user_and_wrong_password_look_the_same(self):
        board = self.start()
        for name, password in ((b"admin", b"guess"), (b"nobody", b"nobody"), (b"", b"")):
            self.assertRefused(REFUSED, board.login, name, password)
        # Whatever a stranger types stays one line of the log.
        self.assertRefused(REFUSED, board.login, b"x\nadmin logged in", b"", b"a\x1b[2J")
        log = board.get(EVENT_LOG, board.login().session).splitlines()
        self.assertRegex(log[0], rb"^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d admin logged in from 192.0.2.7$")
        self.assertRegex(log[1], rb" x\?admin logged in login refused from a\?\[2J$")
        self.assertEqual(len(log), 5)

    def test_only_a_living_session_is_served(self):
        board = self.start()
        session = board.login().session
        bad = [b"", b"A" * 31, b"A" * 32, session[:30], session.swapcase()]
        board.ask(LOGOUT, session)
        for other in bad + [session]:
            with self.subTest(other):
                self.assertRefused(NO_SESSION, board.check, other)
                self.assertRefused(NO_SESSION, board.ask, LOGOUT, other)
                self.assertRefused(NO_SESSION, board.ask, GET_USER_INFO, other)
                self.assertRefused(NO_SESSION, board.get, MAINTENANCE_MODE, other)
                self.assertRefused(NO_SESSION, board.put, SOME_ITEM, other, b"x")

    def test_a_session_expires_unless_it_is_used(self):
        board = self.start("--session-timeout", "2")
        used, refreshed = board.login().session, board.login().session
        for _ in range(5):
            time.sleep(0.5)
            board.check(used)
            if _ < 2:
                board.check(refreshed, b"\1")
        self.assertRefused(NO_SESSION, board.check, refreshed)
        board.check(used)

    def test_a_user_cannot_fill_the_board_with_sessions(self):
        board = self.start()
        other = board.login(b"guest", b"guest-pass").session
        sessions = [board.login().session for _ in range(65)]
        self.assertRefused(NO_SESSION, board.check, sessions[0])
        for session in (sessions[1], sessions[64], other):
            board.check(session)

    # Items

    def test_known_items(self):
        board = self.start()
        admin = board.login().session
        cases = [  # item, first content, another, unfit contents
            (HTTPS_PORT, struct.pack(">i", 443), struct.pack(">i", 8443),
             [b"\0\0\0\0", b"\0\1\0\0", b"\xff\xff\xff\xff", b"\1\xbb", b"\0\0\1\xbb\0"]),
            (MAINTENANCE_MODE, bytes(34), bytes(range(34)), [bytes(33), bytes(35)]),
            (PERMISSION, struct.pack(">IIIi", 1, 1, 4, 0), struct.pack(">IIIi", 1, 1, 4, -2),
             [b"\0\0\0\1", struct.pack(">IIII", 1, 2, 4, 0), b"junk"]),
            (OWN_LANGUAGE, b"\0\0\0\1", b"\0\0\0\0", [b"\0\0\1\0", b"\1"]),
            (OWN_REFRESH_INTERVAL, b"\0\0\0\x3c", b"\0\0\0\5", [b"\xff\xff\xff\xff", b"5"]),
        ]
        for item, first, another, unfit in cases:
            with self.subTest(hex(item)):
                self.assertEqual(board.get(item, admin), first)
                for content in unfit:
                    self.assertRefused(BAD_REQUEST, board.put, item, admin, content)
                board.put(item, admin, another)
                self.assertEqual(board.get(item, admin), another)
        check = board.check(admin)
        self.assertEqual((check.language, check.payload), (0, b"\0\0\0\5"))
        # Pages build addresses, and choose a language, before anybody is logged in.
        self.assertEqual(board.get(HTTPS_PORT), struct.pack(">i", 8443))
        board.put(GET_LANGUAGE, admin, b"\0\0\0\0")
        self.assertEqual(board.ask(GET_LANGUAGE).language, 0)

    def test_any_other_item_keeps_any_bytes(self):
        board = self.start()
        admin = board.login().session
        self.assertRefused(NO_ITEM, board.get, SOME_ITEM, admin)
        content = bytes(range(256)) * 255 + bytes(255)
        self.assertEqual(len(content), 65535)
        board.put(SOME_ITEM, admin, content)
        self.assertEqual(board.get(SOME_ITEM, admin), content)
        self.assertEqual(board.ask(SOME_ITEM | EXCHANGE, admin, b"new", True).payload, b"new")
        self.assertEqual(board.get(SOME_ITEM, admin), b"new")
        for unknown in (0x02020123, 0, SOME_ITEM | WRITE | EXCHANGE, 0x02010002 | WRITE):
            with self.subTest(hex(unknown)), self.assertRaises(BoardError) as caught:
                board.ask(unknown, admin, b"x")
            self.assertIn(caught.exception.detail, (NO_ITEM, NOT_AUTHORISED))

    def test_who_may_write_and_read(self):
        board = self.start()
        rights = [  # user, the board's items
            (b"admin", True), (b"operator", False), (b"staff", False), (b"part", False),
            (b"guest", False)]
        for name, boards in rights:
            session = board.login(name, name + b"-pass").session
            cases = [(OWN_LANGUAGE, bytes(4), True), (HTTPS_PORT, b"\0\0\1\0", boards),
                     (SOME_ITEM, b"x", boards), (EVENT_LOG, b"x", False)]
            for item, content, allowed in cases:
                with self.subTest(name + b" writes " + hex(item).encode()):
                    if allowed:
                        board.put(item, session, content)
                    else:
                        self.assertRefused(NOT_AUTHORISED, board.put, item, session, content)
                        self.assertRefused(NOT_AUTHORISED, board.ask, item | EXCHANGE, session,
                                           content, True)
            if not boards:
                self.assertRefused(NOT_AUTHORISED, board.get, EVENT_LOG, session)

    # What comes over the wire

    def test_damaged_requests_are_refused(self):
        board = self.start("--client-timeout", "1000")
        session = board.login().session
        messages = {
            "short telegram": struct.pack(">II", GET_LANGUAGE, 47) + bytes(47),
            "long telegram": struct.pack(">II", GET_LANGUAGE, 49) + bytes(49),
            "gigabyte": struct.pack(">II", GET_LANGUAGE, 1 << 30),
            "negative": struct.pack(">II", GET_LANGUAGE, 0xFFFFFFFF),
            "payload of another type": struct.pack(">II", LOGIN, 48) + bytes(48) +
                                       struct.pack(">II", LOGOUT, 204) + bytes(204),
            "short login record": struct.pack(">II", LOGIN, 48) + bytes(48) +
                                  struct.pack(">II", LOGIN, 203) + bytes(203),
            "text without end": struct.pack(">II", LOGIN, 48) + bytes(48) +
                                struct.pack(">II", LOGIN, 204) + b"x" * 204,
            "option of two bytes": struct.pack(">II", CHECK_SESSION, 48) + telegram(session) +
                                   struct.pack(">II", CHECK_SESSION, 2) + bytes(2),
            "payload missing": struct.pack(">II", SOME_ITEM | WRITE, 48) + telegram(session),
        }
        for name, message in messages.items():
            with self.subTest(name), board.connect() as connection:
                connection.socket.sendall(message)
                kind, payload = connection.receive()
                self.assertEqual(kind, ERROR)
                self.assertIn(BoardError(payload).detail, (BAD_REQUEST, 1026))
        board.check(session)

    def test_a_request_may_arrive_in_pieces(self):
        board = self.start()
        session = board.login().session
        request = (struct.pack(">II", CHECK_SESSION, 48) + telegram(session) +
                   struct.pack(">II", CHECK_SESSION, 1) + b"\0")
        with board.connect() as connection:
            for byte in request:
                connection.socket.sendall(bytes([byte]))
                time.sleep(0.001)
            self.assertEqual(connection.receive()[0], CHECK_SESSION)
            self.assertEqual(connection.receive(), (CHECK_SESSION, struct.pack(">I", 60)))

    def test_silent_clients_cost_only_themselves(self):
        board = self.start("--client-timeout", "1000")
        session = board.login().session
        silent = [board.connect() for _ in range(300)]
        silent[-1].send(LOGIN, telegram())
        unread = board.connect()
        unread.send(GET_LANGUAGE, telegram())
        begin = time.monotonic()
        for _ in range(100):
            board.check(session)
        self.assertLess(time.monotonic() - begin, 0.9)
        with self.assertRaises((EOFError, ConnectionError)):
            silent[-2].receive()  # dropped after its second
        self.assertLess(time.monotonic() - begin, 3)
        for connection in silent + [unread]:
            connection.socket.close()

    def test_logins_do_not_hold_up_checks(self):
        board = self.start()
        session = board.login().session
        waiting = []
        for _ in range(20):
            waiting.append(board.connect())
            waiting[-1].send(LOGIN, telegram())
            waiting[-1].send(LOGIN, login_record(b"admin", b"guess"))
        board.check(session)
        waiting[-1].socket.setblocking(False)
        with self.assertRaises(BlockingIOError):
            waiting[-1].receive()  # its turn has not come
        for connection in waiting:
            connection.socket.close()
        board.check(session)

    # Faults

    def exchange(self, board, kind, session, request=None):
        with board.connect() as connection:
            connection.send(kind, telegram(session))
            if request is not None:
                connection.send(kind, request)
            connection.socket.settimeout(0.5)
            got = []
            while True:
                try:
                    got.append(connection.receive())
                except TimeoutError:
                    return got
                except EOFError as end:
                    return got + [end]

    def test_faults(self):
        for kind in ("error", "wrong-type", "short-header", "short-payload", "oversized-payload",
                     "silence", "early-close"):
            with self.subTest(kind):
                board = self.start("--fault", f"checkSession:{kind}")
                session = board.login().session
                board.get(MAINTENANCE_MODE, session)
                got = self.exchange(board, CHECK_SESSION, session, b"\0")
                board.end()
                interval = struct.pack(">I", 60)
                if kind == "error":
                    self.assertEqual(got[0][0], ERROR)
                    self.assertEqual(BoardError(got[0][1]).detail, BOARD_FAILURE)
                elif kind == "silence":
                    self.assertEqual(got, [])
                elif kind == "early-close":
                    self.assertIsInstance(got[0], EOFError)
                    self.assertEqual(len(got), 1)
                else:
                    header, payload = got
                    self.assertEqual(header[0] == CHECK_SESSION, kind != "wrong-type")
                    self.assertEqual(len(header[1]), 47 if kind == "short-header" else 48)
                    self.assertEqual(payload[1], {"short-payload": interval[:3],
                                                  "oversized-payload": interval + b"\xff" * 4096}
                                     .get(kind, interval))

    def test_a_fault_of_an_item_or_of_everything(self):
        board = self.start("--fault", "0x020100B4:error", "--fault", "20100d1:wrong-type")
        session = board.login().session
        self.assertRefused(BOARD_FAILURE, board.get, MAINTENANCE_MODE, session)
        self.assertNotEqual(board.ask(PERMISSION, session).kind, PERMISSION)
        board.check(session)
        board.end()
        board = self.start("--fault", "any:short-header", "--fault", "login:error")
        self.assertRefused(BOARD_FAILURE, board.login)
        self.assertEqual(len(self.exchange(board, GET_LANGUAGE, b"")[0][1]), 47)

    # The state

    def test_a_changed_password_ends_the_users_other_sessions(self):
        board = self.start()
        own, other, admin = (board.login(b"guest", b"guest-pass").session,
                             board.login(b"guest", b"guest-pass").session, board.login().session)

        def change(old, new):
            board.put(OWN_PASSWORD, own, old.ljust(36, b"\0") + new.ljust(36, b"\0"))

        self.assertRefused(REFUSED, change, b"wrong", b"new one")
        self.assertRefused(BAD_REQUEST, change, b"guest-pass", b"")
        self.assertRefused(BAD_REQUEST, change, b"guest-pass", b"x" * 33)
        self.assertRefused(BAD_REQUEST, change, b"guest-pass", b"x" * 36)
        self.assertRefused(BAD_REQUEST, board.put, OWN_PASSWORD, own, b"short")
        self.assertRefused(NOT_AUTHORISED, board.get, OWN_PASSWORD, own)
        board.check(other)
        change(b"guest-pass", b"new one")
        self.assertRefused(NO_SESSION, board.check, other)
        self.assertRefused(REFUSED, board.login, b"guest", b"guest-pass")
        board.end(signal.SIGKILL)
        board = self.start()
        board.login(b"guest", b"new one")
        board.check(own)
        board.check(admin)
        self.assertRefused(NO_SESSION, board.check, other)

    def test_settings_and_sessions_outlive_a_kill(self):
        board = self.start()
        session = board.login().session
        board.put(SOME_ITEM, session, b"kept")
        board.put(OWN_LANGUAGE, session, b"\0\0\0\0")
        self.assertEqual(board.end(signal.SIGKILL)[0], -signal.SIGKILL)
        self.assertTrue(os.path.exists(board.path))
        board = self.start()
        self.assertEqual(board.get(SOME_ITEM, session), b"kept")
        self.assertEqual(board.check(session).language, 0)
        self.assertEqual(board.end(), (0, "", ""))
        self.assertFalse(os.path.exists(board.path))
        time.sleep(1.1)
        board = self.start("--session-timeout", "1")
        self.assertRefused(NO_SESSION, board.check, session)

    def test_passwords_are_not_stored(self):
        board = self.start()
        self.assertEqual(os.stat(board.state).st_mode & 0o077, 0)
        self.assertEqual(os.stat(board.path).st_mode & 0o777, 0o600)
        board.end()
        rows = sqlite3.connect(board.state).execute("SELECT password FROM users").fetchall()
        self.assertEqual(len({row[0] for row in rows}), 5)
        for row in rows:
            self.assertRegex(row[0], r"^\$y\$")

    def test_a_setting_that_cannot_be_stored_is_an_error(self):
        board = self.start(limit=200 * 1024)
        session = board.login().session
        board.put(SOME_ITEM, session, b"before")
        failed = None
        for number in range(8):
            try:
                board.put(0x02010200 + number, session, bytes(60000))
            except BoardError as error:
                failed = (number, error)
                break
        self.assertIsNotNone(failed)
        self.assertEqual((failed[1].detail, failed[1].action), (BOARD_FAILURE, 1))
        board.check(session)
        self.assertEqual(board.get(SOME_ITEM, session), b"before")
        self.assertRefused(NO_ITEM, board.get, 0x02010200 + failed[0], session)
        board.end(signal.SIGKILL)
        board = self.start()
        self.assertEqual(board.get(SOME_ITEM, session), b"before")

    def assertRefusesToStart(self, board, text, status=1, arguments=()):
        second = board.launch(*arguments)
        output, errors = second.communicate(timeout=LIMIT)
        self.assertEqual((second.returncode, output), (status, ""))
        self.assertRegex(errors, r"^orvboardd: [^\n]*" + text + r"[^\n]*\n$")

    def test_a_state_that_cannot_be_used_is_kept(self):
        board = self.start()
        board.login()
        board.end()
        good = read_file(board.state)
        foreign = os.path.join(self.folder.name, "foreign.db")
        with sqlite3.connect(foreign) as other:
            other.execute("CREATE TABLE users (name TEXT)")
        other.close()
        damaged = [b"not a database" * 100, good[:len(good) // 2],
                   good[:4096] + b"\xa5" * 4096 + good[8192:]]
        for content in damaged:
            with self.subTest(content[:20]):
                with open(board.state, "wb") as file:
                    file.write(content)
                self.assertRefusesToStart(board, "damaged")
                self.assertEqual(read_file(board.state), content)
                self.assertFalse(os.path.exists(board.path))
        os.replace(foreign, board.state)
        self.assertRefusesToStart(board, "another program")
        with open(board.state, "wb") as file:
            file.write(good)
        holder = sqlite3.connect(board.state)
        holder.execute("BEGIN IMMEDIATE")
        self.assertRefusesToStart(board, "in use by another program")
        holder.close()
        board.state = os.path.join(self.folder.name, "missing", "board.db")
        self.assertRefusesToStart(board, "cannot be opened")
        board.state = "/proc/version"
        self.assertRefusesToStart(board, "cannot be opened for writing")

    # The socket and the command line

    def test_a_second_daemon_is_refused(self):
        board = self.start()
        session = board.login().session
        self.assertRefusesToStart(board, "another daemon already serves")
        os.unlink(board.path + ".lock")
        self.assertRefusesToStart(board, "another daemon already serves")
        board.check(session)
        first = board.state
        board.path += "2"
        self.assertRefusesToStart(board, re.escape(first) + " is in use by another program")

    def test_only_a_socket_is_replaced(self):
        path = os.path.join(self.folder.name, "board.sock")
        stale = socket.socket(socket.AF_UNIX)
        stale.bind(path)
        stale.close()
        board = self.start()
        board.end()
        with open(path, "w") as file:
            file.write("precious")
        self.assertRefusesToStart(board, "is not a socket")
        self.assertEqual(read_file(path), b"precious")
        board.path = os.path.join(self.folder.name, "x" * 120)
        self.assertRefusesToStart(board, "too long")

    def test_bad_options(self):
        board = Board.__new__(Board)
        board.path = os.path.join(self.folder.name, "s")
        board.state = os.path.join(self.folder.name, "d")
        for arguments, text in (
                (["--nonsense"], "--nonsense"), (["extra"], "extra"), (["--fault"], "--fault"),
                (["--session-timeout", "0"], "--session-timeout"),
                (["--session-timeout", "99999999999"], "--session-timeout"),
                (["--client-timeout", "1s"], "--client-timeout"),
                (["--fault", "login"], "PROCEDURE:KIND"), (["--fault", "login:odd"], "odd"),
                (["--fault", "0xzz:error"], "0xzz"), (["--state", ""], "--state")):
            with self.subTest(arguments):
                self.assertRefusesToStart(board, text, 2, arguments)
        self.assertEqual(os.listdir(self.folder.name), [])

    # All at once

    def test_parallel_clients(self):
        board = self.start()
        session = board.login().session
        failures = []

        def check_many():
            try:
                for _ in range(500):
                    if board.check(session).language != 1:
                        failures.append("language")
            except (OSError, EOFError, BoardError) as error:
                failures.append(error)

        threads = [threading.Thread(target=check_many) for _ in range(8)]
        for thread in threads:
            thread.start()
        for _ in range(20):
            board.put(SOME_ITEM, session, b"meanwhile")
        for thread in threads:
            thread.join()
        self.assertEqual(failures, [])


if __name__ == "__main__":
    unittest.main()
