#include "windows/FormSettingsWindow.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "platform/Keys.h"
#include "windows/ControlStyles.h"

namespace tellwick::sender {

using windows::FontMetrics;
using windows::FormRows;
using windows::Placement;
using windows::WindowComboBox;
using windows::WindowControl;
namespace style = windows::style;

namespace {

constexpr WPARAM MostDigits = 5;  // of the number of SMS that are kept

// Dialog units.
constexpr int LeastInner = 250;  // the width within the frames
constexpr int NumberWidth = 34;

// The widest of some controls' captions.
int Widest(const windows::MessageFont& font, std::initializer_list<const WindowControl*> controls) {
    int width = 0;
    for (const WindowControl* control : controls) {
        width = std::max(width, int(font.Measure(control->Caption()).cx));
    }
    return width;
}

}  // namespace

bool FormSettingsWindow::Load() {
    const bool made =
        Create({{u"FrameCarrier", &frameCarrier, L"BUTTON", style::Group, style::SeeThrough},
                {u"OptionModem", &optionModem, L"BUTTON", style::Option | WS_GROUP, 0},
                {u"OptionGateway", &optionGateway, L"BUTTON", style::Option, 0},
                {u"FrameModem", &frameModem, L"BUTTON", style::Group, style::SeeThrough},
                {u"LabelPort", &labelPort, L"STATIC", SS_LEFT, 0},
                {u"BoxPort", &boxPort, L"COMBOBOX", style::DropDown, 0},
                {u"LabelBaudrate", &labelBaudrate, L"STATIC", SS_LEFT, 0},
                {u"BoxBaudrate", &boxBaudrate, L"COMBOBOX", style::DropDown, 0},
                {u"LabelParity", &labelParity, L"STATIC", SS_LEFT, 0},
                {u"BoxParity", &boxParity, L"COMBOBOX", style::DropDown, 0},
                {u"LabelStopbits", &labelStopbits, L"STATIC", SS_LEFT, 0},
                {u"BoxStopbits", &boxStopbits, L"COMBOBOX", style::DropDown, 0},
                {u"CheckRts", &checkRts, L"BUTTON", style::Check, 0},
                {u"FrameSms", &frameSms, L"BUTTON", style::Group, style::SeeThrough},
                {u"CheckServiceCentre", &checkServiceCentre, L"BUTTON", style::Check, 0},
                {u"TextServiceCentre",
                 &textServiceCentre,
                 L"EDIT",
                 style::Field,
                 style::Edge,
                 {u"LabelServiceCentre", &labelServiceCentre}},
                {u"CheckFlash", &checkFlash, L"BUTTON", style::Check, 0},
                {u"CheckStatusReport", &checkStatusReport, L"BUTTON", style::Check, 0},
                {u"LabelValidity", &labelValidity, L"STATIC", SS_LEFT, 0},
                {u"BoxValidity", &boxValidity, L"COMBOBOX", style::DropDown, 0},
                {u"LabelLong", &labelLong, L"STATIC", SS_LEFT, 0},
                {u"BoxLong", &boxLong, L"COMBOBOX", style::DropDown, 0},
                {u"FrameGateway", &frameGateway, L"BUTTON", style::Group, style::SeeThrough},
                {u"LabelAddress", &labelAddress, L"STATIC", SS_LEFT, 0},
                {u"TextAddress", &textAddress, L"EDIT", style::Field, style::Edge},
                {u"LabelMethod", &labelMethod, L"STATIC", SS_LEFT, 0},
                {u"BoxMethod", &boxMethod, L"COMBOBOX", style::DropDown, 0},
                {u"ButtonKannel", &buttonKannel, L"BUTTON", style::Button, 0},
                {u"LabelUser", &labelUser, L"STATIC", SS_LEFT, 0},
                {u"TextUser", &textUser, L"EDIT", style::Field, style::Edge},
                {u"LabelPassword", &labelPassword, L"STATIC", SS_LEFT, 0},
                {u"TextPassword", &textPassword, L"EDIT", style::Field | ES_PASSWORD, style::Edge},
                {u"LabelExpected", &labelExpected, L"STATIC", SS_LEFT, 0},
                {u"TextExpected", &textExpected, L"EDIT", style::Field, style::Edge},
                {u"LabelAddressHelp", &labelAddressHelp, L"STATIC", style::Help, 0},
                {u"FrameKept", &frameKept, L"BUTTON", style::Group, style::SeeThrough},
                {u"CheckStoreSent", &checkStoreSent, L"BUTTON", style::Check, 0},
                {u"TextMaxSent",
                 &textMaxSent,
                 L"EDIT",
                 style::Field,
                 style::Edge,
                 {u"LabelMaxSent", &labelMaxSent}},
                {u"FrameTest", &frameTest, L"BUTTON", style::Group, style::SeeThrough},
                {u"LabelTestNumber", &labelTestNumber, L"STATIC", SS_LEFT, 0},
                {u"TextTestNumber", &textTestNumber, L"EDIT", style::Field, style::Edge},
                {u"ButtonTest", &buttonTest, L"BUTTON", style::Button, 0},
                {u"LabelTestState", &labelTestState, L"STATIC", style::Help | SS_ENDELLIPSIS, 0},
                {u"LabelFixed", &labelFixed, L"STATIC", style::Help, 0},
                {u"ButtonOK", &buttonOK, L"BUTTON", style::Button | WS_GROUP, 0},
                {u"ButtonCancel", &buttonCancel, L"BUTTON", style::Button, 0}},
               owner);
    if (!made) return false;
    SendMessageW(textMaxSent.Window(), EM_SETLIMITTEXT, MostDigits, 0);
    SetDefaultButton(buttonOK);
    return true;
}

FormSettingsFields FormSettingsWindow::Fields() {
    return {optionModem,       optionGateway,  boxPort,           boxBaudrate,
            boxParity,         boxStopbits,    checkRts,          checkServiceCentre,
            textServiceCentre, checkFlash,     checkStatusReport, boxValidity,
            boxLong,           textAddress,    boxMethod,         buttonKannel,
            textUser,          textPassword,   textExpected,      checkStoreSent,
            textMaxSent,       textTestNumber, labelTestState,    labelFixed};
}

void FormSettingsWindow::ShowGateway(bool gateway) {
    for (WindowControl* control : std::initializer_list<WindowControl*>{
             &frameModem, &labelPort, &boxPort, &labelBaudrate, &boxBaudrate, &labelParity,
             &boxParity, &labelStopbits, &boxStopbits, &checkRts, &frameSms, &checkServiceCentre,
             &textServiceCentre, &checkFlash, &checkStatusReport, &labelValidity, &boxValidity,
             &labelLong, &boxLong}) {
        control->SetVisible(!gateway);
    }
    for (WindowControl* control : std::initializer_list<WindowControl*>{
             &frameGateway, &labelAddress, &textAddress, &labelMethod, &boxMethod, &buttonKannel,
             &labelUser, &textUser, &labelPassword, &textPassword, &labelExpected, &textExpected,
             &labelAddressHelp}) {
        control->SetVisible(gateway);
    }
}

std::vector<Text> FormSettingsWindow::Ports() {
    constexpr TextView Beginning = u"COM";
    constexpr std::size_t Usual = 65'536;  // characters
    constexpr std::size_t Enough = 4'194'304;
    std::vector<wchar_t> names(Usual);
    while (QueryDosDeviceW(nullptr, names.data(), DWORD(names.size())) == 0) {
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER || names.size() > Enough) return {};
        names.resize(2 * names.size());
    }
    std::vector<Text> ports;
    for (const wchar_t* name = names.data(); *name; name += wcslen(name) + 1) {
        const Text port = windows::FromWide(name);
        const bool digits = port.size() > Beginning.size() &&
                            std::all_of(port.begin() + Beginning.size(), port.end(), IsDigit);
        if (digits && StartsWithFolded(port, Beginning)) ports.push_back(port);
    }
    std::sort(ports.begin(), ports.end(), [](const Text& one, const Text& other) {
        return LeadingNumber(TextView(one).substr(3)) < LeadingNumber(TextView(other).substr(3));
    });
    return ports;
}

