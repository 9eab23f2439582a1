// The line in the status bar that says what the phone network counts, beside what the form counts.
#pragma once

#include "air/AirCount.h"
#include "settings/Services.h"

namespace tellwick {

class FormSmsSendView;
class Locale;
class PersonalTexts;
class RecipientField;

class AirCountLine : private Services {
public:
    AirCountLine(const Services& services, FormSmsSendView& view,
                 const RecipientField& recipientField, const PersonalTexts& personalTexts,
                 Locale& locale);

    // Whether there is a line; shows it or takes it away.
    void SwitchOn(bool newOn);

    // Text or recipients have changed.
    void Update();

    // "GSM · 2 SMS × 3 = 6 · 41 free": of the form's text to each of its recipients; also how many
    // characters get lost on the way to the sender, where some do. Of a text that is another one
    // for everybody "GSM · 1–2 SMS × 40 = 52 · 3 free", with the least that is free.
    Text Describe() const;

private:
    struct Sum {
        bool gsm = false, unicode = false;
        std::size_t recipients = 0;
        std::size_t least = 0, most = 0;  // SMS to one of them
        std::size_t all = 0;
        std::int32_t free = 0;
        std::size_t lost = 0;
    };

    Sum CountAll() const;
    void Count(Sum& sum, TextView text) const;
    static Text EncodingOf(const Sum& sum);
    Text Describe(const Sum& sum) const;
    Text Number(TextView key, std::int64_t number) const;

    bool on = false;

    FormSmsSendView& view;
    const RecipientField& recipientField;
    const PersonalTexts& personalTexts;
    Locale& locale;
};

}  // namespace tellwick
