#include "compose/TextFields.h"

#include <algorithm>
#include <optional>

#include "recipients/Person.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView Section = u"TextFields";
constexpr TextView Keys[] = {u"FirstName", u"LastName", u"FullName", u"Company",
                             u"Subject",   u"Date",     u"Time",     u"Place"};
constexpr TextView English[] = {u"FirstName", u"LastName", u"Name", u"Company",
                                u"Subject",   u"Date",     u"Time", u"Place"};
constexpr TextView BehindLeftOut = u" .,;:!?)\r\n";

Text WithoutBlanks(TextView text) {
    Text without(text);
    std::erase(without, u' ');
    return without;
}

TextView NameOf(const Person& person, Field field) {
    switch (field) {
        case Field::FirstName:
            return person.firstName;
        case Field::LastName:
            return person.lastName;
        case Field::FullName:
            return person.fullName;
        case Field::Company:
            return person.company;
        default:
            return {};
    }
}

// The blank before what is left out goes where a word's end, or another blank, follows, and the one
// behind it at the beginning of a line.
void LeaveOutBlank(Text& before, TextView behind, std::size_t& next) {
    const bool ends = behind.empty() || BehindLeftOut.find(behind[0]) != TextView::npos;
    if (before.ends_with(u' ') && ends) {
        before.pop_back();
    } else if ((before.empty() || before.ends_with(LineFeed)) && behind.starts_with(u' ')) {
        ++next;
    }
}

}  // namespace

Text TextFields::Word(Field field) const {
    return language.TextOrBuiltIn(Section, Keys[std::size_t(field)]);
}

Text TextFields::Words(const std::vector<Field>& fields) const {
    Text words;
    for (const Field field : fields) words.append(words.empty() ? u"" : u", ").append(Word(field));
    return words;
}

std::vector<FieldPlace> TextFields::Find(TextView text, std::span<const Field> wanted) const {
    std::vector<FieldPlace> places;
    if (text.find(u'{') == TextView::npos) return places;
    std::array<Text, std::size(Keys)> words;
    for (const Field field : wanted) words[std::size_t(field)] = WithoutBlanks(Word(field));
    const auto fieldOf = [&](TextView inside) -> std::optional<Field> {
        const Text word = WithoutBlanks(inside);
        for (const Field field : wanted) {
            if (EqualFolded(word, words[std::size_t(field)])) return field;
        }
        for (const Field field : wanted) {
            if (EqualFolded(word, English[std::size_t(field)])) return field;
        }
        return {};
    };
    for (std::size_t from = 0, close; (close = text.find(u'}', from)) != TextView::npos;
         from = close + 1) {
        // The nearest one before: "{{Name}" has a field.
        const std::size_t open = text.substr(from, close - from).rfind(u'{');
        if (open == TextView::npos) continue;
        const std::size_t start = from + open;
        if (const auto field = fieldOf(text.substr(start + 1, close - start - 1)))
            places.push_back({start, close + 1 - start, *field});
    }
    return places;
}

FilledText TextFields::Fill(TextView text, const std::vector<FieldPlace>& places,
                            const Person& person) {
    return FillWith(text, places, [&](Field field) { return NameOf(person, field); });
}

FilledText TextFields::FillWith(TextView text, const std::vector<FieldPlace>& places,
                                const ValueOf& valueOf) {
    FilledText filled;
    Text& out = filled.text.text;
    std::size_t next = 0;
    for (const FieldPlace& place : places) {
        out += text.substr(next, place.start - next);
        next = place.start + place.length;
        const TextView value = valueOf(place.field);
        if (!value.empty()) {
            filled.text.marks.push_back({out.size(), value.size()});
            out += value;
            continue;
        }
        if (std::ranges::find(filled.missing, place.field) == filled.missing.end())
            filled.missing.push_back(place.field);
        LeaveOutBlank(out, text.substr(next), next);
    }
    out += text.substr(next);
    return filled;
}

}  // namespace tellwick
