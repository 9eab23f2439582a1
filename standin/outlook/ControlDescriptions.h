// What the windows of add-ins show, and those of other programs.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/Text.h"

namespace tellwick::standin {

// Dots per inch.
int ScreenResolution();

Text ClassOf(HWND control);

// One text for each visible control of a window: its class, its rectangle in the window, the width
// that its caption needs in its own font (0 without one, or where it is shortened to fit), and its
// caption with its mnemonic. A drop-down list's widest entry is its caption. Fonts of another
// program cannot be used here; what it shows is measured in the system's font for messages at that
// program's resolution.
std::vector<Text> DescribeControls(HWND window, int resolutionOfOther = 0);

}  // namespace tellwick::standin
