"""What the board answers for its items: rights, contents, events, users, clock and backup."""

import calendar
import hashlib
import re
import signal
import struct
import time

from support.board_case import BoardCase
from support.board_client import (
    ACL, ACL_ADD, ACL_REMOVE, ADDRESSES, BACKUP, BAD_REQUEST, BOARD_FAILURE, BOOT, CLOCK,
    DAMAGED, DROP, EVENTS, EXCHANGE, EXISTS, FULL, HTTPS_PORT, LAST_ADMINISTRATOR, LED, MAIL,
    MAINTENANCE_MODE, NOT_AUTHORISED, NOT_FOUND, NO_ITEM, NO_SESSION, OWN_FILTER,
    OWN_LANGUAGE, OWN_NOTE, OWN_SESSION, PARTITIONS, PERMISSION, POWER, PROBATION, PROBATION_TIME,
    PRODUCT, PROGRESS, REFUSED, SCHEDULE, SERVICES, SESSIONS, SOME_ITEM, STAGE, STAGED, START,
    STATUS, SYSTEM_NAMES, SYSTEM_POWER, TRAPS, USERS, USER_ADD, USER_EDIT, USER_REMOVE, WRITE,
    number, record, texts)


class ItemsTest(BoardCase):
    # Records

    # Item, readers, writers, and what is written: of admin, part, staff, operator and guest.
    RIGHTS = (
        *((item, "apsog", "", b"x") for item in (STATUS, PRODUCT, PARTITIONS, SESSIONS, PROGRESS)),
        (SYSTEM_NAMES, "apsog", "a", texts("board|||")), (LED, "apsog", "apsog", texts("blink")),
        (ADDRESSES, "apsog", "a", texts("b|192.0.2.1|8|||")),
        (SERVICES, "apsog", "a", texts("0|1|1|2|1|3|1|4")),
        (TRAPS, "apsog", "a", texts("1|192.0.2.1|c|0|||0||")), (MAIL, "a", "a", texts("0|||||")),
        (ACL, "a", "", b"x"), (ACL_ADD, "", "a", texts("192.0.2.1|32")),
        (ACL_REMOVE, "", "a", texts("192.0.2.1|32")),
        (SYSTEM_POWER, "apsog", "a", texts("on")), (POWER, "apsog", "apo", texts("off")),
        (POWER + 1, "apsog", "ao", texts("reset")), (POWER + 3, "apsog", "apo", texts("on")),
        (SCHEDULE, "apsog", "apo", texts("0|2026-01-01|2026-01-01|0000000||")),
        (BOOT + 1, "apsog", "ao", texts("dvd|none|disk|9|1")), (USERS, "a", "", b"x"),
        (USER_ADD, "", "a", texts("new|password|guest|0000000000000000|1")),
        (USER_EDIT, "", "a", texts("new||staff|0000000000000000|1")),
        (USER_REMOVE, "", "a", texts("new")),
        (CLOCK, "apsog", "a", texts("2026-01-01|00:00:00|+00:00|manual||")),
        (OWN_FILTER, "apsog", "apsog", texts("error|power|1")),
        (STAGE, "", "as", bytes(5)), (DROP, "", "as", texts("drop")),
        (OWN_LANGUAGE, "apsog", "apsog", number(0)), (HTTPS_PORT, "apsog", "a", number(8443)),
        (OWN_SESSION, "apsog", "", b"x"), (SOME_ITEM, "apsog", "a", b"x"),
        (MAINTENANCE_MODE, "apsog", "as", bytes(34)),
        (PROBATION, "as", "", b"x"), (PROBATION_TIME, "apsog", "a", number(0)),
        (PERMISSION, "apsog", "a", struct.pack(">4I", 1, 1, 4, 0)))

    def assertAllowed(self, allowed, operation, *arguments):
        if allowed:
            operation(*arguments)
        else:
            self.assertRefused(NOT_AUTHORISED, operation, *arguments)

    def test_who_may_use_which_item(self):
        sessions = self.start_as(b"admin", b"part", b"staff", b"operator", b"guest")
        self.put(SOME_ITEM, sessions[0], b"x")
        for user, session in zip("apsog", sessions):
            for item, readers, writers, content in self.RIGHTS:
                with self.subTest(item=hex(item), user=user):
                    self.assertAllowed(user in readers, self.get, item, session)
                    self.assertAllowed(user in writers, self.put, item, session, content)
                    if user in readers and user not in writers:
                        self.assertRefused(NOT_AUTHORISED, self.ask, item | EXCHANGE, session,
                                           content)

    def test_technical_staff_has_the_power_in_permitted_maintenance(self):
        admin, staff = self.start_as(b"admin", b"staff")
        partition_2 = bytes(19) + b"\1" + bytes(14)
        for mode, permission, allowed in (
                (bytes(34), 1, False), (partition_2, 0, False), (partition_2, 1, True),
                (bytes(33) + b"\1", 1, True), (b"\1" * 17 + bytes(17), 1, False)):
            self.put(MAINTENANCE_MODE, admin, mode)
            self.put(PERMISSION, admin, struct.pack(">4I", 1, 1, 4, permission))
            for item in (POWER + 1, SYSTEM_POWER):
                self.assertAllowed(allowed, self.put, item, staff, texts("on"))
        for item in (SCHEDULE, BOOT, SYSTEM_NAMES):
            self.assertRefused(NOT_AUTHORISED, self.put, item, staff, b"x")

    CONTENTS = (  # item, its first record, records that fit, records that do not
        (SYSTEM_NAMES, None, [f"{'x' * 32}|{'~' * 32}|{' ' * 64}|{'y' * 64}"],
         ["|||", "x" * 33 + "|||", f"x||{'y' * 65}|", "x||", "x||||", "\x7f|||", "a\nb|||"]),
        (LED, "off", ["on", "blink", "off"], ["On", "", "on,off", "on|off", "o"]),
        (ADDRESSES, None, ["x" * 64 + "|255.255.255.255|32|||0.0.0.0"],
         ["|192.0.2.1|24|||", "b||24|||", "b|192.0.2.256|24|||", "b|192.0.2|24|||",
          "b|192.0.02.1|24|||", "b| 192.0.2.1|24|||", "b|192.0.2.1|0|||", "b|192.0.2.1|33|||",
          "b|192.0.2.1|024|||", "b|192.0.2.1|24|x||"]),
        (SERVICES, "1|80|1|443|1|22|0|23", ["1|65535|0|1|0|2|0|3"],
         ["0|80|0|443|1|22|1|23", "1|80|1|80|1|22|0|23", "1|0|1|443|1|22|0|23",
          "1|65536|1|443|1|22|0|23", "2|80|1|443|1|22|0|23", "1|-1|1|443|1|22|0|23"]),
        (TRAPS, None, [f"1|192.0.2.1|{'x' * 32}|0||public|0|192.0.2.2|"],
         ["1||x|0|||0||", "0|||1|192.0.2.1||0||", f"0||{'x' * 33}|0|||0||", "0|||0||",
          "0|||0|||0|||0||"]),
        (MAIL, None, ["1|mail|25|a@b|c@d|", "0|||||"],
         ["1||25|a@b|c@d|", "1|mail||a@b|c@d|", "1|mail|25||c@d|", "1|mail|25|a@b||c@d",
          f"0|{'x' * 65}||||", "0||0|||"]),
        (SCHEDULE, None, ["1|2028-02-29|2028-02-29|0000001||23:59:59",
                          "0|1970-01-01|2037-12-31|0000000||"],
         ["1|2026-02-29|2026-03-01|1111111|07:00:00|", "0|2026-01-02|2026-01-01|0000000||",
          "1|2026-01-01|2026-01-01|0000000|07:00:00|", "1|2026-01-01|2026-01-01|1111111||",
          "1|2026-01-01|2026-01-01|11111111|07:00:00|", "0|2026-13-01|2037-12-31|0000000||",
          "0|2026-01-01|2038-01-01|0000000||", "0|2026-01-01|2026-01-01|0000000|24:00:00|",
          "0|2026-01-01|2026-01-01|0000000|07:00|", "0|2026-1-01|2026-01-01|0000000|7:00|"]),
        (BOOT + 3, None, ["network|none|none|0|0", "dvd|disk|network|9|1"],
         ["none|disk|dvd|1|0", "disk|dvd|disk|1|0", "disk|dvd|usb|1|0", "disk|none|none|10|0",
          "disk|none|none|0|"]),
        (POWER + 3, "off", [], ["standby", "", "on|"]),
        (CLOCK, None, [],
         ["2037-12-32|00:00:00|+00:00|manual||", "2026-01-01|24:00:00|+00:00|manual||",
          "2026-01-01|00:00:60|+00:00|manual||", "1970-01-01|00:59:59|+01:00|manual||",
          "2026-01-01|00:00:00|+14:01|manual||", "2026-01-01|00:00:00|01:00|manual||",
          "|00:00:00|+00:00|manual||", "2026-01-01||+00:00|manual||",
          "2026-01-01|00:00:00|+00:00|servers||192.0.2.1",
          "2026-01-01|00:00:00|+00:00|gps|192.0.2.1|"]))

    def test_records_are_kept_when_they_fit(self):
        admin, = self.start_as(b"admin")
        for item, first, fit, unfit in self.CONTENTS:
            if first is not None:
                self.assertEqual(self.get(item, admin), texts(first))
            for line in fit:
                with self.subTest(hex(item), line=line):
                    self.put(item, admin, texts(line))
                    self.assertEqual(self.get(item, admin), texts(line))
            before = self.get(item, admin)
            for content in [*map(texts, unfit), before[:-1], before + b"\0"]:
                with self.subTest(hex(item), content=content):
                    self.assertRefused(BAD_REQUEST, self.put, item, admin, content)
            self.assertEqual(self.get(item, admin)[:10], before[:10])  # the clock runs
        for missing in (POWER + 4, SCHEDULE + 15, BOOT + 4):
            self.assertRefused(NO_ITEM, self.get, missing, admin)
            self.assertRefused(NO_ITEM, self.put, missing, admin, texts("on"))

    def test_the_https_port_is_that_of_the_services(self):
        admin, = self.start_as(b"admin")
        self.put(HTTPS_PORT, admin, number(8443))
        self.assertEqual(self.get(SERVICES, admin), texts("1|80|1|8443|1|22|0|23"))
        self.assertRefused(BAD_REQUEST, self.put, HTTPS_PORT, admin, number(23))
        self.put(SERVICES, admin, texts("1|80|1|444|1|22|0|23"))
        self.assertEqual(self.get(HTTPS_PORT), number(444))

    def test_the_access_list(self):
        admin, = self.start_as(b"admin")
        self.assertEqual(self.get(ACL, admin), b"\0")
        rows = [(f"192.0.2.{n}", n) for n in range(1, 33)]
        for row in rows:
            self.put(ACL_ADD, admin, record(*row))
        self.assertEqual(self.get(ACL, admin), record(*sum(rows, ())))
        self.assertRefused(EXISTS, self.put, ACL_ADD, admin, record(*rows[8]))
        self.assertRefused(FULL, self.put, ACL_ADD, admin, texts("192.0.2.1|2"))
        self.put(ACL_REMOVE, admin, record(*rows.pop(8)))
        self.assertRefused(NOT_FOUND, self.put, ACL_REMOVE, admin, texts("192.0.2.1|2"))
        self.assertEqual(self.get(ACL, admin), record(*sum(rows, ())))

    def test_power(self):
        admin, = self.start_as(b"admin")
        for item, operation, powers, status in (
                (POWER + 3, None, "on on on off", "normal degraded normal off"),
                (POWER + 3, "on", "on on on on", "normal degraded normal normal"),
                (POWER + 1, "force-off", "on off on on", "normal off normal normal"),
                (SYSTEM_POWER, "off", "off off off off", "off off off off"),
                (SYSTEM_POWER, "on", "on on on on", "normal degraded normal normal")):
            powers, status = powers.split(), status.split()
            with self.subTest(item=hex(item), operation=operation):
                if operation:
                    self.put(item, admin, record(operation))
                self.assertEqual(self.get(PARTITIONS, admin), record(*sum(enumerate(powers), ())))
                system = "on" if "on" in powers else "off"
                self.assertEqual(self.get(SYSTEM_POWER, admin), record(system))
                expected = [("partition", str(n), state, power)
                            for n, (state, power) in enumerate(zip(status, powers))]
                rows = self.rows(STATUS, admin, 4)
                state = "normal" if system == "on" else "off"
                self.assertEqual(rows[:5], [("power", "0", state, system)] + expected)
        self.assertIn(("fan", "2", "warning"), [row[:3] for row in rows])
        self.assertIn(("power-supply", "2", "error"), [row[:3] for row in rows])
        self.put(POWER, admin, texts("off"))
        self.assertRefused(BAD_REQUEST, self.put, POWER, admin, texts("reset"))
        self.put(MAINTENANCE_MODE, admin, bytes(18) + b"\1" + bytes(15))
        rows = self.rows(STATUS, admin, 4)
        self.assertEqual(rows[2], ("partition", "1", "maintenance", "on"))
        self.assertEqual(rows[-1], ("maintenance", "0", "maintenance", "on"))

    # Events

    def test_events_are_found(self):
        session, = self.start_as(b"guest")
        for query in ("", "info||||0|", "info||||201|", "all||||1|", "info|disk|||1|", "info||||1",
                      "info||2026-02-30||1|", "info||||1|x"):
            self.assertRefused(BAD_REQUEST, self.ask, EVENTS | EXCHANGE, session, texts(query))
        self.assertRefused(BAD_REQUEST, self.get, EVENTS, session)
        self.assertRefused(NOT_AUTHORISED, self.put, EVENTS, session,
                           texts("info||||1|"))

        everything = self.rows(EVENTS, session, 7, texts("info||||200|"))
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
        admin, = self.start_as(b"admin")
        for item, content, *events in (  # the last word of an event says of what it is
                (LED, texts("blink"), "info hardware 406 blink"), (LED, texts("blink")),
                (OWN_LANGUAGE, number(1)), (HTTPS_PORT, number(443)),  # nothing changes
                (SYSTEM_NAMES, texts("x|||"), "info settings 201 system names"),
                (BOOT + 2, texts("disk|dvd|none|0|0"),
                 "info settings 201 boot settings of partition 2"),
                (SOME_ITEM, b"x", "info settings 201 item 0x02010123"),
                (POWER + 3, texts("on"), "info power 301 partition 3"), (POWER + 3, texts("on")),
                (POWER + 2, texts("force-off"), "warning power 303 partition 2"),
                (SYSTEM_POWER, texts("reset"),
                 *(f"warning power 304 partition {n}" for n in "310")),
                (SYSTEM_POWER, texts("off"), *(f"info power 302 partition {n}" for n in "310")),
                (MAINTENANCE_MODE, bytes(17) + b"\1\0\1" + bytes(13) + b"\1",
                 "info maintenance 601 system, partitions 0 2"),
                (MAINTENANCE_MODE, bytes(34), "info maintenance 601 off")):
            events = [(*words, "admin", detail) for *words, detail in (
                event.split(" ", 3) for event in events)]
            with self.subTest(hex(item), content=content):
                before = self.events(admin, 10)
                self.put(item, admin, content)
                self.assertEqual(self.events(admin, 10), (events + before)[:10])

    def test_an_event_filter_is_the_users(self):
        guest, admin = self.start_as(b"guest", b"admin")
        self.put(OWN_FILTER, guest, texts("warning|hardware|200"))
        self.assertRefused(BAD_REQUEST, self.put, OWN_FILTER, guest, texts("info||201"))
        self.end(signal.SIGKILL)
        self.start()
        self.assertEqual(self.get(OWN_FILTER, guest), texts("warning|hardware|200"))
        self.assertEqual(self.get(OWN_FILTER, admin), texts("info||50"))

    def test_nobody_pushes_out_of_the_log_what_others_did(self):
        admin, guest = self.start_as(b"admin", b"guest")
        self.put(SYSTEM_NAMES, admin, texts("board|||"))
        hardware = self.events(admin, 200, "warning", "hardware")
        self.assertEqual(len(hardware), 5)
        for _ in range(1150):
            self.put(LED, guest, texts("on"))
            self.put(LED, guest, texts("off"))
        for language in (0, 1) * 260:
            self.put(OWN_LANGUAGE, guest, number(language))
        self.put(LED, admin, texts("on"))
        self.assertEqual(self.events(admin, 200, "warning", "hardware"), hardware)
        self.end()
        rows = self.execute("SELECT code, count(*), max(user = 'admin') FROM events"
                            " WHERE code IN (201, 406) GROUP BY code")
        self.assertEqual(rows, [(201, 500, 1), (406, 500, 1)])

    def test_refused_logins_are_counted_in_few_rows(self):
        self.start()
        self.put(USER_ADD, self.login().session,
                 record("new", "password", "guest", self.NOBODY, 1))
        for n in range(30):
            self.assertRefused(REFUSED, self.login, b"nobody%d" % n, b"guess")
        self.assertRefused(REFUSED, self.login, b"new", b"guess")
        admin = self.login().session
        _, *named, several = self.events(admin, 3)
        self.assertEqual(named, [("warning", "security", "102", "new", "192.0.2.7")])
        self.assertEqual(several[:4], ("warning", "security", "102", ""))
        self.assertRegex(several[4], r"^192\.0\.2\.7, 30 times until \d\d:\d\d:\d\d$")
        self.end()
        self.execute("UPDATE events SET time = time - 600 WHERE code = 102",  # the time is over
                  "WITH RECURSIVE n(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM n WHERE n < 2100)"
                  " INSERT INTO events (time, severity, code, user, detail)"
                  " SELECT n, 1, 102, '', n FROM n")
        self.start()
        self.assertRefused(REFUSED, self.login, b"nobody", b"guess")
        security = self.events(admin, 200, source="security")
        self.assertEqual(security[0], ("warning", "security", "102", "", "192.0.2.7"))
        self.end()
        rows = self.execute("SELECT code, count(*) FROM events WHERE code IN (102, 106)"
                            " GROUP BY code")
        self.assertEqual(rows, [(102, 500), (106, 1)])

    def test_what_is_damaged_or_lost_is_an_error_until_it_is_mended(self):
        admin, = self.start_as(b"admin")
        self.end()
        self.execute(f"UPDATE items SET content = x'41' WHERE id IN ({POWER + 1}, {ACL}, {LED})",
                  f"DELETE FROM items WHERE id = {SYSTEM_NAMES}",
                  "UPDATE events SET detail = 'a' || char(10) WHERE number = 1")
        self.start()
        for item in (POWER + 1, SYSTEM_POWER, STATUS, ACL, LED, SYSTEM_NAMES, BACKUP):
            self.assertRefused(BOARD_FAILURE, self.get, item, admin)
        self.assertRefused(BOARD_FAILURE, self.put, ACL_ADD, admin, texts("192.0.2.1|32"))
        self.assertRefused(BOARD_FAILURE, self.events, admin, 200)
        self.assertRefused(BAD_REQUEST, self.put, POWER + 1, admin, texts("reset"))
        for item, content in ((POWER + 1, texts("off")), (LED, texts("on")),
                              (SYSTEM_NAMES, texts("x|||"))):
            self.put(item, admin, content)
            self.assertEqual(self.get(item, admin), content)

    # Users

    NOBODY, PARTITIONS_0_AND_2 = "0" * 16, "101" + "0" * 13

    def test_what_a_user_may_be(self):
        admin, = self.start_as(b"admin")
        nobody, some = "|guest|0000000000000000|1", "|guest|1010000000000000|1"
        for line in (
                "|password" + nobody, "1x|password" + nobody, "x y|password" + nobody,
                "x" * 33 + "|password" + nobody, "x|seven77" + nobody, "x|" + nobody,
                f"x|{'y' * 33}{nobody}", "x|pass word" + nobody, "x|password" + some,
                "x|password|root|0000000000000000|1", "x|password|guest|000000000000000|1",
                "x|password|partition|0000000000000000|1", "x|password|guest|0000000000000000|2",
                "x|password|partition|0000100000000000|1"):
            with self.subTest(line):
                self.assertRefused(BAD_REQUEST, self.put, USER_ADD, admin, texts(line))
        self.assertEqual(len(self.rows(USERS, admin, 4)), 5)
        self.put(USER_ADD, admin, record("AaZ" + "z" * 29, "!" * 32, "staff", self.NOBODY, 0))
        self.login(b"AaZ" + b"z" * 29, b"!" * 32)

    def test_user_management(self):
        admin, = self.start_as(b"admin")
        new = ("u-1._", "password", "partition", self.PARTITIONS_0_AND_2, 0)
        self.put(USER_ADD, admin, record(*new))
        self.assertRefused(EXISTS, self.put, USER_ADD, admin, record(*new))
        self.assertIn(("u-1._", "partition", self.PARTITIONS_0_AND_2, "0"),
                      self.rows(USERS, admin, 4))
        session = self.login(b"u-1._", b"password").session
        other = self.login(b"u-1._", b"password").session
        self.assertRefused(NOT_AUTHORISED, self.put, POWER + 1, session, texts("off"))
        self.put(POWER + 2, session, texts("off"))

        # Whoever has other rights, or another password, logs in again; another language is no more
        # than that.
        self.put(USER_EDIT, admin, record(new[0], "", *new[2:4], 1))
        self.assertEqual(self.check(session).language, 1)
        self.put(USER_EDIT, admin, record("u-1._", "", "operator", self.NOBODY, 1))
        self.assertRefused(NO_SESSION, self.check, other)
        session, other = (self.login(b"u-1._", b"password").session for _ in range(2))
        self.put(POWER + 1, session, texts("off"))
        self.put(USER_EDIT, admin, record("u-1._", "another-one", "administrator", self.NOBODY, 1))
        for ended in (session, other):
            self.assertRefused(NO_SESSION, self.check, ended)
        self.assertRefused(REFUSED, self.login, b"u-1._", b"password")
        session, other = (self.login(b"u-1._", b"another-one").session for _ in range(2))
        self.put(USER_EDIT, session,
                 record("u-1._", "yet-another", "administrator", self.NOBODY, 1))
        self.check(session)
        self.assertRefused(NO_SESSION, self.check, other)

        # Somebody who can manage users is left.
        self.assertRefused(LAST_ADMINISTRATOR, self.put, USER_REMOVE, admin, texts("admin"))
        self.put(USER_EDIT, admin, record("admin", "", "guest", self.NOBODY, 1))
        self.assertRefused(NOT_AUTHORISED, self.get, USERS, admin)
        self.assertRefused(LAST_ADMINISTRATOR, self.put, USER_EDIT, session,
                           record("u-1._", "", "guest", self.NOBODY, 1))
        self.put(USER_REMOVE, session, texts("admin"))
        self.assertRefused(NO_SESSION, self.check, admin)
        self.assertRefused(REFUSED, self.login)
        for item, content in ((USER_REMOVE, texts("admin")),
                              (USER_EDIT, record("admin", "", "guest", self.NOBODY, 1))):
            self.assertRefused(NOT_FOUND, self.put, item, session, content)
        self.assertEqual([event[2:] for event in self.events(session, 5, source="security")][1:4],
                         [("108", "u-1._", "admin"), ("107", "admin", "admin"),
                          ("107", "u-1._", "u-1._")])
        self.end(signal.SIGKILL)
        self.start()
        self.assertNotIn("admin", [row[0] for row in self.rows(USERS, session, 4)])

    def test_the_board_has_room_for_64_users(self):
        admin, = self.start_as(b"admin")
        for n in range(59):
            self.put(USER_ADD, admin, record(f"user{n}", "password", "guest", self.NOBODY, 1))
        self.assertRefused(FULL, self.put, USER_ADD, admin,
                           record("user59", "password", "guest", self.NOBODY, 1))
        self.assertEqual(len(self.rows(USERS, admin, 4)), 64)

    def test_a_session_keeps_a_few_notes_for_itself(self):
        admin, guest = self.start_as(b"admin", b"guest")
        for unfit in (b"", b"\0", b"x", b"x\0y", b"A" * 16 + b"\0", b"0" * 16, b"0" * 15 + b"\0y",
                      b"\0" + b"y" * 2049):
            self.assertRefused(BAD_REQUEST, self.ask, OWN_NOTE | EXCHANGE, guest, unfit)

        def keep(note, replaced=b""):
            return self.ask(OWN_NOTE | EXCHANGE, guest, replaced + b"\0" + note).payload[:-1]

        def find(note, session=guest):
            return self.ask(OWN_NOTE | EXCHANGE, session, note + b"\0").payload

        kept = [keep(b"%d\0\xff" % number) for number in range(6)]
        self.assertEqual([find(note) for note in kept], [b"%d\0\xff" % n for n in range(6)])
        self.assertRefused(NOT_FOUND, find, kept[0], admin)
        newer = keep(b"y" * 2048, kept[0])
        self.assertRefused(NOT_FOUND, keep, b"z", kept[0])  # its place is taken
        newest = keep(b"w")  # in the place of the oldest
        self.assertEqual([find(note) for note in (newer, newest)], [b"y" * 2048, b"w"])
        for gone in kept[:2]:
            self.assertRefused(NOT_FOUND, find, gone)
        self.end(signal.SIGTERM)
        self.start()
        self.assertRefused(NOT_FOUND, find, newest)

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

    def test_as_many_sessions_are_listed_as_a_payload_holds(self):
        self.start()
        self.end()
        self.execute(
            "WITH RECURSIVE n(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM n WHERE n < 1000)"
            " INSERT INTO sessions SELECT n, 'guest', printf('%.131c', 'a'),"
            f" {int(time.time())}, {int(time.time())}, '' FROM n")
        self.start()
        time.sleep(1)
        listed = self.get(SESSIONS, self.login().session)
        self.assertEqual(listed[:6], b"admin\0")
        row = len(record("guest", "guest", "a" * 131, int(time.time()), int(time.time())))
        self.assertTrue(65535 - row < len(listed) <= 65535, len(listed))

    # Clock

    def test_the_clock_runs_from_where_it_was_set(self):
        admin, = self.start_as(b"admin")

        def shown():
            day, clock, *rest = self.rows(CLOCK, admin, 6)[0]
            return calendar.timegm(time.strptime(day + clock, "%Y-%m-%d%H:%M:%S")), rest

        self.assertAlmostEqual(shown()[0], time.time(), delta=2)
        self.put(CLOCK, admin,
                 texts("2037-12-31|23:59:50|-05:30|manual||192.0.2.1"))
        local = calendar.timegm((2037, 12, 31, 23, 59, 50))
        for _ in range(2):
            seconds, rest = shown()
            self.assertAlmostEqual(seconds, local, delta=9)
            self.assertEqual(rest, ["-05:30", "manual", "", "192.0.2.1"])
            self.end(signal.SIGKILL)
            self.start()
        self.put(LED, admin, texts("on"))
        event, = self.rows(EVENTS, admin, 7, texts("info||||1|"))
        self.assertAlmostEqual(int(event[1]), local + 19800, delta=20)
        self.put(CLOCK, admin, texts("|now|+14:00|servers|192.0.2.1|"))
        self.assertAlmostEqual(shown()[0], time.time() + 50400, delta=2)
        for zone in ("-05:30", "+00:00"):  # without date and time, the clock keeps running
            self.put(CLOCK, admin, texts(f"||{zone}|manual||"))
        events = self.events(admin, 9)
        self.put(CLOCK, admin, texts("||+00:00|manual||"))
        self.assertEqual(self.events(admin, 9), events)
        self.assertAlmostEqual(shown()[0], time.time(), delta=2)
        self.put(CLOCK, admin, texts("2030-01-01|08:00:00|+09:00|manual||"))
        self.put(CLOCK, admin, texts("||-14:00|manual||"))
        self.assertAlmostEqual(shown()[0], calendar.timegm((2029, 12, 31, 9, 0, 0)), delta=2)
        self.put(CLOCK, admin, texts("2037-12-31|23:59:59|-14:00|manual||"))
        time.sleep(1.1)
        self.put(CLOCK, admin, self.get(CLOCK, admin))  # it stops there
        self.put(CLOCK, admin, texts("1970-01-01|00:00:00|+00:00|manual||"))
        self.assertIn(("0", "0"), [row[3:] for row in self.rows(SESSIONS, admin, 5)])

    # Backup

    def test_a_backup_restores_all_settings(self):
        admin, staff = self.start_as(b"admin", b"staff")
        settings = {
            SYSTEM_NAMES: texts("restored|||x"), LED: texts("blink"),
            ADDRESSES: texts("b|192.0.2.99|8|||"),
            SERVICES: texts("0|8080|1|8443|0|22|1|23"),
            TRAPS: texts("1|192.0.2.1|c|0|||0||"),
            MAIL: texts("1|mail|25|a|b|c"),
            SCHEDULE + 2: texts("1|2026-01-01|2026-01-02|1111111|07:00:00|"),
            BOOT + 3: texts("dvd|none|none|9|1"),
        }
        fresh = self.get(BACKUP, staff)
        for name in (b"part", b"operator", b"guest"):
            session = self.login(name).session
            for kind in (BACKUP, BACKUP | WRITE, STAGED, START | WRITE):
                content = fresh if kind & WRITE else None
                self.assertRefused(NOT_AUTHORISED, self.ask, kind, session, content)
        for item, content in settings.items():
            self.put(item, admin, content)
        self.put(ACL_ADD, admin, texts("192.0.2.0|24"))
        self.put(CLOCK, admin, texts("2030-01-01|00:00:00|+09:00|manual||"))
        changed = self.get(BACKUP, admin)
        body, digest = re.fullmatch(rb"(orv-settings 1\n(?:item [0-9a-f]{4} [0-9a-f]+\n){16})"
                                    rb"sha256 ([0-9a-f]{64})\n", changed).groups()
        self.assertEqual(digest.decode(), hashlib.sha256(body).hexdigest())
        self.assertIn(b"\nitem 000b " + texts("blink").hex().encode() + b"\n", body)
        self.put(BACKUP, staff, fresh)
        self.assertEqual(self.get(BACKUP, admin), fresh)
        self.assertEqual(self.events(admin, 1), [("info", "settings", "202", "staff", "")])
        self.assertEqual(self.get(HTTPS_PORT), number(443))
        self.put(BACKUP, staff, changed)
        self.end(signal.SIGKILL)
        self.start()
        for item, content in settings.items():
            self.assertEqual(self.get(item, admin), content, hex(item))
        self.assertEqual(self.rows(ACL, admin, 2), [("192.0.2.0", "24")])
        day, _, zone, *_ = self.rows(CLOCK, admin, 6)[0]
        self.assertEqual((day, zone), ("2030-01-01", "+09:00"))  # set before, and kept
        self.put(CLOCK, admin, texts("||+00:00|servers|192.0.2.1|"))
        with_servers = self.get(BACKUP, admin)
        self.put(CLOCK, admin, texts("1970-01-01|00:00:00|+00:00|manual||"))
        west = self.get(BACKUP, admin).replace(texts("+00:00|manual").hex().encode(),
                                               texts("-05:30|manual").hex().encode())
        west = self.signed(west.splitlines(keepends=True)[:-1])
        self.put(BACKUP, staff, west)
        self.assertEqual(self.rows(CLOCK, admin, 6)[0][0], "1970-01-01")
        time.sleep(1.1)
        self.assertNotEqual(self.rows(CLOCK, admin, 6)[0][1], "00:00:00")  # it does not stand
        self.put(BACKUP, staff, with_servers)
        self.assertEqual(self.rows(CLOCK, admin, 6)[0][0],
                         time.strftime("%Y-%m-%d", time.gmtime()))

    @staticmethod
    def signed(lines):
        body = b"".join(lines)
        return body + b"sha256 " + hashlib.sha256(body).hexdigest().encode() + b"\n"

    def test_damaged_backups_change_nothing(self):
        admin, = self.start_as(b"admin")
        before = self.get(BACKUP, admin)
        self.put(LED, admin, texts("on"))
        present = self.get(BACKUP, admin)
        lines = before.splitlines(keepends=True)[:-1]

        self.assertEqual(self.signed(lines), before)
        led = next(n for n, line in enumerate(lines) if line.startswith(b"item 000b"))

        def with_led(line):
            return self.signed(lines[:led] + [line] + lines[led + 1:])

        for content in (
                before[:-1], before + b"\n", before.replace(b"\n", b"\r\n"), b"\n", b"\0",
                before[:-2] + bytes([before[-2] ^ 1]) + b"\n", b"".join(lines), lines[0],
                self.signed([b"orv-settings 2\n"] + lines[1:]), self.signed(lines[:-1]),
                self.signed(lines + lines[-1:]), self.signed(lines[:1] + lines[:0:-1]),
                with_led(b"item 000b " + texts("of").hex().encode() + b"\n"),
                with_led(b"item 000b " + texts("off").hex().upper().encode() + b"\n"),
                with_led(b"item 000b 6f666600f\n"), with_led(b"item 000b\n"),
                with_led(b"item 003c " + texts("off").hex().encode() + b"\n")):
            with self.subTest(content[-80:]):
                self.assertRefused(DAMAGED, self.put, BACKUP, admin, content)
        self.assertEqual(self.get(BACKUP, admin), present)
