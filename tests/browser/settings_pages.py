"""Every page that changes a setting: what can be set on it, and what is wrong there."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class SettingsPage:
    path: str
    valid: dict          # fields and values, other than a new board's
    wrong: tuple = ()    # (field, value) pairs that are refused beside the valid values
    user: str = "admin"


PAGES = (
    SettingsPage("/system/sys_info.cgi",
                 {"system_name": "server 2", "asset_tag": "AT-2002", "location": "\"Room\" <3>",
                  "contact": "Operations &amp; more"},
                 (("system_name", ""), ("location", "東京"), ("contact", "caf\xe9"))),
    SettingsPage("/system/led_config.cgi", {"led": "blink"}, user="guest"),
    SettingsPage("/system/pel_filter.cgi",
                 {"severity": "warning", "source": "power", "count": "20"},
                 (("count", "0"), ("count", "201"), ("count", "2x")), user="staff"),
    SettingsPage("/partition/schedule_set.cgi?partition=3",
                 {"enabled0": True, "first_day0": "2027", "first_day1": "01", "first_day2": "02",
                  "last_day0": "2028", "last_day1": "02", "last_day2": "29", "weekday6": True,
                  "on_time0": "06", "on_time1": "05", "on_time2": "00", "off_time0": "",
                  "off_time1": "", "off_time2": ""},
                 (("first_day1", "13"), ("last_day0", "2027"), ("last_day0", "2038"),
                  ("last_day1", "\"1"), ("on_time0", "24"), ("on_time2", "-1")), user="part"),
    SettingsPage("/partition/boot_control.cgi?partition=1",
                 {"device1": "network", "device2": "none", "device3": "disk", "retries": "9",
                  "halt0": True},
                 (("device2", "network"), ("retries", "x")), user="operator"),
    SettingsPage("/network/orv_refresh_set.cgi", {"interval": "1234"},
                 (("interval", "3601"), ("interval", ""))),
    SettingsPage("/maintenance/maintenance_mode.cgi", {"mode18_0": True, "permission0": True}),
)
