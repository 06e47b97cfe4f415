#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "framework/component/Components.h"

namespace Console {

/// The attributes for the start tag of an element, each with a blank before it. `number` counts the
/// elements of the component from 0.
using Attributes = std::function<std::string(std::size_t number)>;

/// An attribute with a blank before it. Printing escapes the value.
std::string attribute(const std::string& name, const std::string& value);

/// Prints what `print` prints, with more attributes in each visible input, menu and link. For
/// attributes that the library's components do not print, such as those that tie a hint to its
/// input. Buttons and hidden inputs get none.
void printWithAttributes(const std::function<void()>& print, const Attributes& attributes);

/// A component with more attributes; see printWithAttributes().
class AddedAttributes : public ORVLib::Gui::HTMLComponent {
public:
    AddedAttributes(Component component, Attributes attributes)
        : m_component(std::move(component)), m_attributes(std::move(attributes)) {}

    void printHTML() const override {
        printWithAttributes([this] { m_component->printHTML(); }, m_attributes);
    }
    bool isError() const override { return m_component->isError(); }

private:
    Component m_component;
    Attributes m_attributes;
};

/// A link among several places; the one that is shown is the current one. `target` as in
/// makeLink().
Component makeTab(const std::string& url, const std::string& text, bool isCurrent,
                  const std::string& target = "");

}  // namespace Console
