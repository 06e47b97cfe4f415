"""The console from log-in to log-out: sessions, rights, states of a setting, the board's faults."""

import time
import unittest

from support.console_client import LOGIN, LOGOUT
from support.site_case import SiteCase

FRAME = "/common/frame.cgi"
REFRESH, PASSWORD = "/network/orv_refresh_set.cgi", "/user/ch_passwd.cgi"
MAINTENANCE = "/maintenance/maintenance_mode.cgi"
TIMEOUT_SCRIPT = (b"function onLoadFunction(){\ntop.help_close();\ntop.vorpa_close();\n\n"
                  b'window.top.location.href="/common/timeout.cgi";\n}\n')


class Console(SiteCase):
    environment = {"ORV_IPC_TIMEOUT_MS": 1000}

    def setUp(self):
        self.client.session = None

    def interval(self):
        self.client.login("admin")
        return self.client.get(REFRESH).field("interval")

    def assertTimeout(self, answer):
        self.assertEqual(answer.status, 200)
        self.assertIn(TIMEOUT_SCRIPT, answer.body)

    def assertError(self, answer, code):
        self.assertIn(b'<main class="notice" role="alert">', answer.body)
        self.assertIn(code, answer.text())

    def test_login_sets_a_cookie_for_the_whole_console_and_one_for_itself(self):
        session = r"sid=[\w-]{31}; path=/; HttpOnly; SameSite=Strict$"
        path = "; Path=/common/login.cgi"
        self.client.device = None
        self.assertRegex(self.client.login("admin").headers["set-cookie"], "^" + session)
        self.client.session = None
        self.assertEqual(self.client.get(LOGIN).headers["set-cookie"],
                         f"device=none{path}; HttpOnly; SameSite=Strict")
        answer = self.client.login("admin")
        self.assertRegex(answer.headers["set-cookie"],
                         r"^device=[0-9a-f]{32}%s; Max-Age=31536000; HttpOnly; SameSite=Strict\n%s"
                         % (path, session))
        self.assertNotIn("set-cookie", self.client.get(LOGIN).headers)
        self.assertIn(b'content="0;URL=%s"' % FRAME.encode(), answer.body)
        first, device = self.client.session, self.client.device
        self.client.login("admin")
        self.assertNotEqual(first, self.client.session)
        self.assertEqual(device, self.client.device)
        self.client.device = "0" * 32  # not one that the board made
        self.client.login("admin")
        self.assertNotIn(self.client.device, (device, "0" * 32))

    def test_a_browser_that_was_there_before_does_not_wait_for_those_who_guess(self):
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

    def test_a_failed_login_says_why_and_is_logged(self):
        for user, password in (("admin", "wrong-secret"), ("<nobody>\n", "wrong-secret")):
            answer = self.client.login(user, password)
            self.assertIn("The user name or the password is wrong.", answer.text())
            self.assertNotIn("set-cookie", answer.headers)
        log = self.trace_log()
        self.assertIn("login from 127.0.0.1 failed: error 1281", log)
        self.assertNotRegex(log, "nobody|wrong-secret")
        self.site.stop_board()
        self.assertIn("cannot be reached", self.client.login("admin").text())
        self.site.start_board()

    def test_pages_speak_the_users_language(self):
        self.client.login("operator")
        answer = self.client.get(REFRESH)
        self.assertEqual(answer.headers["content-type"], "text/html; charset=EUC-JP")
        self.assertIn("<h1>リフレッシュ間隔</h1>".encode("euc-jp"), answer.body)

    def test_a_wrong_value_is_never_set(self):
        before = self.interval()
        for wrong in ("3601", "", "1x", "-1", "9999", "12345", 'a"b', "&lt;"):
            for state in "34":
                again = self.client.submit(REFRESH, {"page_state": state, "interval": wrong})
                self.assertIn("from 0 to 3600", again.text())
                self.assertEqual((again.field("page_state"), again.field("interval")), ("3", wrong))
        self.assertEqual(self.interval(), before)

    def test_a_password_is_changed_and_never_shown(self):
        self.client.login("staff")
        secret = "New-Secret&1"
        good = {"present": "staff-pass", "wanted": secret, "repeated": secret}
        for change, hint in (({"present": "x"}, "present password is wrong"),
                             ({"wanted": "short", "repeated": "short"}, "8 to 32"),
                             ({"wanted": "with blank in"}, "8 to 32"),
                             ({"repeated": "different"}, "differ"), ({"present": ""}, "wrong"),
                             ({"present": "p" * 40}, "wrong"), ({"wanted": "w" * 40}, "8 to 32")):
            answer = self.client.submit(PASSWORD, {"page_state": "4", **good, **change})
            self.assertIn(hint, answer.text())
            self.assertNotIn(b"Secret", answer.body)
        for fields in ({"page_state": "3"}, {"page_state": "4", "back": "1"}, {"back": "1"}):
            self.assertNotIn(b"Secret", self.client.submit(PASSWORD, {**fields, **good}).body)
        done = self.client.submit(PASSWORD, {"page_state": "4", **good})
        self.assertIn("The password has been changed.", done.text())
        self.assertNotIn(b"Secret", done.body)
        self.assertNotIn("Secret", self.trace_log())
        self.client.login("staff")
        self.assertTrue(self.client.login("staff", secret).headers.get("set-cookie"))

    def test_without_a_living_session_there_is_the_time_out_page(self):
        for page in (REFRESH, PASSWORD, LOGOUT):
            self.client.session = None
            answer = self.client.get(page)
            self.assertTimeout(answer)
            self.assertNotIn("set-cookie", answer.headers)
            self.client.session = "stale"
            self.assertEqual(self.client.get(page).headers["set-cookie"],
                             "sid=stale; path=/; expires=Thu,01-Jan-1970 09:00:00 GMT")
        self.site.stop_board()
        self.assertTimeout(self.client.get(REFRESH))
        self.assertIn("session has ended", self.client.get("/common/timeout.cgi").text())
        self.site.start_board()

    def test_a_change_that_the_board_fails_at_ends_in_an_error_page(self):
        self.client.login("admin")
        self.site.restart_board("--fault", "02018027:error")
        self.assertError(self.client.submit(REFRESH, {"page_state": "4", "interval": "5"}),
                         "(00:0d02)")
        self.site.restart_board("--fault", "020180b4:error")
        before = self.client.get(MAINTENANCE).body
        self.assertError(self.client.submit(MAINTENANCE, {"page_state": "4", "permission0": "1",
                                                          "mode33_0": "1"}), "(00:0d02)")
        self.assertEqual(self.client.get(MAINTENANCE).body, before)
        self.site.restart_board()

    def test_the_gallery_shows_every_component_valid_and_not(self):
        for language, charset in (("0", "EUC-JP"), ("1", "iso-8859-1"), ("x", "iso-8859-1")):
            answer = self.client.get("/common/gallery.cgi?language=" + language)
            self.assertTrue(answer.headers["content-type"].endswith(charset))
            page = answer.body
            self.assertEqual(page.count(b'<th scope="row">'), 30)
            self.assertEqual(page.count(b'<td class="wrong">'), 8 * 4)
            self.assertNotIn(b"<10>", page)
            self.assertNotIn(b"secret", page)


if __name__ == "__main__":
    unittest.main()
