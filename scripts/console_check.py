"""Uses the console as its users do, and prints what it saw: `./run --check`."""

import hashlib
import random
import re

from console_client import LOGOUT, ConsoleClient
from console_pages import ASKED, CONSENT, DONE, FLOWS, FUNCTIONS, PAGES, PASSWORDS, WRONG
from console_site import ConsoleSite
from site_parts import SiteError
from make_firmware import make_image

INSPECTOR, REFRESH = "/common/request.cgi", "/network/orv_refresh_set.cgi"
FIRMWARE, BACKUP = "/maintenance/orv_firmup.cgi", "/maintenance/orv_backup_restore.cgi"
PROGRESS, TIMEOUT = b"/common/progress.cgi", b"/common/timeout.cgi"
MENU_LINK = re.compile(r'<li><a[^>]* href="([^"]+)"')
FRAME = re.compile(r'<frame name="\w+" src="([^"]*)"')
MARKUP = b"<img src=x onerror=alert(1)>\"'&"

# The faults that the board can have, and the code that the error page then shows.
FAULTS = {"error": "(00:0700)", "wrong-type": "(00:0402)", "short-header": "(00:0404)",
          "short-payload": "(00:0404)", "oversized-payload": "(00:0404)", "silence": "(00:0405)",
          "early-close": "(00:0402)"}


class CheckFailed(Exception):
    """A page is not as it should be."""


def expect(condition, what):
    if not condition:
        raise CheckFailed(what)


def client_of(site, user=None):
    client = ConsoleClient(site.url)
    if user:
        client.login(user)
        expect(client.session, f"{user} cannot log in")
    return client


def show(title, answer):
    print(f"{title}: {answer.status}, {answer.headers.get('content-type')}")
    for head, text in answer.rows().items():
        print(f"    {head.decode('latin-1')} = {text.decode('latin-1')}")


def sent(values):
    """The bytes that a browser sends; True and False are for a box. An English page has no Japanese
    characters: references stand for them."""
    return {name: b"1" if value is True else value.encode("latin-1", "xmlcharrefreplace")
            for name, value in values.items() if value is not False}


def send(client, page, changes, *expected):
    """Sends a page's form with some fields changed; returns the answer, which has all that is
    expected and no password."""
    form = page.form()
    answer = client.post(form.path, sent({**form.fields, **changes}))
    for text in expected:
        expect(text in answer.body or text in answer.text().encode("latin-1")
               or text.decode("latin-1") in answer.address,
               f"{form.path} does not answer {changes} with {text.decode()}")
    expect(not any(secret in answer.body for secret in PASSWORDS), f"{form.path} shows a password")
    return answer


def check_requests(site):
    client = client_of(site)
    answer = client.get(INSPECTOR + "?text=one%20%3Cb%3E&second=2")
    show("GET", answer)
    expect(answer.status == 200, "the inspector does not answer a GET")
    expect(answer.rows().get(b"text") == b"one <b>", "the GET's field came back wrong")

    text = "d\xe9j\xe0 vu & <\xfcber>".encode("latin-1")
    answer = client.post(INSPECTOR, {"text": text, "second": "a=b&c", MARKUP: MARKUP})
    show("URL-encoded POST", answer)
    expect(answer.rows().get(b"text") == text, "the POST's non-ASCII field came back wrong")
    expect(answer.rows().get(b"second") == b"a=b&c", "the POST's second field came back wrong")
    expect(b"<img" not in answer.body, "a field of the POST became markup")

    content = random.Random(1).randbytes(3 << 20)
    answer = client.upload(INSPECTOR, {b"comment": MARKUP}, MARKUP.replace(b'"', b""), content)
    show("Upload of 3 MiB", answer)
    digest = hashlib.sha256(content).hexdigest().encode()
    expect(answer.rows().get(b"SHA-256") == digest, "the upload's digest does not match")
    expect(b"<img" not in answer.body, "the name of the file became markup")
    print("    the digest matches what was sent")
    answer = client.request("POST", INSPECTOR, "x=%4")
    expect(answer.status == 400 and "could not be read" in answer.text(), "a bad request is taken")
    for language, charset in (("0", "EUC-JP"), ("1", "iso-8859-1"), ("x", "iso-8859-1")):
        answer = client.get("/common/gallery.cgi?language=" + language)
        counts = [answer.body.count(part) for part in (
            b'<th scope="row">', b'<td class="wrong">', b"<10>", b"secret", b"</html>")]
        expect(answer.headers["content-type"].endswith(charset) and counts == [30, 32, 0, 0, 1],
               "the gallery does not show every component, valid and not")


