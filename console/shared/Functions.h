#pragma once

/// IDs of the console's functions: which roles may use one, and where its page lies, hang on them.
namespace Console {

enum Function { FUNCTION_CHANGE_PASSWORD = 63, FUNCTION_REFRESH = 75 };

}  // namespace Console
