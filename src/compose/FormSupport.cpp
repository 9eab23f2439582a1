#include "compose/FormSupport.h"

#include "settings/Debug.h"
#include "settings/LanguageTexts.h"
#include "settings/QuestionBox.h"
#include "settings/SupportFile.h"

namespace tellwick {

namespace {

constexpr TextView FormName = u"FormSupport";

}  // namespace

FormSupport::FormSupport(const Services& services, FormSupportView& view, Forms& forms,
                         SupportFile& supportFile)
    : Services(services), view(view), forms(forms), supportFile(supportFile) {
    view.SetEvents(*this);
}

FormSupport::~FormSupport() {
    forms.Remove(*this);
}

void FormSupport::Show() {
    if (!view.Loaded()) {
        if (!view.Load()) return;
        forms.Add(*this);
        language.GetLanguageStringsForForm(FormName, view);
        view.TextContents().SetText(supportFile.Gather());
    }
    view.Show();
}

void FormSupport::Unload() {
    if (!view.Loaded()) return;
    view.Unload();
    forms.Remove(*this);
}

void FormSupport::ButtonSave_Click() {
    Procedure procedure{debug, u"ButtonSave_Click"};
    Text path;
    const bool saved = supportFile.Save(path);
    questionBox.MsgBoxEx(
        ReplaceAll(language.TextOrBuiltIn(FormName, saved ? TextView(u"Saved") : u"NotSaved"),
                   u"%f", path),
        saved ? box::IconInformation : box::IconExclamation);
    if (saved) Unload();
}

void FormSupport::ButtonCancel_Click() {
    Procedure procedure{debug, u"ButtonCancel_Click"};
    Unload();
}

}  // namespace tellwick
