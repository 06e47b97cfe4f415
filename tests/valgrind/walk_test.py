"""A walk through the whole console, pages and daemon under valgrind: no error, nothing lost.

What can still be reached when a program ends may stay.
"""

import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from console_check import FAULTS
from console_client import ConsoleClient, Form
from console_site import PROJECT, ConsoleSite
from settings_pages import PAGES

VALGRIND = "/usr/bin/valgrind"
OPTIONS = ("--leak-check=full", "--show-leak-kinds=definite,indirect,possible", "--vgdb=no",
           "--errors-for-leak-kinds=definite,indirect,possible", "--read-inline-info=no")
USERS, ACCESS_LIST = "/user/list.cgi", "/network/orv_acl_set.cgi"
FIRMWARE, BACKUP = "/maintenance/orv_firmup.cgi", "/maintenance/orv_backup_restore.cgi"
POWER, PARTITION_POWER = "/system/power_control.cgi", "/partition/power_control.cgi"
INSPECTOR = "/common/request.cgi"
DONE, WRONG, ASKED = b'role="status"', b"err_string", b'name="back"'
PROGRESS = b"/common/progress.cgi"

# What takes no more than forms: user, page, and for each form what is filled in and then seen.
NEW = {"name": "new.user", "password": "new.user-pass", "repeated": "new.user-pass"}
PASSWORD = {"present": "new.user-pass", "wanted": "secret-12", "repeated": "secret-12"}
FLOWS = (
    ("admin", USERS + "?action=add", ({**NEW, "name": "admin"}, WRONG), (NEW, DONE)),
    ("admin", USERS + "?action=edit&name=new.user", ({"role": "operator"}, DONE)),
    ("new.user", "/user/ch_passwd.cgi", ({**PASSWORD, "repeated": "x"}, WRONG), (PASSWORD, DONE)),
    ("admin", USERS + "?action=remove&name=new.user", ({}, DONE)),
    ("admin", USERS + "?action=remove&name=admin", ({}, WRONG)),
    ("admin", ACCESS_LIST + "?operation=add", ({"address0": "256"}, WRONG),
     ({f"address{i}": "24" for i in range(5)}, ASKED), ({}, DONE)),
    ("admin", POWER, ({}, WRONG), ({"operation": "reset"}, ASKED), ({}, DONE)),
    ("part", PARTITION_POWER + "?partition=0", ({"operation": "off"}, ASKED), ({}, DONE)),
)


