#pragma once

namespace Console {

/// Limits the memory and the processor time of this process; lower limits that it was started with
/// stay. A page that needs more memory gets std::bad_alloc, and so ends in the error page. One that
/// needs more processor time is ended with a line in the trace log and, unless it has begun to
/// print, a page that says so. Its uploaded file is removed.
void limitResources();

/// Says that the page is being printed: nothing else may be printed from now on.
void notePageBegun();

/// Pages that always get an answer have places of their own.
enum class Places { ORDINARY, RESERVED };

/// Takes one of the places of the page processes of this machine, until this process ends. Returns
/// false when there is none left for the client's address: a single address gets three quarters of
/// the ordinary places at most.
///
/// The places are byte locks on the file that the environment variable ORV_PAGE_PLACES names.
/// Without the variable the number of processes is left to the web server.
bool takePlace(Places places);

}  // namespace Console
