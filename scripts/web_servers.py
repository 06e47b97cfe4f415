"""The web servers that can serve the console (docs/servers.md): configuration and start of each."""

import os
import re
import resource
import shutil
import signal
import subprocess

from site_parts import PROJECT, NotAllowedError, SiteError, listen

TEMPLATES = PROJECT / "console" / "servers"
CONDITION = re.compile(r"^@([a-z]+)@")  # a line for plain CGI, SCGI, HTTPS or root alone
DESCRIPTORS = 16384  # for 8192 clients, and a page for each
PAGES_AT_A_TIME = 200  # more than the places for pages, so that a page refuses what is too much
QUEUE = 1024
FILE_PAGES = r"^/(common/request|maintenance/orv_(firmup|backup_restore))\.cgi$"

# Starts $1 processes of fcgiwrap with this one's input, the listening socket. fcgiwrap itself ends
# only between two requests when it is told to end; so it is killed, and its page has no client. A
# process whose parent ended before it asked for the signal does not start.
START_FCGIWRAP = """
exec 3<&0
trap 'kill -KILL $started; exit' HUP INT TERM
for number in $(seq "$1"); do
    setpriv --pdeathsig KILL sh -c '[ $PPID = "$0" ] && exec fcgiwrap' $$ <&3 3<&- &
    started="$started $!"
done
wait
"""


class WebServer:
    """A web server for `site`, which runs pages as CGI programs, or sends requests to the page
    server if `site.scgi` is set."""

    program, package = "", ""
    templates = ()  # of configuration files; the first one is the main file
    options = ()  # before the path of the configuration
    # Signals at which the server opens these logs again, or None. Pages write the trace log.
    server_log_signal = trace_log_signal = None

    def __init__(self, site):
        self.site = site
        self.process = None

    def start(self):
        """Starts the server; returns its process."""
        program = shutil.which(self.program, path=os.environ["PATH"] + ":/usr/sbin")
        if program is None:
            raise SiteError(f"{self.program} is not installed: install the package {self.package}")
        for template in self.templates:
            text = self.filled((TEMPLATES / f"{template}.in").read_text(encoding="utf-8"))
            (self.site.run / template).write_text(text, encoding="utf-8")
        return self.launch(program, *self.options, str(self.site.run / self.templates[0]))

    def launch(self, *command, before=(), **options):
        """Starts a command with as many descriptors as a server needs, by site.start()."""
        return self.site.start(*command, before=(
            "prlimit", f"--nofile={descriptor_limit()}:", *before), **options)

    def filled(self, text):
        """A template with its values: each line that begins with a condition which does not hold
        is left out, and words between @ are replaced."""
        site = self.site
        conditions = {"cgi": not site.scgi, "scgi": site.scgi, "tls": site.tls_port is not None,
                      "root": os.geteuid() == 0}
        lines = []
        for line in text.splitlines(keepends=True):
            condition = CONDITION.match(line)
            if not condition:
                lines.append(line)
            elif conditions[condition[1]]:
                lines.append(line[condition.end():])
        text = "".join(lines)
        values = {"PORT": site.port, "TLS_PORT": site.tls_port, "CERTIFICATE": site.certificate,
                  "PROJECT": PROJECT, "SITE": site.build / "site",
                  "RUN": site.run, "FILE_PAGES": FILE_PAGES, **self.values()}
        return re.sub("@(%s)@" % "|".join(values), lambda word: str(values[word[1]]), text)

    def values(self):
        """Further words of this server's templates."""
        return {}


class Lighttpd(WebServer):
    program = package = "lighttpd"
    templates = ("lighttpd.conf",)
    options = ("-D", "-f")
    server_log_signal = trace_log_signal = signal.SIGHUP

    def values(self):
        return {"RUNNER": self.site.runner, "ENVIRONMENT": ", ".join(
            f'"{name}" => "{value}"' for name, value in self.site.environment.items())}


class Nginx(WebServer):
    """nginx has no CGI: fcgiwrap runs the pages, one at a time in each of its processes."""

    program = package = "nginx"
    templates = ("nginx.conf", "nginx-pages.conf")
    server_log_signal = signal.SIGUSR1

    def __init__(self, site):
        super().__init__(site)
        self.options = ("-e", str(site.run / "server.log"), "-p", str(site.run), "-c")

    def start(self):
        if not self.site.scgi:
            self.start_page_processes()
        return super().start()

    def start_page_processes(self):
        if shutil.which("fcgiwrap", path=os.environ["PATH"] + ":/usr/sbin") is None:
            raise SiteError("fcgiwrap is not installed: install the package fcgiwrap")
        with listen(self.site.run / "pages.sock", QUEUE) as listener, \
                open(self.site.trace_log, "ab", opener=private) as log:
            self.site.start("sh", "-c", START_FCGIWRAP, "sh", str(PAGES_AT_A_TIME),
                            name="fcgiwrap", env=self.site.page_environment(), stdin=listener,
                            stdout=subprocess.DEVNULL, stderr=log)

    def values(self):
        return {"PARAM": "scgi_param" if self.site.scgi else "fastcgi_param"}


class Apache(WebServer):
    program, package = "apache2", "apache2-bin"
    templates = ("apache.conf",)
    options = ("-X", "-f")  # one process, so that nothing is left when it is killed

    def values(self):
        return {"ENVIRONMENT": "\n".join(
            f'SetEnv {name} "{value}"' for name, value in self.site.environment.items())}

    def launch(self, *command, **options):
        (self.site.run / "apache.pid").unlink(missing_ok=True)
        # When told to end, Apache waits for its slowest client.
        with open(self.site.trace_log, "ab", opener=private) as log:
            return super().launch(*command, before=self.other_user(), ending=signal.SIGKILL,
                                  stdout=log, **options)

    @staticmethod
    def other_user():
        """Apache refuses to be root. In a user namespace, this machine's root has another name."""
        if os.geteuid() != 0:
            return ()
        namespace = ("unshare", "--user", "--map-user=1")
        if subprocess.run([*namespace, "true"], capture_output=True, check=False).returncode != 0:
            raise NotAllowedError("Apache refuses to run as root, and there are no user namespaces"
                                  " here: start ./run as another user, or choose another server")
        return namespace


WEB_SERVERS = {"lighttpd": Lighttpd, "nginx": Nginx, "apache": Apache}


def private(path, flags):
    return os.open(path, flags, 0o600)


def descriptor_limit():
    """What a process may have without further rights, up to what the servers need."""
    hard = resource.getrlimit(resource.RLIMIT_NOFILE)[1]
    return DESCRIPTORS if hard == resource.RLIM_INFINITY else min(DESCRIPTORS, hard)
