#include "windows/FormSmsPreviewWindow.h"

#include <algorithm>

#include "platform/Keys.h"
#include "windows/ControlStyles.h"

namespace tellwick::windows {

namespace {

// Dialog units.
constexpr int Margin = 7;
constexpr int Gap = 4;
constexpr int InnerWidth = 330;
constexpr int PartsHeight = 110;
constexpr int ListHeight = 52;
constexpr int LabelHeight = 10;
constexpr int ButtonHeight = 14;
// Where the columns of the list begin, in quarters of an average character: the first one holds the
// names of characters that cannot be seen.
constexpr int Columns[] = {100, 200};

}  // namespace

bool FormSmsPreviewWindow::Load() {
    constexpr DWORD List =
        WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS;
    const bool made =
        Create({{u"LabelCount", &labelCount, L"STATIC", SS_LEFT | SS_NOPREFIX, 0},
                {u"LabelParts", &labelParts, L"STATIC", SS_LEFT, 0},
                {u"TextParts", &textParts, WindowStyledText::Class(), WindowStyledText::Style,
                 WS_EX_CLIENTEDGE},
                {u"LabelCharacters", &labelCharacters, L"STATIC", SS_LEFT, 0},
                {u"ListCharacters", &listCharacters, L"LISTBOX", List, style::Edge},
                {u"ButtonReplace", &buttonReplace, L"BUTTON", style::Button | WS_GROUP, 0},
                {u"ButtonReplaceAll", &buttonReplaceAll, L"BUTTON", style::Button, 0},
                {u"ButtonOK", &buttonOK, L"BUTTON", style::Button, 0}},
               owner.Window());
    if (!made) return false;
    SendMessageW(listCharacters.Window(), LB_SETTABSTOPS, std::size(Columns),
                 reinterpret_cast<LPARAM>(Columns));
    SetDefaultButton(buttonOK);
    return true;
}

SIZE FormSmsPreviewWindow::LeastClient() const {
    const FontMetrics& metrics = Font().Metrics();
    return {metrics.Horizontal(InnerWidth + 2 * Margin),
            metrics.Vertical(2 * Margin + 3 * LabelHeight + PartsHeight + ListHeight +
                             ButtonHeight + 3 * Gap)};
}

void FormSmsPreviewWindow::OnSize() {
    if (!Loaded()) return;
    const FontMetrics& metrics = Font().Metrics();
    RECT client;
    GetClientRect(FormWindow::Window(), &client);
    const int left = metrics.Horizontal(Margin);
    const int width = client.right - 2 * left;
    int y = metrics.Vertical(Margin);
    Placement placement;
    const auto put = [&](const WindowControl& control, int height, int gap) {
        placement.Move(control, left, y, width, metrics.Vertical(height));
        y += metrics.Vertical(height + gap);
    };
    put(labelCount, LabelHeight, 0);
    put(labelParts, LabelHeight, 0);
    put(textParts, PartsHeight, Gap);
    put(labelCharacters, LabelHeight, 0);
    put(listCharacters, ListHeight, 2 * Gap);
    int x = left;
    for (const WindowControl* button : {&buttonReplace, &buttonReplaceAll, &buttonOK}) {
        const int own = std::max(metrics.Horizontal(50), Font().CaptionWidth(button->Caption()));
        if (button == &buttonOK) x = left + width - own;
        placement.Move(*button, x, y, own, metrics.Vertical(ButtonHeight));
        x += own + metrics.Horizontal(Gap);
    }
}

bool FormSmsPreviewWindow::OnKeyDown(std::int32_t keyCode, std::int32_t) {
    if (keyCode != key::Escape) return false;
    events->ButtonOK_Click();
    return true;
}

void FormSmsPreviewWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (control == listCharacters.Window()) {
        if (notification == LBN_SELCHANGE) events->ListCharacters_Click();
    } else if (notification == BN_CLICKED) {
        if (control == buttonReplace.Window()) events->ButtonReplace_Click();
        if (control == buttonReplaceAll.Window()) events->ButtonReplaceAll_Click();
        if (control == buttonOK.Window()) events->ButtonOK_Click();
    }
}

}  // namespace tellwick::windows
