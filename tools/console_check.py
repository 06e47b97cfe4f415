"""Uses the console as a user would and says what it saw."""

import hashlib
import http.client
import random
import subprocess

from console_client import ConsoleClient
from console_site import SiteError

INSPECTOR = "/common/request.cgi"
REFRESH = "/network/orv_refresh_set.cgi"
USERS = ("operator", "staff", "guest", "part", "admin")
OWN_REFRESH_INTERVAL = "0x02010027"
UPLOAD_SIZE = 3 * 1024 * 1024

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


def show(title, answer):
    print(f"{title}: {answer.status}, {answer.headers.get('content-type')}")
    for head, text in answer.rows().items():
        print(f"    {head.decode('latin-1')} = {text.decode('latin-1')}")


def check_inspector(client):
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


def check_menu(client):
    for user in USERS:
        client.login(user)
        menu = client.get("/common/menu.cgi?load=1&tid=0&mid=3")
        functions = menu.body.count(b"/common/frame.cgi?fid=")
        print(f"Menu of {user}: {functions} functions")
        expect(functions > 0, f"{user} finds an empty menu")
        frames = client.get("/common/frame.cgi").body
        expect(frames.count(b"<frame name=") == 3, "the frameset does not have its three frames")


def check_settings(site, client):
    answer = client.login("admin", "wrong")
    expect("password is wrong" in answer.text(), "a wrong password is not said to be wrong")
    client.login("admin")
    expect(client.session, "the right password opens no session")
    print("Log-in: a session was opened")

    seconds = "45"
    expect(client.get(REFRESH).field("interval") == "60", "a new board's setting is not shown")
    asked = client.submit(REFRESH, {"page_state": "3", "interval": seconds})
    expect(asked.field("page_state") == "4", "valid input is not put up for confirmation")
    refused = client.submit(REFRESH, {"page_state": "3", "interval": "3601"})
    expect("from 0 to 3600" in refused.text(), "invalid input is not marked")
    done = client.submit(REFRESH, {"page_state": "4", "interval": asked.field("interval")})
    expect("have been changed" in done.text(), "the confirmed setting is not applied")
    kept = int(site.boardctl("get", client.session, OWN_REFRESH_INTERVAL), 16)
    expect(str(kept) == seconds, "the daemon does not have the new setting")
    print(f"Refresh interval: displayed, confirmed, set; the daemon now says {kept} s")


def check_faults(site, client):
    for kind, code in FAULTS.items():
        site.restart_board("--fault", "checkSession:" + kind)
        answer = client.get(REFRESH)
        print(f"Fault {kind}: {answer.text().split()[-1]}")
        expect(code in answer.text(), f"the error page does not show {code}")
    site.restart_board()


def check_end(client):
    living, client.session = client.session, "stale"
    answer = client.get(REFRESH)
    expect(b"/common/timeout.cgi" in answer.body, "a stale session is not sent to the time-out page")
    expect(client.session is None, "the stale cookie is not deleted")
    expect("session has ended" in client.get("/common/timeout.cgi").text(), "no time-out page")
    print("Stale session: sent to the time-out page")

    client.session = living
    client.logout()
    expect(client.session is None, "logging out does not delete the cookie")
    client.session = living
    expect(b"/common/timeout.cgi" in client.get(REFRESH).body, "the session lives after log-out")
    print("Log-out: the session is over")


def run_checks(site):
    """Returns True when everything was as it should be."""
    client = ConsoleClient(site.url)
    try:
        check_inspector(client)
        check_menu(client)
        check_settings(site, client)
        check_faults(site, client)
        check_end(client)
    except (CheckFailed, OSError, ValueError, http.client.HTTPException, SiteError,
            subprocess.CalledProcessError) as failure:
        print(f"FAILED: {failure}")
        return False
    print("everything as it should be")
    return True
