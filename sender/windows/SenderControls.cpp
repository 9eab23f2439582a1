#include "windows/SenderControls.h"

#include <algorithm>
#include <array>

#include "spool/SenderTexts.h"

namespace tellwick::sender {

namespace {

// In dialog units.
constexpr int Margin = 6;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;
constexpr int LeastHeight = 130;
constexpr int FirstWidth = 600;
constexpr int FirstHeight = 230;
constexpr int ProgressWidth = 120;

constexpr std::size_t ManyAtOnce = 5;

using Controls = SenderControls;
constexpr std::array<std::pair<Controls::Identifier, TextView>, 5> Buttons{
    {{Controls::CheckOn, u"CheckOn"},
     {Controls::ButtonAgain, u"ButtonAgain"},
     {Controls::ButtonDelete, u"ButtonDelete"},
     {Controls::ButtonSettings, u"ButtonSettings"},
     {Controls::ButtonPin, u"ButtonPin"}}};

Text WindowText(HWND window) {
    Text text(std::size_t(GetWindowTextLengthW(window)), u'\0');
    GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()), int(text.size()) + 1);
    return text;
}

}  // namespace

HWND SenderControls::Make(const wchar_t* className, TextView text, DWORD style,
                          int identifier) const {
    return CreateWindowExW(className[0] == L'E' ? WS_EX_CLIENTEDGE : 0, className,
                           windows::Wide(Text(text)), WS_CHILD | style, 0, 0, 0, 0, window,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)),
                           GetModuleHandleW(nullptr), nullptr);
}

bool SenderControls::Create(HWND newWindow) {
    window = newWindow;
    const INITCOMMONCONTROLSEX common{sizeof common, ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&common);
    for (const auto& [identifier, name] : Buttons) {
        const DWORD style = identifier == CheckOn ? BS_AUTOCHECKBOX : BS_PUSHBUTTON;
        const DWORD visible = identifier == ButtonPin ? 0 : WS_VISIBLE;
        if (!Make(L"BUTTON", SenderText(language, name), WS_TABSTOP | visible | style, identifier))
            return false;
    }
    labelSearch = Make(L"STATIC", SenderText(language, u"LabelSearch"), WS_VISIBLE | SS_LEFT, -1);
    Make(L"EDIT", {}, WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, TextSearch);
    // Not to be seen: the name of the list for those who hear it.
    Make(L"STATIC", u"SMS", SS_LEFT, -1);
    listWindow = list.Create(window, List);
    status = Make(L"STATIC", {}, WS_VISIBLE | SS_NOPREFIX | SS_ENDELLIPSIS, -1);
    progress = Make(PROGRESS_CLASSW, {}, PBS_SMOOTH, -1);
    if (!Window(TextSearch) || !listWindow || !status || !progress) return false;
    SetResolution(windows::ResolutionOf(window));
    return true;
}

void SenderControls::SetResolution(int resolution) {
    // The controls let the old font go first.
    const auto old = std::exchange(font, std::make_unique<windows::MessageFont>(resolution));
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (child != listWindow) {
            SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font->Get()), TRUE);
        }
    }
    list.SetFont(*font);
}

void SenderControls::ChangeResolution(int resolution, const RECT& suggested) {
    SetResolution(resolution);
    SetWindowPos(window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    Arrange();
}

void SenderControls::Limit(MINMAXINFO& limits) const {
    if (!Made()) return;
    const SIZE least = Least();
    limits.ptMinTrackSize = {least.cx, least.cy};
}

int SenderControls::ButtonWidth(Identifier identifier) const {
    const int box = identifier == CheckOn ? font->Metrics().Vertical(ButtonHeight) : 0;
    return font->CaptionWidth(WindowText(Window(identifier))) + box;
}

SIZE SenderControls::Least() const {
    const windows::FontMetrics& metrics = font->Metrics();
    int width = 2 * metrics.Horizontal(Margin);
    for (const auto& button : Buttons) {
        width += ButtonWidth(button.first) + metrics.Horizontal(Gap);
    }
    return windows::SizeAround(window, {width, metrics.Vertical(LeastHeight)});
}

SIZE SenderControls::First() const {
    const SIZE least = Least();
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    const auto fit = [](int wanted, LONG smallest, LONG room) {
        return std::max(smallest, std::min(LONG(wanted), room));
    };
    return {fit(font->Metrics().Horizontal(FirstWidth), least.cx, screen.right - screen.left),
            fit(font->Metrics().Vertical(FirstHeight), least.cy, screen.bottom - screen.top)};
}

void SenderControls::Arrange() {
    if (!font) return;
    RECT client;
    GetClientRect(window, &client);
    const windows::FontMetrics& metrics = font->Metrics();
    const int margin = metrics.Horizontal(Margin);
    const int gap = metrics.Horizontal(Gap);
    const int height = metrics.Vertical(ButtonHeight);
    const int width = int(client.right) - 2 * margin;
    int left = margin;
    for (const auto& button : Buttons) {
        const int own = ButtonWidth(button.first);
        MoveWindow(Window(button.first), left, margin, own, height, TRUE);
        left += own + gap;
    }
    int top = margin + height + gap;
    const int label = font->CaptionWidth(WindowText(labelSearch));
    const int fieldHeight = metrics.lineHeight + 2 * (GetSystemMetrics(SM_CYEDGE) + 1);
    MoveWindow(labelSearch, margin, top + (fieldHeight - metrics.lineHeight) / 2, label,
               metrics.lineHeight, TRUE);
    MoveWindow(Window(TextSearch), margin + label, top, std::max(0, width - label), fieldHeight,
               TRUE);
    top += fieldHeight + gap;
    const int bottom = int(client.bottom) - margin - metrics.lineHeight;
    MoveWindow(listWindow, margin, top, width, std::max(0, bottom - gap - top), TRUE);
    const int bar = total >= ManyAtOnce ? metrics.Horizontal(ProgressWidth) : 0;
    MoveWindow(status, margin, bottom, std::max(0, width - bar - gap), metrics.lineHeight, TRUE);
    MoveWindow(progress, margin + width - bar, bottom, bar, metrics.lineHeight, TRUE);
}

void SenderControls::Enable(Identifier identifier, bool enabled) const {
    const HWND control = Window(identifier);
    // The keys would go nowhere.
    if (!enabled && GetFocus() == control) SetFocus(listWindow);
    EnableWindow(control, enabled);
}

void SenderControls::ShowPinButton(bool show) {
    const HWND button = Window(ButtonPin);
    if (!show && GetFocus() == button) SetFocus(listWindow);
    ShowWindow(button, show ? SW_SHOWNA : SW_HIDE);
    // The system listens to the mnemonic of a hidden button, too.
    EnableWindow(button, show);
}

void SenderControls::SetStatus(TextView text) {
    if (text == shownStatus) return;
    shownStatus = text;
    SetWindowTextW(status, windows::Wide(shownStatus));
}

Text SenderControls::SearchedFor() const {
    return WindowText(Window(TextSearch));
}

void SenderControls::ShowProgress(std::size_t waiting) {
    const bool before = total >= ManyAtOnce;
    if (waiting > lastWaiting) total += waiting - lastWaiting;
    if (waiting == 0) total = 0;
    lastWaiting = waiting;
    const bool many = total >= ManyAtOnce;
    if (many) {
        SendMessageW(progress, PBM_SETRANGE32, 0, LPARAM(total));
        SendMessageW(progress, PBM_SETPOS, total - waiting, 0);
    }
    ShowWindow(progress, many ? SW_SHOWNA : SW_HIDE);
    if (before != many) Arrange();
}

}  // namespace tellwick::sender
