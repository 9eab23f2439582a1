// What the user does in the SMS form's window goes to the owner of the rule behind the control:
// which key is whose, what a change is followed by, and where the focus goes after a choice.
#pragma once

#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendView.h"

namespace tellwick {

class FormSmsSendRouter : public FormSmsSendEvents {
public:
    FormSmsSendRouter(FormSmsSendView& view, FormSmsSend& form, const FormSmsSendParts& parts);

    void Form_Activate() override { form.Form_Activate(); }
    void Form_Deactivate() override { form.Form_Deactivate(); }
    void Form_Close() override { form.Form_Close(); }
    void Form_Resize() override { form.Form_Resize(); }
    // The form's own keys come first, then those of the control that has the focus.
    bool Form_KeyDown(std::int32_t keyCode, std::int32_t shift) override;
    bool Form_KeyPress(char16_t character) override;

    void TextTo_Change() override;
    void TextTo_Click() override;
    void TextTo_LostFocus() override;
    // The user goes on in the field, behind the number.
    void ListBoxNumbers_Click() override;
    void ListBoxNumbers_Scroll(std::int32_t lastRow) override;
    void ListBoxNumbers_LostFocus() override;
    void Message_Change() override;
    void ComboBoxTextbausteine_DblClick() override;

    void FormSMSSend_Button_Click(BarButton button) override {
        form.FormSMSSend_Button_Click(button);
    }
    void StatusBar1_Click() override { form.StatusBar1_Click(); }
    void AirCount_Click() override { form.AirCount_Click(); }
    void ButtonTo_Click() override { form.ButtonTo_Click(); }
    void ButtonSend_Click() override;
    void ButtonStore_Click() override;
    void ButtonOK_Click() override { form.ButtonOK_Click(); }
    void ButtonOptions_Click() override { form.ButtonOptions_Click(); }
    void ButtonHelp_Click() override { form.ButtonHelp_Click(); }
    void ButtonExpand_Click() override { form.ButtonExpand_Click(); }
    void ButtonHex_Click() override;
    void ButtonUcs2_Click() override;
    void ButtonAdd_Click() override;
    void ButtonDel_Click() override;
    void ButtonInsert_Click() override;
    void ButtonFields_Click() override;

private:
    bool TextTo_KeyDown(std::int32_t keyCode, std::int32_t shift);

    FormSmsSendView& view;
    FormSmsSend& form;
    FormSmsSendParts parts;
};

}  // namespace tellwick
