"""What a build folder holds, and the tools of the machine it was built for."""

import json
import pathlib
import subprocess


class BuildFolder:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        self.settings = json.loads((self.folder / "build_tools.json").read_text(encoding="utf-8"))
        self.shared_object = self.folder / "src/liborvgui.so.1"

    def tool(self, name, *words):
        """What the tool `name` prints for `words`."""
        done = subprocess.run([self.settings[name], *map(str, words)], capture_output=True,
                              text=True, check=False)
        if done.returncode != 0:
            raise SystemExit(f"{self.settings[name]} failed: {done.stderr.strip()}")
        return done.stdout

    def command(self, *words):
        """The words that run a program of this build on this machine."""
        emulator = self.settings["emulator"]
        return [*(emulator.split(";") if emulator else ()), *map(str, words)]
