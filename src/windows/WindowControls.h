// The controls of a form over the system's windows.
#pragma once

#include <array>
#include <functional>

#include "windows/Com.h"

#include "platform/Controls.h"

namespace tellwick::windows {

// A control belongs to its form for ever; its window exists while the form is loaded.
class WindowControl : public virtual Control {
public:
    HWND Window() const { return window; }
    // The window that shows the tool tips may follow.
    void Attach(HWND newWindow, HWND newToolTips);
    virtual void AttachToolTips(HWND newToolTips);
    // Until the control is needed it has no window, but keeps caption, tool tip and whether it is
    // enabled; then `make` attaches one. A text, an item or the focus needs it.
    void AttachLater(std::function<void()> make);
    // It is needed: whether it has a window now.
    bool Need();
    void Detach();

    bool Enabled() const override { return enabled; }
    void SetEnabled(bool enabled) override;
    // Whether it shows once its form does.
    bool Visible() const override;
    void SetVisible(bool visible) override;
    void SetFocus() override;
    bool HasFocus() const override;
    Text Caption() const override { return window ? WindowText() : waitingCaption; }
    void SetCaption(TextView caption) override;
    void SetToolTip(TextView text) override;

protected:
    HWND ToolTips() const { return toolTips; }
    Text WindowText() const;
    void SetWindowTextTo(TextView text);
    LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const;
    LRESULT SendText(UINT message, WPARAM first, TextView text) const;

private:
    void ShowToolTip();
    void HearMnemonic(bool hears);

    HWND window = nullptr;
    HWND toolTips = nullptr;
    std::function<void()> makeWindow;  // while the control has none but will when it is needed
    Text waitingCaption;
    bool enabled = false;
    bool deaf = false;  // a label that hears no mnemonic while it is hidden
    Text toolTip;
};

// A text that changes while the form is open: screen readers are told.
class WindowLabel : public WindowControl {
public:
    void SetCaption(TextView caption) override { Announce(caption); }

protected:
    void Announce(TextView text);
};

class WindowCheckBox : public CheckBox, public WindowControl {
public:
    bool Checked() const override { return Send(BM_GETCHECK) == BST_CHECKED; }
    void SetChecked(bool checked) override {
        Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
    }
};

class WindowTextBox : public virtual TextBox, public WindowControl {
public:
    // Called for every change of the text, whoever makes it.
    std::function<void()> onChange;
    // The system told of a change.
    void Changed();

    Text GetText() const override { return WindowText(); }
    void SetText(TextView text) override;
    std::int32_t SelectionStart() const override;
    std::int32_t SelectionLength() const override;
    void Select(std::int32_t start, std::int32_t length) override;
    void ReplaceSelection(TextView text) override;
    void Undo() override;

protected:
    // The edit control itself.
    virtual HWND Edit() const { return Window(); }

private:
    bool setting = false;  // the change is told once the text is set
};

class WindowListBox : public ListBox, public WindowControl {
public:
    void Clear() override { Send(LB_RESETCONTENT); }
    void Add(TextView item) override {
        if (Need()) SendText(LB_ADDSTRING, 0, item);
    }
    void SetItems(const std::vector<Text>& items) override;
    void AddItems(const std::vector<Text>& items) override;
    std::int32_t Count() const override;
    Text Item(std::int32_t index) const override;
    std::int32_t SelectedIndex() const override;
    void SetSelectedIndex(std::int32_t index) override { Send(LB_SETCURSEL, WPARAM(index)); }
    // Of the rows that are to be seen.
    std::int32_t LastVisibleIndex() const;

private:
    template <class Changes>
    void WithoutDrawing(const Changes& changes);
};

class WindowComboBox : public ComboBox, public WindowTextBox {
public:
    void Clear() override;
    void Add(TextView item) override {
        if (Need()) SendText(CB_ADDSTRING, 0, item);
    }
    std::int32_t Count() const override;
    Text Item(std::int32_t index) const override;
    std::int32_t SelectedIndex() const override;
    void SetSelectedIndex(std::int32_t index) override { Send(CB_SETCURSEL, WPARAM(index)); }
    bool HasFocus() const override;
    HWND Edit() const override;
    bool Dropped() const override { return Send(CB_GETDROPPEDSTATE) != 0; }
};

class WindowProgressBar : public ProgressBar, public WindowControl {
public:
    void SetValue(std::int32_t percent) override;
};

class WindowStatusBar : public StatusBar, public WindowLabel {
public:
    Text GetText() const override { return WindowText(); }
    void SetText(TextView text) override;
    void SetPane(TextView text, TextView shortText) override;
    void SetToolTip(TextView text) override { paneTip = text; }
    void AttachToolTips(HWND newToolTips) override;
    // Takes its place at the form's lower edge.
    void Arrange();
    // Whether a click that it told of was on the pane.
    bool OnPane(const NMHDR& notification) const;

private:
    // Shows the pane in the width that there is.
    void ArrangePane();
    std::array<int, 3> Widths() const;
    // To its left edge; -1 takes it away.
    void MovePane(int edge, const RECT& client);
    void MoveToolTip(int edge, const RECT& client);

    Text pane, shortPane, paneTip;
};

}  // namespace tellwick::windows
