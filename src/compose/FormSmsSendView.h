// The window of the SMS form as its model sees it: the controls under their names. It raises each
// control's events at the owner of the rule behind it, the form's own at the form.
#pragma once

#include <cstdint>

#include "platform/Forms.h"

namespace tellwick {

class FormSmsSend;
struct FormSmsSendParts;

// The buttons of the button bar, from left to right.
enum class BarButton { Send, Store, Template, Hex, Options, Help };

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

    // Font of the message box; an empty name or a size of 0 stands for the system's.
    virtual void SetMessageFont(TextView name, std::int32_t points) = 0;

    // Receivers of the window's events; set once, before the first load. A handler that returns a
    // bool says whether the key was used up: the control does not see it then.
    virtual void SetHandlers(FormSmsSend& form, const FormSmsSendParts& parts) = 0;
};

}  // namespace tellwick
