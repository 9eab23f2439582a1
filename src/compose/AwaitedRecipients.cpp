#include "compose/AwaitedRecipients.h"

#include <algorithm>
#include <utility>

#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendView.h"
#include "compose/WithoutReminder.h"
#include "recipients/AppointmentReminders.h"
#include "recipients/RecipientField.h"
#include "recipients/RecipientLookup.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

AwaitedRecipients::AwaitedRecipients(const Services& services, RecipientLookup& recipientLookup,
                                     AppointmentReminders& reminders,
                                     RecipientField& recipientField, FormSmsSendView& view,
                                     Locale& locale)
    : Services(services),
      recipientLookup(recipientLookup),
      reminders(reminders),
      recipientField(recipientField),
      view(view),
      locale(locale) {
    recipientLookup.SetListener([this](TextView found) { Found(found); });
}

void AwaitedRecipients::Begin(bool remembered, Text notice) {
    if (waiting) {  // Office may raise one click in several places
        notice = std::move(waiting->notice);
        remembered = waiting->remembered && view.TextTo().GetText() == waiting->now;
        if (remembered) BringBack();
        waiting.reset();
    }
    if (recipientLookup.Cut()) ShowCut();
    if (!recipientLookup.Looking()) return;
    Text before = view.TextTo().GetText();
    if (remembered) recipientField.SetText({});
    waiting = {std::move(before), view.TextTo().GetText(), remembered, std::move(notice)};
    if (!recipientLookup.Cut())
        view.StatusBar1().SetText(language.TextOrBuiltIn(FormSmsSend::Name, u"LookingFor"));
}

void AwaitedRecipients::ShowCut() {
    view.StatusBar1().SetText(ReplaceAll(language.TextOrBuiltIn(FormSmsSend::Name, u"SelectionCut"),
                                         u"%n", NumberText(RecipientLookup::MostItems)));
}

void AwaitedRecipients::Found(TextView recipients) {
    if (!waiting) return;
    // What the user has typed meanwhile counts.
    if (!view.Loaded() || view.TextTo().GetText() != waiting->now) {
        waiting.reset();
        recipientLookup.Stop();
        return;
    }
    if (!recipients.empty()) {
        waiting->remembered = false;
        recipientField.Add(recipients);
        waiting->now = view.TextTo().GetText();
    }
    if (recipientLookup.Looking()) return;
    const Text notice = std::move(waiting->notice);
    BringBack();
    if (recipientLookup.Cut()) {
        ShowCut();
    } else {
        recipientField.ShowPrefixHint();
        if (!notice.empty() && !recipientField.PrefixHintShown()) view.StatusBar1().SetText(notice);
        if (recipientLookup.ForReminders()) ShowWithout();
    }
}

void AwaitedRecipients::TakeThose() {
    if (!waiting || view.TextTo().GetText().empty()) return;
    waiting.reset();
    recipientLookup.Stop();
    recipientField.ShowPrefixHint();
}

void AwaitedRecipients::ShowWithout() {
    constexpr std::size_t MostNamed = 3;
    const std::vector<WithoutReminder> all = WithoutReminderIn(reminders, locale, language);
    if (all.empty()) return;
    Text names;
    for (std::size_t at = 0; at < std::min(all.size(), MostNamed); ++at)
        names.append(at == 0 ? u"" : u"; ").append(all[at].brief);
    if (all.size() > MostNamed) names += u"; …";
    view.StatusBar1().SetText(
        ReplaceAll(language.TextOrBuiltIn(FormSmsSend::Name, u"WithoutSms"), u"%c", names));
}

void AwaitedRecipients::End() {
    recipientLookup.Stop();
    if (waiting && view.TextTo().GetText() == waiting->now) BringBack();
    waiting.reset();
    reminders.Forget();
}

void AwaitedRecipients::BringBack() {
    if (const auto field = std::exchange(waiting, {}); field->remembered)
        recipientField.SetText(field->before);
}

}  // namespace tellwick
