#pragma once

namespace Console {

/// True for a POST that the browser says another site made. Browsers that say nothing are believed
/// to be on ours: forms of a session have their token besides.
bool isForeignPost();

}  // namespace Console
