#include "windows/FormOptionsWindow.h"

#include <algorithm>

#include "platform/Keys.h"
#include "windows/ControlStyles.h"
#include "windows/FormRows.h"

namespace tellwick::windows {

namespace {

constexpr WPARAM MostDigits = 5;

// Dialog units.
constexpr int LeastInner = 240;  // the width within the frames
constexpr int LeastFont = 100;   // the width of the fonts' drop-down
constexpr int NumberWidth = 30;
constexpr int LeastPrefixes = 45;  // the width of the country codes' field

}  // namespace

bool FormOptionsWindow::Load() {
    const bool made = Create(
        {{u"FrameNumbers", &frameNumbers, L"BUTTON", style::Group, style::SeeThrough},
         {u"CheckStoreNumbers", &checkStoreNumbers, L"BUTTON", style::Check, 0},
         {u"LabelNumUsedNumber", &labelNumUsedNumber, L"STATIC", SS_LEFT, 0},
         {u"TextNumUsedNumber", &textNumUsedNumber, L"EDIT", style::Field | ES_NUMBER, style::Edge},
         {u"FramePrefixes", &framePrefixes, L"BUTTON", style::Group, style::SeeThrough},
         {u"OptionNational", &optionNational, L"BUTTON", style::Option | WS_GROUP, 0},
         {u"OptionInternational", &optionInternational, L"BUTTON", style::Option, 0},
         {u"TextPrefixes",
          &textPrefixes,
          L"EDIT",
          style::Field | WS_GROUP,
          WS_EX_CLIENTEDGE,
          {u"LabelPrefixes", &labelPrefixes}},
         {u"LabelPrefixHelp", &labelPrefixHelp, L"STATIC", style::Help, 0},
         {u"FrameFont", &frameFont, L"BUTTON", style::Group, style::SeeThrough},
         {u"LabelFont", &labelFont, L"STATIC", SS_LEFT, 0},
         {u"BoxFont", &boxFont, L"COMBOBOX", style::DropDown, 0},
         {u"LabelFontSize", &labelFontSize, L"STATIC", SS_LEFT, 0},
         {u"BoxFontSize", &boxFontSize, L"COMBOBOX", style::DropDown, 0},
         {u"FrameCharacters", &frameCharacters, L"BUTTON", style::Group, style::SeeThrough},
         {u"CheckAirCount", &checkAirCount, L"BUTTON", style::Check, 0},
         {u"CheckAskLostCharacters", &checkAskLostCharacters, L"BUTTON", style::Check, 0},
         {u"FrameLanguage", &frameLanguage, L"BUTTON", style::Group, style::SeeThrough},
         {u"LabelLanguage", &labelLanguage, L"STATIC", SS_LEFT, 0},
         {u"BoxLanguage", &boxLanguage, L"COMBOBOX", style::DropDown, 0},
         {u"LabelLanguageHelp", &labelLanguageHelp, L"STATIC", style::Help, 0},
         {u"FrameMisc", &frameMisc, L"BUTTON", style::Group, style::SeeThrough},
         {u"CheckNumberCache", &checkNumberCache, L"BUTTON", style::Check, 0},
         {u"CheckForgetAnswers", &checkForgetAnswers, L"BUTTON", style::Check, 0},
         {u"CheckTrace", &checkTrace, L"BUTTON", style::Check, 0},
         {u"LabelTraceHelp", &labelTraceHelp, L"STATIC", style::Help, 0},
         {u"LabelFixed", &labelFixed, L"STATIC", style::Help, 0},
         {u"ButtonSupport", &buttonSupport, L"BUTTON", style::Button | WS_GROUP, 0},
         {u"ButtonOK", &buttonOK, L"BUTTON", style::Button, 0},
         {u"ButtonCancel", &buttonCancel, L"BUTTON", style::Button, 0}},
        owner.Window());
    if (!made) return false;
    SendMessageW(textNumUsedNumber.Window(), EM_SETLIMITTEXT, MostDigits, 0);
    SetDefaultButton(buttonOK);
    return true;
}

int FormOptionsWindow::LabelWidth() const {
    int width = 0;
    for (const WindowControl* label : {&labelNumUsedNumber, &labelFont, &labelLanguage}) {
        width = std::max(width, int(Font().Measure(label->Caption()).cx));
    }
    return width + Font().Metrics().Horizontal(4);
}

int FormOptionsWindow::InnerWidth() const {
    const FontMetrics& metrics = Font().Metrics();
    int width = metrics.Horizontal(LeastInner);
    for (const WindowControl* caption : std::initializer_list<const WindowControl*>{
             &checkStoreNumbers, &optionInternational, &checkAirCount, &checkAskLostCharacters,
             &checkNumberCache, &checkForgetAnswers, &checkTrace, &frameNumbers, &framePrefixes,
             &frameFont, &frameCharacters, &frameLanguage, &frameMisc}) {
        width = std::max(width, Font().CaptionWidth(caption->Caption()) + metrics.Horizontal(4));
    }
    const int size = Font().Measure(labelFontSize.Caption()).cx + Font().DropDownWidth(boxFontSize);
    const int prefixes =
        Font().CaptionWidth(optionNational.Caption()) + metrics.Horizontal(LeastPrefixes);
    return std::max({width, LabelWidth() + metrics.Horizontal(LeastFont + 12) + size, prefixes});
}

int FormOptionsWindow::Arrange(int innerWidth, Placement* placement) const {
    FormRows rows(Font(), boxFont, innerWidth, placement);
    const FontMetrics& metrics = Font().Metrics();
    const int gap = metrics.Horizontal(4);
    const int fields = rows.left + LabelWidth();

    rows.Begin();
    rows.Line(checkStoreNumbers);
    rows.Label(labelNumUsedNumber, rows.left, fields);
    rows.Field(textNumUsedNumber, fields, fields + metrics.Horizontal(NumberWidth));
    rows.EndRow();
    rows.End(frameNumbers);

    rows.Begin();
    const int prefixes = rows.left + Font().CaptionWidth(optionNational.Caption());
    rows.Label(optionNational, rows.left, prefixes);
    rows.Field(textPrefixes, prefixes, rows.right);
    rows.EndRow();
    rows.Line(optionInternational);
    rows.Wrapped(labelPrefixHelp);
    rows.End(framePrefixes);

    const int sizeLeft = rows.right - Font().DropDownWidth(boxFontSize);
    const int sizeLabel = sizeLeft - gap - int(Font().Measure(labelFontSize.Caption()).cx);
    const int fontRight = sizeLabel - 2 * gap;
    rows.Begin();
    rows.Label(labelFont, rows.left, fields);
    rows.DropDown(boxFont, fields, fontRight);
    rows.Label(labelFontSize, sizeLabel, sizeLeft);
    rows.DropDown(boxFontSize, sizeLeft, rows.right);
    rows.EndRow();
    rows.End(frameFont);

    rows.Begin();
    rows.Line(checkAirCount);
    rows.Line(checkAskLostCharacters);
    rows.End(frameCharacters);

    rows.Begin();
    rows.Label(labelLanguage, rows.left, fields);
    rows.DropDown(boxLanguage, fields, fontRight);
    rows.EndRow();
    rows.Wrapped(labelLanguageHelp);
    rows.End(frameLanguage);

    rows.Begin();
    rows.Line(checkNumberCache);
    rows.Line(checkForgetAnswers);
    rows.Line(checkTrace);
    rows.Wrapped(labelTraceHelp);
    rows.End(frameMisc);

    if (!labelFixed.Caption().empty()) rows.Wrapped(labelFixed);
    rows.Drop(2);
    rows.Button(buttonSupport, rows.frameLeft,
                rows.frameLeft + Font().CaptionWidth(buttonSupport.Caption()));
    return rows.LastRow(buttonOK, buttonCancel, rows.frameRight);
}

bool FormOptionsWindow::OnKeyDown(std::int32_t keyCode, std::int32_t) {
    // An open list closes first.
    if (keyCode != key::Escape || boxFont.Dropped() || boxFontSize.Dropped() ||
        boxLanguage.Dropped()) {
        return false;
    }
    events->ButtonCancel_Click();
    return true;
}

void FormOptionsWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (notification != BN_CLICKED) return;
    if (control == checkStoreNumbers.Window()) events->CheckStoreNumbers_Click();
    if (control == optionNational.Window()) events->OptionNational_Click();
    if (control == optionInternational.Window()) events->OptionInternational_Click();
    if (control == buttonSupport.Window()) events->ButtonSupport_Click();
    if (control == buttonOK.Window()) events->ButtonOK_Click();
    if (control == buttonCancel.Window()) events->ButtonCancel_Click();
}

}  // namespace tellwick::windows
