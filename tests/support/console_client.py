"""A user's browser, as far as the console's checks and tests need one."""

import dataclasses
import html
import html.parser
import http.client
import re
import ssl
import urllib.parse

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
    """`path` is where the page's form goes to, `fields` what is in it."""

    def __init__(self, page):
        super().__init__()
        self.path, self.fields, self._menu = None, {}, None
        self.feed(page.decode("latin-1"))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        name, value = attributes.get("name"), attributes.get("value", "")
        if tag == "form":
            self.path = attributes["action"]
        elif tag == "select":
            self._menu = name
        elif tag == "option" and ("selected" in attributes or self._menu not in self.fields):
            self.fields[self._menu] = value
        elif tag == "input" and name and attributes.get("type") not in NOT_SENT:
            if attributes.get("type") not in ("radio", "checkbox") or "checked" in attributes:
                self.fields[name] = value


def plain(markup):
    """The bytes that a page shows for a piece of HTML text."""
    return html.unescape(markup.replace(b"&nbsp;", b" ").decode("latin-1")).encode("latin-1")


def multipart(fields, file_name, content, boundary=BOUNDARY):
    """The body of a multipart request: fields, then one file."""
    parts = [b'--%s\r\nContent-Disposition: form-data; name="%s"\r\n\r\n%s\r\n'
             % (boundary.encode(), name, value) for name, value in fields.items()]
    parts.append(b'--%s\r\nContent-Disposition: form-data; name="file"; filename="%s"\r\n'
                 b"Content-Type: application/octet-stream\r\n\r\n%s\r\n"
                 % (boundary.encode(), file_name, content))
    return b"".join(parts) + b"--%s--\r\n" % boundary.encode()


class ConsoleClient:
    """Keeps the console's cookies as a browser does. `certificate` is a file, for HTTPS."""

    def __init__(self, url, certificate=None):
        self.server = urllib.parse.urlsplit(url).netloc
        self.context = certificate and ssl.create_default_context(cafile=certificate)
        self.session, self.device = None, None
        self._tokens = {}

    def request(self, method, path, body=None, headers=None):
        headers = dict(headers or {})
        cookies = [f"device={self.device}"] * (path == LOGIN and self.device is not None)
        cookies += [f"sid={self.session}"] * (self.session is not None)
        if cookies:
            headers["Cookie"] = "; ".join(cookies)
        connection = self._connect()
        try:
            connection.request(method, path, body, headers)
            response = connection.getresponse()
            names = {}
            for name, value in response.getheaders():  # several of a name as several lines
                name = name.lower()
                names[name] = f"{names[name]}\n{value}" if name in names else value
            answer = Answer(response.status, names, response.read())
        finally:
            connection.close()
        for line in answer.headers.get("set-cookie", "").split("\n"):
            self._keep_cookie(line)
        return answer

    def _connect(self):
        if self.context:
            return http.client.HTTPSConnection(self.server, timeout=TIME_LIMIT_SECONDS,
                                               context=self.context)
        return http.client.HTTPConnection(self.server, timeout=TIME_LIMIT_SECONDS)

    def _keep_cookie(self, line):
        if line.startswith("sid="):
            value, *attributes = line[len("sid="):].split("; ")
            expired = any(attribute.startswith("expires=") for attribute in attributes)
            self.session = None if expired else value
        elif line.startswith("device="):
            self.device = line[len("device="):].split("; ")[0]

    def login(self, user, password=None):
        return self.post(LOGIN, {"user": user, "password": password or user + "-pass"})

    def get(self, path):
        return self.request("GET", path)

    def post(self, path, fields, headers=None):
        """Posts fields as a form does. Names and values are text or bytes."""
        headers = {"Content-Type": "application/x-www-form-urlencoded", **(headers or {})}
        return self.request("POST", path, urllib.parse.urlencode(fields), headers)

    def token(self):
        """What ends every form of the session, from a form that every user finds; "" without one."""
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
