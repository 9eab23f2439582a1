#include "compose/FormSmsSend.h"

#include <utility>

#include "compose/AirCountLine.h"
#include "compose/AwaitedRecipients.h"
#include "compose/Draft.h"
#include "compose/FormOptions.h"
#include "compose/FormSmsPreview.h"
#include "compose/FormSmsSelectAddress.h"
#include "compose/FormSmsSendView.h"
#include "compose/MessageText.h"
#include "compose/Submission.h"
#include "platform/Keys.h"
#include "recipients/RecipientField.h"
#include "recipients/TextTemplates.h"
#include "settings/Debug.h"
#include "settings/HelpViewer.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

FormSmsSend::FormSmsSend(const Services& services, FormSmsSendView& view, Forms& forms,
                         const FormSmsSendParts& parts, Draft& draft, AirCountLine& airCountLine,
                         AwaitedRecipients& awaitedRecipients, FormSmsPreview& formSmsPreview,
                         FormSmsSelectAddress& formSmsSelectAddress, FormOptions& formOptions,
                         HelpViewer& helpViewer)
    : Services(services),
      view(view),
      forms(forms),
      parts(parts),
      draft(draft),
      airCountLine(airCountLine),
      awaitedRecipients(awaitedRecipients),
      formSmsPreview(formSmsPreview),
      formSmsSelectAddress(formSmsSelectAddress),
      formOptions(formOptions),
      helpViewer(helpViewer) {}

FormSmsSend::~FormSmsSend() {
    forms.Remove(*this);
}

void FormSmsSend::Open(TextView recipients, Remembered remembered) {
    if (view.Loaded()) {
        Form_Initialize_();
        parts.recipientField.Add(recipients);
        awaitedRecipients.Begin(false);
        view.Show();
        return;
    }
    if (!view.Load()) return;
    try {
        OpenAnew(recipients, remembered);
    } catch (...) {
        // The next time it opens as it should, and not as far as it came now.
        view.Unload();
        forms.Remove(*this);
        awaitedRecipients.End();
        throw;
    }
}

void FormSmsSend::OpenAnew(TextView recipients, Remembered remembered) {
    Form_Load();
    Form_Initialize_();
    if (remembered == Remembered::Forget) parts.recipientField.SetText({});
    if (!recipients.empty() && restored) {
        parts.recipientField.Add(recipients);
    } else if (!recipients.empty()) {
        parts.recipientField.SetText(recipients);
        parts.recipientField.ShowPrefixHint();
    }
    SayRestored();
    awaitedRecipients.Begin(recipients.empty() && !restored,
                            restored ? view.StatusBar1().GetText() : Text());
    draft.Begin();
    view.Show();
    // What is to be written next has the focus.
    if (view.TextTo().GetText().empty() && !awaitedRecipients.Waiting()) {
        view.TextTo().SetFocus();
    } else {
        view.Message().SetFocus();
    }
}

void FormSmsSend::Form_Load() {
    Procedure procedure{debug, u"_Load"};
    forms.Add(*this);
    activationMarker.clear();
    initialised = restored = false;
    expanded = false;
    const auto position = [this](TextView key) {
        return inifilesLite.GetIniSettingNum(u"Positions", key);
    };
    const bool positioned = !inifilesLite.GetIniSetting(u"Positions", u"SMSSendPosx").empty();
    view.SetPlace({position(u"SMSSendPosx"), position(u"SMSSendPosy"), position(u"SMSSendx"),
                   position(u"SMSSendy")},
                  positioned);
    SetMessageFont();
    Form_SetLanguage();
    LoadBackGround();
    SetButtons();
}

void FormSmsSend::SetMessageFont() {
    view.SetMessageFont(inifilesLite.GetIniSetting(u"Editor", u"Font"),
                        inifilesLite.GetIniSettingNum(u"Editor", u"FontSize"));
}

void FormSmsSend::ApplySettings() {
    Procedure procedure{debug, u"ApplySettings"};
    SetMessageFont();
    ReadSettings();
}

void FormSmsSend::LoadBackGround() {
    Procedure procedure{debug, u"LoadBackGround"};
    view.LoadBackGround();
}

// What the buttons around the templates area say of it.
void FormSmsSend::SetButtons() {
    Procedure procedure{debug, u"SetButtons"};
    view.ButtonExpand().SetCaption(
        language.TextOrBuiltIn(Name, expanded ? u"ButtonExpand.On" : u"ButtonExpand"));
    view.ButtonBar1(BarButton::Template).SetChecked(expanded);
}

void FormSmsSend::Form_SetLanguage() {
    Procedure procedure{debug, u"Form_SetLanguage"};
    language.GetLanguageStringsForForm(Name, view);
}

