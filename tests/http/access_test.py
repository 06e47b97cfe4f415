"""Who gets in: whatever changes something, sent by all who must not, in all the ways they have."""

import contextlib
import hashlib
import json
import re
import shutil
import sqlite3
import time
import urllib.parse

from console_check import sent
from console_client import LOGIN, LOGOUT, ConsoleClient
from console_pages import ASKED, DONE, FUNCTIONS, PAGES, SettingsPage, boxes
from make_firmware import make_image
from support.site_case import SiteCase

SESSION = "/common/session.cgi"
USERS, ACCESS_LIST = "/user/list.cgi", "/network/orv_acl_set.cgi"
BACKUP, FIRMWARE = "/maintenance/orv_backup_restore.cgi", "/maintenance/orv_firmup.cgi"
SECRETS = {"new-secret", *(user + "-pass" for user in FUNCTIONS)}
PASSWORDS = ("present", "wanted", "repeated")
# The last page permits maintenance, which gives the staff more rights.
FORMS = (*(SettingsPage(*words, user=user) for *words, user in (
    (10, "/system/power_control.cgi", {"operation": "off"}, "admin"),
    (30, "/partition/power_control.cgi?partition=1", {"operation": "on"}, "operator"),
    (88, ACCESS_LIST + "?operation=add", boxes("address", "10 0 0 0 24"), "admin"),
    (88, ACCESS_LIST + "?operation=remove&row=10.0.0.0/24", {}, "admin"),
    (60, USERS + "?action=add", {"name": "new", "role": "guest", "password": "new-secret",
                                 "repeated": "new-secret"}, "admin"),
    (60, USERS + "?action=edit&name=new", {"role": "operator"}, "admin"),
    (60, USERS + "?action=remove&name=new", {}, "admin"),
    (63, "/user/ch_passwd.cgi", dict.fromkeys(PASSWORDS, "guest-pass"), "guest"))), *PAGES)
SEARCH = "/system/sel_filtering.cgi?search=1&severity=info&source=power&count=200"
READ_ONLY = {3: "/system/sys_status.cgi", 7: "/system/sel_filtering.cgi", 64: "/user/who.cgi",
             95: "/common/progress.cgi", 153: "/system/pel.cgi"}
OTHERS = (LOGIN, LOGOUT, BACKUP + "?download=1", FIRMWARE, "/", "/default.css", "/console.js",
          "/session.js", "/no", "/no/", "/common/", "/no.cgi", *(f"/common/{name}.cgi" for name in (
              "timeout", "frame", "menu", "information", "session", "gallery", "request")))
PROBATION = 0x0201004e
FOREIGN = ({"Origin": "http://evil.example"}, {"Origin": "null"}, {"Origin": "http://127.0.0.1:1"},
           {"Sec-Fetch-Site": "cross-site"}, {"Sec-Fetch-Site": "same-site"})
FORGED_STATES = ("", "1", "2", "3", "04", "4294967298")


class WatchedClient(ConsoleClient):
    pages = []

    def request(self, *arguments):
        answer = super().request(*arguments)
        self.pages.append(str(answer.body))
        SECRETS.update({self.session} - {None})
        return answer


