#include "windows/WindowControls.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/Meanwhile.h"

namespace tellwick::windows {

namespace {

// The text of a list item: its length comes from one message, its units from another.
template <class Sender>
Text ItemText(const Sender& send, UINT lengthMessage, UINT textMessage, std::int32_t index) {
    const LRESULT length = send(lengthMessage, WPARAM(index), 0);
    if (length <= 0) return {};
    Text text(std::size_t(length), u'\0');
    send(textMessage, WPARAM(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

}  // namespace

void WindowControl::Attach(HWND newWindow, HWND newToolTips) {
    const bool waited = std::exchange(makeWindow, nullptr) != nullptr;
    window = newWindow;
    if (!waitingCaption.empty()) SetCaption(std::exchange(waitingCaption, {}));
    enabled = enabled || !waited;
    if (waited) SetEnabled(enabled);
    AttachToolTips(newToolTips);
}

void WindowControl::AttachToolTips(HWND newToolTips) {
    toolTips = newToolTips;
    if (!toolTip.empty()) ShowToolTip();
}

void WindowControl::AttachLater(std::function<void()> make) {
    makeWindow = std::move(make);
    enabled = true;
}

bool WindowControl::Need() {
    // A copy: what is attached lets go of the original.
    if (const auto make = makeWindow) make();
    return window != nullptr;
}

void WindowControl::Detach() {
    window = toolTips = nullptr;
    makeWindow = nullptr;
    enabled = deaf = false;
    waitingCaption.clear();
    toolTip.clear();
}

void WindowControl::SetCaption(TextView caption) {
    if (makeWindow) waitingCaption = caption;
    SetWindowTextTo(caption);
}

void WindowControl::SetEnabled(bool newEnabled) {
    enabled = newEnabled;
    if (window) EnableWindow(window, enabled && Visible());
}

bool WindowControl::Visible() const {
    return window && (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

void WindowControl::SetVisible(bool visible) {
    if (visible) Need();
    if (!window || (visible && Visible())) return;
    if (visible) {
        // All of it is drawn in a later turn of the message loop. ShowWindow would draw frame and
        // scroll bar at once, for a list within the key that opens it.
        SetWindowPos(window, nullptr, 0, 0, 0, 0,
                     SWP_SHOWWINDOW | SWP_NOREDRAW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER |
                         SWP_NOACTIVATE);
        RedrawWindow(window, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    } else {
        ShowWindow(window, SW_HIDE);
    }
    HearMnemonic(visible);
}

// The system listens to the mnemonics of hidden controls, too: to that of a button unless it is
// disabled, to that of a label unless it has none.
void WindowControl::HearMnemonic(bool hears) {
    EnableWindow(window, enabled && hears);
    wchar_t name[8] = L"";
    GetClassNameW(window, name, 8);
    const LONG style = GetWindowLongW(window, GWL_STYLE);
    if (lstrcmpiW(name, WC_STATICW) != 0 || (!deaf && (style & SS_NOPREFIX))) return;
    deaf = !hears;
    SetWindowLongW(window, GWL_STYLE, deaf ? style | SS_NOPREFIX : style & ~SS_NOPREFIX);
}

void WindowControl::SetFocus() {
    if (Need()) ::SetFocus(window);
}

bool WindowControl::HasFocus() const {
    return window && GetFocus() == window;
}

void WindowControl::SetToolTip(TextView text) {
    if (!window && !makeWindow) return;
    toolTip = text;
    ShowToolTip();
}

void WindowControl::ShowToolTip() {
    if (!window || !toolTips) return;
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = GetParent(window);
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = const_cast<wchar_t*>(Wide(toolTip));
    SendMessageW(toolTips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!toolTip.empty()) SendMessageW(toolTips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

Text WindowControl::WindowText() const {
    const int length = window ? GetWindowTextLengthW(window) : 0;
    if (length <= 0) return {};
    Text text(std::size_t(length) + 1, u'\0');
    text.resize(
        std::size_t(GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()), length + 1)));
    return text;
}

void WindowControl::SetWindowTextTo(TextView text) {
    // The system's windows end their text at a NUL; nothing behind one may get lost.
    Text shown(text);
    std::replace(shown.begin(), shown.end(), u'\0', u' ');
    if (window) SetWindowTextW(window, Wide(shown));
}

void WindowLabel::Announce(TextView text) {
    if (!Window() || WindowText() == text) return;
    SetWindowTextTo(text);
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, Window(), OBJID_CLIENT, CHILDID_SELF);
}

LRESULT WindowControl::Send(UINT message, WPARAM first, LPARAM second) const {
    return window ? SendMessageW(window, message, first, second) : 0;
}

LRESULT WindowControl::SendText(UINT message, WPARAM first, TextView text) const {
    return Send(message, first, reinterpret_cast<LPARAM>(Wide(Text(text))));
}

void WindowTextBox::Changed() {
    if (!setting && onChange) onChange();
}

void WindowTextBox::SetText(TextView text) {
    if (!text.empty()) Need();
    if (!Window() || WindowText() == text) return;
    {
        const Meanwhile quietly(setting, true);
        SetWindowTextTo(text);
        Select(0, 0);
    }
    Changed();
}

std::int32_t WindowTextBox::SelectionStart() const {
    DWORD start = 0;
    if (Edit()) SendMessageW(Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    return std::int32_t(start);
}

std::int32_t WindowTextBox::SelectionLength() const {
    DWORD start = 0;
    DWORD end = 0;
    if (Edit()) {
        SendMessageW(Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
    }
    return std::int32_t(end - start);
}

void WindowTextBox::Select(std::int32_t start, std::int32_t length) {
    if (!Edit()) return;
    const std::int32_t end = GetWindowTextLengthW(Edit());
    const std::int32_t first = std::clamp(start, 0, end);
    const std::int32_t last = first + std::clamp(length, 0, end - first);
    SendMessageW(Edit(), EM_SETSEL, WPARAM(first), LPARAM(last));
    SendMessageW(Edit(), EM_SCROLLCARET, 0, 0);
}

void WindowTextBox::ReplaceSelection(TextView text) {
    Text shown(text);
    std::replace(shown.begin(), shown.end(), u'\0', u' ');
    if (Edit()) {
        SendMessageW(Edit(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(shown)));
    }
}

void WindowTextBox::Undo() {
    if (Edit()) SendMessageW(Edit(), EM_UNDO, 0, 0);
}

std::int32_t WindowListBox::Count() const {
    return std::max(std::int32_t(Send(LB_GETCOUNT)), 0);
}

Text WindowListBox::Item(std::int32_t index) const {
    return ItemText(
        [this](UINT message, WPARAM first, LPARAM second) { return Send(message, first, second); },
        LB_GETTEXTLEN, LB_GETTEXT, index);
}

void WindowListBox::SetItems(const std::vector<Text>& items) {
    if (!items.empty()) Need();
    WithoutDrawing([&] {
        Clear();
        for (const Text& item : items) Add(item);
    });
}

void WindowListBox::AddItems(const std::vector<Text>& items) {
    WithoutDrawing([&] {
        for (const Text& item : items) Add(item);
    });
}

// The system would measure and draw the list again for each item, and take its scroll bar away from
// one that is empty for a moment.
template <class Changes>
void WindowListBox::WithoutDrawing(const Changes& changes) {
    Send(WM_SETREDRAW, FALSE);
    changes();
    Send(WM_SETREDRAW, TRUE);
    if (Window()) InvalidateRect(Window(), nullptr, TRUE);
}

std::int32_t WindowListBox::LastVisibleIndex() const {
    if (!Window()) return -1;
    RECT client{};
    GetClientRect(Window(), &client);
    const LRESULT height = std::max<LRESULT>(Send(LB_GETITEMHEIGHT), 1);
    return std::int32_t(Send(LB_GETTOPINDEX) + client.bottom / height);
}

std::int32_t WindowListBox::SelectedIndex() const {
    return Window() ? std::int32_t(Send(LB_GETCURSEL)) : -1;
}

void WindowComboBox::Clear() {
    // The system empties the edit field too.
    const Text text = WindowText();
    Send(CB_RESETCONTENT);
    SetWindowTextTo(text);
}

std::int32_t WindowComboBox::Count() const {
    return std::max(std::int32_t(Send(CB_GETCOUNT)), 0);
}

Text WindowComboBox::Item(std::int32_t index) const {
    return ItemText(
        [this](UINT message, WPARAM first, LPARAM second) { return Send(message, first, second); },
        CB_GETLBTEXTLEN, CB_GETLBTEXT, index);
}

std::int32_t WindowComboBox::SelectedIndex() const {
    return Window() ? std::int32_t(Send(CB_GETCURSEL)) : -1;
}

HWND WindowComboBox::Edit() const {
    return Window() ? FindWindowExW(Window(), nullptr, L"Edit", nullptr) : nullptr;
}

bool WindowComboBox::HasFocus() const {
    const HWND focus = GetFocus();
    return Window() && (focus == Window() || IsChild(Window(), focus));
}

void WindowStatusBar::Arrange() {
    Send(WM_SIZE);
    ArrangePane();
    // The size grip has moved.
    if (Window()) InvalidateRect(Window(), nullptr, TRUE);
}

void WindowStatusBar::SetText(TextView text) {
    Announce(text);
    ArrangePane();
}

void WindowStatusBar::SetPane(TextView text, TextView shortText) {
    pane = text;
    shortPane = shortText;
    ArrangePane();
}

bool WindowStatusBar::OnPane(const NMHDR& notification) const {
    return !pane.empty() && reinterpret_cast<const NMMOUSE&>(notification).dwItemSpec == 1;
}

void WindowStatusBar::ArrangePane() {
    if (!Window()) return;
    RECT client{};
    GetClientRect(Window(), &client);
    const auto [left, whole, least] = Widths();
    const bool room = left + whole <= client.right;
    const Text& shown = room ? pane : shortPane;
    const bool two = !shown.empty();
    const int edge = two ? std::max(int(client.right) - (room ? whole : least), 0) : -1;
    int edgeNow = -1;
    const LRESULT parts = Send(SB_GETPARTS, 1, reinterpret_cast<LPARAM>(&edgeNow));
    if (parts != (two ? 2 : 1) || edgeNow != edge) MovePane(edge, client);
    if (!two) return;
    Text before(LOWORD(Send(SB_GETTEXTLENGTHW, 1)), u'\0');
    Send(SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(before.data()));
    if (before == shown) return;
    SendText(SB_SETTEXTW, 1, shown);
    constexpr LONG PaneChild = 2;  // children count from 1
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, Window(), OBJID_CLIENT, PaneChild);
}

// Those that the bar's own text, the pane and the short pane need.
std::array<int, 3> WindowStatusBar::Widths() const {
    constexpr int Step = 16;  // so that the pane does not move with every digit
    const int around = 2 * GetSystemMetrics(SM_CXEDGE) + Step / 2;
    const int grip = GetSystemMetrics(SM_CXVSCROLL);
    const HDC context = GetDC(Window());
    const HGDIOBJ before = SelectObject(context, reinterpret_cast<HFONT>(Send(WM_GETFONT)));
    const auto widthOf = [&](const Text& text) {
        SIZE size{};
        GetTextExtentPoint32W(context, Wide(text), int(text.size()), &size);
        return int(size.cx) + around;
    };
    const auto stepped = [&](int width) { return (width + grip + Step - 1) / Step * Step; };
    const std::array<int, 3> widths = {widthOf(WindowText()), stepped(widthOf(pane)),
                                       stepped(widthOf(shortPane))};
    SelectObject(context, before);
    ReleaseDC(Window(), context);
    return widths;
}

void WindowStatusBar::MovePane(int edge, const RECT& client) {
    const bool two = edge >= 0;
    const int edges[] = {edge, -1};
    Send(SB_SETPARTS, two ? 2 : 1, reinterpret_cast<LPARAM>(edges));
    MoveToolTip(edge, client);
}

void WindowStatusBar::AttachToolTips(HWND newToolTips) {
    WindowLabel::AttachToolTips(newToolTips);
    RECT client{};
    GetClientRect(Window(), &client);
    int edge = -1;
    Send(SB_GETPARTS, 1, reinterpret_cast<LPARAM>(&edge));
    MoveToolTip(edge, client);
}

void WindowStatusBar::MoveToolTip(int edge, const RECT& client) {
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = Window();
    SendMessageW(ToolTips(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (edge < 0) return;
    tool.rect = {edge, 0, client.right, client.bottom};
    tool.lpszText = const_cast<wchar_t*>(Wide(paneTip));
    SendMessageW(ToolTips(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void WindowProgressBar::SetValue(std::int32_t percent) {
    Send(PBM_SETPOS, WPARAM(std::clamp(percent, 0, 100)));
}

}  // namespace tellwick::windows
