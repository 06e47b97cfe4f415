#pragma once

#include <string>
#include <string_view>

#include "base/Output.h"

namespace ORVLib::Gui {

/// True for fields that the user may change. `displayMode` may be null.
bool isEditable(const int* displayMode);

/// True when a read-only field carries its values to the next page in hidden inputs.
bool isCarried(const int* displayMode);

/// A copy of `value` for an attribute in double quotes.
std::string quoteEscaped(std::string value);

/// Prints `value` as quoteEscaped() returns it, without a copy.
void printQuoteEscaped(Output& output, std::string_view value);

/// A complete event attribute that calls a script function, with a blank before it.
std::string callAttribute(const char* event, const std::string& function,
                          const std::string& arguments);

/// Writes `type`, name and value of an input element, without its closing bracket.
void printInputStart(Output& output, const char* type, const std::string& name,
                     const std::string& value);

/// Writes an event attribute, or nothing for an empty script. Unless `quoted`, the script must
/// contain its own quotes.
void printEvent(Output& output, const char* event, const std::string& script, bool quoted = false);

/// Writes the size and maxlength attributes of a text input.
void printSizes(Output& output, int size, int maxLength);

/// One of the text boxes that make up a field. Its name is the field's name followed by its number.
struct NumberedBox {
    int size;
    int maxLength;
    const std::string& value;
    int number;
    const char* style = "";  ///< a complete attribute with a blank before it, or empty
};

/// Writes the box without its closing bracket.
void printBoxStart(Output& output, const NumberedBox& box, const std::string& name);

/// Writes the box, disabled unless it may be changed. `onFocus` is a complete attribute or empty.
void printBox(Output& output, const NumberedBox& box, const std::string& name,
              const std::string& onFocus, const int* displayMode);

/// Writes value and name of one of the inputs that make up a field.
void printNumberedValue(Output& output, const std::string& value, const std::string& name,
                        int number);

/// Writes the attributes of an input that is shown grey and cannot be changed.
void printDisabled(Output& output);
void printDisabledUnlessEditable(Output& output, const int* displayMode);

}  // namespace ORVLib::Gui
