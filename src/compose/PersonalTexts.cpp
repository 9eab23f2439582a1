#include "compose/PersonalTexts.h"

#include <unordered_set>
#include <utility>

#include "compose/MessageText.h"
#include "recipients/RecipientField.h"
#include "recipients/RecipientPeople.h"

namespace tellwick {

Text PersonalText::Named() const {
    if (person.fullName.empty()) return recipient;
    return Text(person.fullName).append(u" (").append(recipient).append(u")");
}

PersonalTexts::PersonalTexts(const TextFields& textFields, const MessageText& messageText,
                             const RecipientField& recipientField, RecipientPeople& recipientPeople)
    : textFields(textFields),
      messageText(messageText),
      recipientField(recipientField),
      recipientPeople(recipientPeople) {}

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
    std::vector<Person> people = recipientPeople.Of(numbers);
    std::vector<PersonalText> texts;
    texts.reserve(numbers.size());
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        FilledText filled = TextFields::Fill(text, places, people[at]);
        texts.push_back({std::move(numbers[at]), std::move(people[at]), std::move(filled)});
    }
    return texts;
}

}  // namespace tellwick
