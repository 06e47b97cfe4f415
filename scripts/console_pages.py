"""The console's pages: who may use which functions, and what each page of settings takes."""

import dataclasses

READ_ONLY = {3, 64}
EVERYBODY = {7, 11, 63, 75, 95, 153, 154} | READ_ONLY
PARTITIONS = {30, 31, 45}
MAINTENANCE = {100, 104, 108}
FUNCTIONS = {
    "admin": {8, 10, 60, 70, 72, 74, 77, 88, 92} | EVERYBODY | PARTITIONS | MAINTENANCE,
    "operator": EVERYBODY | PARTITIONS,
    "part": EVERYBODY | PARTITIONS,
    "staff": EVERYBODY | MAINTENANCE,
    "guest": EVERYBODY,
}


@dataclasses.dataclass(frozen=True)
class SettingsPage:
    function: int
    path: str
    valid: dict          # fields and values, other than a new board's
    wrong: tuple = ()    # (field, value) pairs that are refused beside the valid values
    user: str = "admin"
    running: tuple = ()  # valid fields that go on by themselves

    @property
    def kept(self):
        """Fields and values that are found again."""
        return {name: value for name, value in self.valid.items() if name not in self.running}


def boxes(name, texts):
    """The fields of an input that has several boxes."""
    return {f"{name}{number}": text for number, text in enumerate(texts.split())}


PAGES = (
    SettingsPage(8, "/system/sys_info.cgi",
                 {"system_name": "server 2", "asset_tag": "AT-2002", "location": "\"Room\" <3>",
                  "contact": "Operations &amp; more"},
                 (("system_name", ""), ("location", "東京"), ("contact", "caf\xe9"))),
    SettingsPage(11, "/system/led_config.cgi", {"led": "blink"}, user="guest"),
    SettingsPage(154, "/system/pel_filter.cgi",
                 {"severity": "warning", "source": "power", "count": "20"},
                 (("count", "0"), ("count", "201"), ("count", "2x")), user="staff"),
    SettingsPage(31, "/partition/schedule_set.cgi?partition=3",
                 {"enabled0": True, "weekday6": True, **boxes("first_day", "2027 01 02"),
                  **boxes("last_day", "2028 02 29"), **boxes("on_time", "06 05 00"),
                  "off_time0": "", "off_time1": "", "off_time2": ""},
                 (("first_day1", "13"), ("last_day0", "2027"), ("last_day0", "2038"),
                  ("last_day1", "\"1"), ("on_time0", "24"), ("on_time2", "-1")), user="part"),
    SettingsPage(45, "/partition/boot_control.cgi?partition=1",
                 {"device1": "network", "device2": "none", "device3": "disk", "retries": "9",
                  "halt0": True}, (("device2", "network"), ("retries", "x")), user="operator"),
    SettingsPage(70, "/network/orv_time_set.cgi",
                 {"source": "manual", **boxes("date", "2030 02 28"), **boxes("time", "23 30"),
                  "zone": "+09:00"},
                 (("date2", "30"), ("date0", "2038"), ("time0", "24"), ("time2", ""),
                  ("source", "servers")), running=("time0", "time1")),
    SettingsPage(72, "/network/orv_ip_set.cgi",
                 {"host": "board-2.example.com", "address3": "20", "address4": "16",
                  "gateway3": "2", "first_dns3": "54", **boxes("second_dns", "192 0 2 55"),
                  "probation_time": "300"},
                 (("host", ""), ("host", "a b"), ("host", "h..x"), ("address0", "256"),
                  ("address0", "127"), ("address4", "33"), ("gateway3", ""), ("gateway0", "224"),
                  ("first_dns0", "0"), ("second_dns0", "\"<"), ("probation_time", "29"),
                  ("probation_time", "3601"))),
    SettingsPage(74, "/network/orv_protocol_set.cgi",
                 {"https_port": "8443", "ssh0": False, "ssh_port": "2222", "telnet0": True},
                 (("ssh_port", "8443"), ("http_port", "0"), ("http_port", "65536"),
                  ("telnet_port", "+23"))),
    SettingsPage(77, "/network/orv_snmptrap_set.cgi",
                 {"enabled2_0": True, **boxes("address2_", "192 0 2 162"),
                  "community2": "a<b>\"&amp;'"},
                 (("community2", ""), ("community2", "a b"), ("address2_3", ""),
                  ("enabled3_0", True))),
    SettingsPage(92, "/network/orv_smtp_set.cgi",
                 {"enabled0": True, "server": "mail.example.com", "port": "587",
                  "sender": "board@example.com", "recipient1": "admin@example.com",
                  "recipient2": "a&amp;<b>\"'@example.com"},
                 (("recipient1", "nobody"), ("recipient1", "a@"), ("recipient2", "@example.com"),
                  ("sender", "a@@example.com"), ("server", "192.0.2.256"), ("sender", ""),
                  ("server", "mail..example.com"), ("sender", "caf\xe9@example.com"),
                  ("port", "0"))),
    SettingsPage(75, "/network/orv_refresh_set.cgi", {"interval": "1234"},
                 tuple(("interval", text) for text in (
                     "3601", "", "1x", "-1", "9999", "12345", "a\"b", "&lt;"))),
    SettingsPage(108, "/maintenance/maintenance_mode.cgi", {"mode18_0": True, "permission0": True}),
)

