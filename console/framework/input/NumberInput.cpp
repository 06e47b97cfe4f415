#include "framework/input/NumberInput.h"

#include "framework/backend/Digits.h"
#include "framework/input/Form.h"

using namespace ORVLib::Gui;

namespace Console {

NumberInput::NumberInput(const std::string& name, int lowest, int highest)
    : TextInput(std::make_unique<TextField>(name, "", FORM_NAME,
                                            static_cast<int>(std::to_string(highest).size()) + 1,
                                            static_cast<int>(std::to_string(highest).size()))),
      m_lowest(lowest),
      m_highest(highest) {}

std::string NumberInput::getText() const {
    return withoutLeadingZeros(TextInput::getText());
}

bool NumberInput::isError() const {
    if (TextInput::isError() || !isDigits(TextInput::getText())) {
        return true;
    }
    constexpr std::size_t MOST_DIGITS = 9;
    const int number = readDigits(getText(), MOST_DIGITS);
    return number < m_lowest || number > m_highest;
}

}  // namespace Console
