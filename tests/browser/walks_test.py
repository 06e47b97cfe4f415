"""From the log-in to a changed setting: by keyboard alone, and without JavaScript."""

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys
from support.browser_case import BrowserCase

MOST_STOPS = 150  # of the Tab key on one page
REFRESH, CHANGED = "/network/orv_refresh_set.cgi", "have been changed"
MENU_LINK = f"nav a[href*='{REFRESH}']"


class Walks(BrowserCase):
    def type(self, *keys):
        ActionChains(self.browser.driver).send_keys(*keys).perform()

    def retype(self, text):
        """Types over what a box holds."""
        keys = ActionChains(self.browser.driver)
        keys.key_down(Keys.CONTROL).send_keys("a").key_up(Keys.CONTROL).send_keys(text).perform()

    def tab_to(self, selector):
        """Presses Tab until an element has the focus. Every stop on the way must show that."""
        for _ in range(MOST_STOPS):
            self.type(Keys.TAB)
            focused = self.browser.driver.switch_to.active_element
            if focused.tag_name == "body":
                continue  # the last stop is the browser's own
            self.assertNotEqual(focused.value_of_css_property("outline-style"), "none",
                                focused.get_attribute("outerHTML"))
            if focused in self.browser.all(selector):
                return
        self.fail(f"Tab does not reach {selector}")

    def test_by_keyboard_alone(self):
        self.browser.driver.delete_all_cookies()
        self.browser.open("/")
        self.tab_to("[name=user]")
        self.type("guest")
        self.tab_to("[name=password]")
        self.type("guest-pass")
        self.browser.leave(lambda: self.type(Keys.ENTER))
        self.tab_to(MENU_LINK)
        self.browser.leave(lambda: self.type(Keys.ENTER))
        self.tab_to("[name=interval]")
        self.retype("4801")
        self.browser.leave(lambda: self.type(Keys.ENTER))
        self.assertEqual(self.browser.driver.switch_to.active_element.get_attribute("name"),
                         "interval")
        self.retype("48")
        self.browser.leave(lambda: self.type(Keys.ENTER))
        self.tab_to("[name=submit]")
        self.browser.leave(lambda: self.type(Keys.ENTER))
        self.assertIn(CHANGED, self.browser.text())

    def test_without_javascript(self):
        self.browser.allow_scripts(False)
        self.addCleanup(self.browser.allow_scripts, True)
        self.browser.login("staff")
        self.browser.leave(self.browser.one(MENU_LINK).click)
        self.browser.fill({"interval": "4801"})
        self.browser.press("submit")
        self.browser.fill({"interval": "49"})
        self.browser.press("submit")
        self.browser.press("submit")
        self.assertIn(CHANGED, self.browser.text())
        self.browser.open(REFRESH)
        self.assertEqual(self.browser.value("interval"), "49")
        self.browser.press("logout")
        self.assertIn("You are logged out", self.browser.text())
