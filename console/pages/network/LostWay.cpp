#include "pages/network/LostWay.h"

#include <algorithm>

#include "framework/backend/Digits.h"
#include "framework/backend/WayIn.h"
#include "framework/component/PageText.h"
#include "protocol/Addresses.h"

using namespace ORVLib::Protocol;

namespace Console {

namespace {

constexpr char ON[] = "1";

/// The fields of HTTP and HTTPS in the record of the services: each a flag and a port.
std::size_t serviceField(bool isEncrypted) {
    constexpr std::size_t FIELDS = 2;
    return isEncrypted ? FIELDS : 0;
}

}  // namespace

std::string describeLostAddress(const std::string& present, const std::string& wanted) {
    const WayIn way = findWayIn();
    if (wanted == present || parseAddress(wanted) == parseAddress(way.serverAddress)) {
        return "";
    }
    return text(TEXT_LOSES_ADDRESS) + ' ' + makeUrl(way.isEncrypted, wanted, way.serverPort);
}

std::string describeLostService(const Record& present, const Record& wanted) {
    const WayIn way = findWayIn();
    const std::size_t own = serviceField(way.isEncrypted);
    const std::size_t other = serviceField(!way.isEncrypted);
    if (present[own] == ON && wanted[own] != ON) {
        return text(TEXT_LOSES_SERVICE) + ' ' +
               makeUrl(!way.isEncrypted, way.host, wanted[other + 1]);
    }
    const std::string& port = wanted[own + 1];
    if (port == present[own + 1] || port == way.serverPort) {
        return "";
    }
    return text(TEXT_LOSES_PORT) + ' ' + makeUrl(way.isEncrypted, way.host, port);
}

std::string describeLostAccess(const std::vector<AccessRow>& rows) {
    const std::string client = findWayIn().client;
    const auto hasClient = [&client](const AccessRow& row) {
        constexpr std::size_t MOST_DIGITS = 2;
        const int bits = readDigits(row.maskBits, MOST_DIGITS);
        return bits >= 1 && bits <= ADDRESS_BITS && isInNetwork(client, row.address, bits);
    };
    return rows.empty() || std::any_of(rows.begin(), rows.end(), hasClient)
               ? ""
               : text(TEXT_LOSES_ACCESS) + ' ' + client;
}

}  // namespace Console