class Access(SiteCase):
    tls_port = 0

    def setUp(self):
        self.clients = {user: WatchedClient(self.site.url) for user in FUNCTIONS}
        for user, client in self.clients.items():
            client.login(user)
        # Settings that wait to be confirmed would come back during the tests.
        self.site.boardctl("set", self.clients["admin"].session, "0x02010051", "00000000")

    def tearDown(self):
        super().tearDown()
        # The log notes failed exchanges with their session, and is therefore not for everybody.
        self.assertEqual(self.site.trace_log.stat().st_mode & 0o077, 0)
        lines = [line for log in self.site.run.glob("*.log")
                 for line in log.read_text(encoding="latin-1").splitlines()
                 if " CGIRequester::" not in line]
        written = "\n".join((*lines, *WatchedClient.pages))
        self.assertEqual([secret for secret in SECRETS if secret in written], [])

    def state(self):
        """All that the board keeps, but sessions and events; and whether an image is staged."""
        copies = [shutil.copy(self.site.run / f"board.db{log}", f"{self.run_folder}/copy.db{log}")
                  for log in ("", "-wal")]
        with contextlib.closing(sqlite3.connect(copies[0])) as database:
            kept = [database.execute("SELECT * FROM " + table).fetchall() for table in (
                "users", f"items WHERE id <> {PROBATION}")]  # whose time passes
        return kept, (self.site.run / "board.db.firmware").exists()

    def test_only_the_sessions_own_form_changes_anything(self):
        for form in FORMS:
            with self.subTest(form=form.path):
                self.assertOnlyItsFormChanges(form, sent(form.valid))
        self.assertEqual(FUNCTIONS["admin"],
                         {form.function for form in FORMS} | set(READ_ONLY) | {100, 104})

    def test_only_the_sessions_own_form_takes_a_file(self):
        content = self.clients["admin"].get(BACKUP + "?download=1").body
        session = self.clients["admin"].session
        self.site.boardctl("set", session, "0x0201000b", b"on\0".hex())
        image = make_image(99, b"2.0")
        self.site.boardctl("set", session, "0x02010064", (bytes(4) + image).hex())
        for form, file, more in ((SettingsPage(104, BACKUP, {}), content, {"content": content}),
                                 (SettingsPage(100, FIRMWARE, {}), image, {})):
            self.assertOnlyItsFormChanges(form, {
                **more, "digest": hashlib.sha256(file).hexdigest()})

    def assertOnlyItsFormChanges(self, form, values):
        owner, path = self.clients[form.user], form.path.partition("?")[0]
        fields = {**owner.get(form.path).form().fields, **values, "page_state": "4",
                  "consent0": "1"}
        before = self.state()
        for client, wrong, headers in self.attempts(form, fields):
            self.assertEqual(client.post(path, wrong, headers).status, 403 if headers else 200)
        owner.get(path + "?" + urllib.parse.urlencode(fields))
        self.assertEqual(self.state(), before)
        answer = owner.post(path, fields)
        self.assertTrue(b'role="status"' in answer.body or answer.address == READ_ONLY[95])
        self.assertNotEqual(self.state(), before)

    def test_a_form_is_answered_by_pages_that_can_be_reloaded_and_is_applied_once(self):
        for path, changes, user, stranger in (
                ("/network/orv_refresh_set.cgi?", {"interval": "61"}, "guest", "staff"),
                ("/system/sys_info.cgi?", {"system_name": "<b>\"'"}, "admin", "guest"),
                ("/partition/boot_control.cgi?partition=3&", {"retries": "7"}, "part", "admin"),
                ("/partition/power_control.cgi?partition=1&", {"operation": "reset"}, "operator",
                 "admin")):
            with self.subTest(path=path):
                self.assertWalksOn(path, changes, self.clients[user], self.clients[stranger])

    def assertWalksOn(self, path, changes, client, stranger):
        form = client.get(path).form()
        answer = client.post(form.path, {**form.fields, **changes}, None, False)
        draft = answer.headers["location"]
        self.assertEqual((answer.status, draft[:-16]), (303, path + "draft="))
        before = self.events(), self.state()
        asked = client.get(draft)
        self.assertEqual(asked.body, client.get(draft).body)
        self.assertEqual((self.events(), self.state()), before)
        done = client.post(asked.form().path, asked.form().fields)
        self.assertEqual(done.address[:-16], path + "done=")
        after = self.events(), self.state()
        self.assertNotEqual(after, before)
        for page, sign in ((asked, ASKED), (done, DONE)):
            self.assertIn(sign, page.body)
            self.assertNotIn(b"<b>\"", page.body)
        self.assertEqual(client.get(done.address).body, done.body)
        again = client.post(asked.form().path, asked.form().fields)
        self.assertEqual(again.address, draft)
        for client_, wrong in ((client, draft), (stranger, draft), (stranger, done.address),
                               *((client, path + wrong) for wrong in (
                                   "draft=x", "done=", "done=%0d%0aX:1", "done=" + draft[-16:],
                                   "draft=" + done.address[-16:]))):
            for sign in (ASKED, DONE):
                self.assertNotIn(sign, client_.get(wrong).body)
        self.assertEqual((self.events(), self.state()), after)

    def events(self):
        """How many events of power and settings there are."""
        return len(re.findall(b"<td>", self.clients["admin"].get(SEARCH).body))

    def attempts(self, form, fields):
        """Who sends what, with which headers, of what must not change anything."""
        owner, other = self.clients[form.user], WatchedClient(self.site.url)
        yield other, fields, {}
        other.login(form.user)
        for token in ("", "1", fields["form_end"][:-1], "0" * 32, other.token()):
            yield owner, {**fields, "form_end": token}, {}
        bare = {name: value for name, value in fields.items() if name != "form_end"}
        for unfit in (bare, {**bare, "back": "1"},
                      *({**fields, "page_state": state} for state in FORGED_STATES)):
            yield owner, unfit, {}
        for headers in FOREIGN:
            yield owner, fields, headers
        for user, client in self.clients.items():
            may = form.function in FUNCTIONS[user] and (user, form.path[-1]) != ("part", "1")
            self.assertEqual("(00:0502)" in client.get(form.path).text(), not may, user)
            if user != form.user:
                yield client, fields if may else {**fields, "form_end": client.token()}, {}

    def test_logging_in_and_out_is_for_the_user_alone(self):
        client = self.clients["admin"]
        for headers in FOREIGN:
            for path, fields in ((LOGIN, {"user": "guest", "password": "guest-pass"}),
                                 (LOGOUT, {"form_end": client.token()})):
                answer = client.post(path, fields, headers)
                self.assertEqual((answer.status, answer.headers.get("set-cookie")), (403, None))
        for wrong in ({}, {"form_end": self.clients["guest"].token()}):
            self.assertIn("not opened in this session", client.post(LOGOUT, wrong).text())
        self.assertIn("admin", client.get(USERS).text())
        for brought in (client.session, "A" * 31):
            client.session = brought
            client.login("admin")
            self.assertNotEqual(client.session, brought)

    def test_only_its_own_form_makes_a_session_last_longer(self):
        self.site.restart_board("--session-timeout", "60")
        self.addCleanup(self.site.restart_board)
        client = self.clients["guest"]
        client.get(READ_ONLY[64])
        time.sleep(1.1)
        for token, status, left in ((None, 200, (58, 59)), ("", 403, (58, 59)),
                                    (self.clients["admin"].token(), 403, (58, 59)),
                                    (client.token(), 200, (59, 60)), (None, 200, (59, 60))):
            answer = (client.get(SESSION) if token is None
                      else client.post(SESSION, {"form_end": token}))
            self.assertEqual(answer.status, status)
            self.assertEqual(json.loads(answer.body)["timeout"], 60)
            self.assertIn(json.loads(answer.body)["left"], left)
        client.logout()
        self.assertEqual(json.loads(client.get(SESSION).body), {"left": 0, "timeout": 0})

    def test_a_session_of_https_stays_there(self):
        client = WatchedClient(self.site.tls_url, self.site.certificate)
        client.get(LOGIN)
        answer = client.post(LOGIN, {"user": "guest", "password": "guest-pass"}, follows=False)
        self.assertRegex(answer.headers["set-cookie"],
                         "^device=.*; Secure\nsid=.*; Secure$")
        self.assertIn("logged out", client.logout().text())
        self.assertEqual(self.site.certificate.stat().st_mode & 0o777, 0o600)

    def test_whatever_is_served_tells_browsers_to_be_careful(self):
        for path in {form.path for form in FORMS} | {*READ_ONLY.values(), *OTHERS}:
            for user in ("admin", "guest"):
                headers = self.clients[user].get(path).headers
                for name, value in (("x-content-type-options", "^nosniff$"),
                                    ("referrer-policy", "^same-origin$"),
                                    ("cache-control", "^no-(store|cache)$"),
                                    ("content-type", "^text/.*; charset=|^application/"),
                                    ("content-security-policy", "frame-ancestors")):
                    self.assertRegex(headers.get(name, ""), value, (path, name))
