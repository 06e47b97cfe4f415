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

    def set_language(self, user, language):
        """Changes the language that the console speaks with a user."""
        self.client.login(user)
        self.site.boardctl("set", self.client.session, "0x02010026", f"{language:08x}")