def check_menu(site, user):
    """Everything that the menu leads to: the same pages in both kinds of console."""
    client = client_of(site, user)
    menu = client.get("/common/menu.cgi?load=1&tid=0&mid=3").body.decode("latin-1")
    links, pages = MENU_LINK.findall(menu), set()
    expect(set(links) == {f"/common/frame.cgi?fid={function}" for function in FUNCTIONS[user]},
           f"{user} does not find in the menu what the user's role may use")
    for function in FUNCTIONS[user]:
        answer = client.request("GET", f"/common/frame.cgi?fid={function}", follows=False)
        frames = FRAME.findall(answer.body.decode("latin-1"))
        pages |= set(frames or [answer.headers.get("location")])
        expect(len(frames) == 3 or answer.status == 303, f"function {function} has no page")
    for page in {page.partition("?")[0] for page in pages}:
        answer = client.get(page)
        expect(b"</html>" in answer.body and b'class="notice"' not in answer.body
               and ("EUC-JP" in answer.headers["content-type"]) == (user == "operator"),
               f"{page} fails {user}")
    print(f"Menu of {user}: {len(links)} functions, each with its page")


def check_settings(site, page):
    """A settings page refuses invalid values; valid ones are confirmed, set and kept."""
    def values(answer):
        fields = answer.form().fields
        return sent({name: fields[name] for name in page.kept if name in fields})

    client = client_of(site, page.user)
    shown = client.get(page.path)
    for number, (name, value) in enumerate(page.wrong):
        state = "34"[number % 2]  # a client may leave out the confirmation
        again = send(client, shown, {**page.valid, name: value, "page_state": state}, WRONG)
        fields = again.form().fields
        expect((sent({name: fields[name]}), fields["page_state"]) == (sent({name: value}), "3")
               and ASKED not in again.body,
               f"{page.path} does not show {value} again, which is wrong for {name}")
    expect(values(client.get(page.path)) == values(shown), f"{page.path} took what is wrong")
    asked = send(client, shown, page.valid, ASKED)
    again = send(client, asked, {"back": "1"}, b'type="submit"')
    asked = send(client, again, {}, ASKED)
    done = send(client, asked, CONSENT if b'name="consent0"' in asked.body else {}, DONE)
    for answer, field in ((again, "draft="), (asked, "draft="), (done, "done=")):
        expect(field in answer.address, f"{page.path} answers a form itself")
    expect(DONE in client.get(done.address).body, f"{page.path} cannot be reloaded")
    # The page shown first is outdated: nobody overwrites unseen what another one has set.
    send(client, shown, {**page.valid, "page_state": "4"}, WRONG)
    expect(values(client.get(page.path)) == sent(page.kept), f"{page.path} did not keep it")
    print(f"{page.path}: {len(page.wrong)} wrong values refused, the right ones set and kept")


def check_flows(site):
    expect("etwork settings" in client_of(site, "admin").get("/network/probation.cgi").text(),
           "there is no page of unconfirmed network settings")
    for user, path, *forms in FLOWS:
        client = client_of(site, user)
        page = client.get(path)
        for changes, expected in forms:
            page = send(client, page, changes, expected)
        print(f"{path}: {len(forms)} forms sent")


