#pragma once

/// Marks what programs may use of the library; everything else stays hidden in it.
#define ORVGUI_EXPORT __attribute__((visibility("default")))
