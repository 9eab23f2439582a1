// Recipients that are still looked up when the form opens: they come into its field when they are
// found.
#pragma once

#include <optional>

#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class AppointmentReminders;
class FormSmsSendView;
class Locale;
class RecipientField;
class RecipientLookup;

class AwaitedRecipients : private Services {
public:
    AwaitedRecipients(const Services& services, RecipientLookup& recipientLookup,
                      AppointmentReminders& reminders, RecipientField& recipientField,
                      FormSmsSendView& view, Locale& locale);

    // The field holds the recipients known by now. Those only `remembered` from the last form are
    // taken out while others are looked for, so that nobody sends to them by mistake, and are put
    // back when nobody is found. The status bar says what is going on, and the notice at the end.
    void Begin(bool remembered, Text notice = {});
    bool Waiting() const { return waiting.has_value(); }
    // An SMS goes to those in the field, if there are any: nobody joins them any more.
    void TakeThose();
    // The form closes, and the looking ends, and with it what was found of appointments.
    void End();

private:
    void Found(TextView recipients);
    void BringBack();
    void ShowCut();
    // Who gets no reminder, if somebody does not.
    void ShowWithout();

    struct Field {
        Text before, now;
        bool remembered;
        Text notice;
    };
    std::optional<Field> waiting;

    RecipientLookup& recipientLookup;
    AppointmentReminders& reminders;
    RecipientField& recipientField;
    FormSmsSendView& view;
    Locale& locale;
};

}  // namespace tellwick
