#pragma once

#include <string>

#include "common/FileDescriptor.h"

namespace ORVLib::Board {

/// One byte on the disk that says whether sessions have ended of which the state does not know.
///
/// On a full disk the state cannot be written. The byte is allocated at the daemon's first start
/// and overwritten in place, which needs no space. An end of a session that is marked here survives
/// a crash, because the next start ends all sessions.
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
