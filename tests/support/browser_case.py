"""The console and a browser, for the tests of one file."""

import json
import pathlib
import shutil
import subprocess

from support.site_case import BUILD, SiteCase

from console_browser import ConsoleBrowser  # of scripts/; needs Selenium

PACKAGES = pathlib.Path(__file__).parents[1] / "browser/package.json"


def fetch_packages():
    """The folder with the packages of npm that the tests use. npm fetches them once."""
    folder, names = BUILD / "browser", json.loads(PACKAGES.read_text("utf-8"))["dependencies"]
    folder.mkdir(exist_ok=True)
    shutil.copy(PACKAGES, folder)
    try:
        subprocess.run(["npm", "install", "--prefix", folder, "--no-package-lock", "--no-audit",
                        "--no-fund"], capture_output=True, check=True)
    except (OSError, subprocess.CalledProcessError) as error:
        if not all((folder / "node_modules" / name).exists() for name in names):
            raise RuntimeError(f"npm cannot fetch the packages in {PACKAGES}. Fetch them where npm "
                               f"can, and copy node_modules to {folder}") from error
    return folder / "node_modules"


class BrowserCase(SiteCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.browser = cls.enterClassContext(ConsoleBrowser(cls.site.url,
                                                           frames=cls.site.frames))

    def tearDown(self):
        super().tearDown()
        self.assertEqual(self.browser.complaints(), [])

    def set_language(self, user, language, item="0x02010026"):
        """Changes the language that the console speaks with a user, or that of another item."""
        self.client.login(user)
        self.site.boardctl("set", self.client.session, item, f"{language:08x}")
