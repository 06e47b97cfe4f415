"""What takes more than a form: users, files, power, events."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

from browser_case import BrowserCase
from console_site import PROJECT

USERS, FIRMWARE, BACKUP = "/user/list.cgi", "/maintenance/orv_firmup.cgi", \
    "/maintenance/orv_backup_restore.cgi"
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
        subprocess.run([sys.executable, PROJECT / "tools" / "make_firmware.py", str(size), version,
                        path], check=True)
        return path

    def send_file(self, path, content=None):
        if content is not None:
            path.write_bytes(content)
        self.browser.fill({"browse_file": str(path)})
        self.browser.press("submit")

    def error(self):
        return self.browser.one("[role=alert] .err_string").text

    def test_a_user_is_added_changed_and_removed(self):
        self.browser.login("admin")
        self.browser.open(USERS + "?action=add")
        new = {"name": "new.user", "password": "secret-12", "repeated": "secret-12",
               "role": "partition", "partition1": True, "language": "1"}
        for wrong, hint in (({"name": "1st"}, "letter"), ({"repeated": "secret-13"}, "differ"),
                            ({"partition1": False}, "partition"), ({"name": "admin"}, "already")):
            self.browser.fill({**new, **wrong})
            self.browser.press("submit")
            self.assertIn(hint, " ".join(e.text for e in self.browser.all(".err_string")))
            self.assertEqual(self.browser.value("password"), "")
        self.browser.fill(new)
        self.browser.press("submit")
        self.browser.one("[role=status]")
        self.browser.login("new.user", "secret-12")
        self.browser.show(30)
        self.assertEqual([tab.text.replace("\xa0", " ") for tab in self.browser.all(".tabs a")],
                         ["Partition 1"])

        self.browser.login("admin")
        self.browser.open(USERS + "?action=edit&name=new.user")
        self.browser.fill({"role": "guest", "partition1": False})
        self.browser.press("submit")
        self.browser.one("[role=status]")
        self.browser.login("new.user", "secret-12")
        self.browser.show(30)
        self.assertIn("(00:0502)", self.browser.text())

        self.browser.login("admin")
        self.browser.open(USERS + "?action=remove&name=new.user")
        self.browser.press("submit")
        self.browser.press("OK")
        self.assertNotIn("new.user", self.browser.text())
        self.browser.open(USERS + "?action=remove&name=admin")
        self.browser.press("submit")
        self.assertNotEqual(self.error(), "")
        self.assertFalse(self.client.login("new.user", "secret-12").headers.get("set-cookie"))

    def test_an_image_is_looked_at_then_installed(self):
        self.browser.login("staff")
        self.browser.open(FIRMWARE)
        image = self.image(LARGEST_IMAGE, "2.0.1")
        whole = image.read_bytes()
        for content in (whole[:-1], whole + b"x", b"", whole[:63], b"X" + whole[1:]):
            self.send_file(self.files / "wrong.bin", content)
            self.assertNotEqual(self.error(), "")
            self.assertEqual(self.browser.all("[name=back]"), [])
        self.send_file(image)
        digest = subprocess.run(["sha256sum", image], capture_output=True, text=True,
                                check=True).stdout.split()[0]
        for shown in ("image.bin", "2.0.1", str(LARGEST_IMAGE), digest):
            self.assertIn(shown, self.browser.text())
        self.browser.press("back")
        self.send_file(image)
        self.browser.press("submit")
        self.browser.wait(lambda driver: driver.current_url.endswith("/common/progress.cgi"))
        self.browser.wait(lambda _: "100" in self.browser.text())
        self.browser.open(FIRMWARE)
        self.assertIn("2.0.1", self.browser.text())

    def test_settings_are_saved_and_restored(self):
        self.client.login("admin")
        saved = self.client.get(BACKUP + "?download=1")
        self.assertIn("attachment", saved.headers["content-disposition"])
        session = self.client.session
        before = self.site.boardctl("get", session, "0x0201000b")
        self.site.boardctl("set", session, "0x0201000b", b"blink\0".hex())
        self.browser.login("admin")
        self.browser.open(BACKUP)
        self.send_file(self.files / "damaged.txt", saved.body.replace(b"item", b"ITEM", 1))
        self.browser.press("submit")
        self.assertNotEqual(self.error(), "")
        self.assertNotEqual(self.site.boardctl("get", session, "0x0201000b"), before)
        self.send_file(self.files / "settings.txt", saved.body)
        self.browser.press("submit")
        self.browser.one("[role=status]")
        self.assertEqual(self.site.boardctl("get", session, "0x0201000b"), before)

    def test_power_is_switched_after_a_warning(self):
        self.browser.login("part")
        self.browser.open("/partition/power_control.cgi?partition=0")
        self.browser.press("submit")
        self.assertNotEqual(self.error(), "")
        self.browser.fill({"operation": "force-off"})
        self.browser.press("submit")
        self.assertIn("lost", self.browser.text())
        self.browser.press("submit")
        self.browser.press("OK")
        self.browser.open("/system/sys_status.cgi")
        row = next(row.text for row in self.browser.all("tr") if "Partition 0" in
                   row.text.replace("\xa0", " "))
        self.assertIn("Off", row)
        self.browser.open("/system/pel.cgi")
        self.assertIn("Powered off by force: partition 0", self.browser.text())

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
