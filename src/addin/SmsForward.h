// Mails handed on by SMS.
#pragma once

#include "platform/Object.h"

namespace tellwick {

class Contacts;
class FormSmsSend;
class FormSmsSendView;
class MessageText;

class SmsForward {
public:
    SmsForward(PendingError& errors, Contacts& contacts, FormSmsSend& formSmsSend,
               FormSmsSendView& view, MessageText& messageText);

    // Opens the form with who wrote a mail, its subject and its own words, cut to what fits; the
    // user is asked for the recipient. A form that was open already keeps its recipients.
    void Open(ObjectPtr mail);

private:
    Text TextOf(const ObjectPtr& mail);

    PendingError& errors;
    Contacts& contacts;
    FormSmsSend& formSmsSend;
    FormSmsSendView& view;
    MessageText& messageText;
};

}  // namespace tellwick
