"""Network settings that wait to be confirmed: what ends the wait, and how."""

import signal
import time

from support.board_case import BoardCase
from support.board_client import (
    ACL, ACL_ADD, ACL_REMOVE, ADDRESSES, BACKUP, BAD_REQUEST, CLOCK, CONFIRM, HTTPS_PORT, LED,
    LIMIT, NOT_AUTHORISED, NOT_FOUND, NOT_REACHED, PROBATION, PROBATION_TIME, SERVICES,
    SYSTEM_NAMES, UNDO, number, record, texts)

NONE = ("0", "000", "", "", "", "")
OLD_ADDRESSES, OLD_SERVICES = "board|192.0.2.10|24|192.0.2.1|192.0.2.53|", "1|80|1|443|1|22|0|23"
NEW_ADDRESSES, NEW_SERVICES = "board|192.0.2.20|24|||", "0|80|1|8443|1|22|0|23"
HOST, CLIENT = "192.0.2.10", "192.0.2.7"


class ProbationTest(BoardCase):
    def probation(self, session):
        return self.rows(PROBATION, session, 6)[0]

    def revision(self, session):
        return self.probation(session)[2]

    def confirm(self, session, *reached):
        self.put(CONFIRM, session, record(self.revision(session), *reached))

    def settings(self, session):
        return [self.get(item, session) for item in (ADDRESSES, SERVICES, ACL)]

    def wait_for(self, session, settings):
        deadline = time.monotonic() + LIMIT
        while self.settings(session) != settings and time.monotonic() < deadline:
            time.sleep(0.1)
        self.assertEqual(self.settings(session), settings)

    def last_event(self, session):
        return self.events(session, 1)[0]

    # What changes, how a user must not have reached the board to confirm it, and how he may.
    CONFIRMATIONS = (
        (ADDRESSES, texts("b|192.0.2.10|8|||"), (), (HOST, 1, 0, CLIENT)),
        (ADDRESSES, texts(NEW_ADDRESSES), ((HOST, 80, 0, CLIENT), ("::1", 80, 0, CLIENT),
                                           ("", 80, 0, CLIENT)), ("192.0.2.20", 1, 1, "")),
        (ADDRESSES, texts("b|192.0.2.30|24|||"), (("::ffff:192.0.2.20", 80, 0, CLIENT),),
         ("::FFFF:c000:021e", 80, 0, CLIENT)),
        (SERVICES, texts("1|80|1|443|0|2|1|3"), (), (HOST, 1, 0, CLIENT)),
        (SERVICES, texts("1|81|1|443|1|22|0|23"), ((HOST, 80, 0, CLIENT),), (HOST, 81, 0, CLIENT)),
        (SERVICES, texts("1|80|1|443|1|22|0|23"), ((HOST, 81, 0, CLIENT),), (HOST, 9, 1, CLIENT)),
        (HTTPS_PORT, number(8443), ((HOST, 443, 1, CLIENT),), (HOST, 80, 0, CLIENT)),
        (SERVICES, texts("0|80|1|8443|1|22|0|23"), ((HOST, 80, 0, CLIENT),), (HOST, 1, 1, CLIENT)),
        (SERVICES, texts("1|80|0|8443|1|22|0|23"), ((HOST, 8443, 1, CLIENT),),
         (HOST, 80, 0, CLIENT)),
        (ACL_ADD, texts("192.0.2.128|25"), ((HOST, 80, 0, "192.0.2.127"), (HOST, 80, 0, "::1"),
                                            (HOST, 80, 0, "")), (HOST, 80, 0, "192.0.2.129")),
        (ACL_ADD, texts("203.0.113.9|32"), ((HOST, 80, 0, "203.0.113.8"),),
         (HOST, 80, 0, "::ffff:203.0.113.9")),
        (ACL_REMOVE, texts("192.0.2.128|25"), ((HOST, 80, 0, "192.0.2.129"),),
         (HOST, 80, 0, "203.0.113.9")),
        (ACL_REMOVE, texts("203.0.113.9|32"), (), (HOST, 80, 0, "::1")))

    def test_only_who_came_by_the_new_settings_confirms_them(self):
        admin, staff, guest = self.start_as(b"admin", b"staff", b"guest")
        for item, content, unfit, fit in self.CONFIRMATIONS:
            with self.subTest(hex(item), content=content):
                self.put(item, admin, content)
                after = self.settings(admin)
                for reached in unfit:
                    self.assertRefused(NOT_REACHED, self.confirm, admin, *reached)
                self.assertRefused(NOT_FOUND, self.put, CONFIRM, admin, record("0" * 16, *fit))
                self.assertRefused(NOT_AUTHORISED, self.put, CONFIRM, guest, record("0" * 16, *fit))
                self.confirm(staff, *fit)
                self.assertEqual(self.probation(admin), NONE)
                self.assertEqual(self.settings(admin), after)
                self.assertEqual(self.last_event(admin)[:4], ("info", "settings", "203", "staff"))
        for unfit in ("x" * 16, "x" * 15 + "|a|1|0|b", "x" * 16 + "|a|0|0|b",
                      "x" * 16 + "|a|1|2|b", "x" * 16 + f"|{'a' * 65}|1|0|b"):
            self.assertRefused(BAD_REQUEST, self.put, CONFIRM, admin, texts(unfit))
        for unfit in (number(3601), b"\0\0\1"):
            self.assertRefused(BAD_REQUEST, self.put, PROBATION_TIME, admin, unfit)

    def test_the_board_says_what_waits(self):
        admin, = self.start_as(b"admin")
        self.assertEqual((self.get(PROBATION_TIME, admin), self.probation(admin)),
                         (number(120), NONE))
        self.put(ADDRESSES, admin, texts(NEW_ADDRESSES))
        first = self.revision(admin)
        self.put(SERVICES, admin, texts(NEW_SERVICES))
        self.put(ACL_ADD, admin, texts("192.0.2.0|24"))
        seconds, *rest = self.probation(admin)
        self.assertTrue(118 <= int(seconds) <= 120)
        self.assertEqual((rest[0], rest[2:]), ("111", ["192.0.2.20", "off", "8443"]))
        self.assertRefused(NOT_FOUND, self.put, UNDO, admin, record(first))
        self.put(SERVICES, admin, texts(OLD_SERVICES))  # back by hand: nothing to confirm
        self.assertEqual(self.probation(admin)[1], "101")
        self.put(UNDO, admin, record(self.revision(admin)))
        self.assertEqual(self.settings(admin), [texts(OLD_ADDRESSES), texts(OLD_SERVICES), b"\0"])
        self.assertEqual(self.last_event(admin), ("info", "settings", "205", "admin",
                                                  "network addresses, access list"))
        for seconds in (0, 120):
            self.put(PROBATION_TIME, admin, number(seconds))
            self.put(ADDRESSES, admin, texts("b|192.0.2.1|24|||" if seconds else OLD_ADDRESSES))
            self.put(SYSTEM_NAMES, admin, texts(f"x{seconds}|||"))
            self.assertEqual(self.probation(admin)[1], "100" if seconds else "000")

    def test_without_a_confirmation_the_old_settings_come_back(self):
        admin, other = self.start_as(b"admin", b"admin")
        before, backup = self.settings(admin), self.get(BACKUP, admin)
        self.put(PROBATION_TIME, admin, number(4))
        for change in (
                lambda: self.put(ADDRESSES, admin, texts(NEW_ADDRESSES)),
                lambda: self.put(ADDRESSES, other, texts("b|192.0.2.30|24|||")),
                lambda: self.put(SERVICES, admin, texts(NEW_SERVICES)),
                lambda: self.put(CLOCK, admin, texts("2037-01-01|00:00:00|+00:00|manual||")),
                lambda: self.put(LED, admin, texts("on"))):
            change()
            self.assertNotEqual(self.settings(admin), before)
            time.sleep(1.2)
        # The third change began the time anew; setting the clock did not end it.
        self.wait_for(admin, before)
        self.assertEqual(self.probation(admin), NONE)
        self.assertEqual(self.last_event(admin), ("warning", "settings", "204", "",
                                                  "network addresses, network services"))
        self.put(PROBATION_TIME, admin, number(0))
        self.put(ADDRESSES, admin, texts(NEW_ADDRESSES))
        self.put(PROBATION_TIME, admin, number(120))
        self.put(BACKUP, admin, backup)  # a change as any other
        self.assertEqual(self.probation(admin)[1], "100")

    def test_a_start_of_the_daemon_goes_on_with_the_rest(self):
        admin, = self.start_as(b"admin")
        before = self.settings(admin)
        self.put(PROBATION_TIME, admin, number(6))
        for ending, rest in ((signal.SIGKILL, ("6", "5")), (signal.SIGTERM, ("4", "3"))):
            self.put(ADDRESSES, admin, texts("b|192.0.2.30|24|||"))
            self.put(ADDRESSES, admin, texts(NEW_ADDRESSES))
            time.sleep(2.2)
            self.end(ending)  # killed, it has not stored the rest
            time.sleep(2)  # does not count
            self.start()
            self.assertIn(self.probation(admin)[0], rest)
        self.wait_for(admin, before)
        self.put(ADDRESSES, admin, texts(NEW_ADDRESSES))
        self.end()
        self.execute(f"UPDATE items SET content = x'00' WHERE id = {PROBATION}")
        self.start()
        self.put(SERVICES, admin, texts(NEW_SERVICES))  # a damaged one is lost when it is written
        self.assertEqual(self.probation(admin)[1], "010")
