"""The console of a build folder: a simulated board and lighttpd on loopback."""

import contextlib
import os
import pathlib
import random
import shutil
import signal
import socket
import subprocess
import time

PROJECT = pathlib.Path(__file__).resolve().parent.parent
START_LIMIT_SECONDS = 10
PRIVATE = 0o077  # file mode mask: state, keys and logs are for whoever starts the servers
LARGEST_LOG = 1 << 20  # bytes
LOGS_KEPT = 4
COMMAND_WORD = 3  # where a server's own command begins, behind setpriv's words


class SiteError(Exception):
    """Why the console cannot be served, in one line that says what to do."""


TLS = """
$SERVER["socket"] == "127.0.0.1:%d" {
    ssl.engine = "enable"
    ssl.pemfile = "%s"
}
"""
CERTIFICATE_DAYS = 3650


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


class ConsoleSite(contextlib.AbstractContextManager):
    """Starts the servers when entered and stops them when left.

    `build` is a build folder; `run` is where the board's state, its socket, logs and the generated
    configuration go. `environment` is added to that of the pages, `board_options` to the words on
    the board's command line. With `tls_port`, where 0 is a free one, there is HTTPS too. `runner`
    is the path of a program that runs pages and board, which are its first argument.
    """

    def __init__(self, build, run, port=0, environment=None, board_options=(), tls_port=None,
                 runner=""):
        self.build = pathlib.Path(build).resolve()
        self.run = pathlib.Path(run).resolve()
        self.socket = self.run / "board.sock"
        self.environment = {"ORV_IPC_SOCKET": self.socket,
                            "ORV_PAGE_PLACES": self.run / "places",
                            "ORV_TRACE_LIMITS": self.run / "trace.limits",
                            "ORV_TRACE_LEVEL": os.environ.get("ORV_TRACE_LEVEL", "0"),
                            **(environment or {})}
        self.port = port or free_port()
        self.url = f"http://127.0.0.1:{self.port}"
        self.tls_port = free_port() if tls_port == 0 else tls_port
        self.tls_url = f"https://127.0.0.1:{self.tls_port}"
        self.certificate = self.run / "tls.pem"
        self.trace_log = self.run / "trace.log"
        self.board_options = board_options
        self.runner = runner
        self._processes = []
        self.board = None
        self.server = None

    def __enter__(self):
        require_port(self.port)
        try:
            self.run.mkdir(parents=True, exist_ok=True)
            self.run.chmod(0o777 & ~PRIVATE)
            if self.tls_port is not None:
                require_port(self.tls_port)
                if not self.certificate.exists():
                    make_certificate(self.certificate)
            self.start_board(*self.board_options)
            self._start_web_server()
        except OSError as error:
            self.stop()
            raise SiteError(f"{error.filename}: {error.strerror}") from error
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        while self._processes:
            self._end(self._processes[-1])

    def _end(self, process):
        process.terminate()
        try:
            process.wait(START_LIMIT_SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
        if process.stdout:
            process.stdout.close()
        self._processes.remove(process)

    def wait(self):
        """Returns when one of the servers has ended, with its name. Meanwhile rotates the logs."""
        while True:
            self.rotate_logs()
            for process in self._processes:
                if process.poll() is not None:
                    return pathlib.Path(process.args[COMMAND_WORD]).name
            time.sleep(0.2)

    def rotate_logs(self):
        """Begins a log anew when it is large; keeps the last few as trace.log.1 and so on."""
        large = [log for log in (self.trace_log, self.run / "server.log")
                 if log.exists() and log.stat().st_size > LARGEST_LOG]
        for log in large:
            for age in range(LOGS_KEPT - 1, 0, -1):
                older = log.with_name(f"{log.name}.{age}")
                if older.exists():
                    older.rename(log.with_name(f"{log.name}.{age + 1}"))
            log.rename(log.with_name(log.name + ".1"))
        if large:
            self.server.send_signal(signal.SIGHUP)  # lighttpd opens its logs again

    def start_board(self, *options):
        """Starts the simulated board with further words on its command line."""
        self.board = self._start(*filter(None, [self.runner]), self.build / "board" / "orvboardd",
                                 "--state", self.run / "board.db", "--socket", self.socket,
                                 *options, stdout=subprocess.PIPE)
        if not self.board.stdout.readline().startswith(b"orvboardd: ready"):
            raise SiteError("orvboardd did not start: it says why above")

    def stop_board(self):
        self._end(self.board)

    def restart_board(self, *options):
        self.stop_board()
        self.start_board(*options)

    def boardctl(self, *words, typed=None):
        """Runs boardctl; returns what it printed."""
        return subprocess.run([self.build / "tools" / "boardctl", *words], input=typed,
                              env={**os.environ, "ORV_IPC_SOCKET": str(self.socket)},
                              capture_output=True, text=True, check=True).stdout.strip()

    def _start(self, *command, **options):
        # A server ends with the process that started it, even if that one is killed.
        process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command],
                                   stdin=subprocess.DEVNULL, umask=PRIVATE, **options)
        self._processes.append(process)
        return process

    def _start_web_server(self):
        program = shutil.which("lighttpd", path=os.environ["PATH"] + ":/usr/sbin")
        if program is None:
            raise SiteError("lighttpd is not installed: install the package lighttpd")
        for left in self.run.glob("lighttpd-upload-*"):
            left.unlink()  # by a web server that was killed, which keeps what it receives there
        configuration = self.run / "lighttpd.conf"
        configuration.write_text(self._configuration(), encoding="utf-8")
        server = self.server = self._start(program, "-D", "-f", str(configuration))
        deadline = time.monotonic() + START_LIMIT_SECONDS
        while not self._answers():
            if server.poll() is not None or time.monotonic() > deadline:
                raise SiteError(f"lighttpd did not start: see {self.run / 'server.log'}")
            time.sleep(0.05)

    def _configuration(self):
        text = (PROJECT / "console" / "lighttpd.conf.in").read_text(encoding="utf-8")
        environment = ", ".join(f'"{name}" => "{value}"'
                                for name, value in self.environment.items())
        values = {"PORT": self.port, "PROJECT": PROJECT, "SITE": self.build / "site",
                  "RUN": self.run, "ENVIRONMENT": environment, "RUNNER": self.runner,
                  "TLS": TLS % (self.tls_port, self.certificate) if self.tls_port else ""}
        for name, value in values.items():
            text = text.replace(f"@{name}@", str(value))
        return text

    def _answers(self):
        try:
            with socket.create_connection(("127.0.0.1", self.port)):
                return True
        except OSError:
            return False
