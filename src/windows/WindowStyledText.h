// A text to be read, with the system's rich text box.
#pragma once

#include "windows/WindowControls.h"

namespace tellwick::windows {

class WindowStyledText : public StyledText, public WindowControl {
public:
    // Window class for its plan: the rich text box, or the plain one where the system has none.
    static const wchar_t* Class();
    static constexpr DWORD Style =
        WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;

    void SetPieces(const std::vector<Piece>& pieces) override;
};

}  // namespace tellwick::windows
