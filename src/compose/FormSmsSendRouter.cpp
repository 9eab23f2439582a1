#include "compose/FormSmsSendRouter.h"

#include "compose/FieldMenu.h"
#include "compose/MessageText.h"
#include "compose/Submission.h"
#include "platform/Keys.h"
#include "recipients/RecipientField.h"
#include "recipients/TextTemplates.h"

namespace tellwick {

FormSmsSendRouter::FormSmsSendRouter(FormSmsSendView& view, FormSmsSend& form,
                                     const FormSmsSendParts& parts)
    : view(view), form(form), parts(parts) {
    view.SetEvents(*this);
}

bool FormSmsSendRouter::Form_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    if (form.Form_KeyDown(keyCode, shift)) return true;
    // No control is left that could see the key.
    if (!view.Loaded()) return true;
    if (view.TextTo().HasFocus()) return TextTo_KeyDown(keyCode, shift);
    if (view.Message().HasFocus()) return parts.messageText.Message_KeyDown(keyCode, shift);
    return view.ComboBoxTextbausteine().HasFocus() &&
           parts.textTemplates.ComboBoxTextbausteine_KeyDown(keyCode, shift);
}

bool FormSmsSendRouter::TextTo_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    if (parts.recipientField.TextTo_KeyDown(keyCode, shift)) return true;
    // On to the text, where Enter has no list to choose from.
    if (keyCode != key::Enter || shift != 0 || view.TextTo().Dropped()) return false;
    view.Message().SetFocus();
    return true;
}

bool FormSmsSendRouter::Form_KeyPress(char16_t character) {
    return view.Message().HasFocus() && parts.messageText.Message_KeyPress(character);
}

void FormSmsSendRouter::TextTo_Change() {
    parts.recipientField.TextTo_Change();
    form.Contents_Change();
}

void FormSmsSendRouter::TextTo_Click() {
    parts.recipientField.TextTo_Click();
    form.Contents_Change();
}

void FormSmsSendRouter::TextTo_LostFocus() {
    // A click into the match list is not a leaving of the field.
    if (!view.ListBoxNumbers().HasFocus()) parts.recipientField.TextTo_LostFocus();
}

void FormSmsSendRouter::ListBoxNumbers_Click() {
    parts.recipientField.ListBoxNumbers_Click();
    view.TextTo().SetFocus();
    view.TextTo().Select(std::int32_t(view.TextTo().GetText().size()), 0);
}

void FormSmsSendRouter::ListBoxNumbers_Scroll(std::int32_t lastRow) {
    parts.recipientField.ListBoxNumbers_Scroll(lastRow);
}

void FormSmsSendRouter::ListBoxNumbers_LostFocus() {
    if (!view.TextTo().HasFocus()) parts.recipientField.TextTo_LostFocus();
}

void FormSmsSendRouter::Message_Change() {
    parts.messageText.Message_Change();
    form.Contents_Change();
}

void FormSmsSendRouter::ComboBoxTextbausteine_DblClick() {
    parts.textTemplates.ComboBoxTextbausteine_DblClick();
}

void FormSmsSendRouter::ButtonSend_Click() {
    parts.submission.ButtonSend_Click();
}

void FormSmsSendRouter::ButtonStore_Click() {
    parts.submission.ButtonStore_Click();
}

void FormSmsSendRouter::ButtonHex_Click() {
    parts.messageText.ButtonHex_Click();
}

void FormSmsSendRouter::ButtonUcs2_Click() {
    parts.messageText.ButtonUcs2_Click();
}

void FormSmsSendRouter::ButtonAdd_Click() {
    parts.textTemplates.ButtonAdd_Click();
}

void FormSmsSendRouter::ButtonDel_Click() {
    parts.textTemplates.ButtonDel_Click();
}

void FormSmsSendRouter::ButtonInsert_Click() {
    parts.textTemplates.ButtonInsert_Click();
}

void FormSmsSendRouter::ButtonFields_Click() {
    parts.fieldMenu.ButtonFields_Click();
}

}  // namespace tellwick
