#include "outlook/Toolbar.h"

#include <windowsx.h>

#include <algorithm>

#include "outlook/Com.h"
#include "outlook/Face.h"

namespace tellwick::standin {

namespace {

// Office's button styles, as far as they are told apart here.
constexpr std::int32_t StyleIcon = 1;
constexpr std::int32_t StyleCaption = 2;

// At 96 dots per inch.
constexpr int Padding = 4;
constexpr int Gap = 7;  // between groups
constexpr int Grip = 8;
constexpr int Arrow = 9;

bool HasIcon(const CommandBarControl& control) {
    const auto* button = dynamic_cast<const CommandBarButton*>(&control);
    return !button || button->style != StyleCaption;
}

bool HasCaption(const CommandBarControl& control) {
    const auto* button = dynamic_cast<const CommandBarButton*>(&control);
    return !button || button->style != StyleIcon;
}

COLORREF Between(int first, int second, int percent) {
    const COLORREF a = GetSysColor(first);
    const COLORREF b = GetSysColor(second);
    const auto mix = [percent](int x, int y) {
        return BYTE((x * (100 - percent) + y * percent) / 100);
    };
    return RGB(mix(GetRValue(a), GetRValue(b)), mix(GetGValue(a), GetGValue(b)),
               mix(GetBValue(a), GetBValue(b)));
}

void Fill(HDC context, const RECT& rectangle, COLORREF colour) {
    SetBkColor(context, colour);
    ExtTextOutW(context, 0, 0, ETO_OPAQUE, &rectangle, nullptr, 0, nullptr);
}

// The face as a bitmap on the colour of menus; null without a face.
HBITMAP MenuBitmap(const Face& face, int size) {
    if (face.IsEmpty()) return nullptr;
    const HDC screen = GetDC(nullptr);
    const HDC context = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size, size);
    const HGDIOBJ before = SelectObject(context, bitmap);
    Fill(context, {0, 0, size, size}, GetSysColor(COLOR_MENU));
    DrawFace(context, face, 0, 0, size);
    SelectObject(context, before);
    DeleteDC(context);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

}  // namespace

Toolbar::Toolbar(const Look& look, HWND parent, std::shared_ptr<CommandBars> bars, Clicked clicked)
    : look(look), bars(std::move(bars)), clicked(std::move(clicked)) {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    type.lpszClassName = ClassName;
    RegisterClassW(&type);  // fails from the second time on
    window = CreateWindowExW(0, ClassName, L"Toolbars", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0,
                             0, 0, 0, parent, nullptr, type.hInstance, this);
    Refresh();
}

Toolbar::~Toolbar() {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
}

void Toolbar::Refresh() {
    buttons.clear();
    rowTops.clear();
    int top = 0;
    for (const auto& bar : bars->all) {
        if (bar->visible) AddRow(*bar, top);
    }
    height = top;
    hot = -1;
    if (pressed >= int(buttons.size())) pressed = -1;
    InvalidateRect(window, nullptr, TRUE);
}

void Toolbar::AddRow(CommandBar& bar, int& top) {
    const int padding = look.Scale(Padding);
    const int icon = look.Scale(FaceSize);
    const int rowHeight = std::max(icon, look.LineHeight()) + 3 * padding;
    int left = look.Scale(Grip);
    bool any = false;
    for (const auto& control : bar.Controls()->all) {
        // The built-in menus are the window's own menu.
        if (!control->visible || (bar.name == u"Menu Bar" && control->BuiltIn())) continue;
        if (control->beginGroup && any) left += look.Scale(Gap);
        any = true;
        int width = 2 * padding;
        if (HasIcon(*control)) width += icon;
        if (HasIcon(*control) && HasCaption(*control)) width += padding;
        if (HasCaption(*control)) width += look.TextWidth(ReplaceAll(control->caption, u"&", u""));
        if (control->Type() == PopupType) width += look.Scale(Arrow) + padding;
        buttons.push_back(
            {control, {left, top + padding / 2, left + width, top + rowHeight - padding / 2}});
        left += width + 1;
    }
    if (!any && bar.builtIn) return;
    rowTops.push_back(top);
    top += rowHeight;
}

bool Toolbar::Find(TextView caption, RECT& rectangle) const {
    for (const Button& button : buttons) {
        if (!EqualFolded(ReplaceAll(button.control->caption, u"&", u""), caption)) continue;
        rectangle = button.place;
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rectangle), 2);
        return true;
    }
    return false;
}

LRESULT CALLBACK Toolbar::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        auto* created = reinterpret_cast<CREATESTRUCTW*>(second);
        auto* self = static_cast<Toolbar*>(created->lpCreateParams);
        self->window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<Toolbar*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        return self ? self->Handle(message, first, second)
                    : DefWindowProcW(window, message, first, second);
    } catch (...) {
        return 0;
    }
}

