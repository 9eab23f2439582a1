// A reply to an SMS that lies in Outlook as a mail item becomes a new SMS.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/Outlook.h"
#include "platform/ProcessValues.h"

namespace tellwick {

class Contacts;
class Debug;
class FormSmsSend;
class MessageLoop;
class MessageText;
class RecipientField;

class SmsReply {
public:
    // Where the item is shown that is replied to.
    enum class Place { Explorer, Inspector };

    SmsReply(PendingError& errors, Debug& debug, const ProcessValues& processValues,
             MessageLoop& messageLoop, Contacts& contacts, FormSmsSend& formSmsSend,
             RecipientField& recipientField, MessageText& messageText);

    // Holds the item with its events, marked as SMS or not, when it is a mail; leaves what is held
    // as it was, and gives false, when it is not.
    bool Follow(SunkObject& objMailItem, const outlook::Item& item, Place place);

    struct Parts {
        Text recipient;
        Text message;
    };
    // Sender and text of a mail that is marked as SMS; empty for any other.
    std::optional<Parts> PartsOf(const ObjectPtr& mailItem);
    // Opens the form with them.
    void Open(const Parts& parts, Place place);

private:
    // The item's Reply event, with the reply that the host has prepared and the cancel flag. When
    // the item is marked as SMS, opens the form with the sender and the text, and sets the flag;
    // any other item is left to Outlook.
    void objMailItem_Reply(const ObjectPtr& mailItem, std::vector<Value>& arguments, Place place);

    using ResponseSource = std::function<ObjectPtr()>;
    bool IsSms(const ObjectPtr& mailItem);
    std::optional<Parts> Separate(const ObjectPtr& mailItem, const ResponseSource& response);

    PendingError& errors;
    Debug& debug;
    const ProcessValues& processValues;
    MessageLoop& messageLoop;
    Contacts& contacts;
    FormSmsSend& formSmsSend;
    RecipientField& recipientField;
    MessageText& messageText;
};

}  // namespace tellwick
