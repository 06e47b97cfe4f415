"""The console and a browser, for the tests of one file."""

from support.site_case import SiteCase

from console_browser import ConsoleBrowser  # of scripts/; needs Selenium


class BrowserCase(SiteCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.browser = cls.enterClassContext(ConsoleBrowser(cls.site.url))

    def tearDown(self):
        super().tearDown()
        self.assertEqual(self.browser.complaints(), [])

    def set_language(self, user, language, item="0x02010026"):
        """Changes the language that the console speaks with a user, or that of another item."""
        self.client.login(user)
        self.site.boardctl("set", self.client.session, item, f"{language:08x}")
