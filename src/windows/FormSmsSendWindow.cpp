#include "windows/FormSmsSendWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "compose/MessageText.h"
#include "compose/Submission.h"
#include "recipients/RecipientField.h"
#include "recipients/TextTemplates.h"

namespace tellwick::windows {

namespace {

constexpr SIZE Least{300, 175};  // dialog units
constexpr WPARAM LongestText = 0x7FFFFFFE;

// Margins, gaps and heights in dialog units.
constexpr int Margin = 6;
constexpr int Gap = 4;
constexpr int ButtonHeight = 14;
constexpr int FieldHeight = 13;
constexpr int DropDownHeight = 120;

}  // namespace

FormSmsSendWindow::FormSmsSendWindow() : FormWindow(Least) {
    textTo.onChange = [this] { parts->recipientField.TextTo_Change(); };
    message.onChange = [this] { parts->messageText.Message_Change(); };
}

void FormSmsSendWindow::SetHandlers(FormSmsSend& newForm, const FormSmsSendParts& newParts) {
    form = &newForm;
    parts.emplace(newParts);
}

bool FormSmsSendWindow::Load() {
    constexpr DWORD Button = WS_TABSTOP | BS_PUSHBUTTON;
    constexpr DWORD Check = WS_TABSTOP | BS_AUTOCHECKBOX;
    constexpr DWORD Combo = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL;
    constexpr DWORD Text =
        WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | ES_NOHIDESEL;
    constexpr DWORD List =
        WS_BORDER | WS_VSCROLL | WS_CLIPSIBLINGS | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    // In the order of the tabulator key. The match list comes first in depth: it lies over the
    // other controls.
    const bool made = Create({
        {u"ListBoxNumbers", &listBoxNumbers, L"LISTBOX", List, 0, false},
        {u"ButtonTo", &buttonTo, L"BUTTON", Button, 0},
        {u"TextTo", &textTo, L"COMBOBOX", Combo, 0},
        {u"Message", &message, L"EDIT", Text, WS_EX_CLIENTEDGE},
        {u"CheckFlash", &checkFlash, L"BUTTON", Check, 0},
        {u"CheckLong", &checkLong, L"BUTTON", Check, 0},
        {u"ButtonSend", &buttonSend, L"BUTTON", Button, 0},
        {u"ButtonStore", &buttonStore, L"BUTTON", Button, 0},
        {u"ButtonHex", &buttonHex, L"BUTTON", Button, 0},
        {u"ButtonUcs2", &buttonUcs2, L"BUTTON", Button, 0},
        {u"ButtonOptions", &buttonOptions, L"BUTTON", Button, 0},
        {u"ButtonExpand", &buttonExpand, L"BUTTON", Button, 0},
        {u"ButtonOK", &buttonOK, L"BUTTON", Button, 0},
        {u"FrameTextbausteine", &frameTextbausteine, L"BUTTON", BS_GROUPBOX, 0},
        {u"ComboBoxTextbausteine", &comboBoxTextbausteine, L"COMBOBOX", Combo, 0},
        {u"ButtonAdd", &buttonAdd, L"BUTTON", Button, 0},
        {u"ButtonDel", &buttonDel, L"BUTTON", Button, 0},
        {u"ButtonInsert", &buttonInsert, L"BUTTON", Button, 0},
        {u"LabelStatus", &labelStatus, L"STATIC", SS_RIGHT | SS_NOPREFIX, 0},
        {u"ProgressBar1", &progressBar1, PROGRESS_CLASSW, 0, 0},
        {u"StatusBar1", &statusBar1, STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0},
    });
    if (!made) return false;
    SendMessageW(message.Window(), EM_SETLIMITTEXT, LongestText, 0);
    SetWindowPos(listBoxNumbers.Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    Resize(false);
    return true;
}

void FormSmsSendWindow::Show() {
    ShowWindowed();
}

void FormSmsSendWindow::SetMessageFont(TextView name, std::int32_t points) {
    if (!Loaded() || (name.empty() && points <= 0)) return;
    LOGFONTW font{};
    GetObjectW(Font().Get(), sizeof font, &font);
    if (!name.empty()) lstrcpynW(font.lfFaceName, Wide(Text(name)), LF_FACESIZE);
    if (points > 0) {
        const HDC screen = GetDC(nullptr);
        font.lfHeight = -MulDiv(std::min(points, 72), GetDeviceCaps(screen, LOGPIXELSY), 72);
        ReleaseDC(nullptr, screen);
    }
    GdiObject created(CreateFontIndirectW(&font));
    SendMessageW(message.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(created.get()), TRUE);
    messageFont = std::move(created);
}

void FormSmsSendWindow::Resize(bool expanded) {
    if (!Loaded()) return;
    const FontMetrics& font = Font().Metrics();
    const int margin = font.Horizontal(Margin);
    const int gapX = font.Horizontal(Gap);
    const int gapY = font.Vertical(Gap);
    const int buttonHeight = font.Vertical(ButtonHeight);
    const int fieldHeight = font.Vertical(FieldHeight);

    SendMessageW(statusBar1.Window(), WM_SIZE, 0, 0);
    RECT bar;
    GetWindowRect(statusBar1.Window(), &bar);
    RECT client;
    GetClientRect(FormWindow::Window(), &client);
    const int bottom = client.bottom - (bar.bottom - bar.top) - gapY;
    const int right = client.right - margin;

    // The column of buttons on the right, as wide as its widest caption.
    const WindowControl* const column[] = {&buttonSend,    &buttonStore,  &buttonHex, &buttonUcs2,
                                           &buttonOptions, &buttonExpand, &buttonOK};
    int columnWidth = 0;
    for (const WindowControl* button : column) {
        columnWidth = std::max(columnWidth, CaptionWidth(*button));
    }
    const int columnLeft = right - columnWidth;
    int y = margin;
    for (const WindowControl* button : column) {
        Move(*button, columnLeft, y, columnWidth, buttonHeight);
        y += buttonHeight + gapY;
    }
    const int middle = columnLeft - 2 * gapX;  // right edge of the main column

    const int toWidth = CaptionWidth(buttonTo);
    Move(buttonTo, margin, margin, toWidth, buttonHeight);
    Move(textTo, margin + toWidth + gapX, margin, middle - margin - toWidth - gapX,
         font.Vertical(DropDownHeight));

    // From below: the templates when shown, the progress, the options, the rest for the message.
    int below = bottom;
    for (WindowControl* part : {static_cast<WindowControl*>(&frameTextbausteine),
                                static_cast<WindowControl*>(&comboBoxTextbausteine), &buttonAdd,
                                &buttonDel, &buttonInsert}) {
        part->SetVisible(expanded);
    }
    if (expanded) {
        const int frameHeight = font.Vertical(10) + buttonHeight + 2 * gapY;
        below -= frameHeight;
        Move(frameTextbausteine, margin, below, right - margin, frameHeight);
        const int rowTop = below + font.Vertical(10);
        int left = right - gapX;
        for (const WindowControl* button : {&buttonInsert, &buttonDel, &buttonAdd}) {
            const int width = CaptionWidth(*button);
            left -= width;
            Move(*button, left, rowTop, width, buttonHeight);
            left -= gapX;
        }
        Move(comboBoxTextbausteine, margin + gapX, rowTop, left - margin - gapX,
             font.Vertical(DropDownHeight));
        below -= gapY;
    }
    const int progressHeight = font.Vertical(5);
    below -= progressHeight;
    Move(progressBar1, margin, below, middle - margin, progressHeight);
    below -= gapY + fieldHeight;
    int left = margin;
    for (const WindowControl* box :
         {static_cast<WindowControl*>(&checkFlash), static_cast<WindowControl*>(&checkLong)}) {
        const int width = CaptionWidth(*box) + font.Horizontal(4);
        Move(*box, left, below, width, fieldHeight);
        left += width + gapX;
    }
    Move(labelStatus, left, below + font.Vertical(2), middle - left, fieldHeight);
    const int messageTop = margin + buttonHeight + gapY;
    Move(message, margin, messageTop, middle - margin, below - gapY - messageTop);
    RedrawWindow(FormWindow::Window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormSmsSendWindow::PlaceListBoxNumbers(std::int32_t rows) {
    if (!Loaded()) return;
    RECT field;
    GetWindowRect(textTo.Window(), &field);
    MapWindowPoints(nullptr, FormWindow::Window(), reinterpret_cast<POINT*>(&field), 2);
    const int rowHeight = int(SendMessageW(listBoxNumbers.Window(), LB_GETITEMHEIGHT, 0, 0));
    const int borders = 2 * GetSystemMetrics(SM_CYBORDER);
    SetWindowPos(listBoxNumbers.Window(), HWND_TOP, field.left, field.bottom,
                 field.right - field.left, std::clamp(rows, 1, 10) * rowHeight + borders,
                 SWP_NOACTIVATE);
}

bool FormSmsSendWindow::OnKeyDown(std::int32_t keyCode, std::int32_t shift) {
    if (form->Form_KeyDown(keyCode, shift)) return true;
    if (!Loaded()) return true;
    if (textTo.HasFocus()) return parts->recipientField.TextTo_KeyDown(keyCode, shift);
    if (message.HasFocus()) return parts->messageText.Message_KeyDown(keyCode, shift);
    return comboBoxTextbausteine.HasFocus() &&
           parts->textTemplates.ComboBoxTextbausteine_KeyDown(keyCode, shift);
}

bool FormSmsSendWindow::OnCharacter(char16_t character) {
    return message.HasFocus() && parts->messageText.Message_KeyPress(character);
}

bool FormSmsSendWindow::OnDoubleClick(HWND target) {
    if (target != comboBoxTextbausteine.Edit()) return false;
    parts->textTemplates.ComboBoxTextbausteine_DblClick();
    return true;
}

void FormSmsSendWindow::OnCommand(HWND control, WORD notification) {
    if (control == textTo.Window()) {
        TextToCommand(notification);
    } else if (control == listBoxNumbers.Window()) {
        ListBoxNumbersCommand(notification);
    } else if (control == message.Window()) {
        if (notification == EN_CHANGE) message.Changed();
    } else if (notification == BN_CLICKED) {
        ClickButton(control);
    }
}

void FormSmsSendWindow::TextToCommand(WORD notification) {
    switch (notification) {
        case CBN_EDITCHANGE:
            textTo.Changed();
            break;
        case CBN_SELCHANGE: {
            // The system fills the edit field only after this.
            const std::int32_t index = textTo.SelectedIndex();
            textTo.SetSelectedIndex(index);
            parts->recipientField.TextTo_Click();
            break;
        }
        case CBN_KILLFOCUS:
            // A click into the match list is not a leaving of the field.
            if (GetFocus() != listBoxNumbers.Window()) parts->recipientField.TextTo_LostFocus();
            break;
        default:
            break;
    }
}

void FormSmsSendWindow::ListBoxNumbersCommand(WORD notification) {
    if (notification == LBN_SELCHANGE) {
        parts->recipientField.ListBoxNumbers_Click();
        textTo.SetFocus();
    } else if (notification == LBN_KILLFOCUS && !textTo.HasFocus()) {
        parts->recipientField.TextTo_LostFocus();
    }
}

void FormSmsSendWindow::ClickButton(HWND control) {
    const std::pair<const WindowControl&, std::function<void()>> handlers[] = {
        {buttonTo, [this] { form->ButtonTo_Click(); }},
        {buttonSend, [this] { parts->submission.ButtonSend_Click(); }},
        {buttonStore, [this] { parts->submission.ButtonStore_Click(); }},
        {buttonOK, [this] { form->ButtonOK_Click(); }},
        {buttonOptions, [this] { form->ButtonOptions_Click(); }},
        {buttonExpand, [this] { form->ButtonExpand_Click(); }},
        {buttonHex, [this] { parts->messageText.ButtonHex_Click(); }},
        {buttonUcs2, [this] { parts->messageText.ButtonUcs2_Click(); }},
        {buttonAdd, [this] { parts->textTemplates.ButtonAdd_Click(); }},
        {buttonDel, [this] { parts->textTemplates.ButtonDel_Click(); }},
        {buttonInsert, [this] { parts->textTemplates.ButtonInsert_Click(); }},
    };
    for (const auto& [button, click] : handlers) {
        if (button.Window() != control) continue;
        click();
        return;
    }
}

}  // namespace tellwick::windows
