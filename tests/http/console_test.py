"""The console in special cases: cookies, failed log-ins, maintenance, a board that fails."""

import re
import signal
import time

from console_client import LOGIN
from console_pages import ASKED, CHANGE, DONE
from make_firmware import make_image
from support.site_case import SiteCase

REFRESH, MAINTENANCE = "/network/orv_refresh_set.cgi", "/maintenance/maintenance_mode.cgi"
MENU, POWER = "/common/menu.cgi?load=1&tid=0&mid=3", "/system/power_control.cgi"
SERVICES = "/network/orv_protocol_set.cgi"
NAMES, PASSWORD = "/system/sys_info.cgi", "/user/ch_passwd.cgi"
SEARCH, FIRMWARE = "/system/sel_filtering.cgi", "/maintenance/orv_firmup.cgi"


class Console(SiteCase):
    def setUp(self):
        self.client.session = None

    def answer_of(self, user):
        return self.client.post(LOGIN, {"user": user, "password": user + "-pass"}, follows=False)

    def test_login_sets_a_cookie_for_the_whole_console_and_one_for_itself(self):
        session = r"sid=[\w-]{31}; path=/; HttpOnly; SameSite=Strict$"
        path = "; Path=/common/login.cgi"
        self.client.device = None
        self.assertRegex(self.answer_of("admin").headers["set-cookie"], "^" + session)
        self.client.session = None
        self.assertEqual(self.client.get(LOGIN).headers["set-cookie"],
                         f"device=none{path}; HttpOnly; SameSite=Strict")
        answer = self.answer_of("admin")
        self.assertRegex(answer.headers["set-cookie"],
                         r"^device=[0-9a-f]{32}%s; Max-Age=31536000; HttpOnly; SameSite=Strict\n%s"
                         % (path, session))
        self.assertNotIn("set-cookie", self.client.get(LOGIN).headers)
        self.assertEqual((answer.status, answer.headers["location"]), (303, "/common/frame.cgi"))
        first, device = self.client.session, self.client.device
        self.client.login("admin")
        self.assertNotEqual(first, self.client.session)
        self.assertEqual(device, self.client.device)
        self.client.device = "0" * 32  # not one that the board made
        self.client.login("admin")
        self.assertNotIn(self.client.device, (device, "0" * 32))

    def test_a_known_browser_does_not_wait_for_those_who_guess(self):
        self.client.get(LOGIN)
        self.client.login("part")
        device, self.client.device = self.client.device, None
        for _ in range(3):
            self.client.login("part", "guess")
        self.client.device, self.client.session = device, None
        begin = time.monotonic()
        self.client.login("part")
        self.assertLess(time.monotonic() - begin, 3)
        self.assertTrue(self.client.session)

    def test_a_failed_login_is_logged_without_what_was_typed(self):
        for user in ("admin", "<nobody>\n"):
            answer = self.client.login(user, "wrong-secret")
            self.assertIn("The user name or the password is wrong.", answer.text())
            self.assertNotIn("set-cookie", answer.headers)
        self.assertIn("login from 127.0.0.1 failed: error 1281", self.trace_log())
        self.assertNotRegex(self.trace_log(), "nobody|wrong-secret")

    def test_a_change_that_the_board_fails_at_ends_in_an_error_page(self):
        self.client.login("admin")
        for fault, path, fields in (
                ("02018027:error", REFRESH, {"interval": "5"}),
                ("020180b4:error", MAINTENANCE, {"permission0": "1", "mode33_0": "1"})):
            self.site.restart_board("--fault", fault)
            before = self.client.get(path).body
            answer = self.client.submit(path, {"page_state": "4", **fields})
            self.assertIn(b'<main class="notice" role="alert">', answer.body)
            self.assertIn("(00:0d02)", answer.text())
            self.assertEqual(self.client.get(path).body, before)
        self.site.restart_board()

    def test_what_the_board_does_not_keep_is_answered_at_once(self):
        """Passwords, what is too large, and everything while the board fails to keep it."""
        self.client.login("admin")
        for fault, path, changes, *signs in (
                ((), PASSWORD, CHANGE, b'name="wanted"'),
                ((), PASSWORD, {**CHANGE, "back": "1"}, b'name="wanted"'),
                ((), NAMES, {"contact": "x", "more": "x" * 2048}, ASKED),
                (("--fault", "0201402b:error"), SERVICES, {"http_port": "81"}, ASKED, ASKED),
                (("--fault", "0201402b:error"), NAMES, {"contact": "y"}, ASKED, DONE)):
            self.site.restart_board(*fault)
            page = self.client.get(path)
            for sign in signs:
                page = self.client.post(path, {**page.form().fields, **changes}, follows=False)
                self.assertEqual((page.status, sign in page.body), (200, True), changes)
                self.assertIn(b'data-address="%s"' % path.encode(), page.body)
        self.assertEqual(self.client.get(NAMES).field("contact"), "y")
        self.assertIn("the board keeps no note: error 1792", self.trace_log())
        self.site.restart_board()

    def test_an_error_page_is_readable_and_leads_on(self):
        """For each user and request: what the page has, and what it does not have."""
        again, back = f'href="{REFRESH}?a=1&amp;b=2"', 'href="/system/pel.cgi?x=1"'
        right, roles = "(00:0502)", "one of these roles: System administrator"
        reload, change = 'http-equiv="Refresh" content="10"', "may or may not have been made"
        for stopped, user, method, path, referrer, shown, hidden in (
                (False, "guest", "GET", POWER, POWER, (right, roles, "Try&nbsp;again"),
                 (reload, "Technical staff", "section lang=", ">Back<")),
                (False, "guest", "GET", FIRMWARE, "//evil.example/", (roles + ", Technical staff",),
                 ("evil",)),
                (False, "operator", "GET", POWER, "",
                 (right, "システム管理者", "EUC-JP", 'html lang="ja"'), (roles,)),
                (True, "guest", "GET", REFRESH + "?a=1&b=2", "/system/pel.cgi?x=1",
                 (again, back, reload, "does not answer", "管理ボードが応答しません"), (change,)),
                (True, "guest", "GET", POWER + "?\"<", "\"<", ("/common/login.cgi",),
                 ('"<', "Back")),
                (True, "guest", "POST", REFRESH, REFRESH,
                 (change, "(00:0401)", f'href="{REFRESH}"'), (reload, "Try&nbsp;again"))):
            with self.subTest(stopped=stopped, method=method, path=path):
                self.client.login(user)
                if stopped:
                    self.site.stop_board()
                page = self.client.request(method, path, "page_state=4" * (method == "POST"),
                                           {"Referer": self.site.url + referrer})
                if stopped:
                    self.site.start_board()
                body = page.body.decode("EUC-JP")
                for text in shown:
                    self.assertIn(text, body)
                for text in hidden:
                    self.assertNotIn(text, body)

    def test_a_log_in_does_not_wait_for_a_board_that_hangs(self):
        self.site.board.send_signal(signal.SIGSTOP)
        self.addCleanup(self.site.board.send_signal, signal.SIGCONT)
        for method, words, language in (("GET", "cannot be reached", "en"),
                                        ("POST", "管理ボードに接続できません", "ja-JP,en")):
            begin = time.monotonic()
            answer = self.client.request(method, LOGIN, "" if method == "GET" else "user=guest",
                                         {"Accept-Language": language})
            self.assertLess(time.monotonic() - begin, 5)
            self.assertIn(words, answer.body.decode("EUC-JP"))

    def test_technical_staff_follows_the_maintenance_rule(self):
        self.client.login("admin")
        admin = self.client.session
        packet = self.site.boardctl("get", admin, "0x020100d1")[:-2]
        self.client.login("staff")
        for mode, permission, allowed in (("00", "00", False), ("01", "00", False),
                                          ("01", "01", True), ("00", "01", False)):
            self.site.boardctl("set", admin, "0x020100b4", "00" * 33 + mode)
            self.site.boardctl("set", admin, "0x020100d1", packet + permission)
            shown = b'fid=10"' in self.client.get(MENU).body, "(00:0502)" in self.client.get(
                POWER).text()
            self.assertEqual(shown, (allowed, not allowed), (mode, permission))

    def test_what_the_log_of_events_holds_is_text(self):
        self.client.login("admin")
        image = bytes(4) + make_image(100, b"<i>%s%n")
        self.site.boardctl("set", self.client.session, "0x02010064", image.hex())
        answer = self.client.get(SEARCH + "?severity=info&source=firmware&count=9&search=1")
        self.assertIn("<i>%s%n", answer.text())
        self.assertNotIn(b"<i>", answer.body)

    def test_events_are_in_the_users_language(self):
        self.client.login("admin")
        self.client.submit("/partition/boot_control.cgi?partition=1", {
            "page_state": "4", "device1": "dvd", "device2": "none", "device3": "none",
            "retries": "1", "partition": "1"})
        self.site.boardctl("set", self.client.session, "0x020100b4", "01" * 34)
        self.client.login("guest", "wrong")
        self.client.login("guest", "wrong")
        self.client.login("operator")
        page = self.client.get(SEARCH + "?severity=info&count=200&search=1").body.decode("EUC-JP")
        for text in ("ブート制御, パーティション 1", "電源ユニット 1", "（点滅）", "ファン 2",
                     "（ネットワークアドレス）", "システム全体, パーティション 0 1 2",
                     "127.0.0.1, 2 回、最終時刻 "):
            self.assertIn(text, page)
        explanations = re.findall(r"<td>([^<]*)</td></tr>", page)
        self.assertEqual([text for text in explanations if re.search("[a-z]{4}", text)], [])
