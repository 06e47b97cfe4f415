#pragma once

#include "ours/SettingsForm.h"

namespace Bench {

/// The labels of the page that has no catalogue: what bench/site/english.txt holds.
constexpr const char* LABELS[LABEL_COUNT] = {
    "Host name",
    "Location",
    "Contact",
    "Password",
    "Password, again",
    "Mail address",
    "Port number",
    "Time server",
    "Gateway",
    "Network",
    "Date",
    "Time",
    "Boot device",
    "LED",
    "Notify by",
    "Settings of the <server>",
    "Changes take effect at once & stay after a restart.",
    "Fields that are marked with \"*\" must be filled in.",
};

}  // namespace Bench
