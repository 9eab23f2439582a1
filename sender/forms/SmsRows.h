// The rows of the sender's list: all SMS of the spool, or those that a search finds, the newest one
// first.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "spool/Spool.h"

namespace tellwick::sender {

class SmsRows {
public:
    struct Row {
        Text id;
        State state = State::Waiting;
    };

    explicit SmsRows(Spool& spool) : spool(spool) {}

    // Reads what is in the spool. Of each change behind that it has to hear.
    void Load();
    bool Loaded() const { return loaded; }
    void Changed(const Text& id, std::optional<State> state);

    // Looks from now on for those with this text in recipient or text, whatever the letter case;
    // for an empty text there are all. They come in with SearchMore.
    void Search(TextView text);
    // Looks at so many more. Whether some are left.
    bool SearchMore(std::size_t count);
    bool Searches() const { return !wanted.empty(); }

    std::size_t Count() const { return Searches() ? found.size() : all.size(); }
    // From 0 to below Count.
    const Row& At(std::size_t number) const;
    // Where a row is; empty where it is not, or no more.
    std::optional<std::size_t> Find(const Text& id) const;

private:
    bool Fits(const Row& row);

    Spool& spool;
    bool loaded = false;
    // Both in the order of their ids, which is that of their age.
    std::deque<Row> all;
    std::deque<Row> found;
    Text wanted;        // in lower case
    Text searchedTo;    // ids from here on have been looked at
    bool left = false;  // some before it have not
};

}  // namespace tellwick::sender
