"""Every page that changes a setting: what can be set on it, and what is wrong there."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class SettingsPage:
    function: int
    path: str
    valid: dict    # fields and values other than a new board's
    wrong: dict    # what must be refused, over the valid values
    user: str = "admin"


PAGES = (
    SettingsPage(75, "/network/orv_refresh_set.cgi", {"interval": "1234"}, {"interval": "3601"}),
)
