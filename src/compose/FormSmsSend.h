// The form in which the user writes one SMS.
#pragma once

#include <cstdint>
#include <memory>

#include "compose/FormSmsSelectAddress.h"
#include "compose/FormSmsSendView.h"
#include "compose/MessageText.h"
#include "compose/SmsQueue.h"
#include "recipients/RecipientField.h"
#include "recipients/TextTemplates.h"

namespace tellwick {

class Contacts;
class Debug;
class InifilesLite;
class Language;
class Locale;
class MessageLoop;
class Prefixes;
class QuestionBox;
class Tellwick;

// There is one; its window comes and goes, its fields stay.
class FormSmsSend : public Form, public FormSmsSendEvents {
public:
    FormSmsSend(FormSmsSendView& view, FormSmsSelectAddressView& selectAddressView, Forms& forms,
                Debug& debug, InifilesLite& inifilesLite, Language& language,
                QuestionBox& questionBox, MessageLoop& messageLoop, Locale& locale,
                Prefixes& prefixes, Contacts& contacts, SmsQueue& queue, Tellwick& tellwick);
    ~FormSmsSend() override;

    // Shows the form, initialised anew, with these recipients instead of the remembered ones
    // unless they are empty. What stands in a form that is open already is kept.
    void Open(TextView recipients);

    // Resets the form's state, reads its settings and lists, and restores the last texts.
    void Form_Initialize_();

    // Queues what the form holds and sees to the sender application; the form closes. A `number`
    // or `text` that is not empty replaces the form's own first. False when it was refused because
    // recipient or text is missing; the user was told and the form stays. A call that comes while
    // one runs only asks for the form to be closed, and returns true.
    bool ButtonSend_Click_(bool fromKey, bool sendNow, TextView number, TextView text);

    // Saves the form's state and takes the window away. Nothing when it is not loaded.
    void Unload() override;

    // Appends a recipient to those in the recipient field.
    void AddRecipient(TextView number);

    void Form_Activate() override;
    void Form_Close() override { Unload(); }
    void Form_Resize() override;
    bool Form_KeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void TextTo_Change() override;
    void TextTo_Click() override;
    bool TextTo_KeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void TextTo_LostFocus() override;
    void ListBoxNumbers_Click() override;
    void ButtonTo_Click() override;
    void Message_Change() override;
    bool Message_KeyDown(std::int32_t keyCode, std::int32_t shift) override;
    bool Message_KeyPress(char16_t character) override;
    void ButtonHex_Click() override;
    void ButtonUcs2_Click() override;
    bool ComboBoxTextbausteine_KeyDown(std::int32_t keyCode, std::int32_t shift) override;
    void ComboBoxTextbausteine_DblClick() override;
    void ButtonAdd_Click() override;
    void ButtonDel_Click() override;
    void ButtonInsert_Click() override;
    void ButtonSend_Click() override { ButtonSend_Click_(false, true, {}, {}); }
    void ButtonStore_Click() override { ButtonSend_Click_(false, false, {}, {}); }
    void ButtonOK_Click() override;
    void ButtonExpand_Click() override;
    // Offers to take back the remembered answers.
    void ButtonOptions_Click() override;

private:
    void Form_Load();
    void Form_Unload();
    void GetSettings();
    void StoreTexts();
    void RestoreTexts();
    void RemoveKeyLineBreak();
    bool QueueMessage(TextView recipient, bool mayBeEmpty);
    void ExpandIt();
    void MsgBox(std::int32_t number);

    bool busy = false;
    bool closeRequested = false;
    bool expanded = false;
    bool storeNumbers = false;
    Text activationMarker;  // empty until the activation step has run
    Text textAttachment;    // appended to the last text, for as long as it ends with it

    FormSmsSendView& view;
    FormSmsSelectAddressView& selectAddressView;
    Forms& forms;
    Debug& debug;
    InifilesLite& inifilesLite;
    Language& language;
    QuestionBox& questionBox;
    MessageLoop& messageLoop;
    Prefixes& prefixes;
    Contacts& contacts;
    SmsQueue& queue;
    Tellwick& tellwick;

    MessageText messageText;
    RecipientField recipientField;
    TextTemplates textTemplates;
    // Created on first use and kept.
    std::unique_ptr<FormSmsSelectAddress> formSmsSelectAddress;
};

}  // namespace tellwick
