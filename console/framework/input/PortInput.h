#pragma once

#include <string>

#include "framework/input/TextInput.h"

namespace Console {

/// A port number, well-known ones included. Its text has no leading zeros.
class PortInput : public TextInput {
public:
    explicit PortInput(const std::string& name, bool allowEmpty = false)
        : TextInput(name, 6, 5), m_allowEmpty(allowEmpty) {}

    std::string getText() const override;

private:
    Field makeField(const std::string& value) const override;

    bool m_allowEmpty;
};

}  // namespace Console
