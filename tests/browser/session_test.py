"""The end of a session in a browser: the warning, and what becomes of what was typed."""

import time

from selenium.webdriver.common.keys import Keys
from support.browser_case import BrowserCase

SECONDS = 8  # of a session; the warning comes after half of them
REFRESH, SCHEDULE, PASSWORD = 75, 31, 63
ANOTHER_TAB = "the same, in another tab"
STORED = "return JSON.stringify(sessionStorage)"


class Session(BrowserCase):
    def setUp(self):
        self.addCleanup(self.site.restart_board)

    def end(self):
        self.client.session = self.browser.driver.get_cookie("sid")["value"]
        self.client.logout()

    def is_open(self, dialog):
        self.browser.wait(lambda _: self.browser.all(f"#session_{dialog}[open]"))

    def focused(self):
        return self.browser.driver.switch_to.active_element

    def log_in_again(self, user):
        """On the time-out page or the dialog."""
        self.browser.leave(self.browser.one("a[href='/common/login.cgi']").click)
        self.browser.driver.switch_to.default_content()
        self.browser.fill({"user": user, "password": user + "-pass"})
        self.browser.press("login")
        self.browser.wait(lambda driver: "/common/login.cgi" not in driver.current_url)
        self.browser.enter("CONT_FRAME")

    def test_the_warning_lets_the_user_stay(self):
        self.site.restart_board("--session-timeout", str(SECONDS))
        self.browser.open("/")
        self.browser.driver.execute_script("sessionStorage.clear()")  # another board had more time
        for key, stays in ((Keys.ENTER, True), (Keys.ESCAPE, False)):
            self.browser.login("guest")
            self.browser.show(REFRESH)
            self.browser.fill({"interval": "77"})
            self.is_open("ending")
            self.assertEqual(self.focused().get_attribute("value"), "stay")
            self.assertRegex(self.browser.one("[role=timer]").text, "^0:0[1-4]$")
            self.focused().send_keys(key)
            self.browser.wait(lambda _: not self.browser.all("dialog[open]"))
            self.assertEqual(self.focused().get_attribute("name"), "interval")
            if stays:
                self.client.session = self.browser.driver.get_cookie("sid")["value"]
                self.assertIn(b'"left": %d' % SECONDS, self.client.get("/common/session.cgi").body)
        time.sleep(1.5)
        self.assertEqual(self.browser.all("dialog[open]"), [])  # the user knows
        self.is_open("ended")
        self.assertIn("is kept", self.browser.text())
        self.log_in_again("guest")
        self.assertPutBack({"interval": "77"})

    def test_input_that_was_sent_too_late_comes_back_for_its_user(self):
        days = {"weekday6": True, "first_day0": "2027", "enabled0": True}
        for user, function, values, steps, next_user in (
                ("guest", REFRESH, {"interval": "77"}, 1, "guest"),
                ("guest", REFRESH, {"interval": "78"}, 2, "guest"),
                ("guest", REFRESH, {"interval": "77"}, 1, "staff"),
                ("guest", PASSWORD, dict.fromkeys(("present", "wanted"), "secret-1"), 1, "guest"),
                ("part", SCHEDULE, days, 1, "part"), ("part", SCHEDULE, days, 1, ANOTHER_TAB)):
            with self.subTest(function=function, steps=steps, next_user=next_user):
                self.browser.login(user)
                self.browser.show(function)
                if function == SCHEDULE:
                    self.browser.leave(self.browser.one("a[href$='partition=3']").click)
                self.browser.fill(values)
                for _ in range(steps - 1):
                    self.browser.press("submit")
                self.end()
                if next_user == ANOTHER_TAB:
                    self.client.login(user)
                    self.browser.driver.add_cookie({"name": "sid", "value": self.client.session})
                self.browser.one("[name=submit]").click()
                if next_user != ANOTHER_TAB:
                    self.browser.driver.switch_to.default_content()
                    self.browser.wait(lambda driver: "timeout.cgi" in driver.current_url)
                    self.assertNotIn("secret", self.browser.driver.execute_script(STORED))
                    self.log_in_again(next_user)
                if function == PASSWORD or next_user not in (user, ANOTHER_TAB):
                    self.assertForgotten()
                else:
                    self.assertPutBack(values)

    def assertForgotten(self):
        self.browser.wait(lambda driver: "console.input" not in driver.execute_script(STORED))
        self.assertEqual(self.browser.all("[role=status]"), [])

    def assertPutBack(self, values):
        self.browser.wait(lambda _: self.is_put_back())
        for name, value in values.items():
            self.assertEqual(self.browser.value(name), value)
        self.assertEqual(self.focused().get_attribute("role"), "status")
        self.assertNotIn("console.input", self.browser.driver.execute_script(STORED))

    def is_put_back(self):
        self.browser.enter("CONT_FRAME")
        return "input from before" in self.browser.text()

    def test_an_answered_form_and_a_log_out_forget_what_was_typed(self):
        self.browser.login("guest")
        self.browser.show(REFRESH)
        self.browser.fill({"interval": "77"})
        self.browser.press("submit")
        self.assertIn('"77"', self.browser.driver.execute_script(STORED).replace("\\", ""))
        self.browser.press("submit")
        self.assertNotIn("console.input", self.browser.driver.execute_script(STORED))
        self.browser.enter("INFO_FRAME")
        self.browser.one("[name=logout]").click()
        self.browser.driver.switch_to.default_content()
        self.browser.wait(lambda _: "logged out" in self.browser.text())
        self.assertEqual(self.browser.driver.execute_script(STORED), "{}")