class Walk(unittest.TestCase):
    def setUp(self):
        self.run_folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        options = " ".join((*OPTIONS, f"--log-file={self.run_folder}/valgrind.%p"))
        os.environ["VALGRIND_OPTS"] = options
        self.site = ConsoleSite(os.environ["CONSOLE_BUILD"], self.run_folder,
                                environment={"VALGRIND_OPTS": options}, runner=VALGRIND)

    def client(self, user="admin"):
        client = ConsoleClient(self.site.url)
        client.login(user)
        self.assertTrue(client.session, user)
        return client

    def test_no_program_has_an_error_or_a_leak(self):
        with self.site, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            walks = [pool.submit(walk) for walk in (self.flows, self.menu, self.files, self.others)]
            walks += [pool.submit(self.settings, page) for page in PAGES]
            for walk in walks:
                walk.result()
            self.faults()
        self.read_reports()

    def read_reports(self):
        pages = self.site.build / "site/usr/local/www/htdocs"
        unseen = {str(page) for page in pages.glob("*/*.cgi")} | {
            str(self.site.build / "board/orvboardd")}
        for report in self.run_folder.glob("valgrind.*"):
            text = report.read_text(encoding="utf-8", errors="replace")
            program = re.search(r" Command: (\S+)", text)[1]
            unseen.discard(program)
            with self.subTest(program=program):
                self.assertTrue("ERROR SUMMARY: 0 errors" in text, text)
        self.assertEqual(unseen, set())

    def send(self, client, page, changes, expected):
        """Sends a page's form with some fields changed, True or False for a box."""
        form = Form(page)
        fields = {name: "1" if value is True else value.encode("latin-1", "xmlcharrefreplace")
                  for name, value in {**form.fields, **changes}.items() if value is not False}
        page = client.post(form.path, fields).body
        self.assertIn(expected, page, (form.path, fields))
        return page

    def settings(self, page):
        client = self.client(page.user)
        shown = client.get(page.path).body
        for name, value in page.wrong:
            self.send(client, shown, {**page.valid, name: value}, WRONG)
        asked = self.send(client, shown, page.valid, ASKED)
        again = self.send(client, asked, {"back": "1"}, b'type="submit"')
        self.send(client, self.send(client, again, {}, ASKED), {}, DONE)

    def flows(self):
        for user, path, *forms in FLOWS:
            client = self.client(user)
            page = client.get(path).body
            for changes, expected in forms:
                page = self.send(client, page, changes, expected)

    def menu(self):
        """What the menu leads to, in both languages."""
        for client in (self.client("admin"), self.client("operator")):
            menu = client.get("/common/menu.cgi?load=1&tid=0&mid=3").body
            pages = {}
            for link in re.findall(rb'href="(/common/frame[^"]*)"', menu):
                frameset = client.get(link.decode()).body.decode("latin-1")
                pages |= {page: frame for frame, page in
                          re.findall(r' src="((/[^"]*cgi)[^"]*)"', frameset)}
            for frame in pages.values():
                self.assertIn(b"</html>", client.get(frame).body)

    def files(self):
        """Files that are taken, and that are not."""
        client = self.client()
        image = self.run_folder / "image"
        subprocess.run([sys.executable, PROJECT / "tools/make_firmware.py", "200000", "2.0", image],
                       check=True)
        whole, saved = image.read_bytes(), client.get(BACKUP + "?download=1").body
        for path, content, *seen in (
                (FIRMWARE, whole[:-1], WRONG), (FIRMWARE, whole, ASKED, PROGRESS),
                (BACKUP, saved[:-1], ASKED, WRONG), (BACKUP, saved, ASKED, DONE)):
            fields = {name.encode(): value.encode()
                      for name, value in Form(client.get(path).body).fields.items()}
            page = client.upload(path, fields, b"file", content).body
            self.assertIn(seen[0], page)
            for expected in seen[1:]:
                page = self.send(client, page, {}, expected)
        client.get("/common/progress.cgi")

    def others(self):
        """Without a session, with a stale one, without the right; tools, and the way out."""
        client = ConsoleClient(self.site.url)
        for client.session in (None, "stale"):
            self.assertIn(b"/common/timeout.cgi", client.get(USERS).body)
        client.get("/common/timeout.cgi")
        for language in "01":
            client.get("/common/gallery.cgi?language=" + language)
        client.post(INSPECTOR, {"text": b"\xe9<>" * 1000})
        client.upload(INSPECTOR, {b"comment": b"c"}, b"f", bytes(200_000))
        self.assertEqual(client.request("POST", INSPECTOR, "x=%4").status, 400)
        client = self.client("staff")
        self.assertIn("(00:0502)", client.get(USERS).text())
        client.get("/system/sel_filtering.cgi?severity=info&source=power&count=9&search=1")
        client.get("/system/sel_filtering.cgi?first0=2026&first1=2&first2=30&search=1")
        client.get("/common/logout.cgi")
        client.logout()

    def faults(self):
        """What the board can do wrong, and at last a user."""
        client = self.client()
        for kind, code in FAULTS.items():
            self.site.restart_board("--fault", "checkSession:" + kind)
            self.assertIn(code, client.get(USERS).text())
        self.assertNotIn("set-cookie", client.login("admin", "wrong").headers)


if __name__ == "__main__":
    unittest.main()
