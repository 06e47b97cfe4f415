#pragma once

#include <string>

namespace ORVLib::trace {

/// A writer of the board's trace log. Cheap to make; the three numbers say who writes.
class OrvTrace {
public:
    /// The numbers stand at the begin of every entry.
    OrvTrace(int category, int subCategory, int module);

    /// Writes one entry. Level 0 is for errors and always kept, higher levels for ever finer
    /// traces. `text` may hold any bytes; one entry stays one entry.
    void putLog(int level, const std::string& text);

private:
    int m_category;
    int m_subCategory;
    int m_module;
};

}  // namespace ORVLib::trace
