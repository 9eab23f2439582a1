#include "outlook/Bar.h"

#include <windowsx.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "outlook/Com.h"

namespace tellwick::standin {

Bar::Bar(const Look& look, HWND parent, const wchar_t* className) : look(look) {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    type.lpszClassName = className;
    RegisterClassW(&type);  // fails from the second time on
    window = CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                             parent, nullptr, type.hInstance, this);
    tips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 0, 0, window,
                           nullptr, type.hInstance, nullptr);
}

Bar::~Bar() {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
}

void Bar::Refresh() {
    buttons.clear();
    height = Place();
    hot = -1;
    if (pressed >= int(buttons.size())) pressed = -1;
    ShowTips();
    InvalidateRect(window, nullptr, TRUE);
}

void Bar::ShowTips() {
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = window;
    for (tool.uId = 0; tool.uId < tipCount; ++tool.uId) {
        SendMessageW(tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    tool.uId = 0;
    for (Button& button : buttons) {
        if (button.tip.empty()) continue;
        tool.rect = button.place;
        tool.lpszText = const_cast<wchar_t*>(Wide(button.tip));
        SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        ++tool.uId;
    }
    tipCount = tool.uId;
}

bool Bar::Find(TextView caption, RECT& rectangle) const {
    for (const Button& button : buttons) {
        if (!EqualFolded(button.caption, caption)) continue;
        rectangle = button.place;
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rectangle), 2);
        return true;
    }
    return false;
}

COLORREF Bar::Between(int first, int second, int percent) {
    const COLORREF a = GetSysColor(first);
    const COLORREF b = GetSysColor(second);
    const auto mix = [percent](int x, int y) {
        return BYTE((x * (100 - percent) + y * percent) / 100);
    };
    return RGB(mix(GetRValue(a), GetRValue(b)), mix(GetGValue(a), GetGValue(b)),
               mix(GetBValue(a), GetBValue(b)));
}

void Bar::Fill(HDC context, const RECT& rectangle, COLORREF colour) {
    SetBkColor(context, colour);
    ExtTextOutW(context, 0, 0, ETO_OPAQUE, &rectangle, nullptr, 0, nullptr);
}

void Bar::FillHot(HDC context, const RECT& place, State state) {
    if (state == State::Plain) return;
    Fill(context, place, GetSysColor(COLOR_HIGHLIGHT));
    const RECT inside{place.left + 1, place.top + 1, place.right - 1, place.bottom - 1};
    Fill(context, inside,
         Between(COLOR_HIGHLIGHT, COLOR_WINDOW, state == State::Pressed ? 55 : 75));
}

LRESULT CALLBACK Bar::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        auto* created = reinterpret_cast<CREATESTRUCTW*>(second);
        auto* self = static_cast<Bar*>(created->lpCreateParams);
        self->window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<Bar*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        return self ? self->Handle(message, first, second)
                    : DefWindowProcW(window, message, first, second);
    } catch (...) {
        return 0;
    }
}

LRESULT Bar::Handle(UINT message, WPARAM first, LPARAM second) {
    const int x = GET_X_LPARAM(second);
    const int y = GET_Y_LPARAM(second);
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            PaintAll();
            return 0;
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
            if (index < 0 || !buttons[std::size_t(index)].enabled) return 0;
            if (buttons[std::size_t(index)].opensMenu) {
                const auto call = buttons[std::size_t(index)].click;
                call();
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
            const auto call = buttons[std::size_t(index)].click;
            call();
            return 0;
        }
        default:
            return DefWindowProcW(window, message, first, second);
    }
}

void Bar::PaintAll() {
    PAINTSTRUCT paint;
    BeginPaint(window, &paint);
    RECT client;
    GetClientRect(window, &client);
    const HDC buffer = CreateCompatibleDC(paint.hdc);
    const HBITMAP bitmap =
        CreateCompatibleBitmap(paint.hdc, std::max(1L, client.right), std::max(1L, client.bottom));
    const HGDIOBJ before = SelectObject(buffer, bitmap);
    Fill(buffer, client, GetSysColor(COLOR_BTNFACE));
    const HGDIOBJ font = SelectObject(buffer, look.Font());
    Paint(buffer, client);
    Fill(buffer, {0, client.bottom - 1, client.right, client.bottom},
         Between(COLOR_BTNFACE, COLOR_BTNSHADOW, 60));
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        PaintButton(buffer, index,
                    int(index) == pressed ? State::Pressed
                    : int(index) == hot   ? State::Hot
                                          : State::Plain);
    }
    SelectObject(buffer, font);
    BitBlt(paint.hdc, 0, 0, client.right, client.bottom, buffer, 0, 0, SRCCOPY);
    SelectObject(buffer, before);
    DeleteObject(bitmap);
    DeleteDC(buffer);
    EndPaint(window, &paint);
}

int Bar::At(int x, int y) const {
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        if (PtInRect(&buttons[index].place, {x, y})) return int(index);
    }
    return -1;
}

void Bar::SetHot(int index) {
    if (hot == index) return;
    hot = index;
    InvalidateRect(window, nullptr, FALSE);
}

}  // namespace tellwick::standin