void FormSettingsWindow::Tell(TextView text) {
    MessageBoxW(Window(), windows::Wide(Text(text)), L"Tellwick", MB_OK | MB_ICONEXCLAMATION);
}

int FormSettingsWindow::LabelWidth() const {
    return Font().Metrics().Horizontal(4) +
           Widest(Font(),
                  {&labelPort, &labelParity, &labelValidity, &labelLong, &labelAddress,
                   &labelMethod, &labelUser, &labelPassword, &labelExpected, &labelTestNumber});
}

int FormSettingsWindow::InnerWidth() const {
    const FontMetrics& metrics = Font().Metrics();
    const int boxes = Widest(Font(), {&checkServiceCentre, &checkRts, &checkFlash,
                                      &checkStatusReport, &optionModem, &optionGateway});
    const int gaps = metrics.Horizontal(12);
    const int right = Widest(Font(), {&labelBaudrate, &labelStopbits});
    const int drops =
        std::max(Font().DropDownWidth(boxParity), Font().DropDownWidth(boxPort)) +
        std::max(Font().DropDownWidth(boxBaudrate), Font().DropDownWidth(boxStopbits));
    const int test = Widest(Font(), {&buttonTest}) + metrics.Horizontal(70);
    return std::max({metrics.Horizontal(LeastInner), boxes + gaps + metrics.Horizontal(70),
                     LabelWidth() + right + drops + gaps, LabelWidth() + test + gaps,
                     LabelWidth() + Font().DropDownWidth(boxLong)});
}

