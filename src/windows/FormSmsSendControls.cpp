#include "windows/FormSmsSendControls.h"
#include "windows/ControlStyles.h"

namespace tellwick::windows {

std::vector<ControlPlan> FormSmsSendControls::Plan() {
    constexpr DWORD Combo = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL;
    constexpr DWORD Box =
        WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | ES_NOHIDESEL;
    constexpr DWORD List =
        WS_BORDER | WS_VSCROLL | WS_CLIPSIBLINGS | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;
    constexpr auto Later = ControlPlan::Later;
    return {
        // First in depth: the match list lies over the other controls.
        {u"ListBoxNumbers",
         &listBoxNumbers,
         L"LISTBOX",
         List,
         0,
         {u"LabelNumbers", &labelNumbers},
         Later},
        {u"ButtonBar1", &buttonBar1, WindowToolbar::Class, WindowToolbar::Style, 0},
        {u"ButtonTo", &buttonTo, L"BUTTON", style::Button | WS_GROUP, 0},
        {u"TextTo", &textTo, L"COMBOBOX", Combo, 0, {u"LabelTo", &labelTo}},
        {u"Message", &message, L"EDIT", Box, style::Edge, {u"LabelMessage", &labelMessage}},
        {u"FrameOptions", &frameOptions, L"BUTTON", style::Group, style::SeeThrough},
        {u"CheckFlash", &checkFlash, L"BUTTON", style::Check, 0},
        {u"CheckStatus", &checkStatus, L"BUTTON", style::Check, 0},
        {u"CheckLong", &checkLong, L"BUTTON", style::Check, 0},
        {u"LabelExpires", &labelExpires, L"STATIC", SS_LEFT, 0},
        {u"BoxExpires", &boxExpires, L"COMBOBOX", style::DropDown, 0},
        {u"CheckSendAndQuit", &checkSendAndQuit, L"BUTTON", style::Check, 0},
        {u"CheckSetNumber", &checkSetNumber, L"BUTTON", style::Check, 0},
        {u"ButtonSend", &buttonSend, L"BUTTON", style::Button | WS_GROUP, 0},
        {u"ButtonStore", &buttonStore, L"BUTTON", style::Button, 0},
        {u"ButtonHex", &buttonHex, L"BUTTON", style::Button, 0},
        {u"ButtonUcs2", &buttonUcs2, L"BUTTON", style::Button, 0},
        {u"ButtonOptions", &buttonOptions, L"BUTTON", style::Button, 0},
        {u"ButtonHelp", &buttonHelp, L"BUTTON", style::Button, 0},
        {u"ButtonExpand", &buttonExpand, L"BUTTON", style::Button, 0},
        {u"ButtonOK", &buttonOK, L"BUTTON", style::Button, 0},
        {u"FrameTextbausteine",
         &frameTextbausteine,
         L"BUTTON",
         style::Group,
         style::SeeThrough,
         {},
         Later},
        {u"ComboBoxTextbausteine",
         &comboBoxTextbausteine,
         L"COMBOBOX",
         Combo,
         0,
         {u"LabelTextbausteine", &labelTextbausteine},
         Later},
        {u"ButtonAdd", &buttonAdd, L"BUTTON", style::Button, 0, {}, Later},
        {u"ButtonDel", &buttonDel, L"BUTTON", style::Button, 0, {}, Later},
        {u"ButtonInsert", &buttonInsert, L"BUTTON", style::Button, 0, {}, Later},
        {u"ButtonFields", &buttonFields, L"BUTTON", style::Button, 0, {}, Later},
        {u"LabelStatus", &labelStatus, L"STATIC", WS_GROUP | SS_LEFT | SS_NOPREFIX, 0},
        {u"ProgressBar1", &progressBar1, PROGRESS_CLASSW, 0, 0, {u"LabelProgress", &labelProgress}},
        {u"StatusBar1", &statusBar1, STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0},
    };
}

std::vector<WindowControl*> FormSmsSendControls::Templates() {
    return {&frameTextbausteine, &comboBoxTextbausteine, &buttonAdd,
            &buttonDel,          &buttonInsert,          &buttonFields};
}

}  // namespace tellwick::windows
