#pragma once

#include <iostream>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "TraceSink.h"
#include "gui/HTMLComponent.h"

/// Captures the output of std::cout while the object exists.
class CapturedOutput {
public:
    CapturedOutput() : m_before(std::cout.rdbuf(m_text.rdbuf())) {}
    ~CapturedOutput() { std::cout.rdbuf(m_before); }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_before;
};

/// A locale in which numbers have a comma before every digit but the first.
class Grouping : public std::numpunct<char> {
    char do_thousands_sep() const override { return ','; }
    std::string do_grouping() const override { return "\1"; }
};

inline std::string printed(const ORVLib::Gui::HTMLComponent& component) {
    const CapturedOutput output;
    component.printHTML();
    return output.text();
}

/// The trace entries written while the object lives.
class CapturedTrace {
public:
    CapturedTrace() {
        entries().clear();
        m_before = ORVLib::trace::setTraceSink(
            [](const ORVLib::trace::TraceEntry& entry) { entries().push_back(entry); });
    }
    ~CapturedTrace() { ORVLib::trace::setTraceSink(m_before); }
    CapturedTrace(const CapturedTrace&) = delete;
    CapturedTrace& operator=(const CapturedTrace&) = delete;

    /// True when an entry of this level and module holds `text`.
    bool has(int level, int module, const std::string& text) const {
        for (const auto& entry : entries()) {
            if (entry.level == level && entry.category == 1 && entry.subCategory == 2 &&
                entry.module == module && entry.text.find(text) != std::string::npos) {
                return true;
            }
        }
        return false;
    }

    static std::vector<ORVLib::trace::TraceEntry>& entries() {
        static std::vector<ORVLib::trace::TraceEntry> kept;
        return kept;
    }

private:
    ORVLib::trace::TraceSink m_before;
};
