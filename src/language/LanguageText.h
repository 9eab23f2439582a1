// The contents of one language file, and the search in them.
//
// A section begins with a line "[name]"; an entry is a line "key=value". Letter case counts. In a
// value "\n" stands for a carriage return and "\t" for a tab. A file can name the code page that it
// is in, "CodePage=1250" in the section "Misc"; without that it is in the system's.
#pragma once

#include <functional>
#include <unordered_map>
#include <vector>

#include "platform/Locale.h"
#include "platform/Text.h"
#include "settings/SectionEntries.h"

namespace tellwick {

class LanguageText {
public:
    LanguageText() = default;
    LanguageText(std::string_view bytes, Locale& locale);

    bool Empty() const { return text.empty(); }
    // Of the section in brackets; empty when there is none.
    Text Find(const Text& bracketed, TextView key);

private:
    using Section = SectionEntries<char16_t, std::identity>;

    void Use(TextView contents);
    Section* FindSection(const Text& bracketed);

    Text text;                                   // every line ends in one carriage return
    std::vector<std::size_t> brackets;           // positions of "[" in it
    std::unordered_map<Text, Section> sections;  // those found so far, by bracketed name
};

}  // namespace tellwick
