#pragma once

#include <string>

/// Deletes the uploaded file when the process ends before its FormInfo is destroyed: by exit(), by
/// a signal of the web server, by SIGPIPE, or by a signal of a fault or a limit.
///
/// The process still ends by the signal, with its core file. Signals that the program handles or
/// ignores keep their handling. Processes that a page forks do not delete the page's file.
namespace ORVLib::Gui::UploadGuard {

/// Makes a new file, readable by its owner alone, with a name of `nextName`. An existing file or a
/// link is never opened; a few other names are tried instead. Returns the descriptor and puts the
/// name into `path`, or returns -1 with errno set. From now on this file is guarded in place of the
/// one before.
int create(std::string (*nextName)(), std::string& path);

/// Ends the guard, after the file was deleted.
void release();

}  // namespace ORVLib::Gui::UploadGuard
