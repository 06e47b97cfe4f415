#pragma once

#include <string>

#include "gui/FormInfo.h"

namespace Console {

/// The name of a page's form, for components.
constexpr char FORM_NAME[] = "form_name";

/// The fields of a form, by their names.
using Fields = ORVLib::Gui::FormInfo::FieldMap;

/// The value of a field; empty without it.
std::string fieldOf(const Fields& fields, const std::string& name);
std::string fieldOf(const ORVLib::Gui::FormInfo& form, const std::string& name);

/// A text as the value of an input component, which escapes only double quotes. The input then
/// shows the text as it was typed.
std::string inputValue(std::string text);

}  // namespace Console
