#include "windows/WindowToolbar.h"

#include <utility>

namespace tellwick::windows {

Text WindowBarButton::Caption() const {
    wchar_t text[128] = L"";
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_TEXT;
    info.pszText = text;
    info.cchText = 128;
    Send(TB_GETBUTTONINFOW, reinterpret_cast<LPARAM>(&info));
    return FromWide(text);
}

void WindowBarButton::SetCaption(TextView caption) {
    Text text(caption);
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_TEXT;
    info.pszText = const_cast<wchar_t*>(Wide(text));
    Send(TB_SETBUTTONINFOW, reinterpret_cast<LPARAM>(&info));
}

WindowToolbar::WindowToolbar(int count, int firstPicture, int group)
    : firstPicture(firstPicture), group(group) {
    for (int command = 1; command <= count; ++command) buttons.emplace_back(*this, WORD(command));
}

void WindowToolbar::AddButtons() {
    Send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    // Their texts are tool tips only.
    Send(TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
    std::vector<TBBUTTON> all;
    for (int index = 0; index < int(buttons.size()); ++index) {
        if (index > 0 && index % group == 0) {
            TBBUTTON separator{};
            separator.fsStyle = TBSTYLE_SEP;
            all.push_back(separator);
        }
        TBBUTTON button{};
        button.iBitmap = index;
        button.idCommand = index + 1;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = TBSTYLE_BUTTON | TBSTYLE_AUTOSIZE;
        all.push_back(button);
    }
    Send(TB_ADDBUTTONSW, all.size(), reinterpret_cast<LPARAM>(all.data()));
}

WindowToolbar::ImageList WindowToolbar::ReadPictures(int size) const {
    ImageList read(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, int(buttons.size()), 0));
    for (int index = 0; index < int(buttons.size()); ++index) {
        const IconHandle picture = LoadLibraryIcon(firstPicture + index, size);
        ImageList_AddIcon(read.get(), picture.get());
    }
    return read;
}

void WindowToolbar::LoadPictures(const MessageFont& font) {
    const int size = font.Resolution() < 120 ? 16 : font.Resolution() < 192 ? 24 : 32;
    ImageList before;  // goes when the bar no longer has it
    if (size != pictureSize) {
        before = std::exchange(pictures, ReadPictures(size));
        pictureSize = pictures ? size : 0;
    }
    Send(TB_SETBITMAPSIZE, 0, MAKELPARAM(size, size));
    Send(TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(pictures.get()));
}

int WindowToolbar::Arrange() {
    Send(TB_AUTOSIZE);
    RECT bar{};
    if (Window()) GetWindowRect(Window(), &bar);
    return int(bar.bottom - bar.top);
}

}  // namespace tellwick::windows
