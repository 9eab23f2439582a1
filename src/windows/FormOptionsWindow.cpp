#include "windows/FormOptionsWindow.h"

#include <algorithm>

#include "platform/Keys.h"

namespace tellwick::windows {

namespace {

constexpr WPARAM MostDigits = 5;

// Dialog units.
constexpr int Margin = 7;
constexpr int LeastInner = 240;  // the width within the frames
constexpr int LeastFont = 100;   // the width of the fonts' drop-down
constexpr int NumberWidth = 30;
constexpr int LeastPrefixes = 45;  // the width of the country codes' field
constexpr int ListHeight = 120;    // of an open drop-down with its field

// Lays controls out from top to bottom, frame by frame. Without a placement it only counts the
// height.
class Rows {
public:
    const int frameLeft;
    const int left;  // within the frames
    const int right;
    const int frameRight;
    const int rowHeight;

    // `boxHeight` is that of a closed drop-down.
    Rows(const MessageFont& font, int boxHeight, int innerWidth, Placement* placement)
        : frameLeft(font.Metrics().Horizontal(Margin)),
          left(2 * frameLeft),
          right(left + innerWidth),
          frameRight(right + frameLeft),
          rowHeight(std::max(font.Metrics().Vertical(14), boxHeight)),
          font(font),
          boxHeight(boxHeight),
          placement(placement) {
        Drop(Margin);
    }

    // Moves on by dialog units.
    void Drop(int dialogUnits) { y += font.Metrics().Vertical(dialogUnits); }
    int Y() const { return y; }

    void Begin() {
        frameTop = y;
        Drop(11);
    }
    void End(const WindowControl& frame) {
        Drop(3);
        Put(frame, frameLeft, frameRight, frameTop, y - frameTop);
        Drop(5);
    }

    void Line(const WindowControl& box) {
        Put(box, left, right, y, font.Metrics().Vertical(12));
        Drop(14);
    }
    void Wrapped(const WindowControl& label) {
        const int height = font.Measure(label.Caption(), right - left).cy;
        Put(label, left, right, y, height);
        y += height;
        Drop(4);
    }

    // Parts of one row, level with each other.
    void Button(const WindowControl& button, int from, int to) const {
        Put(button, from, to, y, rowHeight);
    }
    void Label(const WindowControl& label, int from, int to) const {
        Middle(label, from, to, font.Metrics().lineHeight);
    }
    void Field(const WindowControl& field, int from, int to) const {
        // The text stands one pixel below the edge.
        Middle(field, from, to, font.Metrics().lineHeight + 2 * (GetSystemMetrics(SM_CYEDGE) + 1));
    }
    void DropDown(const WindowControl& box, int from, int to) const {
        Put(box, from, to, y + (rowHeight - boxHeight) / 2, font.Metrics().Vertical(ListHeight));
    }
    void EndRow() {
        y += rowHeight;
        Drop(3);
    }

private:
    void Middle(const WindowControl& control, int from, int to, int height) const {
        Put(control, from, to, y + (rowHeight - height) / 2, height);
    }
    void Put(const WindowControl& control, int from, int to, int top, int height) const {
        if (placement) placement->Move(control, from, top, to - from, height);
    }

