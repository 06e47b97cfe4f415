"""A user at a real browser, for what only a browser can tell: Chromium without a window."""

import contextlib

from selenium import webdriver
from selenium.common.exceptions import StaleElementReferenceException, WebDriverException
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support import expected_conditions
from selenium.webdriver.support.ui import Select, WebDriverWait

DRIVER = "/usr/bin/chromedriver"
WAIT_SECONDS = 30
# The browser reports nothing to anybody and needs no rights of its own.
OPTIONS = ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
           "--disable-quic", "--no-first-run", "--disable-background-networking",
           "--disable-component-update", "--disable-sync", "--hide-scrollbars")


def is_gone(element):
    """True for an element of a page that was left. Chromium has more than one error for that."""
    try:
        element.is_enabled()
    except WebDriverException:
        return True
    return False


class ConsoleBrowser(contextlib.AbstractContextManager):
    def __init__(self, url, width=1280, height=900, frames=False):
        self.url = url
        self.frames = frames
        options = webdriver.ChromeOptions()
        for option in OPTIONS:
            options.add_argument(option)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        self.driver = webdriver.Chrome(options=options, service=Service(DRIVER))
        self.resize(width, height)

    def __exit__(self, *_):
        self.driver.quit()

    def resize(self, width, height):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": width, "height": height, "deviceScaleFactor": 1,
                                     "mobile": False})

    def prefer(self, scheme):
        """Sets the user's colours: "light" or "dark"."""
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {
            "features": [{"name": "prefers-color-scheme", "value": scheme}]})

    def allow_scripts(self, allowed):
        """Turns JavaScript of the pages on or off."""
        self.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled",
                                    {"value": not allowed})

    def open(self, path):
        self.driver.get(self.url + path)

    def login(self, user, password=None):
        self.driver.delete_all_cookies()
        self.open("/")
        self.fill({"user": user, "password": password or user + "-pass"})
        self.press("login")
        self.wait(lambda _: "/common/login.cgi" not in self.driver.current_url)

    def show(self, function):
        """Opens a function in the console. With frames, switches to its frame."""
        self.open(f"/common/frame.cgi?fid={function}")
        self.enter("CONT_FRAME")

    def enter(self, frame):
        """Switches to a frame. Without frames, its part is in the page itself."""
        self.driver.switch_to.default_content()
        if not self.frames:
            return
        self.wait(expected_conditions.frame_to_be_available_and_switch_to_it((By.NAME, frame)))

    def wait(self, condition):
        # A page that reloads itself may remove the element that was found.
        return WebDriverWait(self.driver, WAIT_SECONDS, ignored_exceptions=(
            StaleElementReferenceException,)).until(condition)

    def all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def text(self):
        """What the page, or the frame, says; blanks are blanks."""
        return self.one("body").text.replace("\xa0", " ")

    def fill(self, fields):
        """Gives inputs their values as a user does. For a box, the value is True or False."""
        for name, value in fields.items():
            elements = self.driver.find_elements(By.NAME, name)
            kind = elements[0].get_attribute("type")
            if kind == "select-one":
                Select(elements[0]).select_by_value(value)
            elif kind == "checkbox":
                if elements[0].is_selected() != value:
                    elements[0].click()
            elif kind == "radio":
                next(button for button in elements
                     if button.get_attribute("value") == value).click()
            else:
                if kind != "file":
                    elements[0].clear()
                elements[0].send_keys(value)

    def value(self, name):
        """What an input holds, as fill() takes it."""
        elements = self.driver.find_elements(By.NAME, name)
        kind = elements[0].get_attribute("type")
        if kind == "checkbox":
            return elements[0].is_selected()
        if kind == "radio":
            return next((button.get_attribute("value") for button in elements
                         if button.is_selected()), None)
        return elements[0].get_attribute("value")

    def press(self, name):
        """Presses a button and waits for the page it leads to."""
        self.leave(self.driver.find_element(By.NAME, name).click)

    def leave(self, action):
        """Does something that leads to another page, and waits for that."""
        page = self.one("html")
        action()
        self.wait(lambda _: is_gone(page))
        self.wait(lambda driver: driver.execute_script("return document.readyState") == "complete")

    def complaints(self):
        """What the browser found wrong with the pages since it was last asked."""
        return [entry["message"] for entry in self.driver.get_log("browser")
                if entry["level"] in ("SEVERE", "WARNING")]

    def overflow(self):
        """How many pixels the page is wider than its window or frame."""
        return self.driver.execute_script(
            "return document.documentElement.scrollWidth - document.documentElement.clientWidth")

    def screenshot(self, path):
        self.driver.save_screenshot(str(path))
