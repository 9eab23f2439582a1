// The window of the preview: a dialog of the SMS form.
#pragma once

#include "windows/FormWindow.h"
#include "windows/WindowStyledText.h"

#include "compose/FormSmsPreviewView.h"

namespace tellwick::windows {

class FormSmsPreviewWindow : public FormViewWindow<FormSmsPreviewView> {
public:
    // `owner` is loaded whenever this window is.
    explicit FormSmsPreviewWindow(const FormWindow& owner) : owner(owner) {}

    bool Load() override;

    Control& LabelCount() override { return labelCount; }
    void SetPersonal(bool newPersonal) override;
    Control& LabelPerson() override { return labelPerson; }
    Control& ButtonBack() override { return buttonBack; }
    Control& ButtonForward() override { return buttonForward; }
    ListBox& ListMissing() override { return listMissing; }
    StyledText& TextParts() override { return textParts; }
    ListBox& ListCharacters() override { return listCharacters; }
    Control& ButtonReplace() override { return buttonReplace; }
    Control& ButtonReplaceAll() override { return buttonReplaceAll; }
    void SetEvents(FormSmsPreviewEvents& newEvents) override { events = &newEvents; }

private:
    SIZE LeastClient() const override;
    int PersonalHeight() const;
    SIZE UsualClient() const override { return LeastClient(); }
    void OnClose() override { events->ButtonOK_Click(); }
    void OnSize() override;
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;

    const FormWindow& owner;
    FormSmsPreviewEvents* events = nullptr;
    bool personal = false;

    WindowLabel labelCount;
    WindowLabel labelPerson;
    WindowControl buttonBack;
    WindowControl buttonForward;
    WindowControl labelParts;
    WindowStyledText textParts;
    WindowControl labelMissing;
    WindowListBox listMissing;
    WindowControl labelCharacters;
    WindowListBox listCharacters;
    WindowControl buttonReplace;
    WindowControl buttonReplaceAll;
    WindowControl buttonOK;
};

}  // namespace tellwick::windows