LRESULT Toolbar::Handle(UINT message, WPARAM first, LPARAM second) {
    const int x = GET_X_LPARAM(second);
    const int y = GET_Y_LPARAM(second);
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            BeginPaint(window, &paint);
            RECT client;
            GetClientRect(window, &client);
            const HDC buffer = CreateCompatibleDC(paint.hdc);
            const HBITMAP bitmap = CreateCompatibleBitmap(paint.hdc, std::max(1L, client.right),
                                                          std::max(1L, client.bottom));
            const HGDIOBJ before = SelectObject(buffer, bitmap);
            Paint(buffer);
            BitBlt(paint.hdc, 0, 0, client.right, client.bottom, buffer, 0, 0, SRCCOPY);
            SelectObject(buffer, before);
            DeleteObject(bitmap);
            DeleteDC(buffer);
            EndPaint(window, &paint);
            return 0;
        }
        case WM_MOUSEMOVE: {
            TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
            TrackMouseEvent(&track);
            SetHot(At(x, y));
            return 0;
        }
        case WM_MOUSELEAVE:
            SetHot(-1);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: {
            const int index = At(x, y);
            if (index < 0 || !buttons[std::size_t(index)].control->enabled) return 0;
            const Button button = buttons[std::size_t(index)];
            if (const auto popup = std::dynamic_pointer_cast<CommandBarPopup>(button.control)) {
                OpenMenu(popup, button.place);
                return 0;
            }
            pressed = index;
            SetCapture(window);
            InvalidateRect(window, nullptr, FALSE);
            return 0;
        }
        case WM_LBUTTONUP: {
            const int index = std::exchange(pressed, -1);
            if (index < 0) return 0;
            ReleaseCapture();
            InvalidateRect(window, nullptr, FALSE);
            if (At(x, y) != index) return 0;
            // The click may close this window.
            const auto control = buttons[std::size_t(index)].control;
            const Clicked call = clicked;
            call(control);
            return 0;
        }
        default:
            return DefWindowProcW(window, message, first, second);
    }
}

void Toolbar::Paint(HDC context) {
    RECT client;
    GetClientRect(window, &client);
    Fill(context, client, GetSysColor(COLOR_BTNFACE));
    const int rowHeight = rowTops.empty() ? 0 : height / int(rowTops.size());
    const COLORREF line = Between(COLOR_BTNFACE, COLOR_BTNSHADOW, 60);
    for (const int top : rowTops) {
        for (int dot = top + look.Scale(6); dot < top + rowHeight - look.Scale(6);
             dot += look.Scale(4)) {
            const int left = look.Scale(3);
            Fill(context, {left, dot, left + look.Scale(2), dot + look.Scale(2)}, line);
        }
    }
    Fill(context, {0, client.bottom - 1, client.right, client.bottom}, line);
    const HGDIOBJ font = SelectObject(context, look.Font());
    for (const Button& button : buttons) PaintButton(context, button);
    SelectObject(context, font);
}

void Toolbar::PaintButton(HDC context, const Button& button) {
    const int padding = look.Scale(Padding);
    const int icon = look.Scale(FaceSize);
    const RECT& place = button.place;
    const int index = int(&button - buttons.data());
    if (button.control->beginGroup && place.left > look.Scale(Grip)) {
        const int left = place.left - look.Scale(Gap) / 2 - 1;
        Fill(context, {left, place.top + padding, left + 1, place.bottom - padding},
             Between(COLOR_BTNFACE, COLOR_BTNSHADOW, 80));
    }
    if (index == hot || index == pressed) {
        Fill(context, place, GetSysColor(COLOR_HIGHLIGHT));
        const RECT inside{place.left + 1, place.top + 1, place.right - 1, place.bottom - 1};
        Fill(context, inside, Between(COLOR_HIGHLIGHT, COLOR_WINDOW, index == pressed ? 55 : 75));
    }
    int left = place.left + padding;
    const int middle = (place.top + place.bottom) / 2;
    if (HasIcon(*button.control)) {
        DrawFace(context, FaceOf(*button.control), left, middle - icon / 2, icon);
        left += icon + padding;
    }
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(button.control->enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    if (HasCaption(*button.control)) {
        RECT text{left, place.top, place.right, place.bottom};
        const Text caption = ReplaceAll(button.control->caption, u"&", u"");
        DrawTextW(context, Wide(caption), -1, &text,
                  DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
    }
    if (button.control->Type() == PopupType) {
        const int arrow = look.Scale(Arrow);
        const int start = place.right - padding - arrow;
        for (int row = 0; row < (arrow + 1) / 2; ++row) {
            Fill(context,
                 {start + row, middle - arrow / 4 + row, start + arrow - row,
                  middle - arrow / 4 + row + 1},
                 GetSysColor(COLOR_BTNTEXT));
        }
    }
}

void Toolbar::OpenMenu(const std::shared_ptr<CommandBarPopup>& popup, const RECT& below) {
    const HMENU menu = CreatePopupMenu();
    const auto entries = popup->Menu()->Controls()->all;
    std::vector<HBITMAP> bitmaps;
    UINT number = 0;
    for (const auto& entry : entries) {
        ++number;
        if (!entry->visible) continue;
        if (entry->beginGroup) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu, MF_STRING | (entry->enabled ? 0u : MF_GRAYED), number,
                    Wide(entry->caption));
        if (const HBITMAP bitmap = MenuBitmap(FaceOf(*entry), look.Scale(FaceSize))) {
            bitmaps.push_back(bitmap);
            MENUITEMINFOW information{};
            information.cbSize = sizeof information;
            information.fMask = MIIM_BITMAP;
            information.hbmpItem = bitmap;
            SetMenuItemInfoW(menu, number, FALSE, &information);
        }
    }
    POINT corner{below.left, below.bottom};
    ClientToScreen(window, &corner);
    const Clicked call = clicked;
    const UINT chosen = UINT(TrackPopupMenu(menu, TPM_RETURNCMD | TPM_LEFTALIGN, corner.x, corner.y,
                                            0, GetAncestor(window, GA_ROOT), nullptr));
    DestroyMenu(menu);
    for (const HBITMAP bitmap : bitmaps) DeleteObject(bitmap);
    if (chosen >= 1 && chosen <= entries.size()) call(entries[chosen - 1]);
}

int Toolbar::At(int x, int y) const {
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        if (PtInRect(&buttons[index].place, {x, y})) return int(index);
    }
    return -1;
}

void Toolbar::SetHot(int index) {
    if (hot == index) return;
    hot = index;
    InvalidateRect(window, nullptr, FALSE);
}

}  // namespace tellwick::standin
