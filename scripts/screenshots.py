"""Takes the pictures of the console that the documentation shows: screenshots.py BUILD FOLDER"""

import pathlib
import sys
import tempfile

from console_browser import ConsoleBrowser
from console_site import ConsoleSite

ADDRESSES, STATUS, EVENTS, USERS, PARTITION_POWER = 72, 3, 153, 60, 30
WINDOW, PHONE = (1280, 900), (360, 640)


def take_pictures(site, browser, folder):
    def take(name):
        browser.screenshot(folder / f"{name}.png")

    browser.open("/")
    take("login")
    browser.login("admin")
    browser.show(STATUS)
    take("status")
    browser.show(EVENTS)
    take("events")

    browser.show(ADDRESSES)
    take("settings-form")
    browser.fill({"gateway3": "999"})
    browser.press("submit")
    take("settings-wrong")
    browser.fill({"gateway3": "254"})
    browser.press("submit")
    take("settings-confirmation")
    browser.press("submit")
    take("settings-completion")

    browser.prefer("dark")
    browser.show(STATUS)
    take("dark")
    browser.prefer("light")
    browser.resize(*PHONE)
    browser.open("/network/orv_smtp_set.cgi")
    take("phone")
    browser.open("/network/orv_smtp_set.cgi#menu")
    take("phone-menu")
    browser.resize(*WINDOW)

    browser.login("operator")
    browser.show(PARTITION_POWER)
    take("japanese")
    browser.open("/user/list.cgi")
    take("error-japanese")
    browser.login("guest")
    browser.open("/user/list.cgi")
    take("error")


def main():
    build, folder = sys.argv[1:]
    with tempfile.TemporaryDirectory() as run, ConsoleSite(build, run) as site:
        with ConsoleBrowser(site.url) as browser:
            take_pictures(site, browser, pathlib.Path(folder))


if __name__ == "__main__":
    main()
