// The set of controls in one form's window.
#pragma once

#include <functional>
#include <vector>

#include "windows/MessageFont.h"
#include "windows/WindowControls.h"

namespace tellwick::windows {

// What a control of a form is made of. Its caption comes from the language.
struct ControlPlan {
    TextView name;
    WindowControl* control;
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle;
    // A label that nobody sees tells screen readers what the control is called. It is made right
    // before its control, where they look for it.
    struct HiddenLabel {
        TextView name;
        WindowControl* control = nullptr;
    } label = {};
    // One that is shown later has no window until it is needed.
    enum { Always, Later } shown = Always;
};

class FormControls {
public:
    // Makes those of a plan in a window, or sees to it that they are made when they are needed.
    void Make(HWND newWindow, const std::vector<ControlPlan>& newPlan, const MessageFont& newFont);
    // The window goes.
    void Detach();
    // The controls have gone.
    void Forget() { plan.clear(); }
    void SetFont(const MessageFont& newFont);
    // The mouse has done something in the window: there must be tool tips from now on.
    void RelayMouse(const MSG& message);
    void Visit(const std::function<void(TextView, Control&)>& visit) const;

private:
    void MakeControl(const ControlPlan& part);
    void MakeWindow(WindowControl& control, const wchar_t* windowClass, DWORD style,
                    DWORD extendedStyle);
    void MakeLater(std::size_t index);
    void MakeToolTips();

    HWND window = nullptr;
    HWND toolTips = nullptr;  // made when the mouse first moves over the form
    const MessageFont* font = nullptr;
    std::vector<ControlPlan> plan;
};

// Moves controls together, so that the window is painted once.
class Placement {
public:
    Placement();
    Placement(const Placement&) = delete;
    Placement& operator=(const Placement&) = delete;
    ~Placement();
    // Sizes below 0 count as 0.
    void Move(const WindowControl& control, int x, int y, int width, int height);

private:
    HDWP positions;
};

}  // namespace tellwick::windows
