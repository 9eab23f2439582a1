#include "windows/FormControls.h"

#include <commctrl.h>

#include <algorithm>

#include "windows/Server.h"
#include "windows/VisualStyles.h"

namespace tellwick::windows {

void FormControls::Make(HWND newWindow, const std::vector<ControlPlan>& newPlan,
                        const MessageFont& newFont) {
    window = newWindow;
    plan = newPlan;
    font = &newFont;
    for (std::size_t index = 0; index < plan.size(); ++index) {
        const ControlPlan& part = plan[index];
        if (part.shown == ControlPlan::Always) {
            MakeControl(part);
            continue;
        }
        part.control->AttachLater([this, index] { MakeLater(index); });
        if (part.label.control) {
            part.label.control->AttachLater([control = part.control] { control->Need(); });
        }
    }
}

void FormControls::Detach() {
    for (const ControlPlan& part : plan) {
        if (part.label.control) part.label.control->Detach();
        part.control->Detach();
    }
    window = toolTips = nullptr;
}

void FormControls::SetFont(const MessageFont& newFont) {
    font = &newFont;
    for (const ControlPlan& part : plan) {
        if (!part.control->Window()) continue;
        SendMessageW(part.control->Window(), WM_SETFONT, reinterpret_cast<WPARAM>(font->Get()),
                     FALSE);
    }
}

// Cheaper than to have the tool tips listen at every control.
void FormControls::RelayMouse(const MSG& message) {
    if (!toolTips) MakeToolTips();
    SendMessageW(toolTips, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

void FormControls::Visit(const std::function<void(TextView, Control&)>& visit) const {
    for (const ControlPlan& part : plan) {
        if (part.label.control) visit(part.label.name, *part.label.control);
        visit(part.name, *part.control);
    }
}

void FormControls::MakeControl(const ControlPlan& part) {
    // A label in front of the first control of a group begins the group.
    if (part.label.control) MakeWindow(*part.label.control, L"STATIC", part.style & WS_GROUP, 0);
    const DWORD visible = part.shown == ControlPlan::Always ? WS_VISIBLE : 0;
    MakeWindow(*part.control, part.windowClass, visible | part.style, part.extendedStyle);
}

void FormControls::MakeWindow(WindowControl& control, const wchar_t* windowClass, DWORD style,
                              DWORD extendedStyle) {
    const HWND made = CreateWindowExW(extendedStyle, windowClass, nullptr, WS_CHILD | style, 0, 0,
                                      0, 0, window, nullptr, Library(), nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font->Get()), FALSE);
    control.Attach(made, toolTips);
}

// Label and control take the places in the tabulator key's order that they would have had from the
// start.
void FormControls::MakeLater(std::size_t index) {
    const VisualStyles styles;
    const ControlPlan& part = plan[index];
    MakeControl(part);
    HWND before = HWND_TOP;
    for (std::size_t earlier = 0; earlier < index; ++earlier) {
        if (const HWND made = plan[earlier].control->Window()) before = made;
    }
    for (const WindowControl* control : {part.label.control, part.control}) {
        if (!control) continue;
        SetWindowPos(control->Window(), before, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        before = control->Window();
    }
}

void FormControls::MakeToolTips() {
    const VisualStyles styles;
    toolTips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0,
                               0, 0, 0, window, nullptr, Library(), nullptr);
    for (const ControlPlan& part : plan) part.control->AttachToolTips(toolTips);
}

namespace {

// What a group box frames is its form's to paint, and the system leaves the old frame there.
void EraseFrame(HWND control, const RECT& next) {
    if ((GetWindowLongW(control, GWL_EXSTYLE) & WS_EX_TRANSPARENT) == 0) return;
    const HWND form = GetParent(control);
    RECT before{};
    GetWindowRect(control, &before);
    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&before), 2);
    if (EqualRect(&before, &next)) return;
    InvalidateRect(form, &before, TRUE);
    InvalidateRect(control, nullptr, FALSE);
}

}  // namespace

Placement::Placement() : positions(BeginDeferWindowPos(40)) {}

Placement::~Placement() {
    if (positions) EndDeferWindowPos(positions);
}

void Placement::Move(const WindowControl& control, int x, int y, int width, int height) {
    if (!positions || !control.Window()) return;
    EraseFrame(control.Window(), {x, y, x + width, y + height});
    positions = DeferWindowPos(positions, control.Window(), nullptr, x, y, std::max(width, 0),
                               std::max(height, 0), SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tellwick::windows
