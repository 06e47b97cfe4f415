#include "framework/input/NumberInput.h"

#include "framework/backend/Digits.h"

namespace Console {

NumberInput::NumberInput(const std::string& name, int lowest, int highest)
    : TextInput(name, static_cast<int>(std::to_string(highest).size()) + 1,
                static_cast<int>(std::to_string(highest).size())),
      m_lowest(lowest),
      m_highest(highest) {}

std::string NumberInput::getText() const {
    return withoutLeadingZeros(getValue());
}

bool NumberInput::isError() const {
    if (TextInput::isError() || !isDigits(getValue())) {
        return true;
    }
    constexpr std::size_t MOST_DIGITS = 9;
    const int number = readDigits(getText(), MOST_DIGITS);
    return number < m_lowest || number > m_highest;
}

}  // namespace Console
