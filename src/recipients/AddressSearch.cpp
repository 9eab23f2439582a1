#include "recipients/AddressSearch.h"

#include <algorithm>
#include <utility>

#include "recipients/NumberInText.h"

namespace tellwick {

namespace {

// From U+00E0 to U+017F; a blank where there is nothing to take away.
constexpr TextView Plain =
    u"aaaaaa ceeeeiiii nooooo ouuuuy y"
    u"aaaaaaccccccccddddeeeeeeeeeegggg"
    u"gggghhhhiiiiiiiiii  jjkk llllll "
    u" llnnnnnn   oooooo  rrrrrrssssss"
    u"ssttttttuuuuuuuuuuuuwwyyyzzzzzz ";  // from U+0142

constexpr char16_t FirstPlain = 0xE0;

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

// Whether a text's unit is the typed one; one typed without accent stands for those with it.
bool Same(char16_t unit, char16_t typed) {
    const char16_t folded = LowerCase(unit);
    return folded == typed || (unit >= 0x80 && typed < 0x80 && WithoutAccent(folded) == typed);
}

bool StartsAt(TextView text, std::size_t at, TextView word) {
    if (text.size() - at < word.size()) return false;
    for (std::size_t index = 0; index < word.size(); ++index) {
        if (!Same(text[at + index], word[index])) return false;
    }
    return true;
}

// Where a word of the text begins so; npos when none does.
std::size_t FindStart(TextView text, TextView word, std::size_t from = 0) {
    for (std::size_t at = from; at < text.size(); ++at) {
        // The first unit mostly decides.
        if (!Same(text[at], word[0])) continue;
        const bool begins = at == 0 || (IsWordUnit(text[at]) && !IsWordUnit(text[at - 1]));
        if (begins && StartsAt(text, at, word)) return at;
    }
    return TextView::npos;
}

// Where the digits stand, whatever stands between them; length 0 when they do not.
MarkedText::Mark FindDigits(TextView number, TextView digits) {
    for (std::size_t start = 0; start < number.size(); ++start) {
        std::size_t found = 0;
        for (std::size_t at = start; at < number.size() && IsDigit(number[start]); ++at) {
            if (!IsDigit(number[at])) continue;
            if (number[at] != digits[found]) break;
            if (++found == digits.size()) return {start, at + 1 - start};
        }
    }
    return {0, 0};
}

}  // namespace

char16_t WithoutAccent(char16_t folded) {
    const auto index = std::size_t(folded - FirstPlain);
    if (folded < FirstPlain || index >= Plain.size() || Plain[index] == u' ') return folded;
    return Plain[index];
}

AddressSearch::AddressSearch(TextView search, const std::vector<Text>& folderNames) {
    Text digits;
    const auto endNumber = [&] {
        const std::size_t significant = digits.find_first_not_of(u'0');
        if (significant != Text::npos) numbers.push_back(digits.substr(significant));
        digits.clear();
    };
    for (const Text& word : Split(search, u" ")) {
        if (word.empty()) continue;
        const bool isNumber = std::any_of(word.begin(), word.end(), IsDigit) &&
                              word.find_first_not_of(u"0123456789+-/().") == Text::npos;
        if (isNumber) {
            std::copy_if(word.begin(), word.end(), std::back_inserter(digits), IsDigit);
            continue;
        }
        endNumber();
        words.push_back(LowerCase(word));
    }
    endNumber();
    for (const Text& word : words) {
        std::vector<bool>& inFolder = inFolders.emplace_back();
        for (const Text& name : folderNames)
            inFolder.push_back(FindStart(name, word) != TextView::npos);
    }
}

bool AddressSearch::Matches(const AddressRow& row) const {
    for (std::size_t word = 0; word < words.size(); ++word) {
        const auto hasIt = [&](TextView text) {
            return FindStart(text, words[word]) != TextView::npos;
        };
        const bool inFolder = row.folder < inFolders[word].size() && inFolders[word][row.folder];
        if (!inFolder && !hasIt(row.name) && !hasIt(row.fileAs) && !hasIt(row.company))
            return false;
    }
    return std::all_of(numbers.begin(), numbers.end(), [&](const Text& digits) {
        return FindDigits(row.number, digits).length > 0;
    });
}

MarkedText AddressSearch::MarkWords(TextView text) const {
    MarkedText marked{Text(text), {}};
    std::vector<bool> isMarked(text.size());
    for (const Text& word : words) {
        for (std::size_t at = FindStart(text, word); at != TextView::npos;
             at = FindStart(text, word, at + 1)) {
            std::fill_n(isMarked.begin() + std::ptrdiff_t(at), word.size(), true);
        }
    }
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!isMarked[at]) continue;
        const std::size_t start = at;
        while (at < text.size() && isMarked[at]) ++at;
        marked.marks.push_back({start, at - start});
    }
    return marked;
}

MarkedText AddressSearch::MarkNumber(TextView number) const {
    MarkedText marked{Text(number), {}};
    if (numbers.empty()) return marked;
    const MarkedText::Mark mark = FindDigits(number, numbers[0]);
    if (mark.length > 0) marked.marks.push_back(mark);
    return marked;
}

}  // namespace tellwick
