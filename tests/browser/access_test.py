"""Pages for everyone: axe-core finds nothing in any state, and every page fits every width."""

import itertools
import pathlib
import tempfile

from console_pages import FLOWS, FUNCTIONS, PAGES
from make_firmware import make_image
from support.browser_case import BrowserCase, fetch_packages

HERE = pathlib.Path(__file__).parent
AXE, LAYOUT = ((HERE / name).read_text(encoding="utf-8") for name in ("axe.js", "layout.js"))
WIDTHS, MENU_WIDTHS = (320, 768, 1280), (250, 250, 250)
SCHEMES = ("dark", "", "light")  # at each width; axe-core looks at two of them
# A page's states, each with an element that only it has.
STATES = {"consent": ".consent", "error": "main .err_string",
          "unchanged": "main form:has([name=back]):not(:has([name=submit]))",
          "confirmation": "[name=back]", "done": "[role=status].normal_green",
          "ending": "#session_ending[open]", "ended": "#session_ended[open]",
          "waiting": "[name=keep]"}
STRANGERS = ("/common/gallery.cgi?language={}", "/common/request.cgi?language={}&text=a")
FRAMES = {"/common/menu.cgi?load=1&tid=0&mid=3": MENU_WIDTHS,
          "/common/information.cgi?menu0=Network+Configuration&menu1=Event+filter": WIDTHS}
# The only pages without a help text: they say all that there is.
WITHOUT_HELP = ("/common/timeout.cgi", "/common/logout.cgi")
SEARCH = "/system/sel_filtering.cgi?search=1&severity=info&source=&count="
REFRESH = "/network/orv_refresh_set.cgi"
DEFAULT_LANGUAGE = "0x02010001"
PROBATION = "/network/probation.cgi"
UPLOADS = "/maintenance/orv_firmup.cgi", "/maintenance/orv_backup_restore.cgi"


class Access(BrowserCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.seen, cls.found, cls.helped = set(), [], set()
        cls.axe = (fetch_packages() / "axe-core/axe.min.js").read_text(encoding="utf-8")

    def test_every_page_and_state_in_each_language(self):
        for self.language in (1, 0):
            self.renew_board()
            self.walk_as_a_stranger()
            self.walk_lists()
            for page in PAGES:
                self.walk_settings(page)
            for flow in FLOWS:
                self.walk_flow(*flow)
            self.walk_uploads()
            self.walk_out()
        pages = {path.partition("?")[0] for path, *_ in self.seen}
        print(f"{len(pages)} pages, {len(self.seen)} states and languages, "
              f"{len(self.found)} violations")
        self.assertFalse(self.found, "\n" + "\n".join(map(str, self.found)))
        self.assertEqual({path for path, *_ in self.seen if path.endswith(".cgi")} - self.helped,
                         set(WITHOUT_HELP))
        for page, language in itertools.product(PAGES, (0, 1)):
            for states in ({"form"}, {"confirmation", "consent"}, {"done"},
                           *[{"error"}] * bool(page.wrong)):
                self.assertTrue({(page.path, state, language) for state in states} & self.seen)

    def renew_board(self):
        """A board with the settings of a new one: a confirmation shows only what changes."""
        self.site.stop_board()
        for file in self.site.run.glob("board.db*"):
            file.unlink()
        self.site.start_board()

    def enter(self, user):
        self.set_language(user, self.language)
        if user in FUNCTIONS:  # the others are removed
            self.addCleanup(self.set_language, user, 1)
        self.browser.login(user)

    def open(self, path, widths=WIDTHS):
        self.browser.open(path)
        self.look(path, widths)

    def look(self, path, widths=WIDTHS):
        """Looks at the page in the browser, unless it was seen in this state."""
        state = next((name for name, sign in STATES.items() if self.browser.all(sign)), "form")
        if (path, state, self.language) in self.seen:
            return
        self.seen.add((path, state, self.language))
        run = self.browser.driver.execute_script
        run(self.axe)
        run("document.querySelectorAll('details').forEach(each => { each.open = true; });")
        if self.browser.all(".help p"):
            self.helped.add(path)
        if self.browser.all("[aria-invalid]"):
            self.assertTrue(run("return document.activeElement.matches('[aria-invalid]')"), path)
        for width, scheme in zip(widths, SCHEMES, strict=False):
            self.browser.resize(width, 900)
            self.browser.prefer(scheme)
            problems = run(LAYOUT)
            if scheme:
                problems += self.browser.driver.execute_async_script(AXE)
            self.found += [(path, state, width, self.language, problem) for problem in problems]

    def walk_as_a_stranger(self):
        self.set_language("admin", self.language, item=DEFAULT_LANGUAGE)
        self.browser.driver.delete_all_cookies()
        self.open("/common/login.cgi")
        self.browser.fill({"user": "admin", "password": "wrong"})
        self.browser.press("login")
        self.look("/common/login.cgi")
        self.open("/common/timeout.cgi")
        for path in STRANGERS:
            self.open(path.format(self.language))

    def walk_lists(self):
        self.enter("admin")
        for path, widths in FRAMES.items():
            self.open(path, widths)
        for function in FUNCTIONS["admin"]:
            self.browser.show(function)
            self.open(self.browser.driver.execute_script("return location.pathname"))
        self.open(PROBATION)
        for count in ("9", "0"):
            self.open(SEARCH + count)

    def walk_settings(self, page):
        self.enter(page.user)
        wrong = [dict(page.wrong[:1])] if page.wrong else []
        self.walk(page.path, *({**page.valid, **change} for change in (*wrong, {})), {})
        self.walk(page.path, {})

    def walk_flow(self, user, path, *forms):
        self.enter(user)
        self.walk(path, *(changes for changes, _ in forms))

    def walk(self, path, *forms):
        self.open(path)
        with self.subTest(path=path, language=self.language):
            for changes in filter(self.can_fill, forms):
                self.browser.fill({**changes, **dict.fromkeys(
                    ["consent0"] * bool(self.browser.all(".consent")), True)})
                self.browser.press("submit")
                self.look(path)

    def can_fill(self, changes):
        """False for a form that only a program can send."""
        return all(self.browser.all(f"[name={name}]" + f"[value={value}]" * (name == "operation"))
                   for name, value in changes.items())

    def walk_uploads(self):
        with tempfile.NamedTemporaryFile() as image:
            image.write(make_image(1000, b"2.0"))
            image.flush()
            self.enter("staff")
            self.open(PROBATION)
            for path in UPLOADS:
                self.walk(path, {}, {"browse_file": image.name})

    def walk_out(self):
        self.enter("guest")
        for state in ("ending", "ended"):
            self.browser.open(REFRESH)
            self.browser.driver.execute_script(f"session_{state}.showModal()")
            self.look(REFRESH)
        self.open("/user/list.cgi")  # the error page
        self.open("/common/logout.cgi")
        self.browser.press("logout")
        self.look("/common/logout.cgi?done")
