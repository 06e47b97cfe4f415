#pragma once

#include <cstdarg>
#include <cstddef>

/// Size in bytes of the buffers for lmsg_getmsg() and lgui_getmsgv(), with the NUL at the end. A
/// longer text is cut.
constexpr std::size_t ORV_MESSAGE_SIZE = 496;

extern "C" {

/// Formats the log text `number` into `buffer` and returns `buffer`.
/// REQUIRES: `buffer` has ORV_MESSAGE_SIZE bytes; the arguments are those of the number.
///
/// The arguments of each number (texts are const char*, numbers int):
///
///     20001  program                   20011  operation, errno
///     20003  missing value             20015  operation, path
///     20004  place of the handler      20018  -
///     20008  operation, got, expected  20019  operation, object
///     20009  operation, message type   20020  operation
///     20010  operation, pointer        20030  operation, exception, detail
///     20034  problem, number           20052  operation, number
///
/// For an unknown number the text is "message" and the number.
const char* lmsg_getmsg(int number, char* buffer, ...);

/// Formats the operator message `messageId` in a user's language into `buffer` and returns
/// `buffer`. Language 0 is Japanese in EUC-JP, any other language English in ISO-8859-1. For an
/// unknown number the text is "message" and the number.
/// REQUIRES: `buffer` has ORV_MESSAGE_SIZE bytes; the arguments are those of the message.
const char* lgui_getmsgv(int language, int messageId, char* buffer, va_list arguments);
}
