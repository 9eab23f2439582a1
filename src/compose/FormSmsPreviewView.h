// The window of the preview: the SMS one by one, and the characters that are worth a word.
#pragma once

#include "platform/Forms.h"

namespace tellwick {

class FormSmsPreviewEvents {
public:
    virtual ~FormSmsPreviewEvents() = default;
    // Another row was chosen, by mouse or key.
    virtual void ListCharacters_Click() = 0;
    // To the text of the person before, or behind; also for Page Up and Page Down.
    virtual void ButtonBack_Click() = 0;
    virtual void ButtonForward_Click() = 0;
    virtual void ListMissing_Click() = 0;
    virtual void ButtonReplace_Click() = 0;
    virtual void ButtonReplaceAll_Click() = 0;
    // Also for Escape and the window's frame.
    virtual void ButtonOK_Click() = 0;
};

// A dialog of the SMS form, which takes no input while this window is open.
class FormSmsPreviewView : public FormView {
public:
    virtual Control& LabelCount() = 0;
    // The part for a text that is another one for everybody: whose it is, and who lacks what, in
    // rows of two columns. SetPersonal shows the part, or takes it away.
    virtual void SetPersonal(bool personal) = 0;
    virtual Control& LabelPerson() = 0;
    virtual Control& ButtonBack() = 0;
    virtual Control& ButtonForward() = 0;
    virtual ListBox& ListMissing() = 0;
    virtual StyledText& TextParts() = 0;
    // Its rows have three columns, with tabs between them.
    virtual ListBox& ListCharacters() = 0;
    virtual Control& ButtonReplace() = 0;
    virtual Control& ButtonReplaceAll() = 0;

    // Receiver of the window's events; set once, before the first load.
    virtual void SetEvents(FormSmsPreviewEvents& events) = 0;
};

}  // namespace tellwick
