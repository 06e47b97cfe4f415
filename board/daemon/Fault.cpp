#include "daemon/Fault.h"

#include <charconv>
#include <stdexcept>

#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

struct KindName {
    const char* name;
    FaultKind kind;
};

constexpr KindName KINDS[] = {
    {"error", FaultKind::ERROR},
    {"wrong-type", FaultKind::WRONG_TYPE},
    {"short-header", FaultKind::SHORT_HEADER},
    {"short-payload", FaultKind::SHORT_PAYLOAD},
    {"oversized-payload", FaultKind::OVERSIZED_PAYLOAD},
    {"silence", FaultKind::SILENCE},
    {"early-close", FaultKind::EARLY_CLOSE},
    {"stall", FaultKind::STALL},
    {"crash-before", FaultKind::CRASH_BEFORE},
    {"crash-after", FaultKind::CRASH_AFTER},
    {"crash-midway", FaultKind::CRASH_MIDWAY},
    {"crash-late", FaultKind::CRASH_LATE},
};

struct ProcedureName {
    const char* name;
    std::uint32_t procedure;
};

constexpr ProcedureName PROCEDURES[] = {
    {"getLanguage", PROCEDURE_GET_LANGUAGE},
    {"login", PROCEDURE_LOGIN},
    {"logout", PROCEDURE_LOGOUT},
    {"checkSession", PROCEDURE_CHECK_SESSION},
    {"getUserInfo", PROCEDURE_GET_USER_INFO},
};

FaultKind readKind(const std::string& text) {
    for (const KindName& entry : KINDS) {
        if (text == entry.name) {
            return entry.kind;
        }
    }
    throw std::invalid_argument("unknown kind of fault '" + text + "'");
}

std::uint32_t readProcedure(const std::string& text) {
    for (const ProcedureName& entry : PROCEDURES) {
        if (text == entry.name) {
            return entry.procedure;
        }
    }
    std::uint32_t id = 0;
    const char* const end = text.data() + text.size();
    const char* const digits = text.rfind("0x", 0) == 0 ? text.data() + 2 : text.data();
    const auto [stop, error] = std::from_chars(digits, end, id, 16);
    if (error != std::errc() || stop != end) {
        throw std::invalid_argument("unknown procedure '" + text + "'");
    }
    return id;
}

}  // namespace

void Faults::add(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) {
        throw std::invalid_argument("a fault is PROCEDURE:KIND, not '" + text + "'");
    }
    const std::string procedure = text.substr(0, colon);
    const FaultKind kind = readKind(text.substr(colon + 1));
    if (procedure == "any") {
        m_any = kind;
    } else {
        m_kinds[readProcedure(procedure)] = kind;
    }
}

FaultKind Faults::find(std::uint32_t procedure) const {
    const auto found = m_kinds.find(procedure);
    return found != m_kinds.end() ? found->second : m_any;
}

}  // namespace ORVLib::Board
