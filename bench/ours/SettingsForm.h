#pragma once

#include <string>

#include "gui/HTMLPage.h"

namespace Bench {

constexpr int LABEL_COUNT = 18;

/// Where a label's text comes from, by its number.
using LabelSource = std::string (*)(int number, void* context);

/// Puts the 40 components of the measured page into `page`: 18 labels, 18 inputs and those of
/// the head, and chooses its skeleton.
void fillPage(ORVLib::Gui::HTMLPage& page, LabelSource label, void* context);

}  // namespace Bench
