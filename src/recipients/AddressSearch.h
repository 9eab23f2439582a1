// The search of the recipient selection: each word of the search text is the start of a word of a
// person's name, company or folder; digits stand anywhere in the number.
#pragma once

#include <vector>

#include "platform/Controls.h"
#include "platform/Text.h"
#include "recipients/AddressList.h"

namespace tellwick {

// A letter in lower case without its accent ("é" as "e"); "ß" and the like stay.
char16_t WithoutAccent(char16_t folded);

class AddressSearch {
public:
    // Words of digits that follow one another are one number, without zeros or "+" in front. The
    // names of the folders are by the numbers that rows have for them.
    explicit AddressSearch(TextView search, const std::vector<Text>& folderNames = {});

    bool IsEmpty() const { return words.empty() && numbers.empty(); }
    bool Matches(const AddressRow& row) const;

    // What the search finds in a text of words, and in a number.
    MarkedText MarkWords(TextView text) const;
    MarkedText MarkNumber(TextView number) const;

private:
    std::vector<Text> words;                   // in lower case
    std::vector<Text> numbers;                 // digits
    std::vector<std::vector<bool>> inFolders;  // by word and folder
};

}  // namespace tellwick
