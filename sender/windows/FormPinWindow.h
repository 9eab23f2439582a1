// The window that asks for the SIM card's PIN.
#pragma once

#include "windows/FormRows.h"

#include "forms/FormPin.h"

namespace tellwick::sender {

class FormPinWindow : public windows::FormOfRows<FormPinView> {
public:
    // The owner is there whenever this window is loaded.
    explicit FormPinWindow(const HWND& owner) : owner(owner) {}

    bool Load() override;
    Control& LabelAsked() override { return labelAsked; }
    TextBox& TextPin() override { return textPin; }
    void Tell(TextView text) override;
    void SetEvents(FormPinEvents& newEvents) override { events = &newEvents; }

private:
    void OnClose() override { events->ButtonCancel_Click(); }
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;
    int InnerWidth() const override;
    int Arrange(int innerWidth, windows::Placement* placement) const override;

    const HWND& owner;
    FormPinEvents* events = nullptr;

    windows::WindowControl labelAsked, labelPinHelp, labelPin, buttonOK, buttonCancel;
    windows::WindowTextBox textPin;
};

}  // namespace tellwick::sender
