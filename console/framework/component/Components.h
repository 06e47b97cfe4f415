#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/Texts.h"
#include "gui/HTMLComponent.h"
#include "gui/TextString.h"

/// The components of pages, beyond the library's.
namespace Console {

using Component = std::unique_ptr<ORVLib::Gui::HTMLComponent>;

/// A text as HTML, for components that do not escape.
std::string htmlText(std::string text);

/// As htmlText(), with blanks at which lines can wrap.
std::string sentenceText(const std::string& text);

/// A text in one of TextString's colours, with non-breaking blanks.
Component makeText(const std::string& text, int colour = ORVLib::Gui::TextString::PLAIN);

/// As makeText(), with blanks at which lines can wrap.
Component makeSentence(const std::string& text, int colour = ORVLib::Gui::TextString::PLAIN);

/// A link that shows a text. `target` names a frame; empty for the page's own.
Component makeLink(const std::string& url, const std::string& text, const std::string& target = "",
                   const std::string& cssClass = "");

/// A page's address with fields. Names and values may hold any bytes.
std::string pathWith(const std::string& path,
                     const std::vector<std::pair<std::string, std::string>>& fields);

/// As pathWith(), for makeLink().
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

/// Labels, each with a value beside it.
class LabelledList : public ORVLib::Gui::HTMLComponent {
public:
    void add(const std::string& label, Component value);

    /// Adds a text.
    void add(const std::string& label, const std::string& value);

    void printHTML() const override;
    bool isError() const override { return false; }

private:
    std::vector<std::pair<std::string, Component>> m_rows;
};

/// A separate box on a page.
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
    /// `nothing` is shown in place of the table when it has no rows.
    Table(std::initializer_list<Text> headings, Text nothing)
        : m_headings(headings), m_nothing(nothing) {}

    /// Adds a row. REQUIRES: one cell for each heading.
    template <typename... Cells>
    void addRow(Cells... cells) {
        std::vector<Component> row;
        (row.push_back(std::move(cells)), ...);
        m_rows.push_back(std::move(row));
    }

    void printHTML() const override;
    bool isError() const override { return false; }

private:
    static void printRow(const std::vector<Component>& cells);

    std::vector<Text> m_headings;
    Text m_nothing;
    std::vector<std::vector<Component>> m_rows;
};

}  // namespace Console
