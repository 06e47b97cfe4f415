"""Forms in a browser: whatever anybody types is text, and a file is sent and installed."""

import itertools
import pathlib
import tempfile

from selenium.common.exceptions import NoAlertPresentException
from selenium.webdriver import ActionChains
from selenium.webdriver.common.keys import Keys
from console_pages import PAGES
from make_firmware import make_image
from support.browser_case import BrowserCase

REFRESH = "/network/orv_refresh_set.cgi"
FIRMWARE, IMAGE_SIZE = "/maintenance/orv_firmup.cgi", 90 << 20
# Six boxes for a MAC address, and a place to copy from.
MAC_BOXES = """document.body.append(document.createElement("textarea"));
    for (let box = 0; box < 6; box++) {
        document.forms[0].append(Object.assign(document.createElement("input"), {
            type: "text", name: "mac" + box, maxLength: 2}));
    }
    isUnsaved = false;"""
# Cut to what a field takes. None holds a blank, which address fields show as another one.
NASTY_TEXTS = {1: ("<script>alert(1)</script>", "\"><img/src=x/onerror=alert(1)>",
                   "'\"&lt;&#65;&amp;", "</select></form>\""), 0: ("日本語<b>\"設定\"",)}
# A group of boxes, what is pasted into the first one, and what the boxes then hold.
ADDRESS, MASKED, MAC = "IPAddressField_edit", "IPAddrMaskField_edit", "mac"
PASTED = (
    (ADDRESS, " 10.1.22.255\n", "10 1 22 255"), (MASKED, "10. 1.2. 3 /8", "10 1 2 3 8"),
    (MASKED, "10.1.2.3", "10 1 2 3 24"), *((MAC, text, "00 1B 21 ab cd ef") for text in (
        "00:1B:21:ab:cd:ef", "00-1B-21-ab-cd-ef", "001B.21ab.cdef", "001B21abcdef")),
    (ADDRESS, "10.1.2.3/8", "10. 0 2 10"), (ADDRESS, "http://10.1.2.3", "htt 0 2 10"),
    (ADDRESS, "10.1.2.256", "10. 0 2 10"), (MASKED, "10.1.2.3/33", "10. 0 2 10 24"),
    (MAC, "00:1B-21:ab:cd:ef", "00     "))
# What is typed into the first box of an empty group.
TYPED = (
    (ADDRESS, "192.0.2.1", "192 0 2 1"), (MASKED, "10.0.0.0/8", "10 0 0 0 8"),
    (ADDRESS, "1..2", "1 2  "), (MAC, "0:1:2-3", "0 1 2 3  "),
    (ADDRESS, "1.2." + 4 * Keys.BACKSPACE + "7", "7   "))


class Forms(BrowserCase):
    def test_an_address_is_pasted_and_typed_as_one_text(self):
        self.browser.open("/common/gallery.cgi")
        for group, text, expected in PASTED:
            with self.subTest(group=group, text=text):
                self.browser.driver.refresh()
                self.browser.driver.execute_script(MAC_BOXES)
                self.browser.one("textarea").send_keys(text, Keys.CONTROL, "ac")
                first = self.browser.one(f"[name={group}0]")
                first.send_keys(Keys.CONTROL, "av")
                self.assertBoxes(group, expected)
                self.assertTrue(self.browser.driver.execute_script("return isUnsaved"))
        for group, keys, expected in TYPED:
            with self.subTest(group=group, keys=keys):
                for box in self.boxes_of(group):
                    box.clear()
                self.browser.one(f"[name={group}0]").click()
                ActionChains(self.browser.driver).send_keys(keys).perform()
                self.assertBoxes(group, expected)

    def boxes_of(self, group):
        return [self.browser.one(f"[name={group}{number}]") for number in range(6)
                if self.browser.all(f"[name={group}{number}]")]

    def assertBoxes(self, group, expected):
        self.assertEqual(" ".join(box.get_attribute("value") for box in self.boxes_of(group)),
                         expected)

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

    def test_enter_sends_a_form_and_escape_leads_back_to_it(self):
        self.browser.login("guest")
        self.browser.open(REFRESH)
        self.browser.fill({"interval": "77"})
        ActionChains(self.browser.driver).send_keys(Keys.ESCAPE).perform()
        for key, is_asked in ((Keys.ENTER, True), (Keys.ESCAPE, False)):
            self.browser.leave(ActionChains(self.browser.driver).send_keys(key).perform)
            self.assertEqual(bool(self.browser.all("[name=back]")), is_asked)
            self.assertEqual(self.browser.value("interval"), "77")

    def test_an_image_is_sent_then_installed(self):
        image = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())) / "image.bin"
        image.write_bytes(make_image(IMAGE_SIZE, b"2.0.1"))
        self.browser.login("staff")
        for button in ("back", "submit"):
            self.browser.open(FIRMWARE)
            self.browser.fill({"browse_file": str(image)})
            for _ in range(2):  # the button itself puts a path there
                self.assertEqual(self.browser.value("file"), "image.bin")
                self.browser.one("[type=button]").click()
            self.browser.press("submit")
            for shown in ("image.bin", "2.0.1", str(IMAGE_SIZE)):
                self.assertIn(shown, self.browser.text())
            self.browser.press(button)
        self.browser.wait(lambda driver: driver.current_url.endswith("/common/progress.cgi"))
        self.browser.wait(lambda _: "100" in self.browser.text())  # the page reloads itself
        self.browser.open(FIRMWARE)
        self.assertIn("2.0.1", self.browser.text())
        self.assertEqual(list(pathlib.Path("/var/tmp").glob("tmp_*")), [])
