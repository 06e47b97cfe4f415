// What a daemon answers, to every operation of its client.
#include "MessageStream.h"
#include "Peer.h"
#include "gui/BackendNumbers.h"
#include "gui/CGIRequester.h"
#include "gui/JudgeAuthority.h"
#include "gui/MaintenanceMode.h"
#include "orv/GeneralPurposePacket.h"

using namespace ORVLib;
using namespace ORVLib::Gui;
using Fuzz::Input;
using Client = CGIRequester;

namespace {

constexpr unsigned int ITEM = 0x02010003;

// What the operations bring; a payload can be as long as a message.
int language = 0;
unsigned int interval = 0;
std::string session;
CGIAuthority authority;
ORVUi::GeneralPurposePacket packet;
ORVUi::PrimitiveTypeWrapper<ORVUi::ORV_MAINTENANCE_MODE> mode;
unsigned char payload[ORVIpc::MAX_PAYLOAD_SIZE];

long judge(Client& client, Input& input) {
    JudgeAuthority(&authority, input.signedNumber(), input.signedNumber()).getDisplayMode();
    authority.setConfigAuthority();
    return JudgeAuthority(&authority, 30).preCheckDisplayMode(client) % JudgeAuthority::UNDECIDED;
}

/// An operation, not 0 when it was done, and the type its answer must have.
struct Operation {
    unsigned int type;
    long (*execute)(Client& client, Input& input);
};

// clang-format off
constexpr Operation OPERATIONS[] = {
    {PROCEDURE_GET_LANGUAGE, [](Client& c, Input&) -> long { return c.getLanguage(language); }},
    {PROCEDURE_LOGIN, [](Client& c, Input& i) -> long { return c.login(i.text(), i.text(), i.text(), language, session); }},
    {PROCEDURE_LOGOUT, [](Client& c, Input&) -> long { return c.logout(); }},
    {PROCEDURE_CHECK_SESSION, [](Client& c, Input& i) -> long { return c.checkSession(language, interval, &authority, i.flag()); }},
    {PROCEDURE_GET_USER_INFO, [](Client& c, Input&) -> long { return c.getUserInfo(language, authority, payload); }},
    {ITEM, [](Client& c, Input& i) -> long { return c.getInfo(ITEM, payload, i.number()); }},
    {ITEM, [](Client& c, Input& i) -> long { return c.getInfo(ITEM, i.flag() ? payload : nullptr); }},
    {ITEM, [](Client& c, Input&) -> long { return c.getInfo(ITEM, mode); }},
    {ITEM, [](Client& c, Input&) -> long { return c.callTransaction(ITEM, packet, packet); }},
    {ITEM, [](Client& c, Input&) -> long { return c.setInfo(ITEM, packet); }},
    {ITEM, [](Client& c, Input& i) -> long { return c.setInfo(ITEM, i.number(3), i.flag() ? payload : nullptr); }},
    {ITEM_MAINTENANCE_MODE, [](Client& c, Input& i) -> long { return judge(c, i); }},
};
// clang-format on

std::string frame(unsigned int type, const std::string& content) {
    return ORVIpc::frameMessage(static_cast<int>(type), content.data(), content.size());
}

/// Messages, whole ones of the right type and others.
std::string answers(Input& input, unsigned int type) {
    std::string bytes;
    for (unsigned int messages = input.number() % 4; messages > 0; --messages) {
        const unsigned int form = input.number() % 4;
        const std::string content = input.take(input.number(2));
        bytes += form == 0   ? content
                 : form == 1 ? frame(ERROR_RESPONSE, content)
                             : frame(type ^ (form == 2 ? input.number() : 0), content);
    }
    return bytes;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const Operation& operation = OPERATIONS[input.number() % std::size(OPERATIONS)];
    Client client(input.text().c_str());
    const std::string first = answers(input, operation.type);
    Fuzz::responses = {first, answers(input, ITEM_MAINTENANCE_POWER)};
    const bool isDone = operation.execute(client, input) != 0;
    // Nothing counts as done that was not answered with a telegram of the right type.
    Fuzz::require(!isDone || (first.size() >= 56 &&
                              frame(operation.type, "").compare(0, 4, first, 0, 4) == 0));
    client.debugTrace(reinterpret_cast<const unsigned char*>(first.data()),
                      static_cast<int>(first.size()));
    return 0;
}
