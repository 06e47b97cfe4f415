#pragma once

#include <cstdint>

#include "state/BoardState.h"
#include "state/Event.h"
#include "wire/Protocol.h"

/// What a fresh board starts with.
namespace ORVLib::Board {

struct SampleUser {
    const char* name;
    const char* password;
    std::uint32_t roles;
    std::uint32_t partitions;
    unsigned char language;
    std::uint32_t refreshInterval;
};

struct SampleEvent {
    int minutesAgo;
    EventCode code;
    const char* user;
    const char* detail;
};

constexpr std::uint32_t PARTITIONS_0_AND_3 = 1U << 0 | 1U << 3;

// clang-format off
constexpr SampleUser SAMPLE_USERS[] = {
    // name      password         role                        partitions         language refresh
    {"admin",    "admin-pass",    ROLE_SYSTEM_ADMINISTRATOR,  0,                  1,      60},
    {"operator", "operator-pass", ROLE_OPERATOR,              0,                  0,      30},
    {"staff",    "staff-pass",    ROLE_TECHNICAL_STAFF,       0,                  1,       0},
    {"guest",    "guest-pass",    ROLE_GUEST,                 0,                  1,       0},
    {"part",     "part-pass",     0,                          PARTITIONS_0_AND_3, 1,       0},
};

// Oldest first. The last words on fan 2 and power supply 2 agree with the status.
constexpr SampleEvent SAMPLE_EVENTS[] = {
    {4 * 1440 + 610, EventCode::POWERED_ON,             "admin",    "partition 0"},
    {4 * 1440 + 609, EventCode::POWERED_ON,             "admin",    "partition 1"},
    {4 * 1440 + 608, EventCode::POWERED_ON,             "admin",    "partition 2"},
    {4 * 1440 +  95, EventCode::FAN_SLOW,               "",         "fan 1"},
    {4 * 1440 +  82, EventCode::FAN_RECOVERED,          "",         "fan 1"},
    {3 * 1440 + 700, EventCode::TEMPERATURE_HIGH,       "",         "sensor 1"},
    {3 * 1440 + 220, EventCode::LED_CHANGED,            "operator", "blink"},
    {3 * 1440 + 180, EventCode::LED_CHANGED,            "operator", "off"},
    {2 * 1440 + 840, EventCode::POWER_SUPPLY_FAILED,    "",         "power supply 1"},
    {2 * 1440 + 815, EventCode::POWER_SUPPLY_RECOVERED, "",         "power supply 1"},
    {2 * 1440 + 300, EventCode::SETTINGS_CHANGED,       "admin",    "network addresses"},
    {1 * 1440 + 480, EventCode::RESET,                  "part",     "partition 0"},
    {1 * 1440 +  50, EventCode::FAN_SLOW,               "",         "fan 2"},
    {0 * 1440 + 620, EventCode::POWER_SUPPLY_FAILED,    "",         "power supply 2"},
};
// clang-format on

StoredItems getSampleItems();

}  // namespace ORVLib::Board
