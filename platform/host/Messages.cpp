#include "orv/Messages.h"

#include <cstdio>

#include "OperatorTexts.h"

namespace {

using ORVLib::OperatorTexts::Table;
using ORVLib::OperatorTexts::Text;

constexpr Text LOG_TEXTS[] = {
    {20001, "%s program started"},
    {20003, "%s: value is not available"},
    {20004, "%s: ended by an exception of the board's libraries"},
    {20008, "%s: wrong message size, got %d bytes, expected %d"},
    {20009, "%s: unexpected response type 0x%08x"},
    {20010, "%s: missing pointer, %s"},
    {20011, "%s failed, errno %d"},
    {20015, "%s: cannot open or write %s"},
    {20018, "the request carries no session cookie"},
    {20019, "%s: cannot serialise %s"},
    {20020, "%s: input ended before the announced length"},
    {20030, "%s: %s, detail 0x%x"},
    {20034, "%s: %d"},
    {20052, "%s: no usable number, %u"},
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

// The formats are the constant tables above, checked against the documented arguments by test.
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
