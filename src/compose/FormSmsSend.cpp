#include "compose/FormSmsSend.h"

#include <utility>

#include "compose/Tellwick.h"
#include "language/Language.h"
#include "platform/MessageLoop.h"
#include "recipients/Contacts.h"
#include "recipients/Prefixes.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/QuestionBox.h"

namespace tellwick {

namespace {

constexpr TextView FormName = u"FormSmsSend";
constexpr std::int32_t RecipientMissing = 3;
constexpr std::int32_t TextMissing = 4;

// One line for the settings file: line breaks written as "\13" and "\10".
Text ToSetting(TextView text) {
    return ReplaceAll(ReplaceAll(text, u"\r", u"\\13"), u"\n", u"\\10");
}

Text FromSetting(TextView text) {
    return ReplaceAll(ReplaceAll(text, u"\\13", u"\r"), u"\\10", u"\n");
}

}  // namespace

FormSmsSend::FormSmsSend(FormSmsSendView& view, FormSmsSelectAddressView& selectAddressView,
                         Forms& forms, Debug& debug, InifilesLite& inifilesLite, Language& language,
                         QuestionBox& questionBox, MessageLoop& messageLoop, Locale& locale,
                         Prefixes& prefixes, Contacts& contacts, SmsQueue& queue,
                         Tellwick& tellwick)
    : view(view),
      selectAddressView(selectAddressView),
      forms(forms),
      debug(debug),
      inifilesLite(inifilesLite),
      language(language),
      questionBox(questionBox),
      messageLoop(messageLoop),
      prefixes(prefixes),
      contacts(contacts),
      queue(queue),
      tellwick(tellwick),
      messageText(view, debug, language, locale),
      recipientField(debug, inifilesLite, language, questionBox, prefixes, contacts, view.TextTo(),
                     view.ListBoxNumbers(), view.StatusBar1(),
                     [&view](std::int32_t rows) { view.PlaceListBoxNumbers(rows); }),
      textTemplates(debug, inifilesLite, view.ComboBoxTextbausteine(),
                    [this](TextView text) { messageText.Insert(text); }) {
    view.SetEvents(*this);
}

FormSmsSend::~FormSmsSend() {
    forms.Remove(*this);
}

void FormSmsSend::Open(TextView recipients) {
    if (view.Loaded()) {
        messageText.ShowText();
        StoreTexts();
    } else if (view.Load()) {
        Form_Load();
    } else {
        return;
    }
    Form_Initialize_();
    if (!recipients.empty()) recipientField.SetText(recipients);
    view.Show();
    // What is to be written next has the focus.
    if (view.TextTo().GetText().empty()) {
        view.TextTo().SetFocus();
    } else {
        view.Message().SetFocus();
    }
}

void FormSmsSend::Form_Load() {
    Procedure procedure{debug, u"_Load"};
    forms.Add(*this);
    activationMarker.clear();
    expanded = false;
    const auto position = [this](TextView key) {
        return inifilesLite.GetIniSettingNum(u"Positions", key);
    };
    view.SetPlace({position(u"SMSSendPosx"), position(u"SMSSendPosy"), position(u"SMSSendx"),
                   position(u"SMSSendy")});
    view.SetMessageFont(inifilesLite.GetIniSetting(u"Editor", u"Font"),
                        inifilesLite.GetIniSettingNum(u"Editor", u"FontSize"));
    language.GetLanguageStringsForForm(FormName, view);
}

void FormSmsSend::Form_Initialize_() {
    Procedure procedure{debug, u"Form_Initialize_"};
    busy = false;
    closeRequested = false;
    textTemplates.GetTextbausteine();
    textTemplates.Refill();
    if (inifilesLite.GetIniSettingBool(u"Positions", u"SMSExpanded") != expanded) ExpandIt();
    messageText.Reset();
    messageText.SetHexButton();
    GetSettings();
    prefixes.LoadPrefixes();
    recipientField.GetListNumbers();
    view.CheckLong().SetEnabled(false);  // until the text needs it
    RestoreTexts();
    view.ProgressBar1().SetValue(0);
    Form_Resize();
}

void FormSmsSend::GetSettings() {
    Procedure procedure{debug, u"GetSettings"};
    recipientField.NumUsedNumber = inifilesLite.GetIniSettingNum(u"SMS", u"NumUsedNumber", u"10");
    storeNumbers = inifilesLite.GetIniSettingBool(u"SMS", u"StoreNumbers", u"1");
    view.CheckLong().SetChecked(inifilesLite.GetIniSettingBool(u"SMS", u"DoNotContactLong"));
}

void FormSmsSend::StoreTexts() {
    const SettingsBatch batch{inifilesLite};
    inifilesLite.SetIniSetting(u"SMS", u"LastNumber", view.TextTo().GetText());
    inifilesLite.SetIniSetting(u"SMS", u"LastText", ToSetting(view.Message().GetText()));
    inifilesLite.SetIniSetting(u"SMS", u"LastTextattachment", ToSetting(textAttachment));
}

void FormSmsSend::RestoreTexts() {
    recipientField.SetText(inifilesLite.GetIniSetting(u"SMS", u"LastNumber"));
    const Text text = FromSetting(inifilesLite.GetIniSetting(u"SMS", u"LastText"));
    view.Message().SetText(text);
    // An empty box that stays empty raises no change, but has to be counted all the same.
    messageText.Message_Change();
    textAttachment = FromSetting(inifilesLite.GetIniSetting(u"SMS", u"LastTextattachment"));
    if (!EndsWith(text, textAttachment)) textAttachment.clear();
}

void FormSmsSend::AddRecipient(TextView number) {
    const Text present = Trimmed(view.TextTo().GetText());
    const bool separated = present.empty() || present.back() == u';' || present.back() == u',';
    recipientField.SetText(present + (separated ? u"" : u";") + Text(number));
}

void FormSmsSend::Form_Activate() {
    Procedure procedure{debug, u"_Activate"};
    activationMarker = u"activated";
}

void FormSmsSend::Form_Resize() {
    view.Resize(expanded);
}

bool FormSmsSend::Form_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    Procedure procedure{debug, u"Form_KeyDown"};
    if (keyCode == key::Escape) {
        Unload();
        return true;
    }
    if (keyCode != key::Enter) return false;
    if (view.ListBoxNumbers().Visible()) {
        recipientField.TakeMatch();
        view.Message().SetFocus();
        return true;
    }
    if (shift != key::Control) return false;
    ButtonSend_Click_(true, true, {}, {});
    return true;
}

