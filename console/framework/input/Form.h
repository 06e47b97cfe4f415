#pragma once

#include <string>

#include "gui/FormInfo.h"

namespace Console {

/// What the components of a page take its form to be called.
constexpr char FORM_NAME[] = "form_name";

/// What a field of the request holds; empty without it.
std::string fieldOf(const ORVLib::Gui::FormInfo& form, const std::string& name);

/// A text as the value of an input component, which escapes double quotes alone: what a person
/// typed stands in the input as it was typed.
std::string inputValue(std::string text);

}  // namespace Console
