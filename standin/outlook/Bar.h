// The strip of buttons below a window's title: painted without flicker, with buttons that show
// where the mouse is. What stands in it is the matter of derived bars.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "outlook/Look.h"

namespace tellwick::standin {

class Bar {
public:
    virtual ~Bar();
    Bar(const Bar&) = delete;
    Bar& operator=(const Bar&) = delete;

    HWND Handle() const { return window; }
    // Height in pixels.
    int Height() const { return height; }
    // Places the buttons anew, as the model has them now.
    void Refresh();
    // Where a button is on the screen, by its caption. False when it is not shown.
    bool Find(TextView caption, RECT& rectangle) const;

protected:
    struct Button {
        RECT place;
        Text caption;
        bool enabled = true;
        bool opensMenu = false;       // done when pressed, not when let go
        std::function<void()> click;  // may close the window
        Text tip;
    };
    enum class State { Plain, Hot, Pressed };

    Bar(const Look& look, HWND parent, const wchar_t* className);

    // Fills `buttons`; the height that they need.
    virtual int Place() = 0;
    virtual void Paint(HDC context, const RECT& client) = 0;
    virtual void PaintButton(HDC context, std::size_t index, State state) = 0;

    static COLORREF Between(int first, int second, int percent);
    static void Fill(HDC context, const RECT& rectangle, COLORREF colour);
    // The background of a button that the mouse is over.
    static void FillHot(HDC context, const RECT& place, State state);

    const Look& look;
    HWND window = nullptr;
    std::vector<Button> buttons;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    void PaintAll();
    void ShowTips();
    // Index of the button at a point, or -1.
    int At(int x, int y) const;
    void SetHot(int index);

    HWND tips = nullptr;
    UINT_PTR tipCount = 0;
    int height = 0;
    int hot = -1;
    int pressed = -1;
};

}  // namespace tellwick::standin
