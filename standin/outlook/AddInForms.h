// The windows of add-ins in this process, as the commands look at them and do things to them.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/Text.h"

namespace tellwick::standin {

// Visible windows of this thread that are not the stand-in's own.
std::vector<HWND> AddInWindows();

// Puts the texts into the edit fields of the window in front, in their order. False when it has
// fewer.
bool FillFields(const std::vector<Text>& texts);

// Clicks a button of the window in front by its caption, mnemonic not counted.
bool PushButton(const Text& caption);

// Tells a window that its monitor has another resolution now, with its place scaled around its
// corner, as the system does it.
void ChangeResolution(HWND window, int resolution);

}  // namespace tellwick::standin
