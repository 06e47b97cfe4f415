#include "OperatorTexts.h"

namespace ORVLib::OperatorTexts {

namespace {

constexpr Text TEXTS[] = {
    {1, "The settings have been changed."},
    {2, "The password has been changed."},
    {11, "The request could not be carried out. Please try again."},
    {13, "The management board is not able to answer. Please try again later."},
    {14, "The management board did not answer in time. Please try again later."},
    {20, "Communication with the management board failed."},
    {24, "An internal error occurred while the page was being made."},
    {78, "The management board refused the request."},
    {79, "The management board reported an error while it carried out the request."},
    {105, "Another operation is in progress. Please wait until it has ended."},
    {280, "The power operation has been carried out."},
    {440, "The installation of the firmware has begun."},
    {441, "The settings have been restored."},
    {360, "The user has been added."},
    {361, "The user has been changed."},
    {362, "The user has been removed."},
    {1101, "Logged in from %s."},
    {1102, "Refused log-in from %s."},
    {1103, "Logged out."},
    {1104, "The user changed their password."},
    {1105, "The user's password change was refused."},
    {1106, "The user %s was added."},
    {1107, "The user %s was changed."},
    {1108, "The user %s was removed."},
    {1201, "Settings were changed: %s."},
    {1202, "Settings were restored from a file."},
    {1203, "New network settings were confirmed: %s."},
    {1204, "New network settings were not confirmed in time. The old ones are back: %s."},
    {1205, "New network settings were taken back: %s."},
    {1301, "Powered on: %s."},
    {1302, "Powered off: %s."},
    {1303, "Powered off by force: %s."},
    {1304, "Reset: %s."},
    {1401, "The fan speed is too low: %s."},
    {1402, "The fan speed is normal again: %s."},
    {1403, "The temperature is too high: %s."},
    {1404, "A power supply has failed: %s."},
    {1405, "A power supply has recovered: %s."},
    {1406, "The identification LED was switched: %s."},
    {1501, "A firmware image was received: version %s."},
    {1502, "Firmware was installed: version %s."},
    {1503, "The installation of firmware has failed: version %s."},
    {1601, "The maintenance mode was changed: %s."},
    {200, "The row has been added to the access control list."},
    {201, "The row has been removed from the access control list."},
};

}  // namespace

Table english() {
    return {TEXTS, sizeof TEXTS / sizeof *TEXTS};
}

}  // namespace ORVLib::OperatorTexts
