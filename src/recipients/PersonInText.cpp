#include "recipients/PersonInText.h"

#include "recipients/AddressList.h"
#include "recipients/NumberInText.h"

namespace tellwick {

namespace {

// Where the word or words first stand by themselves; npos when they do not, or are none.
std::size_t FindWord(TextView text, TextView word) {
    if (word.empty()) return TextView::npos;
    for (std::size_t at = text.find(word); at != TextView::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !IsWordUnit(text[at - 1])) &&
            (end == text.size() || !IsWordUnit(text[end]))) {
            return at;
        }
    }
    return TextView::npos;
}

}  // namespace

Text NumberOfPersonIn(const AddressList& list, TextView text) {
    const Text folded = LowerCase(text);
    std::size_t first = Text::npos;
    std::size_t longest = 0;
    Text number;
    for (std::size_t index = 0; index < list.Size(); ++index) {
        const AddressList::Entry entry = list.EntryAt(index);
        const AddressRow row = list.Row(entry.row);
        if (entry.byFileAs || row.kind == NumberKind::List) continue;
        const std::size_t found = FindWord(folded, LowerCase(row.name));
        if (found < first || (found == first && found != Text::npos && row.name.size() > longest)) {
            first = found;
            longest = row.name.size();
            number = row.number;
        }
    }
    return number;
}

}  // namespace tellwick
