// The window of the SMS form as its model sees it: the controls under their names.
#pragma once

#include <memory>

#include "platform/Forms.h"

namespace tellwick {

class FormSmsSend;

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

    // Font of the message box; an empty name or a size of 0 keeps what is there.
    virtual void SetMessageFont(TextView name, std::int32_t points) = 0;

    // Handler of the window's events; set once, before the first load.
    virtual void SetForm(FormSmsSend& form) = 0;
};

}  // namespace tellwick
