"""The console of a build folder: a simulated board and a web server on loopback."""

import contextlib
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import time

from page_server import PageServer
from site_parts import PRIVATE, SiteError, free_port, make_certificate, require_port
from web_servers import WEB_SERVERS

START_LIMIT_SECONDS = 10
LARGEST_LOG = 1 << 20  # bytes
LOGS_KEPT = 4


class ConsoleSite(contextlib.AbstractContextManager):
    """Starts the servers when entered and stops them when left.

    `build` is a build folder; `run` is where the board's state, its socket, logs and the generated
    configuration go. `environment` is added to that of the pages, `board_options` to the words on
    the board's command line. With `tls_port`, where 0 is a free one, there is HTTPS too. `runner`
    is the path of a program that runs pages and board, which are its first argument; only lighttpd
    with plain CGI takes it. `server` is a name in WEB_SERVERS; with `scgi` it sends requests to the
    page server instead of starting a page for each. With `frames` the console has frames.
    """

    def __init__(self, build, run, port=0, environment=None, board_options=(), tls_port=None,
                 runner="", server="lighttpd", scgi=False, frames=False):
        self.build = pathlib.Path(build).resolve()
        self.run = pathlib.Path(run).resolve()
        self.socket = self.run / "board.sock"
        self.environment = {"ORV_IPC_SOCKET": self.socket,
                            "ORV_PAGE_PLACES": self.run / "places",
                            "ORV_TRACE_LIMITS": self.run / "trace.limits",
                            "ORV_TRACE_LEVEL": os.environ.get("ORV_TRACE_LEVEL", "0"),
                            **({"ORV_CONSOLE_FRAMES": "1"} if frames else {}),
                            **(environment or {})}
        self.port = port or free_port()
        self.url = f"http://127.0.0.1:{self.port}"
        self.tls_port = free_port() if tls_port == 0 else tls_port
        self.tls_url = f"https://127.0.0.1:{self.tls_port}"
        self.certificate = self.run / "tls.pem"
        self.trace_log, self.server_log = self.run / "trace.log", self.run / "server.log"
        self.uploads = self.run / "uploads"  # of the web server
        self.board_options = board_options
        self.runner = runner
        self.scgi, self.frames = scgi, frames
        self._web_server = WEB_SERVERS[server](self)
        self._processes = {}  # their names and the signals that end them
        self.board = None
        self.page_server = None

    @property
    def server(self):
        """The web server's process."""
        return self._web_server.process

    def __enter__(self):
        require_port(self.port)
        try:
            self._prepare()
            self.start_board(*self.board_options)
            if self.scgi:
                self.page_server = PageServer(self)
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

    def _prepare(self):
        self.run.mkdir(parents=True, exist_ok=True)
        self.run.chmod(0o777 & ~PRIVATE)
        # A web server that was killed keeps here what it had received.
        if self.uploads.exists():
            shutil.rmtree(self.uploads)
        self.uploads.mkdir()
        if self.tls_port is not None:
            require_port(self.tls_port)
            if not self.certificate.exists():
                make_certificate(self.certificate)

    def stop(self):
        while self._processes:
            self._end(list(self._processes)[-1])
        if self.page_server:
            self.page_server.stop()
            self.page_server = None

    def _end(self, process):
        process.send_signal(self._processes[process][1])
        try:
            process.wait(START_LIMIT_SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
        if process.stdout:
            process.stdout.close()
        del self._processes[process]

    def wait(self):
        """Returns when one of the servers has ended, with its name. Meanwhile rotates the logs."""
        while True:
            self.rotate_logs()
            for process, (name, _) in self._processes.items():
                if process.poll() is not None:
                    return name
            if self.page_server and self.page_server.failure:
                raise SiteError(self.page_server.failure)
            time.sleep(0.2)

    def rotate_logs(self):
        """Begins a log anew when it is large; keeps the last few as trace.log.1 and so on."""
        pages = self.page_server or self._web_server
        self._rotate(self.trace_log, pages.process, pages.trace_log_signal)
        self._rotate(self.server_log, self._web_server.process, self._web_server.server_log_signal)

    @staticmethod
    def _rotate(log, writer, opens_again):
        if not log.exists() or log.stat().st_size <= LARGEST_LOG:
            return
        for age in range(LOGS_KEPT - 1, 0, -1):
            older = log.with_name(f"{log.name}.{age}")
            if older.exists():
                older.rename(log.with_name(f"{log.name}.{age + 1}"))
        if opens_again:
            log.rename(log.with_name(log.name + ".1"))
            writer.send_signal(opens_again)
        else:  # its processes append to the file that they have
            shutil.copy(log, log.with_name(log.name + ".1"))
            os.truncate(log, 0)

    def start_board(self, *options):
        """Starts the simulated board with further words on its command line."""
        self.board = self.start(*filter(None, [self.runner]), self.build / "board" / "orvboardd",
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

    def page_environment(self):
        """The environment of a process that runs pages."""
        return {**os.environ, **{name: str(value) for name, value in self.environment.items()}}

    def start(self, *command, name=None, before=(), ending=signal.SIGTERM, **options):
        """Starts a server, which the signal `ending` ends: when the site is left, and when the
        process that started it has ended, even if that one was killed. `before` are the words of
        commands that start it."""
        process = subprocess.Popen([*before, "setpriv", "--pdeathsig", ending.name[3:], *command],
                                   **{"stdin": subprocess.DEVNULL, "umask": PRIVATE, **options})
        self._processes[process] = name or pathlib.Path(command[0]).name, ending
        return process

    def _start_web_server(self):
        self._web_server.process = self._web_server.start()
        deadline = time.monotonic() + START_LIMIT_SECONDS
        while not self._answers():
            if self.page_server and self.page_server.failure:
                raise SiteError(self.page_server.failure)
            if self.server.poll() is not None or time.monotonic() > deadline:
                raise SiteError(f"{self._web_server.program} did not start: see {self.server_log}")
            time.sleep(0.05)

    def _answers(self):
        """Whether the web server accepts connections, and the page server runs."""
        try:
            with socket.create_connection(("127.0.0.1", self.port)):
                return not self.page_server or self.page_server.ready.is_set()
        except OSError:
            return False
