"""What a program costs from its start to its exit, and what several such costs say together."""

import dataclasses
import math
import os
import pathlib
import re
import statistics
import subprocess
import tempfile


class BenchError(Exception):
    """Why nothing can be measured, in one line."""


@dataclasses.dataclass
class Program:
    """One contender: its command line, its environment, its standard input."""

    words: list
    environment: dict = dataclasses.field(default_factory=dict)
    input: object = "/dev/null"

    def output(self, **environment):
        """What it prints; further environment as arguments."""
        with open(self.input, "rb") as source:
            done = subprocess.run([str(word) for word in self.words], stdin=source,
                                  env={**self._texts(self.environment), **self._texts(environment)},
                                  capture_output=True, check=False)
        if done.returncode != 0:
            raise BenchError(f"{self.words[0]} failed, status {done.returncode}: {done.stderr!r}")
        return done.stdout

    def plan(self):
        """The lines that make `repeat` run it."""
        return ["program x", f"input {self.input}",
                *(f"env {name}={value}" for name, value in self.environment.items()),
                *(f"arg {word}" for word in self.words)]

    @staticmethod
    def _texts(environment):
        return {name: str(value) for name, value in environment.items()}


@dataclasses.dataclass
class Cost:
    wall: float  # microseconds, as the processor time is
    cpu: float
    resident: int  # KiB
    printed: int  # bytes


@dataclasses.dataclass
class Spread:
    """A median and the quartiles around it."""

    median: float
    low: float
    high: float

    @classmethod
    def of(cls, values):
        low, median, high = statistics.quantiles(values, n=4)
        return cls(median, low, high)

    @classmethod
    def of_ratios(cls, ours, peers, cost):
        return cls.of([getattr(a, cost) / getattr(b, cost) for a, b in zip(ours, peers)])


class Meter:
    """Runs programs with the tools of a build folder."""

    def __init__(self, build):
        self._repeat = pathlib.Path(build) / "bench" / "repeat"

    def alternate(self, programs, rounds):
        """Runs the programs in turn; the costs of each, with one round to warm up left out."""
        plan = [f"rounds {rounds + 1}"]
        for program in programs:
            plan += program.plan()
        done = subprocess.run([self._repeat], input="\n".join(plan) + "\n", text=True,
                              capture_output=True, check=False)
        if done.returncode != 0:
            raise BenchError(done.stderr.strip())
        costs = [[] for _ in programs]
        for line in done.stdout.splitlines():
            number, wall, cpu, resident, printed = line.split()
            costs[int(number)].append(Cost(float(wall), float(cpu), int(resident), int(printed)))
        return [each[1:] for each in costs]

    def instructions(self, program, before_main=False):
        """Instructions that the program executes, counted by callgrind: the least of a few counts,
        because how often a page asks for the daemon's answer depends on when that comes."""
        return min(self._instructions(program, before_main) for _ in range(3))

    @staticmethod
    def _instructions(program, before_main):
        with tempfile.TemporaryDirectory() as folder:
            out = os.path.join(folder, "out")
            option = ["--dump-before=main"] if before_main else []
            Program(["/usr/bin/valgrind", "-q", "--tool=callgrind", f"--callgrind-out-file={out}",
                     *option, *program.words], program.environment, program.input).output()
            text = pathlib.Path(out + ".1" if before_main else out).read_text(encoding="utf-8")
        return int(re.search(r"^(?:totals|summary): (\d+)", text, re.MULTILINE).group(1))


def growth(counts):
    """The exponent by which a cost grows, from its values at n, 2n and 4n: 1 is linear. What every
    run costs, whatever n is, drops out."""
    smallest, middle, largest = counts
    return math.log2((largest - middle) / (middle - smallest))
