"""Measures every row against its peers and prints one table: measure.py [--row NAME] [--json]"""

import argparse
import dataclasses
import datetime
import http.client
import json
import os
import pathlib
import platform
import re
import subprocess
import sys
import tempfile

from console_site import ConsoleSite
from site_parts import SiteError
from costs import BenchError, Meter, Program, Spread, growth
from work import MIB, Work, body_of, contents, require_same

PROJECT = pathlib.Path(__file__).resolve().parent.parent
LINEAR = 1.1  # the largest exponent that counts as linear, and as n log n at these sizes
PASSES = 32


@dataclasses.dataclass
class Line:
    """One line of the table."""

    row: str
    peer: str
    ours: str
    theirs: str
    ratio: Spread = None
    instructions: tuple = ()
    target: str = ""
    met: bool = None

    def cells(self):
        ratio = self.ratio
        shown = f"{ratio.median:.3f} ({ratio.low:.3f}–{ratio.high:.3f})" if ratio else "–"
        counts = " / ".join(f"{count:,}" for count in self.instructions) or "–"
        met = {None: "–", True: "yes", False: "**no**"}[self.met]
        return [self.row, self.peer, self.ours, self.theirs, shown, counts, self.target, met]


def microseconds(costs, cost="wall"):
    return f"{Spread.of([getattr(each, cost) for each in costs]).median / 1000:.2f} ms"


