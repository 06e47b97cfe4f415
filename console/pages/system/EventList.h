#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/component/SkeletonPart.h"
#include "framework/input/ChoiceInput.h"
#include "framework/input/NumberInput.h"
#include "framework/page/PageContext.h"

namespace Console {

/// Most events that the board returns at once.
constexpr int MOST_EVENTS = 200;

/// The field of an event page's address with the number of an event: older ones are shown.
constexpr char BEFORE_FIELD[] = "before";

/// The value of that field; empty without it, and when it is not the number of an event.
std::string readBefore(const ORVLib::Gui::FormInfo& form);

/// The field of the lowest severity, which each search has.
constexpr char SEVERITY_FIELD[] = "severity";

/// The events to show, in the board's words.
struct EventQuery {
    std::string severity;  ///< the lowest
    std::string source;    ///< empty for all
    std::string firstDay;  ///< in UTC, empty for no bound
    std::string lastDay;   ///< likewise
    std::string count;
    std::string before;  ///< the number of an event, empty for the newest
};

/// A table of events, newest first, with links to older ones and back. `path` and `fields` are the
/// address for the newest ones. A page may put a "note" above the table. A failure ends in the
/// error page.
std::unique_ptr<SkeletonPart> makeEventList(
    const PageContext& context, const EventQuery& query, const std::string& path,
    std::vector<std::pair<std::string, std::string>> fields);

/// Inputs for the lowest severity, the source and the number of events.
std::unique_ptr<ChoiceInput> makeSeverityInput();
std::unique_ptr<ChoiceInput> makeSourceInput();
std::unique_ptr<NumberInput> makeCountInput();

}  // namespace Console
