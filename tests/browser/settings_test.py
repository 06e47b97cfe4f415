"""Settings pages, one after the other: what anybody types is text."""

import unittest

from support.browser_case import BrowserCase
from support.console_pages import PAGES
from selenium.common.exceptions import NoAlertPresentException

# Cut to what a field takes. None holds a blank, which address fields show as another one.
NASTY_TEXTS = ("<script>alert(1)</script>", "\"><img/src=x/onerror=alert(1)>", "'\"&lt;&#65;&amp;",
               "</select></form>\"")
JAPANESE_TEXT = "日本語<b>\"設定\""
USERS = sorted({page.user for page in PAGES})


class Settings(BrowserCase):
    def for_each_page(self, check):
        """Opens every page, its user logged in."""
        for user in USERS:
            self.browser.login(user)
            for page in PAGES:
                if page.user == user:
                    with self.subTest(page=page.path):
                        self.browser.open(page.path)
                        check(page)

    def test_what_is_typed_stays_text(self):
        self.for_each_page(lambda page: self.assertTextsStayTexts(page, NASTY_TEXTS))

    def test_what_is_typed_in_japanese_stays_text(self):
        for user in USERS:
            self.set_language(user, 0)
            self.addCleanup(self.set_language, user, 1)
        self.for_each_page(lambda page: self.assertTextsStayTexts(page, (JAPANESE_TEXT,)))

    def assertTextsStayTexts(self, page, texts):
        for text in texts:
            self.browser.open(page.path)
            scripts = len(self.browser.all("script"))
            typed = self.type_everywhere(text)
            self.browser.press("submit")
            with self.assertRaises(NoAlertPresentException):
                self.browser.driver.switch_to.alert.accept()
            self.assertEqual(len(self.browser.all("script")), scripts)
            self.assertEqual(self.browser.all("img[src=x]"), [])
            self.assertShownAsTyped(typed)

    def type_everywhere(self, text):
        typed = {}
        for element in self.browser.all("input[type=text]"):
            typed[element.get_attribute("name")] = text[:int(element.get_attribute("maxlength"))]
        self.browser.fill(typed)
        return typed

    def assertShownAsTyped(self, typed):
        for name, text in typed.items():
            if self.browser.all("[name=back]"):
                self.assertIn(text, self.browser.text())
            else:
                self.assertEqual(self.browser.value(name), text)


if __name__ == "__main__":
    unittest.main()
