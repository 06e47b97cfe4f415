#pragma once

#include <string>

namespace ORVLib::Gui {

/// A copy of `value` that can stand between double quotes in an attribute.
std::string quoteEscaped(std::string value);

/// Writes `type`, name and value of an input element, without its closing bracket.
void printInputStart(const char* type, const std::string& name, const std::string& value);

/// Writes an event attribute, or nothing for an empty script. The script brings its own quotes.
void printEvent(const char* event, const std::string& script);

}  // namespace ORVLib::Gui
