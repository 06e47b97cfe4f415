#pragma once

#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::Board {

/// One byte on the disk that says whether sessions have ended of which the state does not know.
///
/// A full disk keeps the state from being written. The byte has its place on the disk from the
/// daemon's first start and is overwritten, which takes no room: an end of a session that is noted
/// here outlives a crash, because the next start ends all sessions.
class EndMarker {
public:
    /// Opens the file, or makes it. Throws std::runtime_error, with a line for the administrator.
    explicit EndMarker(const std::string& path);

    bool isSet() const { return m_isSet; }

    /// The change is on the disk when this returns. Throws std::system_error when that fails.
    void set(bool isSet);

private:
    FileDescriptor m_file;
    bool m_isSet = false;
};

}  // namespace ORVLib::Board
