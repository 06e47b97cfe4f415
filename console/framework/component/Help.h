#pragma once

#include <string>
#include <utility>
#include <vector>

#include "catalogue/Texts.h"
#include "gui/HTMLComponent.h"

namespace Console {

/// The help text of a page, folded until the user opens it: what the page is for with an example,
/// and what each input takes.
class Help : public ORVLib::Gui::HTMLComponent {
public:
    explicit Help(Text purpose) : m_purpose(purpose) {}

    /// Says what an input takes. Inputs that take the same are listed once, with all of their
    /// labels.
    void addInput(const std::string& label, const std::string& taken);

    void printHTML() const override;
    bool isError() const override { return false; }

private:
    Text m_purpose;
    std::vector<std::pair<std::string, std::string>> m_inputs;  ///< labels, what is taken
};

}  // namespace Console