    const MessageFont& font;
    const int boxHeight;
    Placement* const placement;
    int y = 0;
    int frameTop = 0;
};

}  // namespace

bool FormOptionsWindow::Load() {
    constexpr DWORD Button = WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY;
    constexpr DWORD Check = WS_TABSTOP | BS_AUTOCHECKBOX;
    constexpr DWORD Option = BS_AUTORADIOBUTTON;  // the chosen one of a group is its tab stop
    constexpr DWORD DropDown = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    constexpr DWORD Field = WS_TABSTOP | ES_AUTOHSCROLL;
    constexpr DWORD Group = WS_GROUP | BS_GROUPBOX;
    constexpr DWORD Help = SS_LEFT | SS_NOPREFIX;
    // What is behind a group box's frame is the form's to paint.
    constexpr DWORD SeeThrough = WS_EX_TRANSPARENT;
    const bool made = Create(
        {{u"FrameNumbers", &frameNumbers, L"BUTTON", Group, SeeThrough},
         {u"CheckStoreNumbers", &checkStoreNumbers, L"BUTTON", Check, 0},
         {u"LabelNumUsedNumber", &labelNumUsedNumber, L"STATIC", SS_LEFT, 0},
         {u"TextNumUsedNumber", &textNumUsedNumber, L"EDIT", Field | ES_NUMBER, WS_EX_CLIENTEDGE},
         {u"FramePrefixes", &framePrefixes, L"BUTTON", Group, SeeThrough},
         {u"OptionNational", &optionNational, L"BUTTON", Option | WS_GROUP, 0},
         {u"OptionInternational", &optionInternational, L"BUTTON", Option, 0},
         {u"TextPrefixes",
          &textPrefixes,
          L"EDIT",
          Field | WS_GROUP,
          WS_EX_CLIENTEDGE,
          {u"LabelPrefixes", &labelPrefixes}},
         {u"LabelPrefixHelp", &labelPrefixHelp, L"STATIC", Help, 0},
         {u"FrameFont", &frameFont, L"BUTTON", Group, SeeThrough},
         {u"LabelFont", &labelFont, L"STATIC", SS_LEFT, 0},
         {u"BoxFont", &boxFont, L"COMBOBOX", DropDown, 0},
         {u"LabelFontSize", &labelFontSize, L"STATIC", SS_LEFT, 0},
         {u"BoxFontSize", &boxFontSize, L"COMBOBOX", DropDown, 0},
         {u"FrameCharacters", &frameCharacters, L"BUTTON", Group, SeeThrough},
         {u"CheckAirCount", &checkAirCount, L"BUTTON", Check, 0},
         {u"CheckAskLostCharacters", &checkAskLostCharacters, L"BUTTON", Check, 0},
         {u"FrameLanguage", &frameLanguage, L"BUTTON", Group, SeeThrough},
         {u"LabelLanguage", &labelLanguage, L"STATIC", SS_LEFT, 0},
         {u"BoxLanguage", &boxLanguage, L"COMBOBOX", DropDown, 0},
         {u"LabelLanguageHelp", &labelLanguageHelp, L"STATIC", Help, 0},
         {u"FrameMisc", &frameMisc, L"BUTTON", Group, SeeThrough},
         {u"CheckNumberCache", &checkNumberCache, L"BUTTON", Check, 0},
         {u"CheckForgetAnswers", &checkForgetAnswers, L"BUTTON", Check, 0},
         {u"CheckTrace", &checkTrace, L"BUTTON", Check, 0},
         {u"LabelTraceHelp", &labelTraceHelp, L"STATIC", Help, 0},
         {u"ButtonOK", &buttonOK, L"BUTTON", Button | WS_GROUP, 0},
         {u"ButtonCancel", &buttonCancel, L"BUTTON", Button, 0}},
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

// The height that all controls take.
int FormOptionsWindow::Arrange(int innerWidth, Placement* placement) const {
    const int itemHeight = int(SendMessageW(boxFont.Window(), CB_GETITEMHEIGHT, WPARAM(-1), 0));
    Rows rows(Font(), itemHeight + 2 * GetSystemMetrics(SM_CYFIXEDFRAME), innerWidth, placement);
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

    rows.Drop(2);
    const int width = std::max({metrics.Horizontal(50), Font().CaptionWidth(buttonOK.Caption()),
                                Font().CaptionWidth(buttonCancel.Caption())});
    const int cancelLeft = rows.frameRight - width;
    rows.Button(buttonOK, cancelLeft - gap - width, cancelLeft - gap);
    rows.Button(buttonCancel, cancelLeft, rows.frameRight);
    return rows.Y() + rows.rowHeight + metrics.Vertical(Margin);
}

SIZE FormOptionsWindow::LeastClient() const {
    const int width = InnerWidth();
    return {width + Font().Metrics().Horizontal(4 * Margin), Arrange(width, nullptr)};
}

void FormOptionsWindow::OnSize() {
    if (!Loaded()) return;
    RECT client;
    GetClientRect(FormWindow::Window(), &client);
    Placement placement;
    Arrange(client.right - Font().Metrics().Horizontal(4 * Margin), &placement);
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
    if (control == buttonOK.Window()) events->ButtonOK_Click();
    if (control == buttonCancel.Window()) events->ButtonCancel_Click();
}

}  // namespace tellwick::windows
