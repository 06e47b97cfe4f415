#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>

#include "gui/DisplayMode.h"
#include "gui/HTMLComponent.h"

// Display modes to point to.
inline constexpr int EDIT = ORVLib::Gui::EDIT_MODE;
inline constexpr int CONFIRM = ORVLib::Gui::CONFIRM_MODE;
inline constexpr int OTHER = 4;

/// What a component prints, with a "^" wherever it flushes the output.
inline std::string printedWithFlushes(const ORVLib::Gui::HTMLComponent& component) {
    class Buffer : public std::stringbuf {
    protected:
        int sync() override { return sputc('^') == '^' ? 0 : -1; }
    };
    Buffer buffer;
    std::streambuf* const before = std::cout.rdbuf(&buffer);
    component.printHTML();
    std::cout.rdbuf(before);
    return buffer.str();
}

/// Expects what a field prints while the user may change it, and in every other display mode.
template <class Field>
void expectPrinted(Field& field, const std::string& editable, const std::string& readOnly) {
    for (const int* const mode : {static_cast<const int*>(nullptr), &EDIT, &CONFIRM, &OTHER}) {
        field.setDisplayMode(mode);
        EXPECT_EQ(printedWithFlushes(field),
                  mode == nullptr || mode == &EDIT ? editable : readOnly);
    }
}
