"""Guessing passwords: it is slow, and keeps nobody out who knows the right one."""

import select
import signal
import struct
import threading
import time

from support.board_case import BoardCase
from support.board_client import (
    BAD_REQUEST, BUSY, EXCHANGE, LOGIN, OWN_DEVICE, OWN_PASSWORD, REFUSED, SESSIONS, USER_EDIT,
    WRITE, BoardError, login_record, message, number, record, telegram)

INTERVAL, BURST = 6.5, 3  # ten passwords in any minute, and a few before
PLACES = 20  # of a source
STRETCH = 21  # seconds that strangers guess for


def address(network, host):
    return b"198.51.%d.%d" % (network, host)


class PasswordsTest(BoardCase):
    def keep(self, session, device=""):
        """The ID that the session's browser is told to keep when it has this one."""
        return self.ask(OWN_DEVICE | EXCHANGE, session, record(device)).payload[:-1]

    def login_from(self, device, user=b"admin", password=None):
        return self.login(user, password, b"192.0.2.7 " + device).session

    def isKnown(self, device, user, password=None):
        session = self.login_from(device, user, password)
        try:
            return not self.keep(session)
        except BoardError as error:
            self.assertEqual(error.detail, BAD_REQUEST)  # the session has its device
            return True

    def take(self, operation, *arguments):
        begin = time.monotonic()
        operation(*arguments)
        return time.monotonic() - begin

    def guess(self, name, source, answers):
        """Guesses until the daemon ends; one that is refused at once tries again soon."""
        while True:
            try:
                self.login(name, b"guess", source)
            except BoardError as error:
                answers.append((name, error.detail))
                time.sleep(0.2)
            except (OSError, ValueError, struct.error):
                return

    def start_guessing(self, name, sources):
        answers = []
        for source in sources:
            thread = threading.Thread(target=self.guess, args=(name, source, answers))
            thread.start()
            self.addCleanup(thread.join)
        return answers

    def test_strangers_guess_slowly_and_keep_nobody_out(self):
        self.start()
        sources = {b"admin": [address(1, 0)] * 20,  # at a time, from the user's own address
                   b"operator": [address(8, host) for host in range(8)],
                   b"staff": [address(64, host) for host in range(64)],
                   b"nobody": [address(9, host) for host in range(2)]}
        devices = {name: self.keep(self.login(name).session) for name in list(sources)[:3]}
        begin = time.monotonic()
        answers = {name: self.start_guessing(name, hosts) for name, hosts in sources.items()}
        self.addCleanup(self.end, signal.SIGKILL)  # before the threads are waited for
        time.sleep(9)  # each has waited as long as one may

        new = {}
        for host, name in enumerate(devices):
            thread = threading.Thread(target=lambda name=name, host=host: new.update(
                {name: self.take(self.login, name, None, address(200, host))}))
            thread.start()
            self.addCleanup(thread.join)
        known = {name: [self.take(self.login, name, None, sources[name][0] + b" " + device)
                        for _ in range(10)] for name, device in devices.items()}
        time.sleep(max(0, begin + STRETCH - time.monotonic()))
        tried = {name: answers[name].count((name, REFUSED)) for name in sources}

        self.assertEqual({name for name, times in known.items() if max(times) > 2}, set())
        self.assertEqual(new.keys(), devices.keys())
        self.assertLess(max(new.values()), 10)
        for name, count in tried.items():
            self.assertIn(count, range(BURST, BURST + int(STRETCH / INTERVAL) + 1), name)
        self.assertIn((b"staff", BUSY), answers[b"staff"])

    def test_a_source_that_guesses_waits_and_no_other(self):
        session, = self.start_as(b"admin")
        device = self.keep(session)

        def login(name, source):
            return (LOGIN, b"", login_record(name, b"guess", source))

        change = (OWN_PASSWORD | WRITE, session, struct.pack("36s36s", b"guess", b"new one"))
        guesses = (login(b"admin", b"192.0.2.7 " + device), login(b"admin", b"192.0.2.7"),
                   login(b"nobody", b"192.0.2.7"), change)
        waiting = []
        for source in (b"192.0.2.7 " + device, b"192.0.2.7"):  # right ones cost nothing
            begun = [self.connect(message(LOGIN, telegram()) + message(
                LOGIN, login_record(b"admin", b"admin-pass", source))) for _ in range(PLACES)]
            self.assertEqual({reply.recv(4) for reply in begun}, {number(LOGIN)})
        for kind, owner, content in guesses:
            for _ in range(BURST):
                self.assertLess(self.take(self.assertRefused, REFUSED, self.ask, kind, owner,
                                          content), 2)
            begin = time.monotonic()
            sent = message(kind, telegram(owner)) + message(kind, content)
            waiting.append((begin, [self.connect(sent) for _ in range(PLACES)]))
            self.assertRefused(BUSY, self.ask, kind, owner, content)
        for begin, connections in waiting:
            answer = connections[0].recv(65536)
            self.assertEqual(BoardError(answer[8:]).detail, REFUSED)
            self.assertGreater(time.monotonic() - begin, INTERVAL - 1)

    def test_a_flood_of_attempts_keeps_nobody_out(self):
        session, = self.start_as(b"admin")
        flood = [self.connect(message(LOGIN, telegram()) + message(
            LOGIN, login_record(b"name%d" % n, b"guess"))) for n in range(100)]
        self.assertEqual(flood[-1].recv(4), number(0x87FF0001))  # has lost its place
        self.assertLess(self.take(self.login, b"admin", None, b"198.51.100.9"), 3)
        self.check(session)
        self.assertLess(len(select.select(flood, [], [], 0)[0]), 60)  # it waits behind itself
        for connection in flood:
            connection.close()
        self.assertLess(self.take(self.assertRefused, REFUSED, self.login, b"a", b"guess"), 3)

    def test_a_device_is_known_to_those_who_logged_in_from_it(self):
        guest, = self.start_as(b"guest")
        for unfit in (b"x\0", b"", record("", ""), record("A" * 32), record("0" * 31)):
            self.assertRefused(BAD_REQUEST, self.ask, OWN_DEVICE | EXCHANGE, guest, unfit)
        made = "0" * 32
        device = self.keep(guest, made)  # not one that the board made
        self.assertRegex(device.decode(), "^[0-9a-f]{32}$")
        self.assertNotEqual(device.decode(), made)
        self.assertEqual(self.keep(guest, device.decode()), device)
        self.assertRefused(BAD_REQUEST, self.keep, guest)
        self.end(signal.SIGKILL)
        self.start()
        self.assertTrue(self.isKnown(device, b"guest"))
        admin = self.login_from(device)
        self.assertEqual(self.keep(admin, device.decode()), device)  # two users of a browser
        self.assertTrue(self.isKnown(device, b"admin"))
        for client in (b"192.0.2.7 " + device.upper(), b"192.0.2.7  " + device, b"192.0.2.7 x"):
            self.login(b"guest", None, client)
            self.assertEqual(self.rows(SESSIONS, admin, 5)[0][2], client.decode())
        self.assertEqual({row[2] for row in self.rows(SESSIONS, admin, 5)[3:]}, {"192.0.2.7"})
        self.assertEqual(self.events(admin, 9, source="security")[-1][4], "192.0.2.7")

        # Of the devices from which a password was known, only that of the change stays.
        other = self.keep(self.login(b"guest").session)
        changing = self.login_from(device, b"guest")
        self.put(OWN_PASSWORD, changing, struct.pack("36s36s", b"guest-pass", b"new-pass"))
        self.assertFalse(self.isKnown(other, b"guest", b"new-pass"))
        self.assertTrue(self.isKnown(device, b"guest", b"new-pass"))
        self.put(USER_EDIT, admin, record("guest", "guest-pass", "guest", "0" * 16, 1))
        self.assertFalse(self.isKnown(device, b"guest"))
        for _ in range(15):
            self.assertTrue(self.keep(self.login().session))
        self.assertTrue(self.isKnown(device, b"admin"))
        for _ in range(16):
            self.assertTrue(self.keep(self.login().session))
        self.assertFalse(self.isKnown(device, b"admin"))  # the longest unused one
