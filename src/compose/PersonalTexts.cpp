#include "compose/PersonalTexts.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

#include "compose/AppointmentValues.h"
#include "compose/MessageText.h"
#include "recipients/AppointmentReminders.h"
#include "recipients/RecipientField.h"
#include "recipients/RecipientPeople.h"

namespace tellwick {

Text PersonalText::Named() const {
    Text named = recipient;
    if (!person.fullName.empty())
        named = Text(person.fullName).append(u" (").append(recipient).append(u")");
    return appointment.empty() ? named : named.append(u", ").append(appointment);
}

PersonalTexts::PersonalTexts(const TextFields& textFields, const MessageText& messageText,
                             const RecipientField& recipientField, RecipientPeople& recipientPeople,
                             const AppointmentReminders& reminders, Locale& locale)
    : textFields(textFields),
      messageText(messageText),
      recipientField(recipientField),
      recipientPeople(recipientPeople),
      reminders(reminders),
      locale(locale) {}

Text PersonalTexts::FormText() const {
    return messageText.ShowsDigits() ? Text() : messageText.GetText();
}

bool PersonalTexts::Wanted() const {
    return HasFields(FormText());
}

bool PersonalTexts::HasFields(TextView text) const {
    return !textFields.Find(text).empty();
}

std::vector<PersonalText> PersonalTexts::All() const {
    return Of(FormText(), recipientField.Recipients());
}

std::vector<PersonalText> PersonalTexts::Of(TextView text, std::vector<Text> numbers) const {
    std::unordered_set<Text> taken;
    std::erase_if(numbers, [&](const Text& number) { return !taken.insert(number).second; });
    const std::vector<FieldPlace> places = textFields.Find(text);
    const bool ofAppointments = std::ranges::any_of(places, [](const FieldPlace& place) {
        return std::ranges::find(AppointmentFields, place.field) != AppointmentFields.end();
    });
    std::vector<Person> people = recipientPeople.Of(numbers);
    std::vector<PersonalText> texts;
    texts.reserve(numbers.size());
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        if (ofAppointments) {
            for (const AppointmentPtr& appointment : reminders.Of(numbers[at])) {
                const AppointmentValues values(locale, *appointment);
                texts.push_back({numbers[at], people[at], values.Named(),
                                 Fill(text, places, people[at], &values)});
            }
            if (!texts.empty() && texts.back().recipient == numbers[at]) continue;
        }
        FilledText filled = Fill(text, places, people[at], nullptr);
        texts.push_back({std::move(numbers[at]), std::move(people[at]), {}, std::move(filled)});
    }
    return texts;
}

FilledText PersonalTexts::Fill(TextView text, const std::vector<FieldPlace>& places,
                               const Person& person, const AppointmentValues* appointment) {
    return TextFields::FillWith(text, places, [&](Field field) -> std::optional<TextView> {
        const auto value = appointment ? appointment->Of(field) : std::nullopt;
        return value ? value : TextFields::NameOf(person, field);
    });
}

}  // namespace tellwick