bool FormSmsSend::ButtonSend_Click_(bool fromKey, bool sendNow, TextView number, TextView text) {
    debug.Errors().Clear();
    debug.DebugTrace(u"ButtonSend_Click", trace::Enter);
    if (activationMarker.empty()) Form_Activate();
    if (busy) {
        // No exit record here, on purpose.
        closeRequested = true;
        return true;
    }
    if (!number.empty()) recipientField.SetText(number);
    if (!text.empty()) view.Message().SetText(text);
    if (fromKey) RemoveKeyLineBreak();

    const Text recipient = view.TextTo().GetText();
    if (storeNumbers) recipientField.AddNumberToList(recipient);
    recipientField.SetText(recipient);
    busy = true;
    closeRequested = false;
    view.ListBoxNumbers().SetVisible(false);

    const bool queued = QueueMessage(recipient, !text.empty() && !sendNow);
    // After a refusal the form is still busy, so that this only asks for the form to be closed.
    ButtonOK_Click();
    debug.DebugTrace(u"ButtonSend_Click", trace::Exit);
    return queued;
}

// The key that submits has put a line break into the text, just before the caret.
void FormSmsSend::RemoveKeyLineBreak() {
    messageLoop.DoEvents();
    Text text = view.Message().GetText();
    const std::size_t caret = std::size_t(view.Message().SelectionStart());
    if (caret < LineBreak.size() || caret > text.size()) return;
    const std::size_t start = caret - LineBreak.size();
    if (TextView(text).substr(start, LineBreak.size()) != LineBreak) return;
    view.Message().SetText(text.erase(start, LineBreak.size()));
}

bool FormSmsSend::QueueMessage(TextView recipient, bool mayBeEmpty) {
    if (recipient.empty()) {
        MsgBox(RecipientMissing);
        view.TextTo().SetFocus();
        return false;
    }
    const Text message = view.Message().GetText();
    if (message.empty() && !mayBeEmpty) {
        MsgBox(TextMissing);
        view.Message().SetFocus();
        return false;
    }
    queue.AddEntry(recipient, message);
    // Busy until the sender application has been told: a click that comes meanwhile must not
    // queue a second entry.
    tellwick.StartSenderApplication(false);
    busy = false;
    return true;
}

void FormSmsSend::MsgBox(std::int32_t number) {
    questionBox.MsgBoxEx(language.TextOrBuiltIn(FormName, u"MsgBox" + NumberText(number)),
                         box::IconInformation);
}

