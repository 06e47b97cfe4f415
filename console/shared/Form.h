#pragma once

#include <string>

#include "gui/FormInfo.h"

namespace Console {

/// What the components of a page take its form to be called.
constexpr char FORM_NAME[] = "form_name";

/// What a field of the request holds; empty without it.
std::string fieldOf(const ORVLib::Gui::FormInfo& form, const std::string& name);

}  // namespace Console
