#pragma once

#include <string>

namespace ORVLib::trace {

/// A writer of the board's trace log. It must be cheap to create and copy: every object that writes
/// to the log has one.
///
/// @code
/// trace::OrvTrace trace(1, 2, 7);
/// trace.putLog(0, "the fan does not answer");
/// trace.putLog(200, "asked fan 2");  // for a detailed trace
/// @endcode
class OrvTrace {
public:
    /// The numbers identify the writer and are part of every entry.
    OrvTrace(int category, int subCategory, int module);

    /// Writes one entry. Level 0 is for errors, which are always written; higher levels are for
    /// more detailed traces. `text` may contain any bytes, line ends included; it is one entry.
    void putLog(int level, const std::string& text);

private:
    int m_category;
    int m_subCategory;
    int m_module;
};

}  // namespace ORVLib::trace
