// The message as each recipient gets it, where its text has fields.
#pragma once

#include <vector>

#include "compose/TextFields.h"
#include "recipients/Person.h"

namespace tellwick {

class MessageText;
class RecipientField;
class RecipientPeople;

struct PersonalText {
    Text recipient;  // as the field holds it
    Person person;
    FilledText filled;

    // "Anna Berger (0171 2345678)", or no more than the number.
    Text Named() const;
};

class PersonalTexts {
public:
    PersonalTexts(const TextFields& textFields, const MessageText& messageText,
                  const RecipientField& recipientField, RecipientPeople& recipientPeople);

    // Whether the text in the form has fields. Digits have none: they are sent as they stand.
    bool Wanted() const;

    bool HasFields(TextView text) const;

    // In the order of the recipients, each number once: of the form, or of any text.
    std::vector<PersonalText> All() const;
    std::vector<PersonalText> Of(TextView text, std::vector<Text> recipients) const;

private:
    Text FormText() const;

    const TextFields& textFields;
    const MessageText& messageText;
    const RecipientField& recipientField;
    RecipientPeople& recipientPeople;
};

}  // namespace tellwick
