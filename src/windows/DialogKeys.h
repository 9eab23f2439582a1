// What the system's own dialogs do with keys, for windows in the message loop of another program,
// which knows nothing of them.
#pragma once

#include <cstdint>

#include "windows/Com.h"

namespace tellwick::windows {

// The keys held now, as the forms' handlers get them.
std::int32_t ShiftState();

bool IsPushButton(HWND control);

// Gives a control the focus as dialogs do: the text of a field of one line is selected.
void FocusControl(HWND control);

// The keys that dialogs have for themselves: Tab moves the focus, Enter pushes the button with the
// focus or else the default one, Ctrl+A selects a text. True when the key was used up.
bool HandleDialogKey(HWND dialog, HWND defaultButton, std::int32_t keyCode, std::int32_t shift);

// Any other message of a key: mnemonics and arrow keys are the dialog's, the rest goes to the
// control.
void DispatchDialogMessage(HWND dialog, MSG& message);

// To be called with every notification of a control: a push button with the style BS_NOTIFY is
// drawn as the default one while it has the focus.
void MoveDefault(HWND defaultButton, HWND control, WORD notification);

}  // namespace tellwick::windows