void FormSmsSend::ButtonOK_Click() {
    Procedure procedure{debug, u"ButtonOK_Click"};
    if (busy) {
        closeRequested = true;
    } else {
        Unload();
    }
}

void FormSmsSend::Unload() {
    if (!view.Loaded()) return;
    messageText.ShowText();
    Form_Unload();
    view.Unload();
    forms.Remove(*this);
}

void FormSmsSend::Form_Unload() {
    Procedure procedure{debug, u"Form_Unload"};
    const SettingsBatch batch{inifilesLite};
    const FormPlace place = view.Place();
    inifilesLite.SetIniSetting(u"Positions", u"SMSSendx", place.width);
    inifilesLite.SetIniSetting(u"Positions", u"SMSSendy", place.height);
    inifilesLite.SetIniSetting(u"Positions", u"SMSSendPosx", place.left);
    inifilesLite.SetIniSetting(u"Positions", u"SMSSendPosy", place.top);
    StoreTexts();
    inifilesLite.SetIniSetting(u"SMS", u"DoNotContactLong",
                               std::int32_t(view.CheckLong().Checked() ? -1 : 0));
    inifilesLite.SetIniSetting(u"Positions", u"SMSExpanded", std::int32_t(expanded ? -1 : 0));
    recipientField.Save();
    textTemplates.Save();
    if (formSmsSelectAddress) formSmsSelectAddress->Unload();
}

void FormSmsSend::TextTo_Change() {
    recipientField.TextTo_Change();
}

void FormSmsSend::TextTo_Click() {
    recipientField.TextTo_Click();
}

bool FormSmsSend::TextTo_KeyDown(std::int32_t keyCode, [[maybe_unused]] std::int32_t shift) {
    if (keyCode == key::Up) return recipientField.MoveInMatches(-1);
    return keyCode == key::Down && recipientField.MoveInMatches(1);
}

void FormSmsSend::TextTo_LostFocus() {
    recipientField.CloseMatches();
}

void FormSmsSend::ListBoxNumbers_Click() {
    Procedure procedure{debug, u"ListBoxNumbers_Click"};
    recipientField.TakeMatch();
}

void FormSmsSend::ButtonTo_Click() {
    Procedure procedure{debug, u"ButtonTo_Click"};
    recipientField.CloseMatches();
    if (!formSmsSelectAddress) {
        formSmsSelectAddress = std::make_unique<FormSmsSelectAddress>(
            selectAddressView, forms, debug, language, prefixes, contacts,
            [this](TextView number) { AddRecipient(number); });
    }
    formSmsSelectAddress->Show();
}

void FormSmsSend::Message_Change() {
    messageText.Message_Change();
}

bool FormSmsSend::Message_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    return messageText.Message_KeyDown(keyCode, shift);
}

bool FormSmsSend::Message_KeyPress(char16_t character) {
    return messageText.Message_KeyPress(character);
}

void FormSmsSend::ButtonHex_Click() {
    messageText.ButtonHex_Click();
}

void FormSmsSend::ButtonUcs2_Click() {
    messageText.ButtonUcs2_Click();
}

bool FormSmsSend::ComboBoxTextbausteine_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    if (keyCode != key::Enter || shift != 0) return false;
    textTemplates.ButtonInsert_Click();
    return true;
}

void FormSmsSend::ComboBoxTextbausteine_DblClick() {
    textTemplates.ButtonInsert_Click();
}

void FormSmsSend::ButtonAdd_Click() {
    textTemplates.ButtonAdd_Click();
}

void FormSmsSend::ButtonDel_Click() {
    textTemplates.ButtonDel_Click();
}

void FormSmsSend::ButtonInsert_Click() {
    textTemplates.ButtonInsert_Click();
}

void FormSmsSend::ButtonOptions_Click() {
    Procedure procedure{debug, u"ButtonOptions_Click"};
    if (questionBox.MsgBoxEx(language.TextOrBuiltIn(u"Messages", u"ForgetAnswers"),
                             box::YesNo | box::IconQuestion) == Answer::Yes) {
        questionBox.ForgetAnswers();
    }
}

void FormSmsSend::ButtonExpand_Click() {
    Procedure procedure{debug, u"ButtonExpand_Click"};
    ExpandIt();
}

void FormSmsSend::ExpandIt() {
    Procedure procedure{debug, u"ExpandIt"};
    expanded = !expanded;
    Form_Resize();
}

}  // namespace tellwick
