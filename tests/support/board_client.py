"""A client of the daemon, with the wire format written out."""

import socket
import struct

GET_LANGUAGE, LOGIN, LOGOUT, CHECK_SESSION = 0x02010001, 0x02010002, 0x02010004, 0x02010005
GET_USER_INFO = 0x02010025
OWN_LANGUAGE, OWN_REFRESH_INTERVAL, OWN_PASSWORD, OWN_DEVICE, OWN_SESSION, OWN_NOTE = (
    0x02010026, 0x02010027, 0x02010028, 0x02010029, 0x0201002A, 0x0201002B)
STATUS, PRODUCT, SYSTEM_NAMES, SYSTEM_POWER, LED = (
    0x02010003, 0x02010007, 0x02010008, 0x0201000A, 0x0201000B)
PARTITIONS, ADDRESSES, SERVICES, TRAPS = 0x02010030, 0x02010048, 0x0201004A, 0x0201004D
USERS, USER_ADD, USER_EDIT, USER_REMOVE, SESSIONS = (
    0x0201003C, 0x0201003D, 0x0201003E, 0x0201003F, 0x02010040)
PROGRESS, STAGE, STAGED, START, DROP, BACKUP = (
    0x0201005F, 0x02010064, 0x02010065, 0x02010066, 0x02010067, 0x02010068)
PROBATION, CONFIRM, UNDO, PROBATION_TIME = 0x0201004E, 0x0201004F, 0x02010050, 0x02010051
CLOCK, EVENTS, OWN_FILTER = 0x02010046, 0x02010099, 0x0201009A
ACL, ACL_ADD, ACL_REMOVE, MAIL = 0x02010058, 0x02010059, 0x0201005A, 0x0201005C
POWER, SCHEDULE, BOOT = 0x02010300, 0x02010310, 0x02010320  # and the partition
HTTPS_PORT = 0x02010073
MAINTENANCE_MODE, PERMISSION = 0x020100B4, 0x020100D1
SOME_ITEM = 0x02010123
EXCHANGE = 0x4000
WRITE = 0x8000
ERROR = 0x87FF0001

BROKEN, BOARD_FAILURE = 1026, 1792
NO_SESSION, REFUSED, NOT_AUTHORISED, NO_ITEM, BAD_REQUEST, BUSY = (
    1031, 1281, 1282, 1283, 1284, 1285)
EXISTS, FULL, NOT_FOUND, LAST_ADMINISTRATOR, DAMAGED, NOT_REACHED = (
    1286, 1287, 1288, 1289, 1290, 1291)

LIMIT = 10  # seconds that an answer may take


class BoardError(Exception):
    """An error response of the daemon."""

    def __init__(self, payload):
        *_, self.action, self.detail, _ = struct.unpack(">6i", payload[:24])
        super().__init__(f"detail {self.detail}")


class Answer:
    """What the daemon answered: the telegram's fields, and the payload when there is one."""

    def __init__(self, header, payload=None):
        self.header, self.payload = header, payload
        self.session = header[4:36].rstrip(b"\0")
        self.language = header[39]


def number(value):
    return struct.pack(">I", value)


def message(kind, payload=b""):
    return number(kind) + number(len(payload)) + payload


def record(*texts):
    return "".join(str(text) + "\0" for text in texts).encode()


def texts(line):
    """The record of the texts in `line`, between bars."""
    return record(*line.split("|"))


def telegram(session=b""):
    return struct.pack(">I32s12x", 4711, session)


def login_record(user, password, address=b"192.0.2.7"):
    return struct.pack("36s36s132s", user, password, address)


class BoardClient:
    """Asks the daemon at the socket `path`."""

    path = None

    def connect(self, data=b""):
        connection = socket.socket(socket.AF_UNIX)
        try:
            connection.connect(str(self.path))
        except OSError:
            connection.close()
            raise
        connection.settimeout(LIMIT)
        connection.sendall(data)
        return connection

    def exchange(self, data):
        """Sends a request; returns the type and payload of every message of the answer."""
        with self.connect(data) as connection:
            connection.shutdown(socket.SHUT_WR)
            answer = b"".join(iter(lambda: connection.recv(65536), b""))
        messages = []
        while answer:
            kind, length = struct.unpack(">II", answer[:8])
            messages.append((kind, answer[8:8 + length]))
            answer = answer[8 + length:]
        return messages

    def ask(self, kind, session=b"", request=None):
        payload = b"" if request is None else message(kind, request)
        answer = self.exchange(message(kind, telegram(session)) + payload)
        kinds = [answered for answered, _ in answer]
        if kinds == [ERROR]:
            raise BoardError(answer[0][1])
        if set(kinds) != {kind}:
            raise ValueError(f"request {kind:#x} was answered with {kinds}")
        return Answer(*(payload for _, payload in answer))

    def login(self, user=b"admin", password=None, address=b"192.0.2.7"):
        record = login_record(user, user + b"-pass" if password is None else password, address)
        return self.ask(LOGIN, request=record)

    def check(self, session, option=b"\0"):
        return self.ask(CHECK_SESSION, session, option)

    def get(self, item, session=b""):
        return self.ask(item, session).payload

    def rows(self, item, session, columns, request=None):
        payload = self.get(item, session) if request is None else self.ask(
            item | EXCHANGE, session, request).payload
        texts = payload[:-1].decode().split("\0")
        return [] if texts == [""] else list(zip(*[iter(texts)] * columns, strict=True))

    def events(self, session, count, severity="info", source="", first="", last="", before=""):
        """The newest events of the log, without their numbers and times."""
        rows = self.rows(EVENTS, session, 7,
                         record(severity, source, first, last, count, before))
        return [row[2:] for row in rows]

    def put(self, item, session, content):
        self.ask(item | WRITE, session, content)
