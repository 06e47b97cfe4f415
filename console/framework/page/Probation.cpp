#include "framework/page/Probation.h"

#include "framework/backend/Board.h"
#include "framework/backend/WayIn.h"
#include "framework/component/PageText.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageStep.h"
#include "gui/HiddenField.h"
#include "gui/SubmitButton.h"
#include "protocol/Addresses.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char OFF[] = "off";
constexpr char SET = '1';
constexpr std::size_t SETTINGS = 3;
constexpr std::size_t FIRST_SERVICE_FIELDS = 4;  // of HTTP and HTTPS

/// The board's record.
struct Probation {
    std::string seconds;
    std::string settings;  ///< flags of addresses, services, access list
    std::string revision;
    std::string address;  ///< the new one; empty when any will do, as the ports
    std::string httpPort;
    std::string httpsPort;

    const std::string& portOf(bool isEncrypted) const { return isEncrypted ? httpsPort : httpPort; }
};

Probation readProbation(CGIRequester& requester) {
    const Record record = readRecord(requester, ITEM_PROBATION);
    RecordReader reader(record);
    Probation probation;
    for (std::string* const field :
         {&probation.seconds, &probation.settings, &probation.revision, &probation.address,
          &probation.httpPort, &probation.httpsPort}) {
        *field = reader.next();
    }
    reader.requireEnd();
    if (probation.settings.size() != SETTINGS) {
        failDamaged();
    }
    return probation;
}

std::string listSettings(const Probation& probation) {
    constexpr Text NAMES[SETTINGS] = {TEXT_ADDRESSES, TEXT_SERVICES, TEXT_ACCESS_LIST};
    std::string list;
    for (std::size_t i = 0; i < SETTINGS; ++i) {
        if (probation.settings[i] == SET) {
            list += (list.empty() ? "" : ", ") + text(NAMES[i]);
        }
    }
    return list;
}

/// The port of a service that did not change.
std::string readPort(CGIRequester& requester, bool isEncrypted) {
    const Record services = readRecord(requester, ITEM_SERVICES);
    if (services.size() < FIRST_SERVICE_FIELDS) {
        failDamaged();
    }
    return services[isEncrypted ? FIRST_SERVICE_FIELDS - 1 : 1];
}

bool isSameAddress(const std::string& address, const WayIn& way) {
    return address.empty() || parseAddress(address) == parseAddress(way.serverAddress);
}

/// Where the user has to confirm: a link, unless it is where he is.
Component makePlace(CGIRequester& requester, const Probation& probation) {
    const WayIn way = findWayIn();
    const bool isSchemeOff = probation.portOf(way.isEncrypted) == OFF;
    const bool isEncrypted = way.isEncrypted != isSchemeOff;
    std::string port = probation.portOf(isEncrypted);
    if (port.empty()) {
        port = isSchemeOff ? readPort(requester, isEncrypted) : way.serverPort;
    }
    const bool isHere = isSameAddress(probation.address, way);
    if (isHere && !isSchemeOff && port == way.serverPort) {
        return makeSentence(text(TEXT_PROBATION_HERE));
    }
    const std::string url = makeUrl(isEncrypted, isHere ? way.host : probation.address, port);
    // At the same host the browser still has the session's cookie.
    const bool isSessionKept = isHere && !isSchemeOff;
    return makeLink(url + (isSessionKept ? PROBATION_PATH + 1 : ""), url, "_top");
}

}  // namespace

Component makeProbationNotice(CGIRequester& requester, const std::string& problem) {
    const Probation probation = readProbation(requester);
    if (probation.settings.find(SET) == std::string::npos) {
        return nullptr;
    }
    auto notice = std::make_unique<SkeletonPart>("skeleton_probation.txt");
    notice->putSentence("heading", text(TEXT_PROBATION));
    notice->putSentence("explanation", text(TEXT_PROBATION_EXPLAINED));
    notice->putText("path", PROBATION_PATH);
    if (!problem.empty()) {
        notice->put("error", makeSentence(problem, TextString::ERROR_COLOUR));
    }
    auto rows = std::make_unique<LabelledList>();
    rows->add(text(TEXT_PROBATION_CHANGED), makeSentence(listSettings(probation)));
    rows->add(text(TEXT_PROBATION_REST), probation.seconds);
    rows->add(text(TEXT_PROBATION_PLACE), makePlace(requester, probation));
    notice->put("rows", std::move(rows));
    notice->put("revision", std::make_unique<HiddenField>(PROBATION_FIELD, probation.revision));
    notice->put("keep", std::make_unique<SubmitButton>(KEEP_FIELD, text(TEXT_KEEP_NETWORK)));
    notice->put("undo", std::make_unique<SubmitButton>(UNDO_FIELD, text(TEXT_UNDO_NETWORK)));
    notice->put(END_FIELD, makeFormEnd(requester));
    return notice;
}

unsigned int keepSettings(CGIRequester& requester, const std::string& revision) {
    const WayIn way = findWayIn();
    return writeRecord(
        requester, ITEM_PROBATION_CONFIRM,
        {revision, way.serverAddress, way.serverPort, way.isEncrypted ? "1" : "0", way.client},
        {ERROR_NOT_FOUND, ERROR_NOT_REACHED});
}

unsigned int undoSettings(CGIRequester& requester, const std::string& revision) {
    return writeRecord(requester, ITEM_PROBATION_UNDO, {revision}, {ERROR_NOT_FOUND});
}

}  // namespace Console
