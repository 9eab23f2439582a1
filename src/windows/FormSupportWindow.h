// The window of the support file: a dialog of the settings window.
#pragma once

#include "windows/FormWindow.h"

#include "compose/FormSupportView.h"

namespace tellwick::windows {

class FormSupportWindow : public FormViewWindow<FormSupportView> {
public:
    // `owner` is loaded whenever this window is.
    explicit FormSupportWindow(const FormWindow& owner) : owner(owner) {}

    bool Load() override;

    TextBox& TextContents() override { return textContents; }
    void SetEvents(FormSupportEvents& newEvents) override { events = &newEvents; }

private:
    SIZE LeastClient() const override;
    SIZE UsualClient() const override { return LeastClient(); }
    void OnClose() override { events->ButtonCancel_Click(); }
    void OnSize() override;
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;

    const FormWindow& owner;
    FormSupportEvents* events = nullptr;

    WindowControl labelHelp;
    WindowControl labelContents;
    WindowTextBox textContents;
    WindowControl buttonSave;
    WindowControl buttonCancel;
};

}  // namespace tellwick::windows
