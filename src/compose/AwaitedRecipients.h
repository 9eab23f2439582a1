// Recipients that are still looked up when the form opens: they come into its field when they are
// found.
#pragma once

#include <optional>

#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

class FormSmsSendView;
class RecipientField;
class RecipientLookup;

class AwaitedRecipients : private Services {
public:
    AwaitedRecipients(const Services& services, RecipientLookup& recipientLookup,
                      RecipientField& recipientField, FormSmsSendView& view);

    // The field holds the recipients known by now. Those only `remembered` from the last form are
    // taken out while others are looked for, so that nobody sends to them by mistake, and are put
    // back when nobody is found. The status bar says what is going on.
    void Begin(bool remembered);
    bool Waiting() const { return waiting.has_value(); }
    // The form closes, and the looking ends.
    void End();

private:
    void Found(TextView recipients);
    void BringBack();

    struct Field {
        Text before, now;
        bool remembered;
    };
    std::optional<Field> waiting;

    RecipientLookup& recipientLookup;
    RecipientField& recipientField;
    FormSmsSendView& view;
};

}  // namespace tellwick
