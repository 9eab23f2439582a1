#include "compose/AwaitedRecipients.h"

#include <utility>

#include "compose/FormSmsSend.h"
#include "compose/FormSmsSendView.h"
#include "recipients/RecipientField.h"
#include "recipients/RecipientLookup.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

AwaitedRecipients::AwaitedRecipients(const Services& services, RecipientLookup& recipientLookup,
                                     RecipientField& recipientField, FormSmsSendView& view)
    : Services(services),
      recipientLookup(recipientLookup),
      recipientField(recipientField),
      view(view) {
    recipientLookup.SetListener([this](TextView found) { Found(found); });
}

void AwaitedRecipients::Begin(bool remembered) {
    waiting.reset();
    StatusBar& statusBar = view.StatusBar1();
    if (recipientLookup.Cut()) {
        statusBar.SetText(ReplaceAll(language.TextOrBuiltIn(FormSmsSend::Name, u"SelectionCut"),
                                     u"%n", NumberText(RecipientLookup::MostItems)));
    }
    if (!recipientLookup.Looking()) return;
    Text before = view.TextTo().GetText();
    if (remembered) recipientField.SetText({});
    waiting = {std::move(before), view.TextTo().GetText(), remembered};
    if (!recipientLookup.Cut())
        statusBar.SetText(language.TextOrBuiltIn(FormSmsSend::Name, u"LookingFor"));
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
    BringBack();
    if (!recipientLookup.Cut()) recipientField.ShowPrefixHint();
}

void AwaitedRecipients::End() {
    recipientLookup.Stop();
    if (waiting && view.TextTo().GetText() == waiting->now) BringBack();
    waiting.reset();
}

void AwaitedRecipients::BringBack() {
    if (const auto field = std::exchange(waiting, {}); field->remembered)
        recipientField.SetText(field->before);
}

}  // namespace tellwick
