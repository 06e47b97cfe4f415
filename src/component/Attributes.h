#pragma once

#include <string>

namespace ORVLib::Gui {

/// True for fields that the user may change. `displayMode` may be null.
bool isEditable(const int* displayMode);

/// True when a read-only field is to carry its values on in hidden inputs.
bool isCarried(const int* displayMode);

/// A copy of `value` that can stand between double quotes in an attribute.
std::string quoteEscaped(std::string value);

/// A complete event attribute that calls a script function, with a blank in front.
std::string callAttribute(const char* event, const std::string& function,
                          const std::string& arguments);

/// Writes `type`, name and value of an input element, without its closing bracket.
void printInputStart(const char* type, const std::string& name, const std::string& value);

/// Writes an event attribute, or nothing for an empty script. A script that is not `quoted` here
/// brings its own quotes.
void printEvent(const char* event, const std::string& script, bool quoted = false);

/// Writes the size and maxlength attributes of a text input.
void printSizes(int size, int maxLength);

/// Writes value and name of one of the inputs that make up a field.
void printNumberedValue(const std::string& value, const std::string& name, int number);

/// Writes the attributes that grey an input out and keep it from being used.
void printDisabled();
void printDisabledUnlessEditable(const int* displayMode);

/// Ends the line and sends what is printed so far, so that long lists show as they come.
void printLineEnd();

}  // namespace ORVLib::Gui
