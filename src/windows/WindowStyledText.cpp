#include "windows/WindowStyledText.h"

#include <richedit.h>

namespace tellwick::windows {

namespace {

// Neither marked nor filled in is so by colour alone.
CHARFORMAT2W FormatOf(StyledText::Style style) {
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_BACKCOLOR | CFM_COLOR;
    format.dwEffects = CFE_AUTOBACKCOLOR | CFE_AUTOCOLOR;
    if (style == StyledText::Style::Heading) format.dwEffects |= CFE_BOLD;
    if (style == StyledText::Style::Filled) {
        format.dwEffects = CFE_ITALIC;
        format.crBackColor = GetSysColor(COLOR_INFOBK);
        format.crTextColor = GetSysColor(COLOR_INFOTEXT);
    }
    if (style == StyledText::Style::Marked) {
        format.dwEffects = CFE_UNDERLINE;
        format.crBackColor = GetSysColor(COLOR_HIGHLIGHT);
        format.crTextColor = GetSysColor(COLOR_HIGHLIGHTTEXT);
    }
    return format;
}

}  // namespace

const wchar_t* WindowStyledText::Class() {
    // Stays loaded, as system libraries do.
    static const HMODULE library = LoadLibraryW(L"riched20.dll");
    return library ? RICHEDIT_CLASSW : L"EDIT";
}

void WindowStyledText::SetPieces(const std::vector<Piece>& pieces) {
    if (!Window()) return;
    Send(WM_SETREDRAW, FALSE);
    SetWindowTextTo({});
    for (const Piece& piece : pieces) {
        const int end = GetWindowTextLengthW(Window());
        Send(EM_SETSEL, WPARAM(end), end);
        CHARFORMAT2W format = FormatOf(piece.style);
        Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        SendText(EM_REPLACESEL, FALSE, piece.text);
    }
    Send(EM_SETSEL, 0, 0);
    Send(EM_SCROLLCARET);
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(Window(), nullptr, TRUE);
}

}  // namespace tellwick::windows
