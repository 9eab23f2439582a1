#include "forms/SmsRows.h"

#include <algorithm>

namespace tellwick::sender {

namespace {

constexpr TextView BehindAll = u"\uFFFF";

using Rows = std::deque<SmsRows::Row>;

bool Before(const SmsRows::Row& row, const Text& id) {
    return row.id < id;
}

void Set(Rows& rows, const Text& id, std::optional<State> state) {
    const auto place = std::lower_bound(rows.begin(), rows.end(), id, Before);
    const bool known = place != rows.end() && place->id == id;
    if (known && state) {
        place->state = *state;
    } else if (known) {
        rows.erase(place);
    } else if (state) {
        rows.insert(place, {id, *state});
    }
}

}  // namespace

void SmsRows::Load() {
    all.clear();
    for (const State state :
         {State::Waiting, State::Sending, State::Unsure, State::Sent, State::Failed}) {
        for (Text& id : spool.Ids(state)) all.push_back({std::move(id), state});
    }
    std::sort(all.begin(), all.end(),
              [](const Row& one, const Row& other) { return one.id < other.id; });
    loaded = true;
    Search(wanted);
}

void SmsRows::Changed(const Text& id, std::optional<State> state) {
    if (!loaded) return;
    Set(all, id, state);
    // What the search has still to come to it looks at then.
    if (!Searches() || id < searchedTo) return;
    Set(found, id, state && Fits({id, *state}) ? state : std::nullopt);
}

void SmsRows::Search(TextView text) {
    wanted = LowerCase(text);
    found.clear();
    searchedTo = BehindAll;
    left = Searches();
}

bool SmsRows::SearchMore(std::size_t count) {
    auto place = std::lower_bound(all.begin(), all.end(), searchedTo, Before);
    for (; left && count > 0 && place != all.begin(); --count) {
        --place;
        if (Fits(*place)) found.push_front(*place);
        searchedTo = place->id;
    }
    left = left && place != all.begin();
    // Older ones do not come any more.
    if (Searches() && !left) searchedTo.clear();
    return left;
}

bool SmsRows::Fits(const Row& row) {
    const std::optional<SpooledSms> sms = spool.Load(row.state, row.id);
    return sms &&
           (Contains(LowerCase(sms->recipient), wanted) || Contains(LowerCase(sms->text), wanted));
}

const SmsRows::Row& SmsRows::At(std::size_t number) const {
    const Rows& rows = Searches() ? found : all;
    return rows[rows.size() - 1 - number];
}

std::optional<std::size_t> SmsRows::Find(const Text& id) const {
    const Rows& rows = Searches() ? found : all;
    const auto place = std::lower_bound(rows.begin(), rows.end(), id, Before);
    if (place == rows.end() || place->id != id) return {};
    return rows.size() - 1 - std::size_t(place - rows.begin());
}

}  // namespace tellwick::sender
