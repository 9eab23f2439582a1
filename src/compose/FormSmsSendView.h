// The window of the SMS form as its model sees it: the controls under their names, and what the
// user does with them.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Forms.h"

namespace tellwick {

// The buttons of the button bar, from left to right.
enum class BarButton { Send, Store, Template, Hex, Options, Help };

class FormSmsSendEvents {
public:
    virtual ~FormSmsSendEvents() = default;
    virtual void Form_Activate() = 0;
    // The user goes on elsewhere, or the system ends.
    virtual void Form_Deactivate() = 0;
    // The user closed the window by its frame.
    virtual void Form_Close() = 0;
    virtual void Form_Resize() = 0;
    // A key or a character, before the control that has the focus sees it; true uses it up.
    virtual bool Form_KeyDown(std::int32_t keyCode, std::int32_t shift) = 0;
    virtual bool Form_KeyPress(char16_t character) = 0;

    // The text changed, whoever did it.
    virtual void TextTo_Change() = 0;
    // An item of the drop-down was chosen, and its text stands in the field.
    virtual void TextTo_Click() = 0;
    // The focus is where it has gone to.
    virtual void TextTo_LostFocus() = 0;
    virtual void ListBoxNumbers_Click() = 0;
    // Rows down to this one are to be seen.
    virtual void ListBoxNumbers_Scroll(std::int32_t lastRow) = 0;
    virtual void ListBoxNumbers_LostFocus() = 0;
    virtual void Message_Change() = 0;
    virtual void ComboBoxTextbausteine_DblClick() = 0;
    virtual void FormSMSSend_Button_Click(BarButton button) = 0;
    virtual void StatusBar1_Click() = 0;
    // A click on the status bar's own pane.
    virtual void AirCount_Click() = 0;
    virtual void ButtonTo_Click() = 0;
    virtual void ButtonSend_Click() = 0;
    virtual void ButtonStore_Click() = 0;
    virtual void ButtonOK_Click() = 0;
    virtual void ButtonOptions_Click() = 0;
    virtual void ButtonHelp_Click() = 0;
    virtual void ButtonExpand_Click() = 0;
    virtual void ButtonHex_Click() = 0;
    virtual void ButtonUcs2_Click() = 0;
    virtual void ButtonAdd_Click() = 0;
    virtual void ButtonDel_Click() = 0;
    virtual void ButtonInsert_Click() = 0;
    virtual void ButtonFields_Click() = 0;
};

// Exists once; its window comes and goes with Load and Unload.
class FormSmsSendView : public FormView {
public:
    virtual ComboBox& TextTo() = 0;
    virtual ListBox& ListBoxNumbers() = 0;
    virtual TextBox& Message() = 0;
    virtual CheckBox& CheckFlash() = 0;
    virtual CheckBox& CheckStatus() = 0;
    virtual CheckBox& CheckLong() = 0;
    virtual ItemList& BoxExpires() = 0;
    virtual CheckBox& CheckSendAndQuit() = 0;
    virtual CheckBox& CheckSetNumber() = 0;
    virtual ComboBox& ComboBoxTextbausteine() = 0;
    virtual Control& ButtonExpand() = 0;
    virtual Control& ButtonHex() = 0;
    virtual Control& ButtonUcs2() = 0;
    // Checked while it is pressed in.
    virtual CheckBox& ButtonBar1(BarButton button) = 0;
    virtual Control& LabelStatus() = 0;
    virtual ProgressBar& ProgressBar1() = 0;
    virtual StatusBar& StatusBar1() = 0;

    // Lays the controls out for the window's size, with or without the templates area. A visible
    // window grows by the area when it appears and shrinks when it goes, so that the message box
    // keeps its height, as far as the screen has room.
    virtual void Resize(bool expanded) = 0;

    // Loads the window's pictures in the sizes of its resolution.
    virtual void LoadBackGround() = 0;

    // Places ListBoxNumbers below the recipient field, as wide as the field and `rows` rows high
    // (1 to 10), above the other controls. Showing and hiding it goes through its visibility.
    virtual void PlaceListBoxNumbers(std::int32_t rows) = 0;

    // Opens a menu below the button ButtonFields; an empty entry is a line between others. The
    // index of the chosen entry, -1 for none.
    virtual std::int32_t ButtonFields_Menu(const std::vector<Text>& entries) = 0;

    // Font of the message box; an empty name or a size of 0 stands for the system's.
    virtual void SetMessageFont(TextView name, std::int32_t points) = 0;

    // Set once, before the first load.
    virtual void SetEvents(FormSmsSendEvents& events) = 0;
};

}  // namespace tellwick
