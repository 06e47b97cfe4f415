"""Ports, sockets, the certificate and the error of a served console."""

import contextlib
import pathlib
import random
import socket
import subprocess

PROJECT = pathlib.Path(__file__).resolve().parent.parent
PRIVATE = 0o077  # file mode mask: state, keys and logs are for whoever starts the servers
CERTIFICATE_DAYS = 3650


class SiteError(Exception):
    """Why the console cannot be served, in one line that says what to do."""

    status = 1  # of ./run


class NotAllowedError(SiteError):
    """This machine does not allow what the chosen web server needs. Tests are skipped."""

    status = 77


def free_port():
    """A port below those that the kernel gives to clients, which could take it meanwhile."""
    while True:
        port = random.randrange(10000, 32768)
        with socket.socket() as probe, contextlib.suppress(OSError):
            probe.bind(("127.0.0.1", port))
            return port


def require_port(port):
    with socket.socket() as probe:
        probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        try:
            probe.bind(("127.0.0.1", port))
        except OSError as error:
            raise SiteError(f"port {port} cannot be used ({error.strerror}):"
                            " choose another one with --port or --tls-port") from None


def listen(path, queue):
    """A listening Unix-domain socket, which replaces one that was left at the path."""
    path.unlink(missing_ok=True)
    listener = socket.socket(socket.AF_UNIX)
    try:
        listener.bind(str(path))
        path.chmod(0o600)
        listener.listen(queue)
    except OSError as error:
        listener.close()
        raise SiteError(f"{path} cannot be a socket: {error}") from None
    return listener


def make_certificate(path):
    """Makes a key and a certificate signed with it, for this machine alone."""
    draft = path.with_suffix(".new")
    command = ("openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256",
               "-noenc", "-days", str(CERTIFICATE_DAYS), "-subj", "/CN=127.0.0.1", "-addext",
               "subjectAltName=IP:127.0.0.1,DNS:localhost", "-keyout", draft, "-out", "-")
    made = subprocess.run(command, umask=PRIVATE, capture_output=True, check=False)
    if made.returncode != 0:
        raise SiteError("openssl made no certificate: " + made.stderr.decode().strip())
    with draft.open("ab") as file:
        file.write(made.stdout)
    draft.rename(path)