void FormSmsSend::Form_Initialize_() {
    Procedure procedure{debug, u"Form_Initialize_"};
    parts.submission.Reset();
    if (std::exchange(initialised, true)) {
        ReadSettings();
        return;
    }
    parts.textTemplates.GetTextbausteine();
    if (inifilesLite.GetIniSettingBool(u"Positions", u"SMSExpanded")) ExpandIt();
    parts.messageText.Reset();
    parts.messageText.SetHexButton();
    ReadSettings();
    view.CheckLong().SetChecked(settings.doNotContactLong);
    parts.recipientField.GetListNumbers();
    view.CheckLong().SetEnabled(false);  // until the text needs it
    RestoreTexts();
    view.ProgressBar1().SetValue(0);
    Form_Resize();
}

void FormSmsSend::ReadSettings() {
    settings.GetSettings(*this);
    parts.recipientField.ReadSettings(settings.numUsedNumber);
    airCountLine.SwitchOn(settings.airCount);
}

void FormSmsSend::RestoreTexts() {
    Draft::Contents last{inifilesLite.GetIniSetting(u"SMS", u"LastNumber"),
                         FromSetting(inifilesLite.GetIniSetting(u"SMS", u"LastText"))};
    if (std::optional<Draft::Contents> typed = draft.Find()) {
        last = std::move(*typed);
        restored = true;
    }
    parts.recipientField.SetText(last.recipients);
    const Text& text = last.text;
    view.Message().SetText(text);
    // An empty box that stays empty raises no change, but has to be counted all the same.
    parts.messageText.Message_Change();
    textAttachment = FromSetting(inifilesLite.GetIniSetting(u"SMS", u"LastTextattachment"));
    if (!EndsWith(text, textAttachment)) textAttachment.clear();
    SayRestored();
}

void FormSmsSend::SayRestored() {
    if (restored) view.StatusBar1().SetText(language.TextOrBuiltIn(Name, u"DraftRestored"));
}

void FormSmsSend::Form_Activate() {
    Procedure procedure{debug, u"_Activate"};
    // Later activations leave alone what the user has chosen meanwhile.
    if (Activated()) return;
    activationMarker = u"activated";
    FillBoxExpires();
    view.CheckLong().SetChecked(settings.doNotContactLong);
    // Both only show what is decided elsewhere: the sender application chooses the service centre,
    // and a form that has sent closes.
    view.CheckSetNumber().SetChecked(settings.serviceCenterUseNotDefault != 0);
    view.CheckSetNumber().SetEnabled(false);
    view.CheckSendAndQuit().SetChecked(true);
    view.CheckSendAndQuit().SetEnabled(false);
    Form_Resize();
}

// The first element stands for no limit, each further one for a number of its unit; an empty one
// gives no entry.
void FormSmsSend::FillBoxExpires() {
    constexpr TextView Numbers = u";0;1;8;";
    struct Unit {
        TextView one, several;
    };
    constexpr Unit Units[] = {
        {u"Minute", u"Minutes"}, {u"Hour", u"Hours"}, {u"Day", u"Days"}, {u"Week", u"Weeks"}};
    const std::vector<Text> numbers = Split(Numbers, u";");
    ItemList& box = view.BoxExpires();
    box.Clear();
    box.Add(numbers[0]);
    for (std::size_t unit = 0; unit < std::size(Units); ++unit) {
        const Text& number = numbers[unit + 1];
        if (number.empty()) continue;
        const bool isOne = number == u"1";
        Text word = isOne ? language.GetLanguageString(Name, Units[unit].one) : Text();
        // A language file that knows the plural only is no reason to speak another language.
        if (word.empty()) word = language.GetLanguageString(Name, Units[unit].several);
        if (word.empty()) {
            word = language.TextOrBuiltIn(Name, isOne ? Units[unit].one : Units[unit].several);
        }
        box.Add(number + u" " + word);
    }
    box.SetSelectedIndex(0);
}

void FormSmsSend::Form_Resize() {
    Procedure procedure{debug, u"Form_Resize"};
    view.Resize(expanded);
}

void FormSmsSend::Form_Deactivate() {
    draft.Keep();
}

void FormSmsSend::Contents_Change() {
    draft.Changed();
    airCountLine.Update();
    formSmsPreview.Refresh();
}

void FormSmsSend::People_Change() {
    if (!view.Loaded()) return;
    airCountLine.Update();
    formSmsPreview.Refresh();
}

void FormSmsSend::Form_Close() {
    if (!parts.submission.Writing()) Unload();
}

bool FormSmsSend::Form_KeyDown(std::int32_t keyCode, std::int32_t shift) {
    Procedure procedure{debug, u"Form_KeyDown"};
    if (keyCode == key::F1) {
        ButtonHelp_Click();
        return true;
    }
    if (keyCode == key::Escape) {
        Form_Close();
        return true;
    }
    if (keyCode == u'P' && shift == key::Control) {
        formSmsPreview.Show();
        return true;
    }
    if (keyCode != key::Enter) return false;
    if (view.ListBoxNumbers().Visible()) {
        parts.recipientField.TakeMatch();
        view.Message().SetFocus();
        return true;
    }
    if (shift != key::Control) return false;
    parts.submission.ButtonSend_Click_(true, true, {}, {});
    return true;
}

