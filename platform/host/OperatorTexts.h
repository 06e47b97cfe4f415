#pragma once

#include <cstddef>

/// The operator messages of lgui_getmsgv() by number, as printf formats.
namespace ORVLib::OperatorTexts {

struct Text {
    int messageId;
    const char* format;
};

struct Table {
    const Text* texts;
    std::size_t count;
};

Table english();
Table japanese();

}  // namespace ORVLib::OperatorTexts
