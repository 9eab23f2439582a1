// The message as each recipient gets it, where its text has fields.
#pragma once

#include <vector>

#include "compose/TextFields.h"
#include "recipients/Person.h"

namespace tellwick {

class AppointmentReminders;
class AppointmentValues;
class Locale;
class MessageText;
class RecipientField;
class RecipientPeople;

struct PersonalText {
    Text recipient;  // as the field holds it
    Person person;
    Text appointment;  // what the text is about, where it is about one
    FilledText filled;

    // "Anna Berger (0171 2345678)", or no more than the number; behind it the appointment.
    Text Named() const;
};

class PersonalTexts {
public:
    PersonalTexts(const TextFields& textFields, const MessageText& messageText,
                  const RecipientField& recipientField, RecipientPeople& recipientPeople,
                  const AppointmentReminders& reminders, Locale& locale);

    // Whether the text in the form has fields. Digits have none: they are sent as they stand.
    bool Wanted() const;

    bool HasFields(TextView text) const;

    // In the order of the recipients, each number once: of the form, or of any text. Who is
    // reminded of several appointments gets a text that has fields of those once for each.
    std::vector<PersonalText> All() const;
    std::vector<PersonalText> Of(TextView text, std::vector<Text> recipients) const;

private:
    Text FormText() const;
    static FilledText Fill(TextView text, const std::vector<FieldPlace>& places,
                           const Person& person, const AppointmentValues* appointment);

    const TextFields& textFields;
    const MessageText& messageText;
    const RecipientField& recipientField;
    RecipientPeople& recipientPeople;
    const AppointmentReminders& reminders;
    Locale& locale;
};

}  // namespace tellwick
