// Mails that Outlook 2010 and later show as one line, which counts as nothing selected.
#pragma once

#include <cstdint>

#include "platform/Outlook.h"

namespace tellwick {

inline constexpr std::int32_t FirstWithConversations = 14;

// Of each conversation whose line is selected the mail that came last.
class NewestOfConversations {
public:
    explicit NewestOfConversations(PendingError& errors) : errors(errors) {}

    // So many conversations at most; none where Outlook does not tell.
    void Begin(const outlook::Selection& selection, std::int32_t most);
    bool More() const { return at.conversation < at.conversations; }
    // Looks at one mail. Behind the last one of a conversation it returns the one that came last,
    // otherwise none.
    outlook::Item Next();
    // Lets everything of Outlook's go.
    void Clear() { at = {}; }

private:
    struct Place {
        ObjectPtr headers;
        std::int32_t conversations = 0, conversation = 0;
        ObjectPtr mails, last;  // of the conversation
        std::int32_t count = 0, mail = 0;
        double latest = 0;
    };
    Place at;

    PendingError& errors;
};

}  // namespace tellwick
