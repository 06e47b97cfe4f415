"""Uses the console as its users would and says what it saw."""

import hashlib
import random
import re
import subprocess
import sys

from support import PROJECT, SiteError
from support.console_client import LOGOUT, ConsoleClient, Form
from support.console_pages import ASKED, DONE, FLOWS, FUNCTIONS, PAGES, WRONG

INSPECTOR, REFRESH = "/common/request.cgi", "/network/orv_refresh_set.cgi"
FIRMWARE, BACKUP = "/maintenance/orv_firmup.cgi", "/maintenance/orv_backup_restore.cgi"
PROGRESS = b"/common/progress.cgi"
UPLOAD_SIZE = 3 * 1024 * 1024
MENU_LINK = re.compile(r'href="(/common/frame\.cgi\?fid=(\d+))"')
FRAME = re.compile(r'<frame name="\w+" src="([^"]*)"')

# What the board can be told to do wrong, and the code that the error page then shows.
FAULTS = {
    "error": "(00:0700)",
    "wrong-type": "(00:0402)",
    "short-header": "(00:0404)",
    "short-payload": "(00:0404)",
    "oversized-payload": "(00:0404)",
    "silence": "(00:0405)",
    "early-close": "(00:0402)",
}


class CheckFailed(Exception):
    pass


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
    """What a browser sends of values, True or False for a box: an English page has no Japanese
    characters, so that references stand for them."""
    return {name: "1" if value is True else value.encode("latin-1", "xmlcharrefreplace")
            .decode("latin-1") for name, value in values.items() if value is not False}


def send(client, page, changes, expected):
    """Sends a page's form with some fields changed; returns the answer."""
    form = Form(page)
    fields = {name: value.encode("latin-1")
              for name, value in sent({**form.fields, **changes}).items()}
    page = client.post(form.path, fields).body
    expect(expected in page, f"{form.path} does not answer {changes} with {expected.decode()}")
    return page


def check_requests(site):
    client = client_of(site)
    answer = client.get(INSPECTOR + "?text=one%20%3Cb%3E&second=2")
    show("GET", answer)
    expect(answer.status == 200, "the inspector does not answer a GET")
    expect(answer.rows().get(b"text") == b"one <b>", "the GET's field came back wrong")

    text = "d\xe9j\xe0 vu & <\xfcber>".encode("latin-1")
    answer = client.post(INSPECTOR, {"text": text, "second": "a=b&c"})
    show("URL-encoded POST", answer)
    expect(answer.rows().get(b"text") == text, "the POST's non-ASCII field came back wrong")
    expect(answer.rows().get(b"second") == b"a=b&c", "the POST's second field came back wrong")

    content = random.Random(1).randbytes(UPLOAD_SIZE)
    answer = client.upload(INSPECTOR, {b"comment": b"firmware"}, b"image.bin", content)
    show("Upload of 3 MiB", answer)
    digest = hashlib.sha256(content).hexdigest().encode()
    expect(answer.rows().get(b"SHA-256") == digest, "the upload's digest does not match")
    print("    the digest matches what was sent")
    for language in "01":
        expect(b"</html>" in client.get("/common/gallery.cgi?language=" + language).body,
               "the gallery does not come whole")


def check_menu(site, user):
    """Everything that the menu leads to, with the frames around it."""
    client = client_of(site, user)
    menu = client.get("/common/menu.cgi?load=1&tid=0&mid=3").body.decode("latin-1")
    links = dict(MENU_LINK.findall(menu))
    expect({int(function) for function in links.values()} == FUNCTIONS[user],
           f"{user} does not find in the menu what the user's role may use")
    seen = set()
    for link in links:
        frames = FRAME.findall(client.get(link).body.decode("latin-1"))
        expect(len(frames) == 3, "the frameset does not have its three frames")
        for frame in frames:
            path = frame.partition("?")[0]
            if path not in seen:
                seen.add(path)
                page = client.get(frame).body
                is_good = b"</html>" in page and b'class="notice"' not in page
                expect(is_good, f"{frame} fails {user}")
    print(f"Menu of {user}: {len(links)} functions, each with its page")


