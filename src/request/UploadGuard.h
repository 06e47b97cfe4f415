#pragma once

#include <string>

/// Removes the process's upload when the process ends before its FormInfo does: by exit(), or by a
/// signal, whether a web server ends a page whose browser has gone, the page writes to that browser
/// itself (SIGPIPE), or a fault or a limit ends it with a core file. The process still ends by the
/// signal, with its core file. A signal that the program handles or ignores itself is left to it,
/// and the files of a page are left alone by the processes that it forks.
namespace ORVLib::Gui::UploadGuard {

/// Makes a new file with the name that `nextName` gives, tried a few times, for its owner alone;
/// an existing one or a link is never opened. Returns its descriptor and puts its name into
/// `path`, or returns -1 with errno set. The file takes the place of the one guarded before.
int create(std::string (*nextName)(), std::string& path);

/// The file is gone.
void release();

}  // namespace ORVLib::Gui::UploadGuard
