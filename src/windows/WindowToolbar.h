// A toolbar of small pictures, each button a control of its own.
#pragma once

#include "windows/MessageFont.h"
#include "windows/WindowControls.h"

#include <commctrl.h>

#include <memory>
#include <vector>

namespace tellwick::windows {

// Checked while it is pressed in. Its caption is its tool tip and its name for screen readers. It
// takes no focus.
class WindowBarButton : public CheckBox {
public:
    WindowBarButton(const WindowControl& bar, WORD identifier) : bar(bar), identifier(identifier) {}

    bool Enabled() const override { return Send(TB_ISBUTTONENABLED) != 0; }
    void SetEnabled(bool enabled) override { Send(TB_ENABLEBUTTON, enabled); }
    bool Visible() const override { return Send(TB_ISBUTTONHIDDEN) == 0; }
    void SetVisible(bool visible) override { Send(TB_HIDEBUTTON, !visible); }
    void SetFocus() override {}
    bool HasFocus() const override { return false; }
    Text Caption() const override;
    void SetCaption(TextView caption) override;
    void SetToolTip(TextView) override {}
    bool Checked() const override { return Send(TB_ISBUTTONCHECKED) != 0; }
    void SetChecked(bool checked) override { Send(TB_CHECKBUTTON, checked); }

private:
    LRESULT Send(UINT message, LPARAM parameter = 0) const {
        return bar.Window() ? SendMessageW(bar.Window(), message, identifier, parameter) : 0;
    }

    const WindowControl& bar;
    const WORD identifier;
};

class WindowToolbar : public WindowControl {
public:
    // Window class and style for its plan.
    static constexpr const wchar_t* Class = TOOLBARCLASSNAMEW;
    static constexpr DWORD Style =
        TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_TOP | CCS_NODIVIDER;

    // Buttons with the commands 1 to `count`, their pictures the icons of the library from
    // `firstPicture` on; a separator stands behind every `group` buttons.
    WindowToolbar(int count, int firstPicture, int group);

    // Makes the buttons; after the window was made.
    void AddButtons();
    // Shows the pictures in the size that fits the font.
    void LoadPictures(const MessageFont& font);
    // The button with a command.
    WindowBarButton& Button(int command) { return buttons[std::size_t(command) - 1]; }
    // Takes the width of the form; the height it has now, in pixels.
    int Arrange();

private:
    struct ImageListDestroyer {
        using pointer = HIMAGELIST;
        void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
    };
    using ImageList = std::unique_ptr<void, ImageListDestroyer>;

    ImageList ReadPictures(int size) const;

    std::vector<WindowBarButton> buttons;
    const int firstPicture;
    const int group;
    ImageList pictures;   // kept for the next time that the form opens
    int pictureSize = 0;  // in pixels
};

}  // namespace tellwick::windows
