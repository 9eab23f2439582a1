// The window of the sender's settings.
#pragma once

#include "windows/FormRows.h"

#include "forms/FormSettingsView.h"

namespace tellwick::sender {

class FormSettingsWindow : public windows::FormOfRows<FormSettingsView> {
public:
    // The owner is there whenever this window is loaded.
    explicit FormSettingsWindow(const HWND& owner) : owner(owner) {}

    bool Load() override;
    FormSettingsFields Fields() override;
    void ShowGateway(bool gateway) override;
    std::vector<Text> Ports() override;
    void Tell(TextView text) override;
    void SetEvents(FormSettingsEvents& newEvents) override { events = &newEvents; }

private:
    using Control = windows::WindowControl;

    void OnClose() override { events->ButtonCancel_Click(); }
    bool OnKeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void OnCommand(HWND control, WORD notification, WORD identifier) override;
    int InnerWidth() const override;
    int Arrange(int innerWidth, windows::Placement* placement) const override;
    int LabelWidth() const;
    int ArrangeModem(windows::FormRows& rows) const;
    void ArrangeGateway(windows::FormRows& rows) const;

    const HWND& owner;
    FormSettingsEvents* events = nullptr;

    Control frameCarrier;
    windows::WindowCheckBox optionModem, optionGateway;

    Control frameModem;
    Control labelPort, labelBaudrate, labelParity, labelStopbits;
    windows::WindowComboBox boxPort, boxBaudrate, boxParity, boxStopbits;
    windows::WindowCheckBox checkRts;
    Control frameSms;
    windows::WindowCheckBox checkServiceCentre, checkFlash, checkStatusReport;
    Control labelServiceCentre;
    windows::WindowTextBox textServiceCentre;
    Control labelValidity, labelLong;
    windows::WindowComboBox boxValidity, boxLong;

    Control frameGateway;
    Control labelAddress, labelMethod, labelUser, labelPassword, labelExpected, labelAddressHelp;
    windows::WindowTextBox textAddress, textUser, textPassword, textExpected;
    Control buttonKannel;
    windows::WindowComboBox boxMethod;

    Control frameKept;
    windows::WindowCheckBox checkStoreSent;
    Control labelMaxSent;
    windows::WindowTextBox textMaxSent;
    Control frameTest, labelTestNumber, buttonTest;
    windows::WindowTextBox textTestNumber;
    windows::WindowLabel labelTestState;
    Control labelFixed, buttonOK, buttonCancel;
};

}  // namespace tellwick::sender
