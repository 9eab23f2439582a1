#include "windows/FormSmsSendWindow.h"

#include <algorithm>

namespace tellwick::windows {

namespace {

constexpr WPARAM LongestText = 0x7FFFFFFE;
constexpr WORD ListDrawn = 0x7F00;  // a notification of our own

// Of the button bar's buttons in the language file.
constexpr TextView BarButtonNames[FormSmsSendControls::BarButtons] = {
    u"ButtonBar1.Send", u"ButtonBar1.Store",   u"ButtonBar1.Template",
    u"ButtonBar1.Hex",  u"ButtonBar1.Options", u"ButtonBar1.Help"};

}  // namespace

FormSmsSendWindow::FormSmsSendWindow() {
    controls.textTo.onChange = [this] { events->TextTo_Change(); };
    controls.message.onChange = [this] { events->Message_Change(); };
}

bool FormSmsSendWindow::Load() {
    if (!Create(controls.Plan())) return false;
    expanded = false;
    grown = 0;
    controls.buttonBar1.AddButtons();
    SendMessageW(controls.message.Window(), EM_SETLIMITTEXT, LongestText, 0);
    SetDefaultButton(controls.buttonSend);
    return true;
}

void FormSmsSendWindow::ForEachControl(const std::function<void(TextView, Control&)>& visit) {
    VisitControls(visit);
    for (int button = 1; button <= FormSmsSendControls::BarButtons; ++button) {
        visit(BarButtonNames[button - 1], controls.buttonBar1.Button(button));
    }
}

void FormSmsSendWindow::LoadBackGround() {
    if (Loaded()) controls.buttonBar1.LoadPictures(Font());
}

void FormSmsSendWindow::SetMessageFont(TextView name, std::int32_t points) {
    fontName = name;
    fontPoints = points;
    MakeMessageFont();
}

void FormSmsSendWindow::MakeMessageFont() {
    if (!Loaded()) return;
    LOGFONTW font{};
    GetObjectW(Font().Get(), sizeof font, &font);
    if (!fontName.empty()) lstrcpynW(font.lfFaceName, Wide(fontName), LF_FACESIZE);
    if (fontPoints > 0) {
        font.lfHeight = -MulDiv(std::min(fontPoints, 72), Font().Resolution(), 72);
    }
    GdiObject created(CreateFontIndirectW(&font));
    SendMessageW(controls.message.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(created.get()),
                 TRUE);
    messageFont = std::move(created);
}

void FormSmsSendWindow::OnResolution() {
    MakeMessageFont();
    LoadBackGround();
    grown = expanded && grown > 0 ? FormSmsSendLayout(controls, Font()).TemplatesHeight() : 0;
}

SIZE FormSmsSendWindow::LeastClient() const {
    return FormSmsSendLayout(controls, Font()).Least(expanded);
}

SIZE FormSmsSendWindow::UsualClient() const {
    const SIZE least = LeastClient();
    return {least.cx * 9 / 8, least.cy + Font().Metrics().Vertical(20)};
}

void FormSmsSendWindow::Resize(bool nowExpanded) {
    if (!Loaded()) return;
    const bool changed = std::exchange(expanded, nowExpanded) != nowExpanded;
    FormSmsSendLayout layout(controls, Font());
    if (!Placed()) {
        // The layout follows with the first showing, at a size that has the area in it.
        grown = expanded ? layout.TemplatesHeight() : 0;
        return;
    }
    if (changed) {
        // Sizes the window, which comes back here.
        if (expanded) {
            grown = Grow(layout.TemplatesHeight());
        } else {
            LeaveTemplates();
            Grow(-std::exchange(grown, 0));
        }
    }
    RECT client;
    GetClientRect(FormWindow::Window(), &client);
    layout.Arrange({client.right, client.bottom}, expanded);
}

void FormSmsSendWindow::PlaceListBoxNumbers(std::int32_t rows) {
    if (!Loaded()) return;
    RECT field;
    GetWindowRect(controls.textTo.Window(), &field);
    MapWindowPoints(nullptr, FormWindow::Window(), reinterpret_cast<POINT*>(&field), 2);
    const int rowHeight =
        int(SendMessageW(controls.listBoxNumbers.Window(), LB_GETITEMHEIGHT, 0, 0));
    const int borders = 2 * GetSystemMetrics(SM_CYBORDER);
    SetWindowPos(controls.listBoxNumbers.Window(), nullptr, field.left, field.bottom,
                 field.right - field.left, std::clamp(rows, 1, 10) * rowHeight + borders,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

std::int32_t FormSmsSendWindow::ButtonFields_Menu(const std::vector<Text>& entries) {
    if (!Loaded()) return -1;
    const HMENU menu = CreatePopupMenu();
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        AppendMenuW(menu, entries[entry].empty() ? MF_SEPARATOR : MF_STRING, entry + 1,
                    Wide(entries[entry]));
    }
    RECT button;
    GetWindowRect(controls.buttonFields.Window(), &button);
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, button.left,
                                      button.bottom, 0, FormWindow::Window(), nullptr);
    DestroyMenu(menu);
    return chosen - 1;
}

// The area that goes must not keep the focus.
void FormSmsSendWindow::LeaveTemplates() {
    for (const WindowControl* part : controls.Templates()) {
        if (part->HasFocus()) controls.message.SetFocus();
    }
}

LRESULT FormSmsSendWindow::OnNotify(const NMHDR& notification) {
    if (notification.hwndFrom != controls.statusBar1.Window() || notification.code != NM_CLICK)
        return 0;
    if (controls.statusBar1.OnPane(notification)) {
        events->AirCount_Click();
    } else {
        events->StatusBar1_Click();
    }
    return 0;
}

// However the user scrolls, the list is drawn. It is filled by the message loop, not within.
void FormSmsSendWindow::OnListDrawn(HWND list) {
    if (list == controls.listBoxNumbers.Window() && controls.listBoxNumbers.Visible())
        PostMessageW(FormWindow::Window(), WM_COMMAND, MAKEWPARAM(0, ListDrawn), LPARAM(list));
}

bool FormSmsSendWindow::OnDoubleClick(HWND target) {
    if (target != controls.comboBoxTextbausteine.Edit()) return false;
    events->ComboBoxTextbausteine_DblClick();
    return true;
}

void FormSmsSendWindow::OnCommand(HWND control, WORD notification, WORD identifier) {
    if (control == controls.buttonBar1.Window()) {
        events->FormSMSSend_Button_Click(BarButton(identifier - 1));
        return;
    }
    if (control == controls.textTo.Window()) {
        TextToCommand(notification);
    } else if (control == controls.listBoxNumbers.Window()) {
        ListBoxNumbersCommand(notification);
    } else if (control == controls.message.Window()) {
        if (notification == EN_CHANGE) controls.message.Changed();
    } else if (notification == BN_CLICKED) {
        ClickButton(control);
    }
}

void FormSmsSendWindow::TextToCommand(WORD notification) {
    switch (notification) {
        case CBN_SETFOCUS:
            // What is typed next needs it, and should not wait for its making.
            controls.listBoxNumbers.Need();
            break;
        case CBN_EDITCHANGE:
            controls.textTo.Changed();
            break;
        case CBN_SELCHANGE: {
            // The system fills the edit field only after this.
            const std::int32_t index = controls.textTo.SelectedIndex();
            controls.textTo.SetSelectedIndex(index);
            events->TextTo_Click();
            break;
        }
        case CBN_KILLFOCUS:
            events->TextTo_LostFocus();
            // The system leaves the field scrolled to where it was written last.
            controls.textTo.Select(0, 0);
            break;
        default:
            break;
    }
}

void FormSmsSendWindow::ListBoxNumbersCommand(WORD notification) {
    if (notification == LBN_SELCHANGE) {
        events->ListBoxNumbers_Click();
    } else if (notification == ListDrawn) {
        events->ListBoxNumbers_Scroll(controls.listBoxNumbers.LastVisibleIndex());
    } else if (notification == LBN_KILLFOCUS) {
        events->ListBoxNumbers_LostFocus();
    }
}

void FormSmsSendWindow::ClickButton(HWND control) {
    using Click = void (FormSmsSendEvents::*)();
    const std::pair<const WindowControl&, Click> clicks[] = {
        {controls.buttonTo, &FormSmsSendEvents::ButtonTo_Click},
        {controls.buttonSend, &FormSmsSendEvents::ButtonSend_Click},
        {controls.buttonStore, &FormSmsSendEvents::ButtonStore_Click},
        {controls.buttonOK, &FormSmsSendEvents::ButtonOK_Click},
        {controls.buttonOptions, &FormSmsSendEvents::ButtonOptions_Click},
        {controls.buttonHelp, &FormSmsSendEvents::ButtonHelp_Click},
        {controls.buttonExpand, &FormSmsSendEvents::ButtonExpand_Click},
        {controls.buttonHex, &FormSmsSendEvents::ButtonHex_Click},
        {controls.buttonUcs2, &FormSmsSendEvents::ButtonUcs2_Click},
        {controls.buttonAdd, &FormSmsSendEvents::ButtonAdd_Click},
        {controls.buttonDel, &FormSmsSendEvents::ButtonDel_Click},
        {controls.buttonInsert, &FormSmsSendEvents::ButtonInsert_Click},
        {controls.buttonFields, &FormSmsSendEvents::ButtonFields_Click},
    };
    for (const auto& [button, click] : clicks) {
        if (button.Window() != control) continue;
        (events->*click)();
        return;
    }
}

}  // namespace tellwick::windows
