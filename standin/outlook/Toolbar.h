// A window's command bars on the screen: one row for each bar, drawn from the object model.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <vector>

#include "model/CommandBars.h"
#include "outlook/Look.h"

namespace tellwick::standin {

class Toolbar {
public:
    static constexpr wchar_t ClassName[] = L"OutlookStandInToolbar";
    using Clicked = std::function<void(const std::shared_ptr<CommandBarControl>&)>;

    Toolbar(const Look& look, HWND parent, std::shared_ptr<CommandBars> bars, Clicked clicked);
    ~Toolbar();
    Toolbar(const Toolbar&) = delete;
    Toolbar& operator=(const Toolbar&) = delete;

    HWND Handle() const { return window; }
    // Height in pixels of all rows.
    int Height() const { return height; }
    // Places the controls anew, as the model has them now.
    void Refresh();
    // Where a control's button is on the screen. False when it is not shown.
    bool Find(TextView caption, RECT& rectangle) const;

private:
    struct Button {
        std::shared_ptr<CommandBarControl> control;
        RECT place;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    void AddRow(CommandBar& bar, int& top);
    void Paint(HDC context);
    void PaintButton(HDC context, const Button& button);
    void OpenMenu(const std::shared_ptr<CommandBarPopup>& popup, const RECT& below);
    // Index of the button at a point, or -1.
    int At(int x, int y) const;
    void SetHot(int index);

    const Look& look;
    HWND window = nullptr;
    std::shared_ptr<CommandBars> bars;
    Clicked clicked;
    std::vector<Button> buttons;
    std::vector<int> rowTops;
    int height = 0;
    int hot = -1;
    int pressed = -1;
};

}  // namespace tellwick::standin
