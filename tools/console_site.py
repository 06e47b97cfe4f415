"""The console of a build folder, served by lighttpd on loopback."""

import contextlib
import os
import pathlib
import shutil
import socket
import subprocess
import time
import urllib.error
import urllib.request

PROJECT = pathlib.Path(__file__).resolve().parent.parent
START_LIMIT_SECONDS = 10


class SiteError(Exception):
    """Why the console cannot be served, in one line that says what to do."""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def is_port_free(port):
    with socket.socket() as probe:
        probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        try:
            probe.bind(("127.0.0.1", port))
        except OSError:
            return False
    return True


class ConsoleSite(contextlib.AbstractContextManager):
    """Starts the servers when entered and stops them when left.

    `build` is a build folder; `run` is where logs and the generated configuration go.
    """

    def __init__(self, build, run, port=0):
        self.site = pathlib.Path(build).resolve() / "site"
        self.run = pathlib.Path(run).resolve()
        self.port = port or free_port()
        self.url = f"http://127.0.0.1:{self.port}"
        self.trace_log = self.run / "trace.log"
        self._processes = []

    def __enter__(self):
        if not is_port_free(self.port):
            raise SiteError(f"port {self.port} is in use: choose another one with --port")
        self.run.mkdir(parents=True, exist_ok=True)
        try:
            self._start_web_server()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(START_LIMIT_SECONDS)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._processes.clear()

    def wait(self):
        """Returns when one of the servers has ended, with its name."""
        while True:
            for process in self._processes:
                if process.poll() is not None:
                    return process.args[-1]
            time.sleep(0.2)

    def _start(self, *command):
        # A server goes with whoever started it, even when that one is killed.
        process = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command],
                                   stdin=subprocess.DEVNULL)
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
        values = {"PORT": self.port, "SITE": self.site, "RUN": self.run,
                  "TRACE_LEVEL": os.environ.get("ORV_TRACE_LEVEL", "0")}
        for name, value in values.items():
            text = text.replace(f"@{name}@", str(value))
        return text

    def _answers(self):
        try:
            urllib.request.urlopen(self.url + "/default.css", timeout=START_LIMIT_SECONDS).close()
        except (urllib.error.URLError, OSError):
            return False
        return True
