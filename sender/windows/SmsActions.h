// What the user does with the SMS that he has chosen in the list.
#pragma once

#include "windows/Sender.h"
#include "windows/SmsList.h"

namespace tellwick::sender {

class SmsActions {
public:
    // The owner of the boxes that ask.
    SmsActions(Sender& sender, SmsList& list, const HWND& owner)
        : sender(sender), list(list), owner(owner) {}

    bool CanSendAgain() const;
    void SendAgain() const;
    bool CanDelete() const;
    void Delete() const;
    // All that is known of the one that is chosen.
    void ShowDetails() const;

private:
    bool AnyChosen(std::initializer_list<State> states) const;
    bool Asked(TextView name) const;

    Sender& sender;
    SmsList& list;
    const HWND& owner;
};

}  // namespace tellwick::sender
