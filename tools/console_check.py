"""Uses the console as a user would and says what it saw."""

import hashlib
import random

from console_client import ConsoleClient

INSPECTOR = "/common/request.cgi"
UPLOAD_SIZE = 3 * 1024 * 1024


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


def run_checks(url):
    """Returns True when everything was as it should be."""
    client = ConsoleClient(url)
    try:
        check_inspector(client)
    except (CheckFailed, OSError) as failure:
        print(f"FAILED: {failure}")
        return False
    print("everything as it should be")
    return True
