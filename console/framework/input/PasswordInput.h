#pragma once

#include <string>

#include "framework/input/Input.h"

namespace Console {

/// A password: never printed and never carried on.
class PasswordInput : public Input {
public:
    PasswordInput(const std::string& name, int maxLength);

    void setText(const std::string& text) override { m_password = text; }
    std::string getText() const override { return m_password; }
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override;
    void print() const override;
    std::string getShownText() const override { return ""; }
    void printCarried() const override {}

private:
    std::string m_password;
    int m_maxLength;
};

}  // namespace Console
