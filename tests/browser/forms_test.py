"""Forms in a browser: whatever anybody types is text, and a file is sent and installed."""

import itertools
import pathlib
import tempfile

from selenium.common.exceptions import NoAlertPresentException
from console_pages import PAGES
from make_firmware import make_image
from support.browser_case import BrowserCase

REFRESH = "/network/orv_refresh_set.cgi"
FIRMWARE, IMAGE_SIZE = "/maintenance/orv_firmup.cgi", 90 << 20
# Cut to what a field takes. None holds a blank, which address fields show as another one.
NASTY_TEXTS = {1: ("<script>alert(1)</script>", "\"><img/src=x/onerror=alert(1)>",
                   "'\"&lt;&#65;&amp;", "</select></form>\""), 0: ("日本語<b>\"設定\"",)}


class Forms(BrowserCase):
    def test_what_is_typed_stays_text_in_both_languages(self):
        for user in sorted({page.user for page in PAGES}):
            self.addCleanup(self.set_language, user, 1)
            self.browser.login(user)
            for language, texts in NASTY_TEXTS.items():
                self.set_language(user, language)
                for page, text in itertools.product(PAGES, texts):
                    if page.user == user:
                        with self.subTest(page=page.path, text=text):
                            self.assertStaysText(page.path, text)

    def assertStaysText(self, path, text):
        self.browser.open(path)
        scripts = len(self.browser.all("script"))
        typed = {element.get_attribute("name"): text[:int(element.get_attribute("maxlength"))]
                 for element in self.browser.all("input[type=text]")}
        self.browser.fill(typed)
        self.browser.press("submit")
        with self.assertRaises(NoAlertPresentException):
            self.browser.driver.switch_to.alert.accept()
        self.assertEqual(len(self.browser.all("script")), scripts)
        self.assertEqual(self.browser.all("img[src=x]"), [])
        for name, value in typed.items():
            if self.browser.all("[name=back]"):
                self.assertIn(value, self.browser.text())
            else:
                self.assertEqual(self.browser.value(name), value)

    def test_going_back_and_reloading_send_nothing_again(self):
        self.browser.login("guest")
        for path, *inputs in (
                (REFRESH, {"interval": "4801"}, {"interval": "44"}, {}),
                ("/user/ch_passwd.cgi", {"present": "wrong"}, {"present": "wrong-again"})):
            self.browser.open("/system/sys_status.cgi")
            self.browser.open(path)
            for values in inputs:
                self.browser.fill(values)
                self.browser.press("submit")
                self.browser.leave(self.browser.driver.refresh)
                self.assertTrue(self.browser.all("main form"), values)
            while "sys_status" not in self.browser.driver.current_url:
                self.browser.leave(self.browser.driver.back)
                self.assertTrue(self.browser.all("main"), path)  # and no question of the browser
        self.browser.open(REFRESH)
        self.assertEqual(self.browser.value("interval"), "44")

    def test_an_image_is_sent_then_installed(self):
        image = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())) / "image.bin"
        image.write_bytes(make_image(IMAGE_SIZE, b"2.0.1"))
        self.browser.login("staff")
        for button in ("back", "submit"):
            self.browser.open(FIRMWARE)
            self.browser.fill({"browse_file": str(image)})
            self.browser.press("submit")
            for shown in ("image.bin", "2.0.1", str(IMAGE_SIZE)):
                self.assertIn(shown, self.browser.text())
            self.browser.press(button)
        self.browser.wait(lambda driver: driver.current_url.endswith("/common/progress.cgi"))
        self.browser.wait(lambda _: "100" in self.browser.text())  # the page reloads itself
        self.browser.open(FIRMWARE)
        self.assertIn("2.0.1", self.browser.text())
        self.assertEqual(list(pathlib.Path("/var/tmp").glob("tmp_*")), [])
