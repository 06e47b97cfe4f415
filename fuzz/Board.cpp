// Anything that a client can send: every request gets a well-formed answer, and the state stays
// usable.
#include <poll.h>

#include <filesystem>
#include <vector>

#include "Peer.h"
#include "daemon/Client.h"
#include "daemon/Requests.h"
#include "item/BoardClock.h"
#include "item/Firmware.h"
#include "item/FirmwareStage.h"
#include "item/Installation.h"
#include "item/Probation.h"
#include "protocol/Digest.h"
#include "state/SampleBoard.h"

using namespace ORVLib;
using namespace ORVLib::Board;
namespace fs = std::filesystem;

// Hashes cost nothing here.
extern "C" char* __wrap_crypt_rn(const char* /*phrase*/, const char* /*setting*/,  // NOLINT
                                 void* /*data*/, int /*size*/) {
    static char hash[] = "hash";
    return hash;
}

namespace {

/// A folder in memory, and in it the state of a fresh board.
struct Folder {
    Folder() {
        char name[] = "/dev/shm/orvfuzzXXXXXX";
        path = mkdtemp(name);
        BoardState(path + "/fresh");
    }
    ~Folder() { fs::remove_all(path); }

    std::string path;
};

std::string frame(std::uint32_t type, const std::string& payload) {
    return ORVIpc::frameMessage(static_cast<int>(type), payload.data(), payload.size());
}

/// A client's bytes: mostly a telegram of a session and the payload it needs.
std::string makeRequest(Fuzz::Input& input, const std::vector<std::string>& sessions) {
    const unsigned int form = input.number();
    if (form == 255) {
        return input.take(input.number(2));
    }
    Telegram telegram;
    telegram.sessionId = sessions[form % sessions.size()];
    const std::uint32_t type = FAMILY ^ input.number(form == 254 ? 4 : 2);
    std::string bytes = frame(type, telegram.format());
    if (!Request(type, telegram).hasPayload()) {
        return bytes;
    }
    std::string payload = input.take(input.number(2));
    if (payload.size() > 7 && payload.compare(payload.size() - 7, 7, "sha256 ") == 0) {
        // The fuzzer would never find the digest.
        payload += digestOf({payload.data(), payload.size() - 7}) + '\n';
    }
    return bytes + frame(type, payload);
}

/// Passwords are right when the input says so.
Reply execute(Requests& requests, const Request& request, bool matches) try {
    if (!request.hasPassword()) {
        return requests.handle(request);
    }
    const Requests::PasswordCheck check = requests.beginPasswordCheck(request);
    return requests.endPasswordCheck(request, check, matches || !check.hash, "hash");
} catch (const PException& refusal) {
    return Reply::error(refusal);
}

/// The answer must be a telegram and its payload, or an error.
void checkAnswer(std::uint32_t type) {
    ORVIpc::MessageStream stream(std::move(Fuzz::peer));
    while (stream.receive() == ORVIpc::MessageStream::Arrival::BYTES) {
    }
    Fuzz::require(stream.hasMessage());
    const ORVIpc::Message answer = stream.take();
    const auto* const bytes = reinterpret_cast<const unsigned char*>(answer.payload.data());
    const auto size = static_cast<unsigned int>(answer.payload.size());
    const bool isAnswer =
        static_cast<std::uint32_t>(answer.type) == type && size == TelegramLayout::SIZE;
    Fuzz::require(isAnswer || PException().setSerialized(bytes, size));
    Fuzz::require(stream.isEmpty() || stream.hasMessage());
}

void serve(Fuzz::Input& input, const Parts& parts, const std::vector<std::string>& ids) {
    Requests requests(parts);
    while (!input.isEmpty()) {
        const unsigned int flags = input.number();
        const std::string request = makeRequest(input, ids);
        Client client(1, Fuzz::connected(request, (flags & 2) == 0), std::chrono::seconds(1));
        if (client.proceed()) {
            client.answer(execute(requests, client.getRequest(), (flags & 1) != 0));
        } else if (client.isOpen() && client.getRequest().type != 0) {
            client.expire();
        }
        if (client.isOpen() && client.getEvents() == POLLIN && client.getRequest().type != 0) {
            checkAnswer(client.getRequest().type);
            client.proceed();
        }
        parts.installation.finish();
        parts.probation.proceed();
        Firmware::dropOrphan(parts);
    }
    parts.sessions.store();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Folder folder;
    const std::string path = folder.path + "/state";
    for (const char* const suffix : {"", "-wal", "-shm"}) {
        fs::remove(path + suffix);
    }
    fs::copy_file(folder.path + "/fresh", path);
    Fuzz::Input input(data, size);
    for (int start = 0; start < 2; ++start) {  // once more, with whatever the input left
        BoardState state(path);
        Sessions sessions(state, std::chrono::seconds(1000), folder.path + "/ended");
        FirmwareStage stage(path + ".firmware");
        Installation installation(state);
        Probation probation(state);
        installation.noteInterruption();
        BoardClock::start(state);
        std::vector<std::string> ids = {""};
        for (const SampleUser& user : SAMPLE_USERS) {
            if (state.findUser(user.name)) {
                ids.push_back(
                    sessions.open(user.name, "", "", {EventCode::LOGGED_IN, user.name, ""}));
            }
        }
        serve(input, {state, sessions, stage, installation, probation}, ids);
    }
    return 0;
}
