// The fields of a text: words in braces, in the language in force or in English, that stand for
// what a person is called. What is in braces and is no field is text.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "platform/Controls.h"
#include "platform/Text.h"

namespace tellwick {

class LanguageTexts;
struct Person;

enum class Field { FirstName, LastName, FullName, Company };
inline constexpr std::array<Field, 4> Fields{Field::FirstName, Field::LastName, Field::FullName,
                                             Field::Company};

struct FieldPlace {
    std::size_t start, length;  // with its braces
    Field field;
};

// A text with a person's names in it.
struct FilledText {
    MarkedText text;             // what was filled in is marked
    std::vector<Field> missing;  // what the text wants and the person lacks, each once
};

class TextFields {
public:
    explicit TextFields(LanguageTexts& language) : language(language) {}

    // The word for a field, without braces.
    Text Word(Field field) const;
    // Of several: "First name, Company".
    Text Words(const std::vector<Field>& fields) const;

    // Letter case does not count, nor do blanks within the braces.
    std::vector<FieldPlace> Find(TextView text) const;

    // What the person lacks is left out, and one blank beside it where there would be one too many.
    static FilledText Fill(TextView text, const std::vector<FieldPlace>& places,
                           const Person& person);

private:
    LanguageTexts& language;
};

}  // namespace tellwick
