// Telephone numbers: what a phone can dial, and the country prefixes of the settings.
#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/Text.h"

namespace tellwick {

class Debug;
class InifilesLite;
class LanguageTexts;

class Prefixes {
public:
    // By first digit of the country code (0 to 9; 0 stays empty), then by position.
    using Table = std::array<std::vector<Text>, 10>;

    Prefixes(Debug& debug, InifilesLite& inifilesLite, LanguageTexts& language);

    // The number as a phone can dial it: digits, "+", "#", "*", "p", and a leading "00" as "+".
    Text ConvertPhoneNumber(TextView number);

    // Reads the country prefixes of the settings into the table; the upper bound of its rows.
    std::int32_t ReadPrefixes(Table& table);

    // The number at the end of an address-list entry ("Meier, Hans  (+491712345678)"), normalised,
    // and in national form where its country prefix is one of those to be replaced.
    Text GetNumber(TextView entry);

    // A whole number, normalised, and in national form likewise.
    Text NationalNumber(TextView number);

    // Whether one of the two has rewritten a number since the last call because the settings name
    // no prefix: every number that begins with "+" is then written nationally.
    bool TakeRewritten() { return std::exchange(rewritten, false); }

    // Whether the settings, as last loaded, name no prefix.
    bool NamesNone() const { return Remove0Prefixes.size() == 1 && Remove0Prefixes[0] == u"+"; }

    // The settings name others now: the list of those to be replaced is loaded anew.
    void Forget() { Remove0Prefixes.clear(); }

    // Loads both tables where that is due.
    void LoadPrefixes();

    // Splits a text into at most 201 elements and returns the upper bound of the list. Empty
    // elements are replaced by "(no)" when keepEmpty is set, elements by their language text when
    // translate is, and with quoted a separator inside double quotes does not separate.
    std::int32_t GetList(std::vector<Text>& list, TextView text, TextView separator, bool keepEmpty,
                         bool translate, bool quoted);

private:
    Text EmptyElement();

    std::vector<Text> Remove0Prefixes;
    Table CountryPrefixTable;
    std::int32_t CountryPrefixBound = -1;  // -1: never read
    Text emptyElement;                     // computed once
    bool rewritten = false;
    // Nothing assigns it. Deliberate: "No country code of one's own".
    const Text OwnCountryCode;

    Debug& debug;
    InifilesLite& inifilesLite;
    LanguageTexts& language;
};

}  // namespace tellwick
