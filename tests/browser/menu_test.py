"""The menu, with frames and without: what each user finds there."""

import re

from selenium.webdriver.support import expected_conditions
from console_pages import FUNCTIONS
from support.browser_case import BrowserCase

TOP_MENUS = ["System", "Partition", "Switch", "User Administration", "Network Configuration",
             "Maintenance"]
PROPER_NAMES = {"Telnet"}
JAPANESE_TEXT = re.compile("[ぁ-んァ-ヶ一-龥]")


class Menu(BrowserCase):
    def links(self):
        """The texts of the menu's links."""
        self.browser.enter("MENU_FRAME")
        return [link.text.replace("\xa0", " ") for link in self.browser.all(".menu a")]

    def test_each_user_walks_what_the_menu_has(self):
        for user, functions in FUNCTIONS.items():
            with self.subTest(user=user):
                self.browser.login(user)
                links = self.links()
                self.assertEqual(len(links), len(functions))
                for number, name in enumerate(links):
                    with self.subTest(user=user, page=name):
                        self.walk(number, name)

    def walk(self, number, name):
        self.browser.enter("MENU_FRAME")
        link = self.browser.all(".menu a")[number]
        address = link.get_attribute("href")
        if self.browser.frames:
            link.click()
            self.browser.driver.switch_to.default_content()
            self.browser.wait(lambda driver: driver.current_url == address)
        else:
            self.browser.leave(link.click)
            self.assertTrue(self.browser.driver.title.startswith(name + " - "))
        self.browser.enter("CONT_FRAME")
        self.assertEqual(self.browser.one("h1").text.replace("\xa0", " "), name)
        self.browser.enter("MENU_FRAME")
        self.assertEqual([link.text.replace("\xa0", " ") for link in
                          self.browser.all(".menu a.current")], [name])
        self.browser.enter("INFO_FRAME")
        self.assertIn(f"> {name}", self.browser.text())

    def test_the_menu_speaks_the_users_language(self):
        self.browser.login("admin")
        self.browser.enter("MENU_FRAME")
        self.assertEqual([head.text.replace("\xa0", " ") for head in self.browser.all(".menu h2")],
                         TOP_MENUS)
        self.set_language("admin", 0)
        for function in FUNCTIONS["admin"]:
            self.browser.show(function)
            for element in self.browser.all("h1, h2, th, legend, .label, .page_head p"):
                text = element.text.strip()
                if re.search("[a-z]{4}", text) and text not in PROPER_NAMES:
                    self.assertRegex(text, JAPANESE_TEXT, function)
        self.set_language("admin", 1)

    def test_logging_out_asks_only_when_input_would_be_lost(self):
        for typed, accepted, is_out in ((None, None, True), ("77", False, False),
                                        ("77", True, True)):
            with self.subTest(typed=typed, accepted=accepted):
                self.browser.login("guest")
                self.browser.show(75)
                if typed:
                    self.browser.fill({"interval": typed})
                self.browser.enter("INFO_FRAME")
                self.browser.one("[name=logout]").click()
                if typed:
                    self.browser.wait(expected_conditions.alert_is_present())
                    alert = self.browser.driver.switch_to.alert
                    (alert.accept if accepted else alert.dismiss)()
                self.browser.driver.switch_to.default_content()
                if is_out:
                    self.browser.wait(lambda _: "You are logged out" in self.browser.text())
                else:
                    self.browser.enter("CONT_FRAME")
                    self.assertEqual(self.browser.value("interval"), typed)

    def test_an_expired_session_brings_the_whole_window_to_the_time_out_page(self):
        self.browser.login("admin")
        self.browser.show(75)
        self.client.session = self.browser.driver.get_cookie("sid")["value"]
        self.client.logout()
        self.browser.driver.find_element("name", "submit").click()
        self.browser.driver.switch_to.default_content()
        self.browser.wait(lambda driver: driver.current_url.endswith("/common/timeout.cgi"))
        self.assertIn("session has ended", self.browser.text())
