#pragma once

#include <cstdarg>
#include <cstddef>

/// Bytes that the text buffers given to lmsg_getmsg() and lgui_getmsgv() must hold.
/// A longer text is cut there.
constexpr std::size_t ORV_MESSAGE_SIZE = 496;

extern "C" {

/// Formats the log text `number` into `buffer` and returns it.
///
/// Arguments a number takes (texts are const char*):
///
///     20001  program                   20011  operation, errno
///     20003  what is not to be had     20015  operation, path
///     20004  where it was caught       20018  -
///     20008  operation, got, expected  20019  operation, object
///     20009  operation, message type   20020  operation
///     20010  operation, pointer        20030  operation, exception, detail
///     20034  what is wrong, number     20052  operation, number
///
/// An unknown number gives a text that names it.
const char* lmsg_getmsg(int number, char* buffer, ...);

/// Formats the operator message `messageId` in a user's language into `buffer` and returns it.
///
/// Language 0 is Japanese in EUC-JP, any other language English in ISO-8859-1. The arguments are
/// those that the message's own format takes. An unknown number gives a text that names it.
const char* lgui_getmsgv(int language, int messageId, char* buffer, va_list arguments);
}
