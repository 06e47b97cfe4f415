"""The daemon over its socket: sessions, messages, faults, the state and the command line."""

import contextlib
import os
import re
import signal
import sqlite3
import struct
import time

from support.board_case import BoardCase
from support.board_client import (
    BAD_REQUEST, BOARD_FAILURE, BROKEN, CHECK_SESSION, ERROR, EXCHANGE, GET_LANGUAGE,
    GET_USER_INFO, HTTPS_PORT, LOGIN, LOGOUT, MAINTENANCE_MODE, NOT_AUTHORISED, NO_ITEM,
    NO_SESSION, OWN_LANGUAGE, OWN_PASSWORD, OWN_REFRESH_INTERVAL, OWN_SESSION, PERMISSION, REFUSED,
    SOME_ITEM, USER_EDIT, WRITE, BoardError, login_record, message, number, record, telegram)


class BoardTest(BoardCase):
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
            ("warning", "security", "102", "", "a?[2J"),  # no name that is no user's: it may be
            ("warning", "security", "102", "", "192.0.2.7"),  # a password
            ("warning", "security", "102", "admin", "192.0.2.7")])

    def test_an_unknown_users_login_takes_as_long(self):
        self.start()

        def take(name):
            begin = time.monotonic()
            self.assertRefused(REFUSED, self.login, name, b"guess")
            return time.monotonic() - begin

        known, unknown = (min(take(name) for _ in range(3)) for name in (b"admin", b"nobody"))
        self.assertGreater(unknown, known / 2)

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
                left = self.get(OWN_SESSION, refreshed)
                self.assertEqual(left, b"%d\x002\0" % (2 - half_seconds))
                self.assertEqual(self.get(OWN_SESSION, used), b"2\x002\0")
        self.assertRefused(NO_SESSION, self.check, refreshed)
        self.check(used)
        self.assertEqual(self.end(), (0, "", ""))
        self.assertFalse(self.path.exists())
        with contextlib.closing(sqlite3.connect(self.state)) as database:
            (kept,), = database.execute("SELECT max(last_use - login_time) FROM sessions")
        self.assertGreaterEqual(kept, 2)
        time.sleep(1.1)
        self.start("--session-timeout", "1")
        self.assertRefused(NO_SESSION, self.check, used)

    def test_a_user_cannot_fill_the_board_with_sessions(self):
        other, = self.start_as(b"guest")
        sessions = [self.login().session for _ in range(65)]
        self.assertEqual(len(set(sessions)), 65)
        self.assertRefused(NO_SESSION, self.check, sessions[0])
        self.end(signal.SIGKILL)
        self.start()
        self.assertRefused(NO_SESSION, self.check, sessions[0])
        for session in (sessions[1], sessions[64], other):
            self.check(session)

    # Items

    def test_known_items(self):
        admin, = self.start_as(b"admin")
        for item, first, another, *unfit in (
                (HTTPS_PORT, number(443), number(8443), number(0), number(65536), b"\1\xbb"),
                (MAINTENANCE_MODE, bytes(34), bytes(range(34)), bytes(33), bytes(35)),
                (PERMISSION, struct.pack(">4I", 1, 1, 4, 0), struct.pack(">3Ii", 1, 1, 4, -2),
                 struct.pack(">4I", 1, 2, 4, 0)),
                (OWN_LANGUAGE, number(1), number(0), number(2)),
                (OWN_REFRESH_INTERVAL, number(60), number(5), number(86401))):
            with self.subTest(hex(item)):
                self.assertEqual(self.get(item, admin), first)
                for content in unfit:
                    self.assertRefused(BAD_REQUEST, self.put, item, admin, content)
                answer = self.ask(item | EXCHANGE, admin, another)
                self.assertEqual(answer.payload, another)
                self.assertEqual(self.get(item, admin), another)
                self.assertEqual(answer.language, self.check(admin).language)
        check = self.check(admin)
        self.assertEqual((check.language, check.payload), (0, number(5)))
        # Pages build addresses, and choose a language, before anybody is logged in.
        self.assertEqual(self.get(HTTPS_PORT), number(8443))
        self.assertEqual(self.ask(GET_LANGUAGE).language, 1)
        self.put(GET_LANGUAGE, admin, number(0))
        self.assertEqual(self.ask(GET_LANGUAGE).language, 0)

    def test_any_other_item_keeps_any_bytes(self):
        admin, = self.start_as(b"admin")
        self.assertRefused(NO_ITEM, self.get, SOME_ITEM, admin)
        longest = bytes(range(256)) * 255 + bytes(255)
        self.put(SOME_ITEM, admin, longest)
        self.assertEqual(self.get(SOME_ITEM, admin), longest)
        self.assertEqual(self.ask(SOME_ITEM | EXCHANGE, admin, b"new").payload, b"new")
        self.assertEqual(self.get(SOME_ITEM, admin), b"new")
        for unknown in (0x02020123, SOME_ITEM | WRITE | EXCHANGE):
            self.assertRefused(NO_ITEM, self.ask, unknown, admin, b"x")
        self.assertRefused(NOT_AUTHORISED, self.ask, LOGIN | WRITE, admin, b"x")

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
        session, = self.start_as(b"admin")
        connection = self.connect()
        for byte in message(CHECK_SESSION, telegram(session)) + message(CHECK_SESSION, b"\0"):
            connection.sendall(bytes([byte]))
            time.sleep(0.001)
        self.assertTrue(connection.recv(65536).endswith(message(CHECK_SESSION, number(60))))

    def test_a_payload_has_its_time_from_the_telegram(self):
        self.start("--client-timeout", "1000")
        connection = self.connect()
        time.sleep(0.7)
        connection.sendall(message(LOGIN, telegram()))
        time.sleep(0.1)
        connection.sendall(message(LOGIN, login_record(b"admin", b"admin-pass")))
        self.assertEqual(connection.recv(65536)[:4], number(LOGIN))

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
        self.assertEqual(silent[0].recv(1), b"")  # the oldest one makes way at once
        self.assertEqual(silent[-2].recv(1), b"")  # dropped after its second
        self.assertTrue(0.5 < time.monotonic() - begin < 3)

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

    def test_a_password_that_waits_behind_its_change_is_refused(self):
        guest, admin = self.start_as(b"guest", b"admin")

        def write(item, session, content):
            return message(item | WRITE, telegram(session)) + message(item | WRITE, content)

        def change(new):
            return write(OWN_PASSWORD, guest, struct.pack("36s36s", b"guest-pass", new))

        login = message(LOGIN, telegram()) + message(LOGIN, login_record(b"guest", b"guest-pass"))
        reset = record("guest", "by-the-admin", "guest", "0" * 16, 1)
        for first, waiting in ((change(b"first"), change(b"second")), (change(b"first"), login),
                               (write(USER_EDIT, admin, reset), login)):
            with self.subTest(first=first[:4], waiting=waiting[:4]):
                changing, late = self.connect(first), self.connect(waiting)
                self.assertNotEqual(changing.recv(65536)[:4], number(ERROR))
                answer = late.recv(65536)
                self.assertEqual(answer[:4], number(ERROR))
                self.assertEqual(BoardError(answer[8:]).detail, REFUSED)
            if reset not in first:
                self.put(OWN_PASSWORD, guest, struct.pack("36s36s", b"first", b"guest-pass"))

    def test_secrets_are_for_nobody_else(self):
        self.start()
        self.assertEqual(self.state.stat().st_mode & 0o077, 0)
        self.assertEqual(self.path.stat().st_mode & 0o777, 0o600)
        self.end()
        with sqlite3.connect(self.state) as database:
            hashes = {row[0] for row in database.execute("SELECT password FROM users")}
        database.close()
        self.assertEqual([text[:3] for text in hashes], ["$y$"] * 5)
        self.state.chmod(0o644)
        self.start()
        self.assertEqual(self.state.stat().st_mode & 0o777, 0o600)

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

    def test_a_full_disk_keeps_nobody_logged_in(self):
        session, = self.start_as(b"admin")
        self.end()
        self.start(limit=1)
        self.check(session)
        self.assertRefused(BOARD_FAILURE, self.login)
        self.ask(LOGOUT, session)
        self.assertRefused(NO_SESSION, self.check, session)
        self.assertRefused(BOARD_FAILURE, self.login)
        for limit in (1, None, None):  # still full, room again, and as ever
            self.end(signal.SIGKILL)
            self.start(limit=limit)
            self.assertRefused(NO_SESSION, self.check, session)
        other = self.login(b"guest").session
        self.end(signal.SIGKILL)
        self.start()
        self.check(other)

    def test_damage_is_found_and_left_to_be_mended(self):
        self.start()
        self.put(SOME_ITEM, self.login().session, bytes(4000))
        self.end(signal.SIGKILL)
        log = self.state.with_name("board.db-wal")
        last = log.read_bytes()
        good = self.state.read_bytes()
        damaged = good[:4096] + b"\xa5" * (len(good) - 4096)
        self.state.write_bytes(damaged)
        self.assertRefusesToStart("damaged")
        self.assertEqual((self.state.read_bytes(), log.read_bytes()), (damaged, last))
        for statement in ("DROP TABLE events", "ALTER TABLE users DROP COLUMN event_filter",
                          "UPDATE users SET name = 'x' || char(0) WHERE name = 'guest'",
                          "INSERT INTO sessions VALUES ('x', 'nobody', '', 0, 0, '')"):
            with self.subTest(statement):
                self.state.unlink()
                self.start()
                self.end()
                self.execute(statement)
                self.assertRefusesToStart(re.escape(str(self.state)) + " is damaged")

    def test_a_new_state_takes_nothing_of_one_that_was_removed(self):
        session, = self.start_as(b"admin")
        self.end(signal.SIGKILL)
        self.state.unlink()
        draft = self.state.with_name("board.db.new")
        draft.touch()  # its making was interrupted, too
        self.start()
        self.assertRefused(NO_SESSION, self.check, session)
        self.assertFalse(draft.exists())

    def test_a_state_that_cannot_be_used_is_kept(self):
        self.start()
        self.end()
        good = self.state.read_bytes()
        self.state.write_bytes(b"")
        self.assertRefusesToStart("is empty")
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
        for state, text in ((self.folder / "missing" / "board.db", "cannot be opened"),
                            (self.folder, "cannot be opened for writing")):
            self.state = state
            self.assertRefusesToStart(text)

    # The socket and the command line

    def test_only_a_dead_daemons_socket_is_replaced(self):
        session, = self.start_as(b"admin")
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
                ("0xzz", "--fault", "0xzz:error"), ("--state", "--state", ""),
                ("takes a file", "--state", ":memory:")):
            with self.subTest(arguments):
                self.assertRefusesToStart(text, *arguments, status=2)
        self.assertEqual(list(self.folder.iterdir()), [])
