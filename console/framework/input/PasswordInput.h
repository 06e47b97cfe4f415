#pragma once

#include <string>

#include "framework/input/Input.h"

namespace Console {

/// A password: never printed and never carried.
class PasswordInput : public Input {
public:
    enum class Use { SETTING, CHECK };

    /// CHECK is for a password that proves who the user is, or repeats a new one.
    PasswordInput(const std::string& name, int maxLength, Use use)
        : Input(name), m_maxLength(maxLength), m_use(use) {}

    bool isError() const override;
    void print() const override;
    std::string getShownText() const override { return ""; }
    void printCarried() const override {}
    bool isSecret() const override { return true; }
    bool isSetting() const override { return m_use == Use::SETTING; }

private:
    int m_maxLength;
    Use m_use;
};

}  // namespace Console
