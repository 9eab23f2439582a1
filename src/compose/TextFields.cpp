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

std::optional<TextView> TextFields::NameOf(const Person& person, Field field) {
    const TextView name = field == Field::FirstName  ? person.firstName
                          : field == Field::LastName ? person.lastName
                          : field == Field::FullName ? person.fullName
                          : field == Field::Company  ? person.company
                                                     : TextView();
    if (name.empty()) return {};
    return name;
}

FilledText TextFields::FillWith(TextView text, const std::vector<FieldPlace>& places,
                                const ValueOf& valueOf) {
    FilledText filled;
    Text& out = filled.text.text;
    auto place = places.begin();
    bool first = true;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(LineBreak, start), text.size());
        const std::size_t before = out.size();
        if (!first) out += LineBreak;
        const std::size_t line = out.size();
        bool leftOut = false;
        std::size_t next = start;
        for (; place != places.end() && place->start < end; ++place) {
            out += text.substr(next, place->start - next);
            next = place->start + place->length;
            const std::optional<TextView> value = valueOf(place->field);
            if (value && !value->empty()) {
                filled.text.marks.push_back({out.size(), value->size()});
                out += *value;
                continue;
            }
            leftOut = true;
            if (!value && std::ranges::find(filled.missing, place->field) == filled.missing.end())
                filled.missing.push_back(place->field);
            LeaveOutBlank(out, text.substr(next, end - next), next);
        }
        out += text.substr(next, end - next);
        start = end + LineBreak.size();
        if (leftOut && out.find_first_not_of(u' ', line) == Text::npos) {
            out.resize(before);
        } else {
            first = false;
        }
    }
    return filled;
}

}  // namespace tellwick