# What takes several forms: user, page, and for each form the fields that are filled in, and a part
# of the answer: often the sign of an error, a question or a completion.
WRONG, ASKED, DONE = b"err_string", b'name="back"', b'role="status"'
CONSENT = {"consent0": True}  # to a change that ends the user's own way in
USERS, ACCESS_LIST = "/user/list.cgi", "/network/orv_acl_set.cgi"
PARTITION_POWER = "/partition/power_control.cgi?partition=0"
PASSWORDS = b"new.user-pass", b"secret-12"
NEW = {"name": "new.user", "role": "guest", "password": "new.user-pass",
       "repeated": "new.user-pass"}
CHANGE = {"present": "new.user-pass", **dict.fromkeys(("wanted", "repeated"), "secret-12")}
FLOWS = (
    ("admin", USERS + "?action=add", ({**NEW, "name": "admin"}, b"already a user"),
     ({**NEW, "name": "1st"}, b"begin with a letter"), ({**NEW, "repeated": "x"}, b"differ"),
     ({**NEW, "role": "partition"}, b"needs a partition"), (NEW, DONE)),
    ("admin", USERS + "?action=edit&name=new.user", ({"role": "operator"}, DONE)),
    ("new.user", "/user/ch_passwd.cgi", ({**CHANGE, "present": "x"}, b"present password is wrong"),
     *(({**CHANGE, **dict.fromkeys(("wanted", "repeated"), text)}, b"8 to 32")
       for text in ("short", "with blank in", "w" * 40)), ({**CHANGE, "repeated": "x"}, b"differ"),
     ({**CHANGE, "back": "1"}, b'name="wanted"'), (CHANGE, DONE)),
    ("admin", USERS + "?action=remove&name=new.user", ({}, DONE)),
    ("admin", USERS + "?action=remove&name=admin", ({}, b"cannot remove")),
    ("admin", USERS + "?action=edit&name=admin", ({"role": "guest"}, b"only system")),
    ("admin", ACCESS_LIST + "?operation=add", ({"address0": "256"}, WRONG),
     ({f"address{i}": "24" for i in range(5)}, ASKED), ({}, b"no longer reach"),
     (CONSENT, DONE)),
    ("admin", ACCESS_LIST + "?operation=remove&row=24.24.24.24/24", ({}, DONE)),
    ("admin", "/system/power_control.cgi", ({}, WRONG), ({"operation": "reset"}, ASKED),
     ({}, DONE)),
    ("admin", "/network/orv_time_set.cgi", ({"zone": "-12:00"}, b"the clock keeps running"),
     ({}, DONE)),
    ("part", PARTITION_POWER, ({"operation": "on"}, WRONG), ({"operation": "off"}, ASKED),
     ({}, DONE)),
    ("part", PARTITION_POWER, ({"operation": "reset"}, WRONG), ({"operation": "on"}, ASKED),
     ({}, DONE)),
)
