"""Changes that could lock their user out: the consent to them, and network settings that wait."""

import urllib.parse

from console_client import ConsoleClient
from console_pages import ACCESS_LIST, ASKED, DONE, USERS, boxes
from support.site_case import SiteCase

ADDRESSES, SERVICES = "/network/orv_ip_set.cgi", "/network/orv_protocol_set.cgi"
PROBATION = "/network/probation.cgi"
CONSENT = {"consent0": "1"}


def apply(client, path, changes, consent):
    """Sends a page's form with changes, and confirms it if asked; returns the last answer."""
    form = client.get(path).form()
    answer = client.post(form.path, {**form.fields, **changes})
    if ASKED in answer.body:
        form = answer.form()
        answer = client.post(form.path, {**form.fields, **consent})
    return answer


class Probation(SiteCase):
    def test_network_settings_wait_to_be_confirmed_where_they_apply(self):
        """For each port of HTTP: whether it is the one in use, who ends the wait, how, and the port
        afterwards. A backup with the settings may be restored by staff, too."""
        self.client.login("admin")
        backup = self.site.boardctl("get", self.client.session, "0x02010068")
        wrong = ({"keep": "1", "form_end": "0" * 32}, {"keep": "1", "probation": "0" * 16}, {})
        for port, user, button, kept in ((1, "admin", "undo", 80),
                                         (self.site.port, "admin", "keep", self.site.port),
                                         (80, "staff", "undo", self.site.port)):
            here = port == self.site.port
            if user == "admin":
                done = apply(self.client, SERVICES, {"http_port": str(port)}, CONSENT)
                self.assertIn("Unconfirmed network settings", done.text())
                self.assertEqual(f'href="http://127.0.0.1:{port}/network/'.encode() in done.body,
                                 not here)
            else:
                self.client.login(user)
                self.site.boardctl("set", self.client.session, "0x02010068", backup)
            form = self.client.get(PROBATION).form()
            for fields in (*wrong, *([] if here else [{"keep": "1"}])):
                answer = self.client.post(form.path, {**form.fields, **fields}).text()
                self.assertIn("Nothing has been changed" if fields in wrong
                              else "not using the new ones", answer)
            self.client.get(PROBATION + "?" + urllib.parse.urlencode({**form.fields, button: "1"}))
            self.assertIn(b'name="keep"', self.client.get(PROBATION).body)
            answer = self.client.post(form.path, {**form.fields, button: "1"})
            self.assertIn("All network settings are confirmed", answer.text())
            self.client.login("admin")
            self.assertEqual(self.client.get(SERVICES).form().fields["http_port"], str(kept))
        self.client.login("guest")
        self.assertIn("(00:0502)", self.client.get(PROBATION).text())


class Consent(SiteCase):
    tls_port = 0

    def test_a_change_that_ends_the_users_own_way_in_needs_consent(self):
        """For each page: what changes, and what the page says is lost, if anything is."""
        tls = ConsoleClient(self.site.tls_url, self.site.certificate)
        for client in (self.client, tls):
            client.login("admin")
        port, add = str(self.site.port), ACCESS_LIST + "?operation=add"
        remove, edit = ACCESS_LIST + "?operation=remove&row=", USERS + "?action=edit&name="
        new = dict.fromkeys(("password", "repeated"), "admin-pass-2")
        for client, path, changes, lost in (
                (self.client, ADDRESSES, {"host": "b2"}, ""),
                (self.client, ADDRESSES, {"address3": "11"}, f"http://192.0.2.11:{port}/"),
                (self.client, SERVICES, {"https_port": "444", "ssh_port": "24"}, ""),
                (self.client, SERVICES, {"http_port": "81"}, "http://127.0.0.1:81/"),
                (self.client, SERVICES, {"http_port": port}, ""),
                (tls, SERVICES, {"https_port": "445"}, "https://127.0.0.1:445/"),
                (self.client, SERVICES, {"http0": ""}, "https://127.0.0.1:445/"),
                (self.client, SERVICES, {"http0": "1", "https0": ""}, ""),
                (self.client, SERVICES, {"https0": "1"}, ""),
                (tls, SERVICES, {"https0": ""}, f"http://127.0.0.1:{port}/"),
                (self.client, add, boxes("address", "127 0 0 1 32"), ""),
                (self.client, add, boxes("address", "10 0 0 0 8"), ""),
                (self.client, remove + "127.0.0.1/32", {}, "reach the console from: 127.0.0.1"),
                (self.client, remove + "10.0.0.0/8", {}, ""),
                (self.client, edit + "operator", {"role": "administrator"}, ""),
                (self.client, edit + "admin", new, "so many of them: 1"),
                (self.client, edit + "admin", new, "")):
            with self.subTest(path, changes=changes):
                answer = apply(client, path, changes, {})
                self.assertEqual(DONE not in answer.body, bool(lost), answer.text())
                if lost:
                    self.assertIn(lost, answer.text())
                    form = answer.form()
                    fields = {**form.fields, **changes, **CONSENT}  # no page has a password
                    self.assertIn(DONE, client.post(form.path, fields).body)
        answer = apply(self.client, edit + "admin", {"role": "staff"}, {})
        self.assertIn("be: System administrator", answer.text())
        form = answer.form()
        answer = self.client.post(form.path, {**form.fields, "role": "staff", **CONSENT})
        self.assertIn("<h1>System&nbsp;status", answer.body.decode())  # and no error page
        self.assertIn("(00:0502)", self.client.get(USERS).text())
