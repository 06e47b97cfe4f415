#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "gui/HTMLComponent.h"
#include "gui/TextString.h"

/// What pages are put together from, beyond the library's components.
namespace Console {

using Component = std::unique_ptr<ORVLib::Gui::HTMLComponent>;

/// A text as HTML, for components that print what they are given.
std::string htmlText(std::string text);

/// A text in one of TextString's colours; its blanks do not break.
Component makeText(const std::string& text, int colour = ORVLib::Gui::TextString::PLAIN);

/// As makeText(), with blanks at which lines can wrap.
Component makeSentence(std::string text, int colour = ORVLib::Gui::TextString::PLAIN);

/// A link that shows a text. `target` names a frame; empty for the page's own.
Component makeLink(const std::string& url, const std::string& text, const std::string& target = "",
                   const std::string& cssClass = "");

/// An address with fields, for makeLink(). Names and values may hold any bytes.
std::string addressWith(const std::string& path,
                        const std::vector<std::pair<std::string, std::string>>& fields);

/// Several components, one after the other.
class ComponentGroup : public ORVLib::Gui::HTMLComponent {
public:
    void add(Component component) { m_components.push_back(std::move(component)); }

    void printHTML() const override;
    bool isError() const override { return false; }

private:
    std::vector<Component> m_components;
};

/// Labels, and beside each of them what it stands for.
class LabelledList : public ORVLib::Gui::HTMLComponent {
public:
    void add(const std::string& label, Component value);

    /// A text whose lines can break anywhere.
    void add(const std::string& label, const std::string& value);

    void printHTML() const override;
    bool isError() const override { return false; }

private:
    std::vector<std::pair<std::string, Component>> m_facts;
};

/// A part of a page that stands by itself.
class Card : public ORVLib::Gui::HTMLComponent {
public:
    explicit Card(Component content) : m_content(std::move(content)) {}

    void printHTML() const override;
    bool isError() const override { return m_content->isError(); }

private:
    Component m_content;
};

/// A table with a row of headings.
class Table : public ORVLib::Gui::HTMLComponent {
public:
    /// `nothing` is what stands there when there are no rows.
    Table(std::vector<std::string> headings, std::string nothing);

    /// REQUIRES: a cell for each heading.
    void addRow(std::vector<Component> cells);

    void printHTML() const override;
    bool isError() const override { return false; }

private:
    std::vector<std::string> m_headings;
    std::string m_nothing;
    std::vector<std::vector<Component>> m_rows;
};

}  // namespace Console
