#include "framework/input/DateInput.h"

namespace Console {

bool DateInput::isGood() const {
    constexpr std::size_t YEAR_DIGITS = 4;
    constexpr char LAST_DATE[] = "2037-12-31";
    if (!areDigits(YEAR_DIGITS)) {
        return false;
    }
    auto field = makeField();
    field.checkDate();
    return !field.isError() && getText() <= LAST_DATE;
}

}  // namespace Console
