#include "framework/input/TimeInput.h"

namespace Console {

bool TimeInput::isGood() const {
    constexpr std::size_t DIGITS = 2;
    if (!areDigits(DIGITS)) {
        return false;
    }
    auto field = makeField();
    field.checkTime();
    return !field.isError();
}

}  // namespace Console
