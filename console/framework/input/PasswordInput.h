#pragma once

#include <string>

#include "framework/input/Input.h"

namespace Console {

/// A password: never printed and never carried.
class PasswordInput : public Input {
public:
    PasswordInput(const std::string& name, int maxLength) : Input(name), m_maxLength(maxLength) {}

    bool isError() const override;
    void print() const override;
    std::string getShownText() const override { return ""; }
    void printCarried() const override {}
    bool isSecret() const override { return true; }

private:
    int m_maxLength;
};

}  // namespace Console
