#pragma once

#include <string>

#include "framework/input/TextInput.h"

namespace Console {

/// A port number, the well-known ones included. It counts without leading zeros.
class PortInput : public TextInput {
public:
    explicit PortInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override;
};

}  // namespace Console
