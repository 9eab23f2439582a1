#include "outlook/Frame.h"

#include <algorithm>

#include "outlook/Com.h"
#include "outlook/RibbonBar.h"
#include "outlook/Toolbar.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

void OpenNew(OutlookModel& outlook, std::int32_t itemClass) {
    outlook.OpenInspector(std::make_shared<Item>(outlook, itemClass));
}

}  // namespace

Frame::Frame(const Look& look, std::shared_ptr<Window> model)
    : look(look), model(std::move(model)) {}

Frame::~Frame() {
    bar.reset();
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

void Frame::Create(const wchar_t* className, HMENU menu, int width, int height) {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    type.hIcon = LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_APPLICATION));
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    type.lpszClassName = className;
    RegisterClassW(&type);  // fails from the second time on
    // Each window a little off the one before, so that all of them can be seen.
    const std::size_t open =
        model->outlook.explorers->all.size() + model->outlook.inspectors->all.size();
    const bool hasRibbon = model->outlook.ribbons.Has(*model);
    if (hasRibbon) DestroyMenu(std::exchange(menu, nullptr));
    const int offset = look.Scale(26) * int(open % 8);
    CreateWindowExW(WS_EX_CONTROLPARENT, className, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                    offset, offset, look.Scale(width), look.Scale(height), nullptr, menu,
                    type.hInstance, this);
    if (hasRibbon) {
        bar = std::make_unique<RibbonBar>(look, window, model,
                                          [this](const Text& caption) { RunBuiltIn(caption); });
    } else {
        bar = std::make_unique<Toolbar>(look, window, model->commandBars,
                                        [this](const std::shared_ptr<CommandBarControl>& control) {
                                            if (control->BuiltIn()) {
                                                RunBuiltIn(ReplaceAll(control->caption, u"&", u""));
                                            } else {
                                                model->outlook.ClickButton(control);
                                            }
                                        });
    }
}

HWND Frame::AddChild(const wchar_t* className, DWORD style, DWORD extendedStyle, int identifier) {
    const HWND child = CreateWindowExW(
        extendedStyle, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window,
        reinterpret_cast<HMENU>(INT_PTR(identifier)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(look.Font()), FALSE);
    return child;
}

// Its end is Outlook's own word.
Text Frame::Title() const {
    const Text caption = model->Caption();
    const std::size_t dash = caption.rfind(u" - ");
    if (dash == Text::npos) return caption;
    return caption.substr(0, dash + 3) + look.Say(caption.substr(dash + 3));
}

void Frame::Refresh() {
    SetWindowTextW(window, Wide(Title() + u" (stand-in)"));
    // A box of an add-in may have been open while the window was to come up.
    if (!IsWindowVisible(window)) ShowWindow(window, SW_SHOW);
    const int before = bar->Height();
    bar->Refresh();
    if (bar->Height() != before) LayOutAll();
}

void Frame::Raise() {
    raising = true;
    if (!IsWindowVisible(window)) ShowWindow(window, SW_SHOW);
    if (IsIconic(window)) ShowWindow(window, SW_RESTORE);
    SetForegroundWindow(window);
    raising = false;
}

void Frame::LayOutAll() {
    if (!bar) return;
    RECT client;
    GetClientRect(window, &client);
    MoveWindow(bar->Handle(), 0, 0, client.right, bar->Height(), TRUE);
    client.top += bar->Height();
    Layout(client);
}

LRESULT CALLBACK Frame::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        auto* created = reinterpret_cast<CREATESTRUCTW*>(second);
        auto* self = static_cast<Frame*>(created->lpCreateParams);
        self->window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<Frame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        return self ? self->Handle(message, first, second)
                    : DefWindowProcW(window, message, first, second);
    } catch (...) {
        return 0;
    }
}

LRESULT Frame::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_SIZE:
            LayOutAll();
            return 0;
        case WM_SETFOCUS:
            SetFocus(focus);
            return 0;
        case WM_CTLCOLORSTATIC:
            // Text to read looks like text, not like something switched off.
            if (GetDlgCtrlID(reinterpret_cast<HWND>(second)) == ReadOnlyText) {
                return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
            }
            return DefWindowProcW(window, message, first, second);
        case WM_ACTIVATE:
            if (LOWORD(first) == WA_INACTIVE && IsChild(window, GetFocus())) focus = GetFocus();
            DefWindowProcW(window, message, first, second);
            if (LOWORD(first) != WA_INACTIVE && !raising) {
                userActivation = true;
                const std::shared_ptr<Window> activated = model;
                activated->outlook.Activate(activated);
            }
            return 0;
        case WM_CLOSE:
            Close();
            return 0;
        case WM_COMMAND:
            Command(LOWORD(first), HIWORD(first));
            return 0;
        case WM_NOTIFY:
            return Notify(*reinterpret_cast<const NMHDR*>(second));
        default:
            if (message >= WM_APP && message < WM_APP + 16) {
                OwnMessage(message);
                return 0;
            }
            return DefWindowProcW(window, message, first, second);
    }
}

void Frame::RunBuiltIn(const Text& caption) {
    OutlookModel& outlook = model->outlook;
    const std::shared_ptr<Item> item = CurrentItem();
    if (caption == u"Reply") {
        outlook.PressReply(item);
    } else if (caption == u"Delete" && item) {
        outlook.DeleteItem(item);
    } else if (caption == u"Mail Message" || caption == u"New E-mail") {
        OpenNew(outlook, tellwick::outlook::MailClass);
    } else if (caption == u"Appointment" || caption == u"New Appointment") {
        OpenNew(outlook, tellwick::outlook::AppointmentClass);
    } else if (caption == u"Contact" || caption == u"New Contact") {
        OpenNew(outlook, tellwick::outlook::ContactClass);
    }
}

}  // namespace tellwick::standin
