// Where a form's window is on the screens.
#pragma once

#include "platform/Forms.h"
#include "windows/Com.h"

namespace tellwick::windows {

// The place of a window that is neither minimised nor maximised, in coordinates of the screen.
FormPlace PlaceOf(HWND window);

// Moves a window to its first place: the wanted one where a screen still is there, else over the
// window it was called from, which may be null. Its client area is never below the least one; where
// no size is wanted it is the usual one.
void MoveToFirstPlace(HWND window, HWND caller, const FormPlace& wanted, bool positioned,
                      SIZE leastClient, SIZE usualClient);

// Makes a window higher, as far as its screen has room, or lower; how much it became.
int GrowWindow(HWND window, int height);

}  // namespace tellwick::windows
