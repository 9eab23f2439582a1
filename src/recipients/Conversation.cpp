#include "recipients/Conversation.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

constexpr std::int32_t ConversationHeaders = 1;  // as GetSelection takes it
constexpr std::int32_t MostMails = 100;          // of a conversation that are looked at

}  // namespace

void NewestOfConversations::Begin(const outlook::Selection& selection, std::int32_t most) {
    Clear();
    const outlook::Collection<outlook::View> headers(
        errors,
        AsObject(Call(errors, selection.Reference(), u"GetSelection", {ConversationHeaders})));
    at.conversations = std::min(headers.Count(), most);
    at.headers = headers.Reference();
}

outlook::Item NewestOfConversations::Next() {
    Place now = at;
    if (!now.mails) {
        const auto header =
            outlook::Collection<outlook::View>(errors, now.headers).Item(now.conversation + 1);
        const outlook::Collection<outlook::Item> mails(
            errors, AsObject(Call(errors, header.Reference(), u"GetItems")));
        now.mails = mails.Reference();
        now.count = std::min(mails.Count(), MostMails);
    }
    if (now.mail < now.count) {
        const auto mail = outlook::Selection(errors, now.mails).Item(++now.mail);
        const double received = AsReal(Get(errors, mail.Reference(), u"ReceivedTime"));
        if (!now.last || received > now.latest) {
            now.latest = received;
            now.last = mail.Reference();
        }
    }
    ObjectPtr newest;
    if (now.mail >= now.count) {
        newest = now.last;
        now = {now.headers, now.conversations, now.conversation + 1, {}, {}};
    }
    // Outlook may have ended, or something else been selected, within one of the calls.
    if (at.headers != now.headers) return {errors, nullptr};
    at = std::move(now);
    return {errors, newest};
}

}  // namespace tellwick
