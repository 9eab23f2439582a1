#include "recipients/Conversation.h"

#include <algorithm>

namespace tellwick {

namespace {

constexpr std::int32_t ConversationHeaders = 1;  // as GetSelection takes it
constexpr std::int32_t MostMails = 100;          // of a conversation that are looked at

}  // namespace

std::vector<outlook::Item> NewestOfConversations(PendingError& errors,
                                                 const outlook::Selection& selection,
                                                 std::int32_t most) {
    const outlook::Collection<outlook::View> headers(
        errors,
        AsObject(Call(errors, selection.Reference(), u"GetSelection", {ConversationHeaders})));
    std::vector<outlook::Item> newest;
    for (std::int32_t header = 1, count = std::min(headers.Count(), most); header <= count;
         ++header) {
        const outlook::Collection<outlook::Item> mails(
            errors, AsObject(Call(errors, headers.Item(header).Reference(), u"GetItems")));
        double latest = 0;
        outlook::Item last(errors, nullptr);
        for (std::int32_t mail = 1, all = std::min(mails.Count(), MostMails); mail <= all; ++mail) {
            const outlook::Item item = mails.Item(mail);
            const double received = AsReal(Get(errors, item.Reference(), u"ReceivedTime"));
            if (last && received <= latest) continue;
            latest = received;
            last = item;
        }
        if (last) newest.push_back(last);
    }
    return newest;
}

}  // namespace tellwick
