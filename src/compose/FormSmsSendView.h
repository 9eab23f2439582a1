// The window of the SMS form as its model sees it: the controls under their names, and the events
// that the window raises.
#pragma once

#include <cstdint>

#include "platform/Forms.h"

namespace tellwick {

// Virtual-key codes and shift states that the forms handle.
namespace key {
inline constexpr std::int32_t Back = 8;
inline constexpr std::int32_t Enter = 13;
inline constexpr std::int32_t Escape = 27;
inline constexpr std::int32_t Up = 38;
inline constexpr std::int32_t Down = 40;
inline constexpr std::int32_t Left = 37;
inline constexpr std::int32_t Right = 39;
inline constexpr std::int32_t F1 = 0x70;

inline constexpr std::int32_t Shift = 1;
inline constexpr std::int32_t Control = 2;
inline constexpr std::int32_t Alt = 4;
}  // namespace key

// Handlers that return a bool say whether the key was used up; the control does not see it then.
class FormSmsSendEvents {
public:
    virtual ~FormSmsSendEvents() = default;

    // The window was activated by the user or the system.
    virtual void Form_Activate() = 0;
    // The user closed the window by its frame; the window is unloaded by the handler, not by
    // itself.
    virtual void Form_Close() = 0;
    virtual void Form_Resize() = 0;
    // Comes before any control's own key handler.
    virtual bool Form_KeyDown(std::int32_t keyCode, std::int32_t shift) = 0;

    virtual void TextTo_Change() = 0;
    // An item of the drop-down was chosen; the edit field already holds its text.
    virtual void TextTo_Click() = 0;
    virtual bool TextTo_KeyDown(std::int32_t keyCode, std::int32_t shift) = 0;
    virtual void TextTo_LostFocus() = 0;
    virtual void ListBoxNumbers_Click() = 0;
    virtual void ButtonTo_Click() = 0;

    virtual void Message_Change() = 0;
    virtual bool Message_KeyDown(std::int32_t keyCode, std::int32_t shift) = 0;
    virtual bool Message_KeyPress(char16_t character) = 0;
    virtual void ButtonHex_Click() = 0;
    virtual void ButtonUcs2_Click() = 0;

    virtual bool ComboBoxTextbausteine_KeyDown(std::int32_t keyCode, std::int32_t shift) = 0;
    virtual void ComboBoxTextbausteine_DblClick() = 0;
    virtual void ButtonAdd_Click() = 0;
    virtual void ButtonDel_Click() = 0;
    virtual void ButtonInsert_Click() = 0;

    virtual void ButtonSend_Click() = 0;
    virtual void ButtonStore_Click() = 0;
    virtual void ButtonOK_Click() = 0;
    virtual void ButtonExpand_Click() = 0;
    virtual void ButtonOptions_Click() = 0;
};

// Exists once; its window comes and goes with Load and Unload.
class FormSmsSendView : public FormView {
public:
    virtual ComboBox& TextTo() = 0;
    virtual Control& ButtonTo() = 0;
    virtual ListBox& ListBoxNumbers() = 0;
    virtual TextBox& Message() = 0;
    virtual CheckBox& CheckFlash() = 0;
    virtual CheckBox& CheckLong() = 0;
    virtual ComboBox& ComboBoxTextbausteine() = 0;
    virtual Control& ButtonAdd() = 0;
    virtual Control& ButtonDel() = 0;
    virtual Control& ButtonInsert() = 0;
    virtual Control& ButtonSend() = 0;
    virtual Control& ButtonStore() = 0;
    virtual Control& ButtonOK() = 0;
    virtual Control& ButtonExpand() = 0;
    virtual Control& ButtonHex() = 0;
    virtual Control& ButtonUcs2() = 0;
    virtual Control& LabelStatus() = 0;
    virtual ProgressBar& ProgressBar1() = 0;
    virtual StatusBar& StatusBar1() = 0;

    // Lays the controls out for the window's size, with or without the templates area.
    virtual void Resize(bool expanded) = 0;

    // Places ListBoxNumbers below the recipient field, as wide as the field and `rows` rows high
    // (1 to 10), above the other controls. Showing and hiding it goes through its visibility.
    virtual void PlaceListBoxNumbers(std::int32_t rows) = 0;

    // Font of the message box; an empty name or a size of 0 keeps what is there.
    virtual void SetMessageFont(TextView name, std::int32_t points) = 0;

    // Receiver of the window's events; set once, before the first load.
    virtual void SetEvents(FormSmsSendEvents& events) = 0;
};

}  // namespace tellwick