def check_settings(site, page):
    """A page of settings: what is wrong is refused, what is right is confirmed, set and kept."""
    def values(answer):
        fields = Form(answer).fields
        return {name: fields[name] for name in page.kept if name in fields}

    client = client_of(site, page.user)
    shown = client.get(page.path).body
    for name, value in page.wrong:
        again = send(client, shown, {**page.valid, name: value}, WRONG)
        expect(Form(again).fields[name] == sent({name: value})[name] and ASKED not in again,
               f"{page.path} does not show {value} again, which is wrong for {name}")
    expect(values(client.get(page.path).body) == values(shown), f"{page.path} took what is wrong")
    asked = send(client, shown, page.valid, ASKED)
    again = send(client, asked, {"back": "1"}, b'type="submit"')
    send(client, send(client, again, {}, ASKED), {}, DONE)
    # What was shown first is outdated by now: nobody overwrites unseen what another one has set.
    send(client, shown, {**page.valid, "page_state": "4"}, WRONG)
    expect(values(client.get(page.path).body) == sent(page.kept), f"{page.path} did not keep it")
    print(f"{page.path}: {len(page.wrong)} wrong values refused, the right ones set and kept")


def check_flows(site):
    for user, path, *forms in FLOWS:
        client = client_of(site, user)
        page = client.get(path).body
        for changes, expected in forms:
            page = send(client, page, changes, expected)
        print(f"{path}: {len(forms)} forms sent")


def check_way_in_and_out(site):
    client = client_of(site)
    answer = client.login("admin", "wrong")
    expect("password is wrong" in answer.text(), "a wrong password is not said to be wrong")
    expect(client.session is None, "a wrong password opens a session")
    for client.session in (None, "stale"):
        expect(b"/common/timeout.cgi" in client.get(REFRESH).body,
               "without a living session there is no time-out page")
    expect(client.session is None, "the stale cookie is not deleted")
    expect("session has ended" in client.get("/common/timeout.cgi").text(), "no time-out page")
    print("Without a session, and with a stale one: sent to the time-out page")

    client.login("staff")
    expect("(00:0502)" in client.get("/user/list.cgi").text(), "staff gets at the users")
    for search in ("severity=info&source=power&count=9", "first0=2026&first1=2&first2=30"):
        expect(b"</html>" in client.get(f"/system/sel_filtering.cgi?{search}&search=1").body,
               "the search does not come whole")
    living = client.session
    expect("Do you want" in client.get(LOGOUT).text(), "a link to the log-out does not ask")
    client.logout()
    expect(client.session is None, "logging out does not delete the cookie")
    client.session = living
    expect(b"/common/timeout.cgi" in client.get(REFRESH).body, "the session lives after log-out")
    print("Log-out: the session is over")


def check_files(site):
    """Files that are taken, and that are not."""
    client = client_of(site, "admin")
    image = site.run / "image"
    subprocess.run([sys.executable, PROJECT / "scripts/make_firmware.py", "200000", "2.0", image],
                   check=True)
    backup = client.get(BACKUP + "?download=1")
    expect("attachment" in backup.headers["content-disposition"], "the backup is not for saving")
    whole, saved = image.read_bytes(), backup.body
    for path, content, *seen in (
            (FIRMWARE, whole[:-1], WRONG), (FIRMWARE, whole, ASKED, PROGRESS),
            (BACKUP, saved[:-1], ASKED, WRONG), (BACKUP, saved, ASKED, DONE)):
        fields = {name.encode(): value.encode()
                  for name, value in client.get(path).form().fields.items()}
        page = client.upload(path, fields, b"file", content).body
        expect(seen[0] in page, f"{path} does not look at a file of {len(content)} bytes")
        for expected in seen[1:]:
            page = send(client, page, {}, expected)
    print("Firmware and backup: what is whole is taken, what is damaged is not")


def check_faults(site):
    client = client_of(site, "admin")
    for kind, code in FAULTS.items():
        site.restart_board("--fault", "checkSession:" + kind)
        answer = client.get(REFRESH)
        print(f"Fault {kind}: {answer.text().split()[-1]}")
        expect(code in answer.text(), f"the error page does not show {code}")
    site.restart_board()


# Checks that do not mind one another; and what is to be done alone, behind them.
INDEPENDENT = ((check_requests,), *((check_menu, user) for user in FUNCTIONS),
               *((check_settings, page) for page in PAGES), (check_flows,),
               (check_way_in_and_out,))
ALONE = (check_files, check_faults)


def run_checks(site):
    """Returns True when everything was as it should be."""
    try:
        for check, *arguments in INDEPENDENT:
            check(site, *arguments)
        for check in ALONE:
            check(site)
    except (CheckFailed, OSError, ValueError, SiteError,
            subprocess.CalledProcessError) as failure:
        print(f"FAILED: {failure}")
        return False
    print("everything as it should be")
    return True
