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
constexpr int MissingHeight = 36;
constexpr int LabelHeight = 10;
constexpr int PersonHeight = 20;  // two lines: an appointment is named behind the person
constexpr int ButtonHeight = 14;
// Where the columns of the list begin, in quarters of an average character: the first one holds the
// names of characters that cannot be seen.
constexpr int Columns[] = {100, 200};
constexpr int MissingColumns[] = {180};

}  // namespace

bool FormSmsPreviewWindow::Load() {
    constexpr auto Later = ControlPlan::Later;
    constexpr DWORD List =
        WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS;
    personal = false;
    const bool made =
        Create({{u"LabelCount", &labelCount, L"STATIC", SS_LEFT | SS_NOPREFIX, 0},
                {u"LabelPerson", &labelPerson, L"STATIC", SS_LEFT | SS_NOPREFIX, 0, {}, Later},
                {u"ButtonBack", &buttonBack, L"BUTTON", style::Button | WS_GROUP, 0, {}, Later},
                {u"ButtonForward", &buttonForward, L"BUTTON", style::Button, 0, {}, Later},
                {u"LabelParts", &labelParts, L"STATIC", SS_LEFT, 0},
                {u"TextParts", &textParts, WindowStyledText::Class(), WindowStyledText::Style,
                 WS_EX_CLIENTEDGE},
                {u"LabelMissing", &labelMissing, L"STATIC", SS_LEFT, 0, {}, Later},
                {u"ListMissing", &listMissing, L"LISTBOX", List, style::Edge, {}, Later},
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
                             ButtonHeight + 3 * Gap) +
                (personal ? PersonalHeight() : 0)};
}

// Of the row that says whose text it is, and of the list of those who lack something.
int FormSmsPreviewWindow::PersonalHeight() const {
    return Font().Metrics().Vertical(PersonHeight + LabelHeight + MissingHeight + 2 * Gap);
}

void FormSmsPreviewWindow::SetPersonal(bool newPersonal) {
    if (!Loaded() || newPersonal == personal) return;
    personal = newPersonal;
    for (WindowControl* part : std::initializer_list<WindowControl*>{
             &labelPerson, &buttonBack, &buttonForward, &labelMissing, &listMissing})
        part->SetVisible(personal);
    if (personal) {
        SendMessageW(listMissing.Window(), LB_SETTABSTOPS, std::size(MissingColumns),
                     reinterpret_cast<LPARAM>(MissingColumns));
    }
    // Sizes the window, which lays the controls out.
    if (Placed()) Grow(personal ? PersonalHeight() : -PersonalHeight());
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
    const auto buttonWidth = [&](const WindowControl& button) {
        return std::max(metrics.Horizontal(50), Font().CaptionWidth(button.Caption()));
    };
    put(labelCount, LabelHeight, 0);
    if (personal) {
        int right = left + width;
        for (const WindowControl* button : {&buttonForward, &buttonBack}) {
            const int own = buttonWidth(*button);
            placement.Move(*button, right - own, y, own, metrics.Vertical(ButtonHeight));
            right -= own + metrics.Horizontal(Gap);
        }
        const int drop = metrics.Vertical((ButtonHeight - LabelHeight + 2) / 2);
        const int height = metrics.Vertical(PersonHeight);
        placement.Move(labelPerson, left, y + drop, right - left, height - drop);
        y += height + metrics.Vertical(Gap);
    }
    put(labelParts, LabelHeight, 0);
    put(textParts, PartsHeight, Gap);
    if (personal) {
        put(labelMissing, LabelHeight, 0);
        put(listMissing, MissingHeight, Gap);
    }
    put(labelCharacters, LabelHeight, 0);
    put(listCharacters, ListHeight, 2 * Gap);
    int x = left;
    for (const WindowControl* button : {&buttonReplace, &buttonReplaceAll, &buttonOK}) {
        const int own = buttonWidth(*button);
        if (button == &buttonOK) x = left + width - own;
        placement.Move(*button, x, y, own, metrics.Vertical(ButtonHeight));
        x += own + metrics.Horizontal(Gap);
    }
}

bool FormSmsPreviewWindow::OnKeyDown(std::int32_t keyCode, std::int32_t) {
    if (keyCode == key::Escape) {
        events->ButtonOK_Click();
    } else if (personal && keyCode == key::PageUp) {
        events->ButtonBack_Click();
    } else if (personal && keyCode == key::PageDown) {
        events->ButtonForward_Click();
    } else {
        return false;
    }
    return true;
}

void FormSmsPreviewWindow::OnCommand(HWND control, WORD notification, WORD) {
    if (control == listCharacters.Window()) {
        if (notification == LBN_SELCHANGE) events->ListCharacters_Click();
    } else if (personal && control == listMissing.Window()) {
        if (notification == LBN_SELCHANGE) events->ListMissing_Click();
    } else if (notification == BN_CLICKED) {
        if (control == buttonBack.Window()) events->ButtonBack_Click();
        if (control == buttonForward.Window()) events->ButtonForward_Click();
        if (control == buttonReplace.Window()) events->ButtonReplace_Click();
        if (control == buttonReplaceAll.Window()) events->ButtonReplaceAll_Click();
        if (control == buttonOK.Window()) events->ButtonOK_Click();
    }
}

}  // namespace tellwick::windows
