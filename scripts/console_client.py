"""A user's browser, as far as the console's checks and tests need one."""

import dataclasses
import html
import html.parser
import re
import urllib.parse

import requests

LOGIN, LOGOUT = "/common/login.cgi", "/common/logout.cgi"
TIME_LIMIT_SECONDS = 60
BOUNDARY = "----console-client-d41d8cd98f00b204"
NOT_SENT = ("submit", "button", "reset", "file")  # inputs that no form sends by itself
ROW = re.compile(rb'<tr><th scope="row">(.*?)</th><td><code>(.*?)</code></td></tr>', re.DOTALL)


@dataclasses.dataclass
class Answer:
    status: int
    headers: dict
    body: bytes
    address: str = ""  # of the page, after a 303

    def text(self):
        """The page's bytes as a person reads them, without markup."""
        return plain(re.sub(rb"<[^>]*>", b"", self.body)).decode("latin-1")

    def field(self, name):
        """The value of an input element."""
        found = re.search(rb'name="%s" value="([^"]*)"' % name.encode(), self.body)
        return plain(found.group(1)).decode("latin-1") if found else None

    def form(self):
        """What a browser would send of the page's form, nothing changed and no button pressed."""
        return Form(self.body)

    def rows(self):
        """The two-column tables of the page: texts by the text in front of them."""
        return {plain(head): plain(text) for head, text in ROW.findall(self.body)}


class Form(html.parser.HTMLParser):
    """`path` is the action of the page's form, `fields` its values."""

    def __init__(self, page):
        super().__init__()
        self.path, self.fields, self._menu = None, {}, None
        self.feed(page.decode("latin-1"))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        name, value = attributes.get("name"), attributes.get("value", "")
        if tag == "form":
            self.path = attributes["action"]
            self.fields = {}  # the strip's form is before the page's own
        elif tag == "select":
            self._menu = name
        elif tag == "option" and ("selected" in attributes or self._menu not in self.fields):
            self.fields[self._menu] = value
        elif tag == "input" and name and attributes.get("type") not in NOT_SENT:
            if attributes.get("type") not in ("radio", "checkbox") or "checked" in attributes:
                self.fields[name] = value


def plain(markup):
    """The bytes that a page shows for a piece of HTML text."""
    text = html.unescape(markup.replace(b"&nbsp;", b" ").decode("latin-1"))
    return text.encode("latin-1", "xmlcharrefreplace")


def multipart(fields, file_name, content, boundary=BOUNDARY):
    """The body of a multipart request: fields, then one file."""
    parts = [b'--%s\r\nContent-Disposition: form-data; name="%s"\r\n\r\n%s\r\n'
             % (boundary.encode(), name, value) for name, value in fields.items()]
    parts.append(b'--%s\r\nContent-Disposition: form-data; name="file"; filename="%s"\r\n'
                 b"Content-Type: application/octet-stream\r\n\r\n%s\r\n"
                 % (boundary.encode(), file_name, content))
    return b"".join(parts) + b"--%s--\r\n" % boundary.encode()


class ConsoleClient:
    """Keeps the console's cookies as a browser does. `certificate` is a file, for HTTPS.

    Every request has a connection of its own, and only the headers given and those of its body.
    """

    def __init__(self, url, certificate=None):
        self.url = url
        self._tokens = {}
        self._http = requests.Session()
        self._http.trust_env = False  # the environment may name a proxy
        self._http.verify = certificate
        self._http.headers = {"Accept-Encoding": "identity", "Connection": "close"}

    def _cookie(name, path):  # pylint: disable=no-self-argument
        """A cookie of the client: its text, or None."""
        def store(self, value):
            jar = self._http.cookies
            requests.cookies.remove_cookie_by_name(jar, name)
            if value is not None:
                jar.set(name, value, domain="127.0.0.1", path=path)
        return property(lambda self: self._http.cookies.get(name), store)

    session, device = _cookie("sid", "/"), _cookie("device", LOGIN)

    def request(self, method, path, body=None, headers=None, follows=True):
        """Sends a request. After a 303, `follows` says whether to get the page that it names."""
        response = self._http.request(method, self.url + path, data=body, headers=headers,
                                      allow_redirects=False, timeout=TIME_LIMIT_SECONDS)
        received = response.raw.headers  # several headers of a name as several lines
        if follows and response.status_code == 303:
            return self.get(received["Location"])
        return Answer(response.status_code, {
            name.lower(): "\n".join(received.getlist(name)) for name in received},
            response.content, path)

    def login(self, user, password=None):
        return self.post(LOGIN, {"user": user, "password": password or user + "-pass"})

    def get(self, path):
        return self.request("GET", path)

    def post(self, path, fields, headers=None, follows=True):
        """Posts fields as a form does. Names and values are text or bytes."""
        headers = {"Content-Type": "application/x-www-form-urlencoded", **(headers or {})}
        return self.request("POST", path, urllib.parse.urlencode(fields), headers, follows)

    def token(self):
        """The CSRF token of the session, from a form that every user finds; "" without one."""
        session = self.session
        if not self._tokens.get(session):
            self._tokens[session] = self.get(LOGOUT).field("form_end") or ""
            self.session = session
        return self._tokens[session]

    def submit(self, path, fields):
        """Posts fields as a form of the session does."""
        return self.post(path, {**fields, "form_end": self.token()})

    def logout(self):
        return self.submit(LOGOUT, {})

    def upload(self, path, fields, file_name, content):
        return self.request("POST", path, multipart(fields, file_name, content),
                            {"Content-Type": "multipart/form-data; boundary=" + BOUNDARY})
