#pragma once

#include <string>

#include "framework/input/TextInput.h"

namespace Console {

/// A decimal number. Its text has no leading zeros.
class NumberInput : public TextInput {
public:
    /// Both bounds are valid numbers. REQUIRES: they are not negative and have nine digits at most.
    NumberInput(const std::string& name, int lowest, int highest);

    std::string getText() const override;
    bool isError() const override;

private:
    int m_lowest;
    int m_highest;
};

}  // namespace Console
