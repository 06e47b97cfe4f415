"""The console of a build folder: a simulated board and lighttpd on loopback."""

import contextlib
import os
import pathlib
import shutil
import socket
import subprocess
import time

from console_client import ConsoleClient

PROJECT = pathlib.Path(__file__).resolve().parent.parent
START_LIMIT_SECONDS = 10
COMMAND_WORD = 3  # where a server's own command begins, behind setpriv's words


class SiteError(Exception):
    """Why the console cannot be served, in one line that says what to do."""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def require_port(port):
    with socket.socket() as probe:
        probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        try:
            probe.bind(("127.0.0.1", port))
        except OSError as error:
            raise SiteError(f"port {port} cannot be used ({error.strerror}):"
                            " choose another one with --port") from None


class ConsoleSite(contextlib.AbstractContextManager):
    """Starts the servers when entered and stops them when left.

    `build` is a build folder; `run` is where the board's state, its socket, logs and the generated
    configuration go. `environment` is added to that of the pages, `board_options` to the words on
    the board's command line. `runner` is the path of a program that runs pages and board, which are
    its first argument.
    """

    def __init__(self, build, run, port=0, environment=None, board_options=(), runner=""):
        self.build = pathlib.Path(build).resolve()
        self.run = pathlib.Path(run).resolve()
        self.socket = self.run / "board.sock"
        self.environment = {"ORV_IPC_SOCKET": self.socket,
                            "ORV_TRACE_LEVEL": os.environ.get("ORV_TRACE_LEVEL", "0"),
                            **(environment or {})}
        self.port = port or free_port()
        self.url = f"http://127.0.0.1:{self.port}"
        self.trace_log = self.run / "trace.log"
        self.board_options = board_options
        self.runner = runner
        self._processes = []
        self._board = None

    def __enter__(self):
        require_port(self.port)
        try:
            self.run.mkdir(parents=True, exist_ok=True)
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
        """Returns when one of the servers has ended, with its name."""
        while True:
            for process in self._processes:
                if process.poll() is not None:
                    return pathlib.Path(process.args[COMMAND_WORD]).name
            time.sleep(0.2)

    def start_board(self, *options):
        """Starts the simulated board with further words on its command line."""
        self._board = self._start(*filter(None, [self.runner]), self.build / "board" / "orvboardd",
                                  "--state", self.run / "board.db", "--socket", self.socket,
                                  *options, stdout=subprocess.PIPE)
        if not self._board.stdout.readline().startswith(b"orvboardd: ready"):
            raise SiteError("orvboardd did not start: it says why above")

    def stop_board(self):
        self._end(self._board)

    def restart_board(self, *options):
        self.stop_board()
        self.start_board(*options)

    def boardctl(self, *words, typed=None):
        """Runs boardctl; returns what it printed."""
        return subprocess.run([self.build / "tools" / "boardctl", *words], input=typed,
                              env={**os.environ, "ORV_IPC_SOCKET": str(self.socket)},
                              capture_output=True, text=True, check=True).stdout.strip()

    def _start(self, *command, **options):
        # A server goes with whoever started it, even when that one is killed.
        process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command],
                                   stdin=subprocess.DEVNULL, **options)
        self._processes.append(process)
        return process

    def _start_web_server(self):
        program = shutil.which("lighttpd", path=os.environ["PATH"] + ":/usr/sbin")
        if program is None:
            raise SiteError("lighttpd is not installed: install the package lighttpd")
        configuration = self.run / "lighttpd.conf"
        configuration.write_text(self._configuration(), encoding="utf-8")
        server = self._start(program, "-D", "-f", str(configuration))
        deadline = time.monotonic() + START_LIMIT_SECONDS
        while not self._answers():
            if server.poll() is not None or time.monotonic() > deadline:
                raise SiteError(f"lighttpd did not start: see {self.run / 'server.log'}")
            time.sleep(0.05)

    def _configuration(self):
        text = (PROJECT / "console" / "lighttpd.conf.in").read_text(encoding="utf-8")
        environment = ", ".join(f'"{name}" => "{value}"'
                                for name, value in self.environment.items())
        values = {"PORT": self.port, "SITE": self.build / "site", "RUN": self.run,
                  "ENVIRONMENT": environment, "RUNNER": self.runner}
        for name, value in values.items():
            text = text.replace(f"@{name}@", str(value))
        return text

    def _answers(self):
        try:
            ConsoleClient(self.url).get("/default.css")
        except OSError:
            return False
        return True
