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
        // A label that is never seen goes with the control behind it.
        const bool label = part.shown == ControlPlan::Never;
        if (plan[index + label].shown == ControlPlan::Later) {
            part.control->AttachLater([this, index] { MakeLater(index); });
        } else {
            MakeControl(part);
        }
    }
}

void FormControls::Detach() {
    for (const ControlPlan& part : plan) part.control->Detach();
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
    for (const ControlPlan& part : plan) visit(part.name, *part.control);
}

void FormControls::MakeControl(const ControlPlan& part) {
    const DWORD visible = part.shown == ControlPlan::Always ? WS_VISIBLE : 0;
    const HWND control = CreateWindowExW(part.extendedStyle, part.windowClass, nullptr,
                                         WS_CHILD | visible | part.style, 0, 0, 0, 0, window,
                                         nullptr, Library(), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font->Get()), FALSE);
    part.control->Attach(control, toolTips);
}

// Its label comes first; both take the places in the tabulator key's order that they would have had
// from the start.
void FormControls::MakeLater(std::size_t index) {
    if (index > 0 && plan[index - 1].shown == ControlPlan::Never) plan[index - 1].control->Need();
    const VisualStyles styles;
    MakeControl(plan[index]);
    HWND before = HWND_TOP;
    for (std::size_t earlier = 0; earlier < index; ++earlier) {
        if (const HWND made = plan[earlier].control->Window()) before = made;
    }
    SetWindowPos(plan[index].control->Window(), before, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void FormControls::MakeToolTips() {
    const VisualStyles styles;
    toolTips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0,
                               0, 0, 0, window, nullptr, Library(), nullptr);
    for (const ControlPlan& part : plan) part.control->AttachToolTips(toolTips);
}

Placement::Placement() : positions(BeginDeferWindowPos(40)) {}

Placement::~Placement() {
    if (positions) EndDeferWindowPos(positions);
}

void Placement::Move(const WindowControl& control, int x, int y, int width, int height) {
    if (!positions || !control.Window()) return;
    positions = DeferWindowPos(positions, control.Window(), nullptr, x, y, std::max(width, 0),
                               std::max(height, 0), SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tellwick::windows
