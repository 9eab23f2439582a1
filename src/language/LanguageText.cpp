#include "language/LanguageText.h"

#include <algorithm>

namespace tellwick {

namespace {

constexpr TextView LineEnd = u"\r";

}  // namespace

LanguageText::LanguageText(std::string_view bytes, Locale& locale) {
    // What the code page is called reads the same in all of them.
    Use(Text(reinterpret_cast<const std::uint8_t*>(bytes.data()),
             reinterpret_cast<const std::uint8_t*>(bytes.data() + bytes.size())));
    const std::int64_t codePage = LeadingNumber32(Find(u"[Misc]", u"CodePage"));
    std::optional<Text> named;
    if (codePage > 0) named = locale.FromCodePage(std::uint32_t(codePage), bytes);
    Use(named ? *named : locale.FromAnsi(bytes));
}

void LanguageText::Use(TextView contents) {
    text.resize(contents.size());
    sections.clear();
    brackets.clear();
    std::size_t length = 0;
    char16_t before = 0;
    for (const char16_t unit : contents) {
        if (unit == u'[') brackets.push_back(length);
        // Of the two that end a line the second goes.
        if (unit != LineFeed || before != CarriageReturn)
            text[length++] = unit == LineFeed ? CarriageReturn : unit;
        before = unit;
    }
    text.resize(length);
}

LanguageText::Section* LanguageText::FindSection(const Text& bracketed) {
    const auto known = sections.find(bracketed);
    if (known != sections.end()) return &known->second;
    const TextView all = text;
    const auto isHeader = [&](std::size_t at) { return StartsWith(all.substr(at), bracketed); };
    const auto begin = std::find_if(brackets.begin(), brackets.end(), isHeader);
    if (begin == brackets.end()) return nullptr;

    const auto isLineStart = [&](std::size_t at) { return at > 0 && all[at - 1] == LineEnd[0]; };
    auto next = std::find_if(begin + 1, brackets.end(), isLineStart);
    // A line "[=" is an entry and ends no section; only the first following line is looked at.
    if (next != brackets.end() && StartsWith(all.substr(*next), u"[=")) {
        next = std::find_if(next + 1, brackets.end(), isLineStart);
    }
    const std::size_t end = next == brackets.end() ? all.size() : *next - 1;
    return &sections.emplace(bracketed, Section(*begin, end)).first->second;
}

Text LanguageText::Find(const Text& bracketed, TextView key) {
    Section* section = FindSection(bracketed);
    if (!section) return {};
    const std::size_t entry = section->Find(text, LineEnd, key, std::identity{});
    if (entry == Section::NotFound) return {};
    const std::size_t begin = entry + LineEnd.size() + key.size() + 1;
    const std::size_t end = std::min(text.find(LineEnd, begin), text.size());
    Text value = text.substr(begin, end - begin);
    if (!Contains(value, u"\\")) return value;
    return ReplaceAll(ReplaceAll(value, u"\\n", u"\r"), u"\\t", u"\t");
}

}  // namespace tellwick
