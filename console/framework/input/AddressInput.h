#pragma once

#include <string>

#include "framework/input/BoxesInput.h"

namespace Console {

/// The IPv4 address of a computer.
class AddressInput : public BoxesInput {
public:
    explicit AddressInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override { return join(1); }
    void print() const override;

private:
    bool isGood() const override;
};

}  // namespace Console