class Rows:
    """The rows, each a method that returns its lines."""

    def __init__(self, build, folder, site):
        self.meter = Meter(build)
        self.work = Work(build, folder)
        self.site = site

    def against(self, row, ours, peer_name, peer, rounds, cost="wall", target=None, count=True):
        """The line of a pair that must not cost more than `target` of the peer."""
        mine, theirs = self.meter.alternate([ours, peer], rounds)
        ratio = Spread.of_ratios(mine, theirs, cost)
        counts = ()
        if count:
            counts = (self.meter.instructions(ours), self.meter.instructions(peer))
        limit, word = target if target else (None, "")
        return Line(row, peer_name, microseconds(mine, cost), microseconds(theirs, cost), ratio,
                    counts, word, None if limit is None else ratio.median <= limit)

    def page(self):
        ours, bare = self.work.ours("page"), self.work.ours("bare")
        require_same(ours, self.work.page, whole=True)
        require_same(bare, self.work.page, whole=True)
        return [self.against("page", ours, "bare C++", bare, 1000, target=(1.15, "≤ 1.15 wall")),
                self.against("page, CPU", ours, "bare C++", bare, 500, cost="cpu", count=False)]

    def session_page(self):
        session = self.work.session(self.site)
        ours, bare = self.work.ours("session_page", environment=session), self.work.ours("bare")
        require_same(ours, self.work.page, whole=True)
        lines = [self.against("session page", ours, "bare C++", bare, 1000,
                              target=(1.35, "≤ 1.35 wall"))]
        for kind in ("PHP", "Perl CGI"):
            peer = self.work.peer(kind, "session_page", session)
            if peer is not None:
                require_same(peer, body_of(self.work.page))
                lines.append(self.against("session page", ours, kind, peer, 60,
                                          target=(1 / 8, "≤ 0.125 wall")))
        return lines

    def served(self):
        session = self.work.session(self.site)["HTTP_COOKIE"]
        paths = ["/bench/session_page.cgi", "/bench/bare.cgi"]
        for path in paths:
            connection = http.client.HTTPConnection("127.0.0.1", self.site.port)
            connection.request("GET", path, headers={"Cookie": session})
            if connection.getresponse().read() != body_of(self.work.page):
                raise BenchError(f"{path} is served otherwise than it should be")
            connection.close()
        rates = [[self._rate(path, session) for path in paths] for _ in range(16)][1:]
        ratio = Spread.of([ours / bare for ours, bare in rates])
        ours, bare = (Spread.of([pair[i] for pair in rates]).median for i in (0, 1))
        return [Line("served", "bare C++", f"{ours:.0f} requests/s", f"{bare:.0f} requests/s",
                     ratio, (), "≥ 0.85", ratio.median >= 0.85)]

    def _rate(self, path, cookie):
        """Requests a second over 4 connections."""
        said = Program(["/usr/bin/ab", "-q", "-n", "400", "-c", "4", "-H", "Cookie: " + cookie,
                        self.site.url + path]).output().decode()
        if not re.search(r"^Failed requests: +0$", said, re.MULTILINE) or "Non-2xx" in said:
            raise BenchError(f"requests for {path} failed:\n{said}")
        return float(re.search(r"^Requests per second: +([0-9.]+)", said, re.MULTILINE).group(1))

    def upload(self):
        lines = []
        for name, content in contents(64 * MIB).items():
            environment, body = self.work.upload(content)
            ours = self.work.ours("upload", environment=environment, source=body)
            copy = self.work.ours("copy", environment=environment, source=body)
            self.work.require_kept(ours, content)
            self.work.require_kept(copy, body.read_bytes())
            target = (1.25, "≤ 1.25 CPU") if name == "random" else (2, "≤ 2 CPU")
            row = f"upload, {name}"
            lines.append(self.against(row, ours, "64 KiB copy", copy, 15, "cpu", target))
            for kind in ("cgicc", "PHP", "Perl CGI"):
                peer = self.work.peer(kind, "upload", environment, body)
                if peer is not None:
                    self.work.require_kept(peer, content)
                    require_same(peer, body_of(ours.output()))
                    lines.append(self.against(row, ours, kind, peer, 5, "cpu", (1, "< 1 CPU"),
                                              count=False))
        return lines

    def upload_memory(self):
        sizes, resident = (1, 16, 90), []
        for size in sizes:
            content = contents(size * MIB)["random"]
            environment, body = self.work.upload(content)
            ours = self.work.ours("upload", environment=environment, source=body)
            self.work.require_kept(ours, content)
            resident.append(max(cost.resident for cost in self.meter.alternate([ours], 5)[0]))
        # A few pages more or less are the kernel's choice of what it maps around a fault.
        met = max(resident) <= 6 * 1024 and max(resident) - min(resident) <= 256
        return [Line("upload memory", "–", ", ".join(f"{size} MiB: {kib} KiB"
                                                     for size, kib in zip(sizes, resident)),
                     "–", target="≤ 6144 KiB, the same", met=met)]

    def fields(self):
        environment, body = self.work.form(100000)
        ours = self.work.ours("fields", environment=environment, source=body)
        lines = []
        peer = self.work.peer("cgicc", "fields", environment, body)
        if peer is not None:
            require_same(peer, body_of(ours.output()))
            lines.append(self.against("fields", ours, "cgicc", peer, 15,
                                      target=(0.5, "≤ 0.5 wall")))
        counts = []
        for count in (10000, 20000, 40000, 80000):
            environment, body = self.work.form(count)
            counts.append(self.meter.instructions(
                self.work.ours("fields", environment=environment, source=body)))
        lines.append(self._growth_line("fields, 10 to 80 thousand", counts, 80000, 40000,
                                       "a field"))
        return lines

    @staticmethod
    def _growth_line(row, counts, largest, middle, unit):
        exponent = growth(counts[-3:])
        each = (counts[-1] - counts[-2]) / (largest - middle)
        ours = f"grows as n^{exponent:.3f}, {each:,.1f} instructions {unit}"
        return Line(row, "–", ours, "–",
                    instructions=(counts[-1],), target=f"≤ n^{LINEAR}", met=exponent <= LINEAR)

    def escape(self):
        return [line for operation in ("html", "url", "str") for line in self._escape(operation)]

    def _escape(self, operation):
        row = {"html": "convertHTML", "url": "encodeURL", "str": "convertStr"}[operation]
        once, often = (self.work.ours("escape", operation, "plain", 16, passes)
                       for passes in (1, 1 + PASSES))
        if once.output() != often.output():
            raise BenchError(f"{row} changes a text that needs no change")
        costs = self.meter.alternate([once, often], 15)
        rate = Spread.of([PASSES * 16 * MIB / 1000 / (b.wall - a.wall) for a, b in zip(*costs)])
        yield Line(f"escape, {row}, plain", "–",
                   f"{rate.median:.2f} GB/s ({rate.low:.2f}–{rate.high:.2f})", "–",
                   instructions=(self.meter.instructions(once),), target="≥ 1 GB/s",
                   met=rate.median >= 1)
        counts = [self.meter.instructions(self.work.ours("escape", operation, "special", mib, 1))
                  for mib in (4, 8, 16)]
        yield self._growth_line(f"escape, {row}, all special", counts, 16 * MIB, 8 * MIB, "a byte")

    def big_page(self):
        lines = []
        for name, largest, unit, make in (
                ("5,000-option menu", 5000, "an option",
                 lambda count: self.work.ours("big_page", "menu", count)),
                ("2 MiB skeleton", 2 * MIB, "a byte", self._skeleton_page),
                ("10,000 markers", 10000, "a component", self._marker_page)):
            pages = [make(largest // part) for part in (4, 2, 1)]
            costs = self.meter.alternate(pages[1:], 25)
            each = Spread.of([(b.wall - a.wall) / (largest - largest // 2) * 1000
                              for a, b in zip(*costs)])
            line = self._growth_line(f"big page, {name}", [self.meter.instructions(page)
                                                           for page in pages],
                                     largest, largest // 2, unit)
            line.ours += f", {each.median:,.2f} ns"
            lines.append(line)
        return lines

    def _skeleton_page(self, size):
        text = "<tr><td>A line of a long page, as it stands in its skeleton.</td></tr>\n"
        skeleton = self.work.skeleton(f"text{size}", (text * (size // len(text) + 1))[:size])
        page = self.work.ours("big_page", "markers", 0, skeleton)
        require_same(page, skeleton.read_bytes(), whole=True)
        return page

    def _marker_page(self, count):
        skeleton = self.work.skeleton(f"markers{count}",
                                      "".join(f"$m{i}$\n" for i in range(count)))
        page = self.work.ours("big_page", "markers", count, skeleton)
        require_same(page, "".join(f"Unit&nbsp;{i}\n" for i in range(count)).encode(), whole=True)
        return page

    def start_up(self):
        ours, bare = (self.meter.instructions(self.work.ours(name), before_main=True)
                      for name in ("page", "bare"))
        return [Line("start-up", "bare C++", f"{ours:,} before main", f"{bare:,}",
                     Spread(*[ours / bare] * 3), (ours, bare), "≤ 1.2", ours / bare <= 1.2)]


ROWS = {"page": Rows.page, "session page": Rows.session_page, "served": Rows.served,
        "upload": Rows.upload, "upload memory": Rows.upload_memory, "fields": Rows.fields,
        "escape": Rows.escape, "big page": Rows.big_page, "start-up": Rows.start_up}


def machine():
    """Where this was measured, in one line."""
    model = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text("utf-8"),
                      re.MULTILINE)
    compiler = subprocess.run(["g++", "--version"], capture_output=True, text=True,
                              check=True).stdout.split("\n")[0]
    load = os.getloadavg()[0]
    return (f"{model.group(1) if model else platform.machine()}, {os.cpu_count()} processors, "
            f"Linux {platform.release().partition('-')[0]}, {' '.join(platform.libc_ver())}, "
            f"{compiler}, load {load:.1f} at the start, {datetime.date.today()}")


def print_table(lines, where):
    print("| Row | Peer | Ours | Peer's | Ratio (quartiles) | Instructions | Target | Met |")
    print("|---|---|---|---|---|---|---|---|")
    for line in lines:
        print("| " + " | ".join(line.cells()) + " |")
    print(f"\nMachine: {where}.")


def main():
    parser = argparse.ArgumentParser(prog="bench/run", description=__doc__.split(":")[0])
    parser.add_argument("--row", choices=ROWS, help="this one only")
    parser.add_argument("--json", action="store_true", help="for programs, not for people")
    parser.add_argument("--build", default=PROJECT / "build" / "bench", help=argparse.SUPPRESS)
    parser.add_argument("--parse-only", action="store_true", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.parse_only:
        return
    where, lines = machine(), []
    with tempfile.TemporaryDirectory() as folder, ConsoleSite(options.build, folder) as site:
        rows = Rows(options.build, folder, site)
        for name in [options.row] if options.row else ROWS:
            print(f"Measuring {name}", file=sys.stderr)
            lines += ROWS[name](rows)
    if options.json:
        print(json.dumps({"machine": where, "lines": [dataclasses.asdict(line) for line in lines]},
                         indent=1, ensure_ascii=False))
    else:
        print_table(lines, where)


if __name__ == "__main__":
    try:
        main()
    except (BenchError, SiteError) as failure:
        sys.exit(f"bench/run: {failure}")
