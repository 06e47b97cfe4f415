#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalogue/Texts.h"

namespace Console {

/// The content of an error page: what happened, what to do, and how to go on.
struct Problem {
    Text what;
    std::string code{};            ///< appended to `what`
    std::optional<Text> advice{};  ///< none when `what` has it
    std::vector<Text> roles{};     ///< appended to the advice
    bool isPassing = false;        ///< a page that only shows something tries again by itself
};

/// The problem for an error code, as AbstractMain::errorExit() takes it. `isChange` tells whether
/// the request may have changed anything. `roles` are those that may use the page's function.
Problem problemOf(int code, bool isChange, const std::vector<Text>& roles);

/// Prints the error page in a language, or in both when the user's is not known. The page has links
/// to try a GET again, back to the page before, to the overview and to the log-in page.
void printErrorPage(const Problem& problem, std::optional<int> language);

}  // namespace Console