// The lower edge.
int FormSettingsWindow::ArrangeModem(FormRows& rows) const {
    const FontMetrics& metrics = Font().Metrics();
    const int gap = metrics.Horizontal(8);
    const int fields = rows.left + LabelWidth();
    const int second =
        std::max(Font().DropDownWidth(boxBaudrate), Font().DropDownWidth(boxStopbits));
    const int secondLeft = rows.right - second;
    const int label =
        secondLeft - metrics.Horizontal(4) - Widest(Font(), {&labelBaudrate, &labelStopbits});
    rows.Begin();
    rows.Label(labelPort, rows.left, fields);
    rows.DropDown(boxPort, fields, label - gap);
    rows.Label(labelBaudrate, label, secondLeft);
    rows.DropDown(boxBaudrate, secondLeft, rows.right);
    rows.EndRow();
    rows.Label(labelParity, rows.left, fields);
    rows.DropDown(boxParity, fields, label - gap);
    rows.Label(labelStopbits, label, secondLeft);
    rows.DropDown(boxStopbits, secondLeft, rows.right);
    rows.EndRow();
    rows.Line(checkRts);
    rows.End(frameModem);

    rows.Begin();
    const int centre = rows.left + Font().CaptionWidth(checkServiceCentre.Caption()) + gap;
    rows.Label(checkServiceCentre, rows.left, centre);
    rows.Field(textServiceCentre, centre, rows.right);
    rows.EndRow();
    rows.Line(checkFlash);
    rows.Line(checkStatusReport);
    rows.Label(labelValidity, rows.left, fields);
    rows.DropDown(boxValidity, fields, rows.right);
    rows.EndRow();
    rows.Label(labelLong, rows.left, fields);
    rows.DropDown(boxLong, fields, rows.right);
    rows.EndRow();
    rows.End(frameSms);
    return rows.Y();
}

void FormSettingsWindow::ArrangeGateway(FormRows& rows) const {
    const int fields = rows.left + LabelWidth();
    const int method = fields + Font().DropDownWidth(boxMethod);
    rows.Begin();
    rows.Label(labelAddress, rows.left, fields);
    rows.Field(textAddress, fields, rows.right);
    rows.EndRow();
    rows.Label(labelMethod, rows.left, fields);
    rows.DropDown(boxMethod, fields, method);
    rows.Button(buttonKannel,
                std::max(method, rows.right - Font().CaptionWidth(buttonKannel.Caption())),
                rows.right);
    rows.EndRow();
    for (const auto& [label, field] : std::initializer_list<std::array<const WindowControl*, 2>>{
             {&labelUser, &textUser},
             {&labelPassword, &textPassword},
             {&labelExpected, &textExpected}}) {
        rows.Label(*label, rows.left, fields);
        rows.Field(*field, fields, rows.right);
        rows.EndRow();
    }
    rows.Wrapped(labelAddressHelp);
    rows.End(frameGateway);
}

// Modem and gateway stand at the same place.
int FormSettingsWindow::Arrange(int innerWidth, Placement* placement) const {
    FormRows rows(Font(), boxPort, innerWidth, placement);
    const FontMetrics& metrics = Font().Metrics();
    const int gap = metrics.Horizontal(4);
    rows.Begin();
    rows.Line(optionModem);
    rows.Line(optionGateway);
    rows.End(frameCarrier);

    const int top = rows.Y();
    const int bottom = ArrangeModem(rows);
    rows.GoTo(top);
    ArrangeGateway(rows);
    rows.GoTo(std::max(bottom, rows.Y()));

    rows.Begin();
    const int kept = rows.left + Font().CaptionWidth(checkStoreSent.Caption()) + 2 * gap;
    rows.Label(checkStoreSent, rows.left, kept);
    rows.Field(textMaxSent, kept, kept + metrics.Horizontal(NumberWidth));
    rows.EndRow();
    rows.End(frameKept);

    rows.Begin();
    const int test = rows.right - Font().CaptionWidth(buttonTest.Caption());
    const int number = rows.left + LabelWidth();
    rows.Label(labelTestNumber, rows.left, number);
    rows.Field(textTestNumber, number, test - gap);
    rows.Button(buttonTest, test, rows.right);
    rows.EndRow();
    rows.Label(labelTestState, rows.left, rows.right);
    rows.EndRow();
    rows.End(frameTest);

    if (!labelFixed.Caption().empty()) rows.Wrapped(labelFixed);
    rows.Drop(2);
    return rows.LastRow(buttonOK, buttonCancel, rows.frameRight);
}

bool FormSettingsWindow::OnKeyDown(std::int32_t keyCode, std::int32_t) {
    if (keyCode != key::Escape) return false;
    // An open list closes first.
    for (const WindowComboBox* box :
         {&boxPort, &boxBaudrate, &boxParity, &boxStopbits, &boxValidity, &boxLong, &boxMethod}) {
        if (box->Dropped()) return false;
    }
    events->ButtonCancel_Click();
    return true;
}

void FormSettingsWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (notification != BN_CLICKED) return;
    if (control == optionModem.Window() || control == optionGateway.Window()) {
        events->OptionCarrier_Click();
    }
    if (control == checkServiceCentre.Window()) events->CheckServiceCentre_Click();
    if (control == checkStoreSent.Window()) events->CheckStoreSent_Click();
    if (control == buttonKannel.Window()) events->ButtonKannel_Click();
    if (control == buttonTest.Window()) events->ButtonTest_Click();
    if (control == buttonOK.Window()) events->ButtonOK_Click();
    if (control == buttonCancel.Window()) events->ButtonCancel_Click();
}

}  // namespace tellwick::sender
