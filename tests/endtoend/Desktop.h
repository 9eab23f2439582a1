// A user's eyes and hands: finds windows, reads their texts, clicks and types through the input
// queue as mouse and keyboard do.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace tellwick::endtoend {

// Asks again until the answer is true, at most for that long.
bool WaitUntil(const std::function<bool()>& condition, int milliseconds = 5000);

// The visible top-level window whose title contains the text; waits for it. Null when none comes.
HWND WaitForWindow(const std::wstring& title, int milliseconds = 5000);
// The same for a message or question box, whatever its title.
HWND WaitForBox(int milliseconds = 5000);
HWND FindTopWindow(const std::wstring& title);
bool WaitUntilGone(HWND window, int milliseconds = 5000);

std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
// All descendants, in the order of their creation within each parent.
std::vector<HWND> Descendants(HWND window);
// The descendant with that text (a mnemonic's "&" not counted), or of that class; null if none.
HWND FindByText(HWND window, const std::wstring& text);
HWND FindByClass(HWND window, const std::wstring& className);

std::vector<std::wstring> Rows(HWND listBox);

// The window that has the keyboard, whichever process it belongs to.
HWND Focus();

void Click(HWND window);
void ClickAt(int x, int y);
// Text as keys of the current keyboard layout; "\n" is Enter, "\t" Tab.
void Type(const std::wstring& text);
// Characters whatever the layout, as an input method or another keyboard gives them.
void TypeCharacters(const std::wstring& text);
// One key, by virtual-key code, with modifiers held.
void Press(WORD key, const std::vector<WORD>& modifiers = {});

}  // namespace tellwick::endtoend
