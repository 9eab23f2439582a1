// The SMS form on the screen, its controls as a user finds them.
#pragma once

#include "endtoend/StandIn.h"

namespace tellwick::endtoend {

struct Form {
    HWND window = nullptr;
    HWND to = nullptr;  // the recipient field's edit line
    HWND message = nullptr;

    // Opens it through the toolbar button of the first explorer.
    static Form Open(StandIn& outlook);
    // The one that is opening now.
    static Form Opened();
    // Replaces a field's text by typing.
    static void Fill(HWND field, const std::wstring& text);
    // The button, check box or label with that text, mnemonic not counted.
    HWND Control(const std::wstring& text) const;
};

// Goes once round a window with Tab, from where the focus is, and one step back.
void CheckTabOrder(HWND window);

}  // namespace tellwick::endtoend
