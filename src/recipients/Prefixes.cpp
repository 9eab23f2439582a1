#include "recipients/Prefixes.h"

#include <algorithm>
#include <optional>

#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr int MostPasses = 201;
constexpr char16_t Quote = u'"';

// These are called so often that they are traced on request only.
class FrequentProcedure {
public:
    template <std::size_t Size>
    FrequentProcedure(Debug& debug, const char16_t (&name)[Size]) {
        if (debug.Mode() > 1) procedure.emplace(debug, name);
    }

private:
    std::optional<Procedure> procedure;
};

Text WithPlus(const Text& prefix) {
    return StartsWith(prefix, u"+") ? prefix : u"+" + prefix;
}

bool IsAllowedPhoneChar(char16_t unit) {
    switch (unit) {
        case u'+':
        case u'#':
        case u'*':
        case u'p':
        case u'P':
            return true;
        default:
            return unit >= u'0' && unit <= u'9';
    }
}

bool IsNumberEnd(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || unit == u'+' || unit == u')';
}

}  // namespace

Prefixes::Prefixes(Debug& debug, InifilesLite& inifilesLite, LanguageTexts& language)
    : debug(debug), inifilesLite(inifilesLite), language(language) {}

Text Prefixes::ConvertPhoneNumber(TextView number) {
    const FrequentProcedure procedure{debug, u"ConvertPhoneNumber"};
    // Deliberate: "(00" goes whole. What closes up behind a removed character is not looked at
    // again.
    Text converted(number.size(), u'\0');
    std::size_t kept = 0;
    for (std::size_t at = 0; at < number.size();) {
        if (number[at] == u'(' && number.substr(at, 3) == u"(00") {
            at += 3;
            continue;
        }
        if (IsAllowedPhoneChar(number[at])) converted[kept++] = number[at];
        ++at;
    }

    converted.resize(kept);

    // "++" becomes "+" in one pass as well.
    kept = 0;
    for (std::size_t at = 0; at < converted.size(); ++at, ++kept) {
        converted[kept] = converted[at];
        if (converted[at] == u'+' && at + 1 < converted.size() && converted[at + 1] == u'+') ++at;
    }
    converted.resize(kept);
    if (StartsWith(converted, u"00")) converted.replace(0, 2, u"+");
    return converted;
}

std::int32_t Prefixes::ReadPrefixes(Table& table) {
    const FrequentProcedure procedure{debug, u"ReadPrefixes"};
    std::array<std::vector<Text>, 10> lists;
    std::size_t highest = 0;
    for (std::size_t digit = 1; digit <= 9; ++digit) {
        const Text setting = inifilesLite.GetIniSetting(
            u"Prefixes", u"Countrycodes" + NumberText(std::int64_t(digit)));
        if (setting.empty()) continue;
        lists[digit] = Split(setting, u" ");
        highest = std::max(highest, lists[digit].size() - 1);
    }
    // One column less than the longest list has. Deliberate: "The last country code".
    const std::size_t columns = highest < 1 ? 1 : highest;
    for (std::size_t digit = 0; digit <= 9; ++digit) {
        table[digit].assign(columns, Text());
        for (std::size_t entry = 0; entry < std::min(columns, lists[digit].size()); ++entry) {
            table[digit][entry] = WithPlus(lists[digit][entry]);
        }
    }
    return std::int32_t(columns) - 1;
}

void Prefixes::LoadPrefixes() {
    // A list of one entry is read again each time.
    if (Remove0Prefixes.size() < 2) {
        GetList(Remove0Prefixes, inifilesLite.GetIniSetting(u"Prefixes", u"Remove0InPrefixes"),
                u" ", true, false, false);
        for (Text& prefix : Remove0Prefixes) prefix = WithPlus(prefix);
    }
    if (CountryPrefixBound < 0) CountryPrefixBound = ReadPrefixes(CountryPrefixTable);
}

Text Prefixes::GetNumber(TextView entry) {
    const FrequentProcedure procedure{debug, u"GetNumber"};
    std::size_t start = entry.size();
    while (start > 0 && IsNumberEnd(entry[start - 1])) --start;
    return NationalNumber(entry.substr(start));
}

Text Prefixes::NationalNumber(TextView written) {
    LoadPrefixes();
    const Text number = ConvertPhoneNumber(written);
    for (const Text& prefix : Remove0Prefixes) {
        if (!StartsWith(number, prefix)) continue;
        rewritten = rewritten || prefix == u"+";
        const Text rest = number.substr(prefix.size());
        return StartsWith(rest, u"0") ? rest : u"0" + rest;
    }
    if (!StartsWith(number, u"+") || StartsWith(number, OwnCountryCode)) return number;
    const std::int32_t digit = number.size() > 1 ? number[1] - u'0' : -1;
    if (digit < 0 || digit > 9) return number;
    for (const Text& prefix : CountryPrefixTable[std::size_t(digit)]) {
        if (prefix.empty()) break;
        if (StartsWith(number, prefix)) return number.substr(prefix.size());
    }
    return number;
}

Text Prefixes::EmptyElement() {
    if (emptyElement.empty()) {
        const Text word = language.GetLanguageString(u"Misc", u"no");
        emptyElement = u"(" + (word.empty() ? Text(u"no") : word) + u")";
    }
    return emptyElement;
}

std::int32_t Prefixes::GetList(std::vector<Text>& list, TextView text, TextView separator,
                               bool keepEmpty, bool translate, bool quoted) {
    const FrequentProcedure procedure{debug, u"GetList"};
    list.clear();
    list.reserve(text.size() / 100 + 1);
    std::size_t start = 0;
    for (int pass = 0; pass < MostPasses && start < text.size(); ++pass) {
        std::size_t end = TextView::npos;
        std::size_t next = TextView::npos;
        if (quoted && start < text.size() && text[start] == Quote) {
            const std::size_t pair = text.find(Text(1, Quote).append(separator), start);
            if (pair != TextView::npos) end = pair + 1;
        }
        if (end == TextView::npos && !separator.empty()) end = text.find(separator, start);
        if (end != TextView::npos) next = end + separator.size();
        Text element(text.substr(start, end == TextView::npos ? end : end - start));
        start = next;

        if (element.empty() && keepEmpty) element = EmptyElement();
        if (Contains(element, u"+CGMI")) continue;
        if (translate) {
            Text translated = language.GetLanguageString(u"Fields", element);
            if (translated.empty()) translated = language.GetLanguageString(u"Calendar", element);
            if (!translated.empty()) element = translated;
        }
        list.push_back(std::move(element));
    }

    if (list.size() > 1 && list.back().empty()) list.pop_back();
    if (list.empty()) list.emplace_back();
    return std::int32_t(list.size()) - 1;
}

}  // namespace tellwick
