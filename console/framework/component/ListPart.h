#pragma once

#include <string>

#include "framework/component/SkeletonPart.h"

namespace Console {

/// The body of a page that shows data: a title, the page's purpose, and the data.
class ListPart : public SkeletonPart {
public:
    ListPart(Text title, const std::string& purpose, Component content);

    /// Says above the data that something is wrong.
    void putError(Text problem);
};

}  // namespace Console
