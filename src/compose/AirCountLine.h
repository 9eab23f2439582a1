// The line in the status bar that says what the phone network counts, beside what the form counts.
#pragma once

#include "air/AirCount.h"
#include "settings/Services.h"

namespace tellwick {

class FormSmsSendView;
class Locale;
class RecipientField;

class AirCountLine : private Services {
public:
    AirCountLine(const Services& services, FormSmsSendView& view,
                 const RecipientField& recipientField, Locale& locale);

    // Whether there is a line; shows it or takes it away.
    void SwitchOn(bool newOn);

    // Text or recipients have changed.
    void Update();

    // "GSM · 2 SMS × 3 = 6 · 41 free": of so many SMS to each of the form's recipients; also how
    // many characters get lost on the way to the sender, where some do.
    Text Describe(const AirCount& count, std::size_t lost) const;

private:
    Text Number(TextView key, std::int64_t number) const;

    bool on = false;

    FormSmsSendView& view;
    const RecipientField& recipientField;
    Locale& locale;
};

}  // namespace tellwick
