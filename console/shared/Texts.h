#pragma once

/// Numbers of the catalogue texts in console/catalogue/.
namespace Console {

enum Text {
    TEXT_CONSOLE = 0,
    TEXT_INSPECTOR = 1,
    TEXT_INSPECTOR_PURPOSE = 2,
    TEXT_INPUT = 3,
    TEXT_SECOND_INPUT = 4,
    TEXT_FILE_INPUT = 5,
    TEXT_SEND_GET = 6,
    TEXT_SEND_POST = 7,
    TEXT_UPLOAD = 8,
    TEXT_FIELDS = 9,
    TEXT_NAME = 10,
    TEXT_VALUE = 11,
    TEXT_QUERY_STRING = 12,
    TEXT_UPLOADED_FILE = 13,
    TEXT_OK = 14,
    TEXT_FILE_NAME = 15,
    TEXT_SIZE = 16,
    TEXT_SHA256 = 17,
    TEXT_NO_FIELDS = 18,
    TEXT_NO_FILE = 19,
    TEXT_BYTES = 20,
    TEXT_FILE_LOST = 21,
    TEXT_ERROR = 22,
    TEXT_UNREADABLE_REQUEST = 23,
    TEXT_METHOD = 24,
    TEXT_LANGUAGE = 25,
    TEXT_RESET = 26,
    TEXT_ENGLISH = 27,
    TEXT_JAPANESE = 28
};

}  // namespace Console
