#pragma once

#include <string>

#include "framework/component/Components.h"
#include "gui/HTMLCodeGenerator.h"
#include "gui/HTMLMapUtil.h"

namespace Console {

/// A part of a page with its own skeleton, for the "body" marker of the page or another part.
class SkeletonPart : public ORVLib::Gui::HTMLComponent {
public:
    /// `skeleton` is a file name in the folder of the page skeletons.
    explicit SkeletonPart(const std::string& skeleton);
    ~SkeletonPart() override;
    SkeletonPart(const SkeletonPart&) = delete;
    SkeletonPart& operator=(const SkeletonPart&) = delete;

    void printHTML() const override;
    bool isError() const override;

    void put(const std::string& marker, Component component);

    /// Puts a text that printing escapes.
    void putText(const std::string& marker, const std::string& text);

    /// As putText(), with blanks at which lines can wrap.
    void putSentence(const std::string& marker, const std::string& text);

protected:
    /// The components by their markers.
    ORVLib::Gui::ComponentMap& getMap() { return m_map; }

private:
    ORVLib::Gui::ComponentMap m_map;
    ORVLib::Gui::HTMLCodeGenerator m_generator;
};

}  // namespace Console
