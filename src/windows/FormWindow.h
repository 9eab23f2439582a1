// A top-level window with controls inside another program's message loop.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "windows/Com.h"
#include "windows/Lifetime.h"
#include "windows/WindowControls.h"

#include "platform/Forms.h"

namespace tellwick::windows {

// Sizes in pixels that follow the user's font.
struct FontMetrics {
    int lineHeight = 0;
    int averageWidth = 0;
    int Horizontal(int dialogUnits) const { return dialogUnits * averageWidth / 4; }
    int Vertical(int dialogUnits) const { return dialogUnits * lineHeight / 8; }
};

// The user's font for messages, for the life of the object, with its sizes.
class MessageFont {
public:
    MessageFont();
    HFONT Get() const { return static_cast<HFONT>(font.get()); }
    const FontMetrics& Metrics() const { return metrics; }
    // Size of a text, mnemonic marks left out; `width` above 0 wraps it.
    SIZE Measure(TextView text, int width = 0) const;

private:
    GdiObject font;
    FontMetrics metrics;
};

// What a control of a form is made of. Its caption comes from the language.
struct ControlPlan {
    TextView name;
    WindowControl* control;
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle;
    bool visible = true;
};

class FormWindow {
public:
    explicit FormWindow(SIZE leastDialogUnits);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    virtual ~FormWindow();

    HWND Window() const { return window; }
    // The active window of this thread, for dialogs to belong to; null when none is.
    static HWND ActiveWindow();

protected:
    bool Create(const std::vector<ControlPlan>& plan);
    void Destroy();
    void ShowWindowed();
    FormPlace WindowPlace() const;
    void SetWindowPlace(const FormPlace& place);
    void SetWindowCaption(TextView caption);
    void VisitControls(const std::function<void(TextView, Control&)>& visit);
    const MessageFont& Font() const { return *font; }
    // Width that a button or check box needs for its caption.
    int CaptionWidth(const WindowControl& control) const;
    static void Move(const WindowControl& control, int x, int y, int width, int height);

    // Handlers of the derived window. Keys come before any control sees them; true uses them up.
    virtual void OnActivate() = 0;
    virtual void OnClose() = 0;
    virtual void OnSize() = 0;
    virtual bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) = 0;
    virtual bool OnCharacter(char16_t) { return false; }
    virtual bool OnDoubleClick(HWND) { return false; }
    virtual void OnCommand(HWND control, WORD notification) = 0;

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM first, LPARAM second);
    static LRESULT CALLBACK MessageHook(int code, WPARAM removal, LPARAM message);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    bool HandleInput(MSG& message);
    bool MoveFocus(bool backwards);

    const SIZE leastDialogUnits;
    HWND window = nullptr;
    HWND lastFocus = nullptr;
    std::vector<ControlPlan> controls;
    std::unique_ptr<MessageFont> font;
    std::unique_ptr<Lifetime> lifetime;  // while the window exists
};

}  // namespace tellwick::windows
