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

/// Most events that the board tells at once.
constexpr int MOST_EVENTS = 200;

/// The field of an event page's address that says which event those shown are older than.
constexpr char BEFORE_FIELD[] = "before";

/// What that field says; empty without it, and when it is no event's number.
std::string readBefore(const ORVLib::Gui::FormInfo& form);

/// The field of the lowest severity, which every search has.
constexpr char SEVERITY_FIELD[] = "severity";

/// Which events to show; the texts are those of the board.
struct EventQuery {
    std::string severity;  ///< the lowest
    std::string source;    ///< empty for all
    std::string firstDay;  ///< in UTC, empty for no bound
    std::string lastDay;   ///< likewise
    std::string count;
    std::string before;  ///< an event's number, empty for the newest
};

/// A table of events, newest first, with links to older ones and back. `path` and `fields` are the
/// address that asks for the newest of them. A page may put a "note" above the table. A failure
/// ends in the error page.
std::unique_ptr<SkeletonPart> makeEventList(
    const PageContext& context, const EventQuery& query, const std::string& path,
    std::vector<std::pair<std::string, std::string>> fields);

/// Inputs for the lowest severity, the source and the number of events.
std::unique_ptr<ChoiceInput> makeSeverityInput(const PageContext& context);
std::unique_ptr<ChoiceInput> makeSourceInput(const PageContext& context);
std::unique_ptr<NumberInput> makeCountInput();

}  // namespace Console
