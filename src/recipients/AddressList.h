// The address list: entries "Name  (number)", and the search in them while the user types.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

class AddressList {
public:
    // Takes the entries over and folds their letter case once.
    void Assign(std::vector<Text> newEntries);

    std::size_t Size() const { return entries.size(); }
    // The entry at an index below Size().
    const Text& Entry(std::size_t index) const { return entries[index]; }

    // Indexes, ascending, of the entries that begin with the search text, or hold it followed by a
    // blank or by "(". Letter case is ignored. An empty search text matches nothing.
    std::vector<std::size_t> Matches(TextView search) const;

private:
    std::vector<Text> entries;
    // All entries in lower case, each behind a line feed, and the position of each in there.
    Text folded;
    std::vector<std::size_t> starts;
};

}  // namespace tellwick
