"""A client that speaks SCGI."""

import socket


def netstring(data):
    return b"%d:%s," % (len(data), data)


def header(*texts):
    return netstring(b"".join(str(text).encode() + b"\0" for text in texts))


def request(page, body=b"", *more):
    return header("CONTENT_LENGTH", len(body), "SCGI", 1, "SCRIPT_NAME", f"/test/{page}.cgi",
                  "REQUEST_METHOD", "POST" if body else "GET", *more) + body


def connect(path, data=b"", limit=10):
    """A connection on which `data` has been sent."""
    connection = socket.socket(socket.AF_UNIX)
    connection.settimeout(limit)
    connection.connect(str(path))
    connection.sendall(data)
    return connection


def rest(connection):
    """What the server still sends until it closes the connection."""
    with connection:
        return b"".join(iter(lambda: connection.recv(65536), b""))


def ask(path, data):
    return rest(connect(path, data))
