#include "framework/component/Help.h"

#include <algorithm>
#include <iostream>

#include "framework/component/Components.h"
#include "framework/component/PageText.h"

namespace Console {

void Help::addInput(const std::string& label, const std::string& taken) {
    constexpr char SEPARATOR[] = " / ";
    const auto same = std::find_if(m_inputs.begin(), m_inputs.end(),
                                   [&taken](const auto& input) { return input.second == taken; });
    if (same == m_inputs.end()) {
        m_inputs.emplace_back(label, taken);
    } else if ((SEPARATOR + same->first + SEPARATOR).find(SEPARATOR + label + SEPARATOR) ==
               std::string::npos) {
        same->first += SEPARATOR + label;
    }
}

void Help::printHTML() const {
    std::cout << "<details class=\"help\">\n<summary>";
    makeText(text(TEXT_HELP))->printHTML();
    std::cout << "</summary>\n<p>";
    makeSentence(text(m_purpose))->printHTML();
    std::cout << "</p>\n";
    if (!m_inputs.empty()) {
        std::cout << "<dl>\n";
        for (const auto& [label, taken] : m_inputs) {
            std::cout << "<dt>";
            makeSentence(label)->printHTML();
            std::cout << "</dt><dd>";
            makeSentence(taken)->printHTML();
            std::cout << "</dd>\n";
        }
        std::cout << "</dl>\n";
    }
    std::cout << "</details>";
}

}  // namespace Console
