// The window of the support file: all that is in it, before it is saved.
#pragma once

#include "platform/Forms.h"

namespace tellwick {

class FormSupportEvents {
public:
    virtual ~FormSupportEvents() = default;
    // The default button.
    virtual void ButtonSave_Click() = 0;
    // Also for Escape and the window's frame.
    virtual void ButtonCancel_Click() = 0;
};

// A dialog of the settings window, which takes no input while this window is open.
class FormSupportView : public FormView {
public:
    // Of many lines, to be read only.
    virtual TextBox& TextContents() = 0;

    // Receiver of the window's events; set once, before the first load.
    virtual void SetEvents(FormSupportEvents& events) = 0;
};

}  // namespace tellwick
