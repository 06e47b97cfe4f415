"""One walk through each kind of page in Firefox: see firefox.mjs."""

import pathlib
import subprocess
import tempfile

from make_firmware import make_image
from support.browser_case import fetch_packages
from support.site_case import SiteCase

SCRIPT = pathlib.Path(__file__).with_name("firefox.mjs")


class Firefox(SiteCase):
    def test_each_kind_of_page(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        (folder / "image.bin").write_bytes(make_image(100000, b"2.0.1"))
        packages = fetch_packages()
        walk = subprocess.run(["node", SCRIPT, packages, self.site.url, folder / "image.bin"],
                              capture_output=True, text=True, timeout=240)
        self.assertEqual(walk.returncode, 0, walk.stdout + walk.stderr)
        print(f"{len(walk.stdout.splitlines())} kinds of page in Firefox")
