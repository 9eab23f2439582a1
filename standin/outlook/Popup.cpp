#include "outlook/Popup.h"

#include "outlook/Com.h"

namespace tellwick::standin {

namespace {

// The face as a bitmap on the colour of menus.
HBITMAP MenuBitmap(const Face& face, int size) {
    const HDC screen = GetDC(nullptr);
    const HDC context = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size, size);
    const HGDIOBJ before = SelectObject(context, bitmap);
    SetBkColor(context, GetSysColor(COLOR_MENU));
    const RECT all{0, 0, size, size};
    ExtTextOutW(context, 0, 0, ETO_OPAQUE, &all, nullptr, 0, nullptr);
    DrawFace(context, face, 0, 0, size);
    SelectObject(context, before);
    DeleteDC(context);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

}  // namespace

Popup::~Popup() {
    DestroyMenu(menu);
    for (const HBITMAP bitmap : bitmaps) DeleteObject(bitmap);
}

void Popup::Add(const Text& caption, const Face& face, bool enabled, std::function<void()> choose) {
    actions.push_back(std::move(choose));
    const UINT number = UINT(actions.size());
    AppendMenuW(menu, MF_STRING | (enabled ? 0u : MF_GRAYED), number, Wide(caption));
    if (face.IsEmpty()) return;
    bitmaps.push_back(MenuBitmap(face, faceSize));
    MENUITEMINFOW information{};
    information.cbSize = sizeof information;
    information.fMask = MIIM_BITMAP;
    information.hbmpItem = bitmaps.back();
    SetMenuItemInfoW(menu, number, FALSE, &information);
}

void Popup::Run(HWND owner, POINT corner) {
    const UINT chosen = UINT(
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_LEFTALIGN, corner.x, corner.y, 0, owner, nullptr));
    if (chosen >= 1 && chosen <= actions.size()) actions[chosen - 1]();
}

}  // namespace tellwick::standin
