#include "orv/Messages.h"

#include <cstdio>

#include "OperatorTexts.h"
#include "common/LogText.h"

namespace {

namespace LogText = ORVLib::LogText;
using ORVLib::OperatorTexts::Table;
using ORVLib::OperatorTexts::Text;

constexpr Text LOG_TEXTS[] = {
    {LogText::PROGRAM_STARTED, "%s program started"},
    {LogText::NOT_AVAILABLE, "%s: value is not available"},
    {LogText::PROGRAM_ABORTED, "%s: ended by an exception of the board's libraries"},
    {LogText::SIZE_MISMATCH, "%s: wrong message size, got %d bytes, expected %d"},
    {LogText::WRONG_RESPONSE_TYPE, "%s: unexpected response type 0x%08x"},
    {LogText::NULL_POINTER, "%s: missing pointer, %s"},
    {LogText::SYSTEM_CALL_FAILED, "%s failed, errno %d"},
    {LogText::CANNOT_OPEN, "%s: cannot open or write %s"},
    {LogText::NO_SESSION_COOKIE, "the request carries no session cookie"},
    {LogText::SERIALIZATION, "%s: cannot serialise %s"},
    {LogText::INPUT_ENDED, "%s: input ended before the announced length"},
    {LogText::EXCEPTION_CAUGHT, "%s: %s, detail 0x%x"},
    {LogText::BAD_NUMBER, "%s: %d"},
    {LogText::NO_NUMBER, "%s: no usable number, %u"},
};

constexpr Table LOG_TABLE = {LOG_TEXTS, sizeof LOG_TEXTS / sizeof *LOG_TEXTS};

const char* findFormat(const Table& table, int number) {
    for (std::size_t i = 0; i < table.count; ++i) {
        if (table.texts[i].messageId == number) {
            return table.texts[i].format;
        }
    }
    return nullptr;
}

// The formats are constants, and a test checks them against the documented arguments.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

const char* formatText(const Table& table, int number, char* buffer, va_list arguments) {
    if (const char* const format = findFormat(table, number)) {
        std::vsnprintf(buffer, ORV_MESSAGE_SIZE, format, arguments);
    } else {
        std::snprintf(buffer, ORV_MESSAGE_SIZE, "message %d", number);
    }
    return buffer;
}

#pragma GCC diagnostic pop

}  // namespace

const char* lmsg_getmsg(int number, char* buffer, ...) {
    va_list arguments;
    va_start(arguments, buffer);
    const char* const text = formatText(LOG_TABLE, number, buffer, arguments);
    va_end(arguments);
    return text;
}

const char* lgui_getmsgv(int language, int messageId, char* buffer, va_list arguments) {
    const Table table =
        language == 0 ? ORVLib::OperatorTexts::japanese() : ORVLib::OperatorTexts::english();
    return formatText(table, messageId, buffer, arguments);
}
