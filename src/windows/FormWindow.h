// A top-level window with controls inside another program's message loop.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "windows/Com.h"
#include "windows/FormControls.h"
#include "windows/FormPlacement.h"
#include "windows/MessageFont.h"
#include "windows/OpenForm.h"

#include "platform/Forms.h"

namespace tellwick::windows {

class FormWindow {
public:
    FormWindow() = default;
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    virtual ~FormWindow();

    HWND Window() const { return window; }
    // The active window of this thread, for dialogs to belong to; null when none is.
    static HWND ActiveWindow();

protected:
    // Makes the window, not yet visible, with its controls; nothing when it exists. With an
    // owner it is a dialog: of a fixed size and above its owner, which takes no input from the
    // first showing until the window is destroyed. False when the system refuses.
    bool Create(const std::vector<ControlPlan>& plan, HWND owner = nullptr);
    // Hides the window and lets it go: the system takes it apart afterwards.
    void Destroy();
    // The first time at its place: the wanted one where a screen still is there, else over the
    // window it was called from; never below its least size.
    void ShowWindowed();
    FormPlace WindowPlace() const { return PlaceOf(window); }
    // Wanted at the first showing.
    void SetWindowPlace(const FormPlace& place, bool positioned);
    // Makes the window higher, as far as the screen has room, or lower; how much it became.
    int Grow(int height) { return GrowWindow(window, height); }
    void SetWindowCaption(TextView caption);
    void VisitControls(const std::function<void(TextView, Control&)>& visit);
    const MessageFont& Font() const { return *font; }
    // Whether it has its place: from its first showing on.
    bool Placed() const { return placed; }
    // Enter pushes it wherever nothing else takes that key. A push button that has the style
    // BS_NOTIFY takes its place while it has the focus.
    void SetDefaultButton(const WindowControl& button);

    // Sizes that a derived window lays its controls out by.
    virtual SIZE LeastClient() const = 0;
    // Of the first showing, where none is wanted.
    virtual SIZE UsualClient() const;

    // Handlers of the derived window. Keys come before any control sees them; true uses them up.
    virtual void OnActivate() {}
    // Also when the system is about to end.
    virtual void OnDeactivate() {}
    virtual void OnClose() = 0;
    virtual void OnSize() = 0;
    // The resolution has changed: Font() is the new one, OnSize follows.
    virtual void OnResolution() {}
    virtual bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) = 0;
    virtual bool OnCharacter(char16_t) { return false; }
    virtual bool OnDoubleClick(HWND) { return false; }
    // `identifier` tells the buttons of a toolbar apart.
    virtual void OnCommand(HWND control, WORD notification, WORD identifier) = 0;
    // The answer goes back to the control.
    virtual LRESULT OnNotify(const NMHDR&) { return 0; }
    // A list is being drawn: its rows must not be changed now.
    virtual void OnListDrawn(HWND) {}

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    bool HandleInput(MSG& message);
    void Furnish(const std::vector<ControlPlan>& plan);
    void PlaceFirst();
    void LoadIcons();
    void ChangeResolution(int resolution, const RECT& suggested);

    HWND window = nullptr;
    HWND lastFocus = nullptr;
    HWND caller = nullptr;
    HWND defaultButton = nullptr;
    IconHandle smallIcon;  // kept for the next time that the form opens
    IconHandle bigIcon;
    int iconResolution = 0;
    FormPlace wanted;
    bool positioned = false;
    bool placed = false;
    FormControls controls;
    std::unique_ptr<MessageFont> font;
    std::unique_ptr<OpenForm> open;  // while the window exists
};

// A form's view over its window: what all of them have in common. View is the port of one of them.
template <class View>
class FormViewWindow : public View, public FormWindow {
public:
    bool Loaded() const override { return FormWindow::Window() != nullptr; }
    void Show() override { ShowWindowed(); }
    void Unload() override { Destroy(); }
    FormPlace Place() const override { return WindowPlace(); }
    void SetPlace(const FormPlace& place, bool positioned) override {
        SetWindowPlace(place, positioned);
    }
    void SetCaption(TextView caption) override { SetWindowCaption(caption); }
    void ForEachControl(const std::function<void(TextView, Control&)>& visit) override {
        VisitControls(visit);
    }
};

}  // namespace tellwick::windows
