"""The programs that are measured, what they are given, and that they do the same."""

import pathlib
import random
import shutil

from costs import BenchError, Program

PEERS = pathlib.Path(__file__).resolve().parent / "peers"
REQUEST = {"HTTP_HOST": "127.0.0.1", "SERVER_PORT": "80", "REQUEST_METHOD": "GET"}
BOUNDARY = "----form-boundary-8c1f0e52a97d"
FILE_NAME = "image.bin"
MIB = 1 << 20


class Work:
    """Makes programs of a build folder; the files they read lie in `folder`."""

    def __init__(self, build, folder):
        self.build = pathlib.Path(build)
        self.pages = self.build / "site/usr/local/www/htdocs"
        self.folder = pathlib.Path(folder)
        self.page = (PEERS / "page.txt").read_bytes()

    def ours(self, name, *arguments, environment=None, source="/dev/null", folder="bench"):
        """A page of the static console or, in the folder shared, one that links the library."""
        return Program([self.pages / folder / f"{name}.cgi", *arguments],
                       {**REQUEST, **(environment or {})}, source)

    def bare(self, name, environment=None, source="/dev/null"):
        """A lower bound: it prints the page's bytes, or copies its input."""
        return self.ours(name, environment=environment, source=source, folder="peers")

    def peer(self, kind, name, environment=None, source="/dev/null"):
        """The peer's program, or None when the peer is not on this machine."""
        environment = {**REQUEST, **(environment or {})}
        if kind == "cgicc":
            program = self.pages / "peers" / f"cgicc_{name}.cgi"
            return Program([program], environment, source) if program.exists() else None
        if kind == "PHP":
            program = shutil.which("php-cgi")
            script = {"SCRIPT_FILENAME": PEERS / f"{name}.php", "REDIRECT_STATUS": "200"}
            words = [program, "-d", "upload_max_filesize=100M", "-d", "post_max_size=100M",
                     "-d", "upload_tmp_dir=/var/tmp"]
            return Program(words, {**environment, **script}, source) if program else None
        program = shutil.which("perl")
        has_module = program and not _fails(Program([program, "-MCGI", "-e", "1"]))
        environment = {**environment, "TMPDIR": "/var/tmp", "PERL_HASH_SEED": "0"}
        return Program([program, PEERS / f"{name}.pl"], environment, source) if has_module else None

    def session(self, site):
        """What the environment of a session page holds."""
        session = site.boardctl("login", "admin", typed="admin-pass\n").split()[-1]
        return {"HTTP_COOKIE": "sid=" + session, "ORV_IPC_SOCKET": site.socket,
                "BENCH_CATALOGUE": self.build / "bench/site/etc/orv/trace/cgistrj.out"}

    def upload(self, content):
        """Content type and length, and the file that holds the body with `content` as its file."""
        body = self.folder / "body"
        body.write_bytes(b'--%s\r\nContent-Disposition: form-data; name="file"; filename="%s"\r\n'
                         b"Content-Type: application/octet-stream\r\n\r\n%s\r\n--%s--\r\n"
                         % (BOUNDARY.encode(), FILE_NAME.encode(), content, BOUNDARY.encode()))
        return {"REQUEST_METHOD": "POST", "CONTENT_LENGTH": body.stat().st_size,
                "CONTENT_TYPE": "multipart/form-data; boundary=" + BOUNDARY}, body

    def form(self, count):
        """The same for a URL-encoded form of `count` fields, 100,000 of which make 2 MiB."""
        body = self.folder / f"form{count}"
        pairs = []
        for i in range(count):  # rows of a table, four inputs each
            pair = f"r{i // 4}_{('name', 'size', 'mode', 'note')[i % 4]}=a+%42"
            pairs.append(f"{pair:x<{20 if i < 97152 else 19}}&")
        body.write_text("".join(pairs), encoding="ascii")
        return {"REQUEST_METHOD": "POST", "CONTENT_LENGTH": body.stat().st_size,
                "CONTENT_TYPE": "application/x-www-form-urlencoded"}, body

    def skeleton(self, name, text):
        path = self.folder / name
        path.write_text(text, encoding="ascii")
        return path

    def require_kept(self, program, expected):
        """The file that the program took in must be this one."""
        kept = self.folder / "kept"
        program.output(BENCH_KEEP=kept)
        if kept.read_bytes() != expected:
            raise BenchError(f"{program.words[-1]} did not keep the file as it was sent")
        kept.unlink()


def contents(size):
    """The uploads, by name: the same bytes in every run."""
    near = b"\r\n--" + BOUNDARY[:-1].encode()
    return {"random": random.Random(1).randbytes(size), "CR LF": b"\r\n" * (size // 2),
            "near-markers": (near * (size // len(near) + 1))[:size]}


def body_of(output):
    """What follows the header lines, which the peers end in their own ways."""
    ends = [output.find(end) + len(end) for end in (b"\r\n\r\n", b"\n\n") if end in output]
    if not ends:
        raise BenchError(f"no header lines: {output[:80]!r}")
    return output[min(ends):]


def require_same(program, expected, whole=False):
    output = program.output()
    if (output if whole else body_of(output)) != expected:
        raise BenchError(f"{program.words[-1]} prints something else than it should")


def _fails(program):
    try:
        program.output()
    except BenchError:
        return True
    return False
