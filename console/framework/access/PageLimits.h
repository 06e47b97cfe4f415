#pragma once

namespace Console {

/// Limits the memory and the processor time of this process, unless its limits are lower already. A
/// page that needs more memory gets std::bad_alloc, which ends in the error page. One that needs
/// more processor time is ended: with a line in the trace log, its uploaded file deleted, and,
/// unless it has begun to print, a page that says so.
void limitResources();

/// Notes that the page is being printed: nothing else may be printed from now on.
void notePageBegun();

/// Reserved places are for pages that are answered even when all ordinary places are taken.
enum class Places { ORDINARY, RESERVED };

/// Takes one of the places for page processes on this machine until this process ends. Returns
/// false when none is left for the client's address. One address gets at most three quarters of the
/// ordinary places.
///
/// The places are byte locks on the file that the environment variable ORV_PAGE_PLACES names.
/// Without the variable, only the web server limits the number of processes.
bool takePlace(Places places);

}  // namespace Console
