#pragma once

/// Marks the classes and functions that the library exports. All others are hidden in it.
#define ORVGUI_EXPORT __attribute__((visibility("default")))
