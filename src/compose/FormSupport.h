// The window of the support file: the user sees what is in it, and saves it or does not.
#pragma once

#include "compose/FormSupportView.h"
#include "settings/Services.h"

namespace tellwick {

class SupportFile;

class FormSupport : public Form, public FormSupportEvents, private Services {
public:
    FormSupport(const Services& services, FormSupportView& view, Forms& forms,
                SupportFile& supportFile);
    ~FormSupport() override;

    void Show();
    void Unload() override;

    // Tells the user where the file is, or that it could not be written; the window stays then.
    void ButtonSave_Click() override;
    void ButtonCancel_Click() override;

private:
    FormSupportView& view;
    Forms& forms;
    SupportFile& supportFile;
};

}  // namespace tellwick