def check_way_in_and_out(site):
    client = client_of(site)
    answer = client.login("admin", "wrong")
    expect("password is wrong" in answer.text(), "a wrong password is not said to be wrong")
    expect(client.session is None, "a wrong password opens a session")
    for client.session in (None, "stale"):
        for path in (REFRESH, LOGOUT, "/user/ch_passwd.cgi"):
            expect(TIMEOUT in client.get(path).body, "no time-out page without a living session")
    expect(client.session is None, "the stale cookie is not deleted")
    expect("session has ended" in client.get(TIMEOUT.decode()).text(), "no time-out page")
    print("Without a session, and with a stale one: sent to the time-out page")

    client.login("staff")
    expect("(00:0502)" in client.get("/user/list.cgi").text(), "staff gets at the users")
    for search, expected in (("severity=info&source=power&count=9", b"</html>"),
                             ("severity=info&count=9&first0=2026&first1=2&first2=30", WRONG)):
        expect(expected in client.get(f"/system/sel_filtering.cgi?{search}&search=1").body,
               "the search does not answer as it should")
    living = client.session
    expect(b'"left": ' in client.get("/common/session.cgi").body, "a session has no end")
    expect("Do you want" in client.get(LOGOUT).text(), "a link to the log-out does not ask")
    form = client.get("/common/information.cgi").form()
    client.post(form.path, form.fields)
    expect(client.session is None, "logging out does not delete the cookie")
    client.session = living
    expect(TIMEOUT in client.get(REFRESH).body, "the session lives after log-out")
    print("Log-out: the session is over")


def check_files(site):
    """Files that are taken, and that are not."""
    client = client_of(site, "admin")
    backup = client.get(BACKUP + "?download=1")
    expect("attachment" in backup.headers["content-disposition"], "the backup is not for saving")
    whole, saved = make_image(200000, b"2.0"), backup.body
    digest = hashlib.sha256(whole).hexdigest().encode()
    for path, content, expected, *forms in (
            (FIRMWARE, whole[:-1], WRONG), (FIRMWARE, whole, ASKED, PROGRESS),
            (BACKUP, saved[:-1], ASKED, WRONG), (BACKUP, saved, ASKED, DONE)):
        fields = {name.encode(): value.encode()
                  for name, value in client.get(path).form().fields.items()}
        page = client.upload(path, fields, b"file", content)
        is_asked = ASKED in page.body
        expect(expected in page.body and is_asked == bool(forms)
               and (digest in page.body) == (content is whole),
               f"{path} does not look at a file of {len(content)} bytes")
        for text in forms:
            page = send(client, page, {}, text)
    print("Firmware and backup: what is whole is taken, what is damaged is not")


def check_faults(site):
    client = client_of(site, "admin")
    for kind, code in FAULTS.items():
        site.restart_board("--fault", "checkSession:" + kind)
        answer = client.get(REFRESH)
        print(f"Fault {kind}: {code}")
        expect(code in answer.text(), f"the error page does not show {code}")
    site.stop_board()
    client = client_of(site)
    expect(TIMEOUT in client.get(REFRESH).body, "no time-out page without a board")
    expect("cannot be reached" in client.login("admin").text(), "no log-in page without a board")
    site.start_board()


# Checks that can run at the same time; and those that run alone, after them.
INDEPENDENT = ((check_requests,), *((check_menu, user) for user in FUNCTIONS),
               *((check_settings, page) for page in PAGES), (check_flows,),
               (check_way_in_and_out,))
ALONE = (check_files, check_faults)


def run_checks(site: ConsoleSite) -> bool:
    """Returns True when everything was as it should be."""
    try:
        for check, *arguments in INDEPENDENT:
            check(site, *arguments)
        for check in ALONE:
            check(site)
    except (CheckFailed, OSError, ValueError, SiteError) as failure:
        print(f"FAILED: {failure}")
        return False
    print("everything as it should be")
    return True
