"""What takes more than a form: files, maintenance, events."""

import hashlib
import pathlib
import subprocess
import sys
import tempfile
import unittest

from support import PROJECT
from support.browser_case import BrowserCase

FIRMWARE = "/maintenance/orv_firmup.cgi"
LARGEST_IMAGE = 90 << 20


def temporary_uploads():
    return set(pathlib.Path("/var/tmp").glob("tmp_*"))


class Flows(BrowserCase):
    def setUp(self):
        self.files = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.uploads_before = temporary_uploads()

    def tearDown(self):
        super().tearDown()
        self.assertEqual(temporary_uploads() - self.uploads_before, set())

    def image(self, size, version):
        path = self.files / "image.bin"
        subprocess.run([sys.executable, PROJECT / "scripts" / "make_firmware.py", str(size), version,
                        path], check=True)
        return path

    def send_file(self, path):
        self.browser.fill({"browse_file": str(path)})
        self.browser.press("submit")

    def test_an_image_is_looked_at_then_installed(self):
        self.browser.login("staff")
        self.browser.open(FIRMWARE)
        image = self.image(LARGEST_IMAGE, "2.0.1")
        wrong = self.files / "wrong.bin"
        wrong.write_bytes(image.read_bytes()[:-1])
        self.send_file(wrong)
        self.assertNotEqual(self.browser.one("[role=alert] .err_string").text, "")
        self.assertEqual(self.browser.all("[name=back]"), [])
        self.send_file(image)
        digest = hashlib.sha256(image.read_bytes()).hexdigest()
        for shown in ("image.bin", "2.0.1", str(LARGEST_IMAGE), digest):
            self.assertIn(shown, self.browser.text())
        self.browser.press("back")
        self.send_file(image)
        self.browser.press("submit")
        self.browser.wait(lambda driver: driver.current_url.endswith("/common/progress.cgi"))
        self.browser.wait(lambda _: "100" in self.browser.text())
        self.browser.open(FIRMWARE)
        self.assertIn("2.0.1", self.browser.text())

    def test_technical_staff_follows_the_maintenance_rule(self):
        self.client.login("admin")
        session = self.client.session
        self.browser.login("staff")
        for mode, permission, allowed in (("00", 0, False), ("01", 0, False), ("01", 1, True),
                                          ("00", 1, False)):
            with self.subTest(mode=mode, permission=permission):
                self.set_maintenance(session, mode, permission)
                self.browser.open("/common/menu.cgi")
                self.assertEqual(bool(self.browser.all('a[href$="fid=10"]')), allowed)
                self.browser.open("/system/power_control.cgi")
                self.assertEqual("(00:0502)" in self.browser.text(), not allowed)

    def set_maintenance(self, session, mode, permission):
        self.site.boardctl("set", session, "0x020100b4", "00" * 33 + mode)
        packet = self.site.boardctl("get", session, "0x020100d1")
        self.site.boardctl("set", session, "0x020100d1", packet[:-2] + f"{permission:02x}")

    def test_events_are_searched_and_explained(self):
        self.client.login("admin")
        image = self.image(100, "<i>%s%n").read_bytes()
        self.site.boardctl("set", self.client.session, "0x02010064", (bytes(4) + image).hex())
        self.browser.login("guest")
        self.browser.open("/system/sel_filtering.cgi")
        self.browser.fill({"severity": "info", "source": "firmware"})
        self.browser.press("search")
        self.assertIn("<i>%s%n", self.browser.text())
        self.assertEqual(self.browser.all("td i"), [])
        self.browser.fill({"first0": "2026", "first1": "2", "first2": "30"})
        self.browser.press("search")
        self.assertNotEqual(self.browser.one(".wrong .err_string").text, "")


if __name__ == "__main__":
    unittest.main()
