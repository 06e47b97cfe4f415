// A URL-encoded form, in the query and in the body, against a plain reading of the same rules.
#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "Input.h"
#include "gui/FormInfo.h"
#include "orv/PException.h"
#include "support/CgiRequest.h"

using Fields = ORVLib::Gui::FormInfo::FieldMap;

namespace {

constexpr long LARGEST = ORVLib::Gui::FormInfo::LARGEST_BODY_AT_START;

std::string decoded(std::string text) {
    std::replace(text.begin(), text.end(), '+', ' ');
    std::string result;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = text.find('%', from)) != std::string::npos; from = at + 3) {
        result.append(text, from, at - from);
        result += static_cast<char>(std::strtoul(text.substr(at + 1, 2).c_str(), nullptr, 16));
    }
    return result.append(text, from, std::string::npos);  // throws behind a cut escape
}

Fields readPlainly(const std::string& body) {
    Fields fields;
    std::string text = body;
    char* pairs = nullptr;
    for (char* pair = text.data(); (pair = strtok_r(pair, "&", &pairs)) != nullptr;
         pair = nullptr) {
        char* parts = nullptr;
        if (const char* const name = strtok_r(pair, "=", &parts)) {
            const char* const value = strtok_r(nullptr, "=", &parts);
            const std::string key = decoded(name);
            fields[key] = decoded(value != nullptr ? value : "");
        }
    }
    return fields;
}

/// The fields, or one that says how the request was refused.
template <typename Read>
Fields outcomeOf(Read read) {
    try {
        return read();
    } catch (const std::out_of_range&) {
        return {{"cut escape", ""}};
    } catch (const ORVLib::PException&) {
        return {{"cut short", ""}};
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const unsigned int form = input.number();
    const auto excess = static_cast<signed char>(input.number());
    std::string body = input.body(form >= 0xf0 ? LARGEST + 300 : 70000);
    const long arrived = static_cast<long>(body.size());
    const long announced = (form & 1) != 0 ? std::max(arrived + excess, 0L) : -1;
    CgiRequest request;
    if (announced < 0) {
        Fuzz::setVariable("QUERY_STRING", body);
    } else {
        request.post("text/plain", body, std::to_string(arrived + excess));
        body.resize(static_cast<std::size_t>(std::min(arrived, announced)));
    }
    const Fields fields = outcomeOf([&] {
        ORVLib::Gui::FormInfo read;
        Fuzz::require(read.isReadSkip() == (announced > LARGEST));
        read.readSkipData();
        return read.getFields();
    });
    const bool isCutShort = announced > arrived && arrived < 65536;  // else one read looks for more
    Fuzz::require(fields == (isCutShort ? Fields{{"cut short", ""}} : outcomeOf([&] {
                      return readPlainly(Fuzz::cString(body));
                  })));
    return 0;
}
