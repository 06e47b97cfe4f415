"""Settings pages, one after the other: what is set stays, what is wrong is refused, what anybody
types is text."""

import unittest

from browser_case import BrowserCase
from settings_pages import PAGES
from selenium.common.exceptions import NoAlertPresentException

# Cut to what a field takes. None holds a blank, which address fields show as another one.
NASTY_TEXTS = ("<script>alert(1)</script>", "\"><img/src=x/onerror=alert(1)>", "'\"&lt;&#65;&amp;",
               "</select></form>\"")
JAPANESE = "日本語<b>\"設定\""


class Settings(BrowserCase):
    def open(self, page):
        self.browser.open(page.path)

    def values(self, page):
        return {name: self.browser.value(name) for name in page.valid}

    def each_page(self):
        """Every page, its user logged in."""
        user = None
        for page in sorted(PAGES, key=lambda page: page.user):
            if page.user != user:
                user = page.user
                self.browser.login(user)
            with self.subTest(page=page.path):
                self.open(page)
                yield page

    def test_a_setting_is_found_again_after_a_restart(self):
        for page in self.each_page():
            self.assertNotEqual(self.values(page), page.valid)
            self.browser.fill(page.valid)
            self.browser.press("submit")
            self.assertEqual(self.browser.all("[role=alert] .err_string"), [])
            if self.browser.all("[name=back]"):
                self.browser.press("back")
                self.assertEqual(self.values(page), page.valid)
                self.browser.press("submit")
                self.browser.press("submit")
            self.browser.one("[role=status]")
            self.browser.press("OK")
            self.assertEqual(self.values(page), page.valid)
        self.site.restart_board()
        for page in self.each_page():
            self.assertEqual(self.values(page), page.valid)

    def test_wrong_input_is_marked_and_changes_nothing(self):
        for page in self.each_page():
            before = self.values(page)
            for name, value in page.wrong.items():
                with self.subTest(field=name, value=value):
                    self.open(page)
                    self.browser.fill({**page.valid, name: value})
                    self.browser.press("submit")
                    marked = self.browser.one(".wrong .err_string, [role=alert] .err_string")
                    self.assertNotEqual(marked.text.strip(), "")
                    self.assertEqual(self.browser.value(name), value)
                    self.open(page)
                    self.assertEqual(self.values(page), before)

    def assertShownAsTyped(self, typed):
        for name, text in typed.items():
            if self.browser.all(".value"):
                self.assertIn(text, self.browser.text())
            else:
                self.assertEqual(self.browser.value(name), text)

    def type_everywhere(self, text):
        typed = {}
        for element in self.browser.all("input[type=text]"):
            typed[element.get_attribute("name")] = text[:int(element.get_attribute("maxlength"))]
        self.browser.fill(typed)
        return typed

    def assertTextsStayTexts(self, texts):
        for page in self.each_page():
            for text in texts:
                self.open(page)
                scripts = len(self.browser.all("script"))
                typed = self.type_everywhere(text)
                self.browser.press("submit")
                with self.assertRaises(NoAlertPresentException):
                    self.browser.driver.switch_to.alert.accept()
                self.assertEqual(len(self.browser.all("script")), scripts)
                self.assertEqual(self.browser.all("img[src=x]"), [])
                self.assertShownAsTyped(typed)

    def test_what_is_typed_stays_text(self):
        self.assertTextsStayTexts(NASTY_TEXTS)

    def test_what_is_typed_in_japanese_stays_text(self):
        for user in {page.user for page in PAGES}:
            self.set_language(user, 0)
        self.assertTextsStayTexts((JAPANESE, *NASTY_TEXTS))
        for user in {page.user for page in PAGES}:
            self.set_language(user, 1)


if __name__ == "__main__":
    unittest.main()
