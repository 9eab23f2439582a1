// The window of the preview: the SMS one by one, and the characters that are worth a word.
#pragma once

#include "platform/Forms.h"

namespace tellwick {

class FormSmsPreviewEvents {
public:
    virtual ~FormSmsPreviewEvents() = default;
    // Another row was chosen, by mouse or key.
    virtual void ListCharacters_Click() = 0;
    virtual void ButtonReplace_Click() = 0;
    virtual void ButtonReplaceAll_Click() = 0;
    // Also for Escape and the window's frame.
    virtual void ButtonOK_Click() = 0;
};

// A dialog of the SMS form, which takes no input while this window is open.
class FormSmsPreviewView : public FormView {
public:
    virtual Control& LabelCount() = 0;
    virtual StyledText& TextParts() = 0;
    // Its rows have three columns, with tabs between them.
    virtual ListBox& ListCharacters() = 0;
    virtual Control& ButtonReplace() = 0;
    virtual Control& ButtonReplaceAll() = 0;

    // Receiver of the window's events; set once, before the first load.
    virtual void SetEvents(FormSmsPreviewEvents& events) = 0;
};

}  // namespace tellwick