void FormSmsSend::ButtonTo_Click() {
    Procedure procedure{debug, u"ButtonTo_Click"};
    parts.recipientField.CloseMatches();
    formSmsSelectAddress.Show();
}

void FormSmsSend::ButtonHelp_Click() {
    Procedure procedure{debug, u"ButtonHelp_Click"};
    helpViewer.CallHelp(u"SMSCenterNew.htm", u"smsnew.htm", 0);
}

void FormSmsSend::FormSMSSend_Button_Click(BarButton button) {
    Procedure procedure{debug, u"FormSMSSend_Button_Click"};
    switch (button) {
        case BarButton::Send:
            parts.submission.ButtonSend_Click();
            break;
        case BarButton::Store:
            parts.submission.ButtonStore_Click();
            break;
        case BarButton::Template:
            ExpandIt();
            break;
        case BarButton::Hex:
            parts.messageText.ButtonHex_Click();
            break;
        case BarButton::Options:
            ButtonOptions_Click();
            break;
        case BarButton::Help:
            ButtonHelp_Click();
            break;
    }
}

void FormSmsSend::ButtonOK_Click() {
    Procedure procedure{debug, u"ButtonOK_Click"};
    if (!parts.submission.RequestClose()) Unload();
}

void FormSmsSend::Unload() {
    if (!view.Loaded()) return;
    parts.messageText.ShowText();
    awaitedRecipients.End();
    Form_Unload();
    // Settings that wait to be written are gone with Outlook.
    if (inifilesLite.Flush()) {
        draft.End();
    } else {
        draft.Keep();
    }
    view.Unload();
    forms.Remove(*this);
}

void FormSmsSend::Form_Unload() {
    Procedure procedure{debug, u"Form_Unload"};
    const SettingsBatch batch{inifilesLite};
    // Whatever a step throws, the ones behind it run.
    debug.Guarded([this] {
        const FormPlace place = view.Place();
        inifilesLite.SetIniSetting(u"Positions", u"SMSSendx", place.width);
        inifilesLite.SetIniSetting(u"Positions", u"SMSSendy", place.height);
        inifilesLite.SetIniSetting(u"Positions", u"SMSSendPosx", place.left);
        inifilesLite.SetIniSetting(u"Positions", u"SMSSendPosy", place.top);
    });
    const auto saveTexts = [this] {
        inifilesLite.SetIniSetting(u"SMS", u"LastNumber", view.TextTo().GetText());
        inifilesLite.SetIniSetting(u"SMS", u"LastText", ToSetting(view.Message().GetText()));
    };
    // What the user typed gets a second try: the first one may have made room.
    if (!debug.Guarded(saveTexts)) debug.Guarded(saveTexts);
    debug.Guarded([this] {
        inifilesLite.SetIniSetting(u"SMS", u"LastTextattachment", ToSetting(textAttachment));
        inifilesLite.SetIniSetting(u"SMS", u"DoNotContactLong",
                                   std::int32_t(view.CheckLong().Checked() ? -1 : 0));
        inifilesLite.SetIniSetting(u"Positions", u"SMSExpanded", std::int32_t(expanded ? -1 : 0));
    });
    debug.Guarded([this] { parts.recipientField.StopReading(); });
    debug.Guarded([this] { parts.recipientField.Save(); });
    debug.Guarded([this] { parts.textTemplates.Save(); });
    debug.Guarded([this] { formSmsSelectAddress.Unload(); });
    debug.Guarded([this] { formOptions.Unload(); });
    debug.Guarded([this] { formSmsPreview.Unload(); });
}

void FormSmsSend::StatusBar1_Click() {
    Procedure procedure{debug, u"StatusBar1_Click"};
    if (parts.recipientField.PrefixHintShown()) formOptions.Show(FormOptions::Field::Prefixes);
}

void FormSmsSend::AirCount_Click() {
    Procedure procedure{debug, u"AirCount_Click"};
    formSmsPreview.Show();
}

void FormSmsSend::ButtonOptions_Click() {
    Procedure procedure{debug, u"ButtonOptions_Click"};
    formOptions.Show();
}

void FormSmsSend::ButtonExpand_Click() {
    Procedure procedure{debug, u"ButtonExpand_Click"};
    ExpandIt();
}

void FormSmsSend::ExpandIt() {
    Procedure procedure{debug, u"ExpandIt"};
    expanded = !expanded;
    SetButtons();
    Form_Resize();
    if (expanded) parts.textTemplates.Fill();
}

}  // namespace tellwick
