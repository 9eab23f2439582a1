// The window of the settings: what the add-in itself reads, a field for each.
#pragma once

#include <vector>

#include "platform/Forms.h"

namespace tellwick {

class FormOptionsEvents {
public:
    virtual ~FormOptionsEvents() = default;
    virtual void CheckStoreNumbers_Click() = 0;
    virtual void OptionNational_Click() = 0;
    virtual void OptionInternational_Click() = 0;
    virtual void ButtonSupport_Click() = 0;
    // The default button.
    virtual void ButtonOK_Click() = 0;
    // Also for Escape and the window's frame.
    virtual void ButtonCancel_Click() = 0;
};

// A dialog of the SMS form, which takes no input while this window is open.
class FormOptionsView : public FormView {
public:
    virtual CheckBox& CheckStoreNumbers() = 0;
    virtual CheckBox& CheckNumberCache() = 0;
    virtual Control& LabelNumUsedNumber() = 0;
    // Takes digits only, five at most.
    virtual TextBox& TextNumUsedNumber() = 0;
    // Two option buttons: the user chooses one and thereby lets the other go.
    virtual CheckBox& OptionNational() = 0;
    virtual CheckBox& OptionInternational() = 0;
    virtual TextBox& TextPrefixes() = 0;
    virtual ItemList& BoxFont() = 0;
    virtual ItemList& BoxFontSize() = 0;
    virtual ItemList& BoxLanguage() = 0;
    virtual CheckBox& CheckAirCount() = 0;
    virtual CheckBox& CheckAskLostCharacters() = 0;
    virtual CheckBox& CheckForgetAnswers() = 0;
    virtual CheckBox& CheckTrace() = 0;
    // Takes no place without a caption.
    virtual Control& LabelFixed() = 0;

    // Names of the installed fonts that letters can be written in, in alphabetical order.
    virtual std::vector<Text> FontNames() = 0;

    // Receiver of the window's events; set once, before the first load.
    virtual void SetEvents(FormOptionsEvents& events) = 0;
};

}  // namespace tellwick
