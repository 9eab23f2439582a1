// The fields of a text: words in braces, in the language in force or in English, that stand for
// what a person is called. What is in braces and is no field is text.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "platform/Controls.h"
#include "platform/Text.h"

namespace tellwick {

class LanguageTexts;
struct Person;

enum class Field { FirstName, LastName, FullName, Company, Subject, Date, Time, Place };
// Those of a person, which any text may have.
inline constexpr std::array<Field, 4> Fields{Field::FirstName, Field::LastName, Field::FullName,
                                             Field::Company};
// Those of an appointment, which only the texts of reminders have.
inline constexpr std::array<Field, 4> AppointmentFields{Field::Subject, Field::Date, Field::Time,
                                                        Field::Place};

struct FieldPlace {
    std::size_t start, length;  // with its braces
    Field field;
};

// A text with a person's names, or what is known of an appointment, in it.
struct FilledText {
    MarkedText text;             // what was filled in is marked
    std::vector<Field> missing;  // what the text wants and is not known, each once
};

class TextFields {
public:
    explicit TextFields(LanguageTexts& language) : language(language) {}

    // The word for a field, without braces.
    Text Word(Field field) const;
    // Of several: "First name, Company".
    Text Words(const std::vector<Field>& fields) const;

    // Letter case does not count, nor do blanks within the braces.
    std::vector<FieldPlace> Find(TextView text, std::span<const Field> wanted = Fields) const;

    // What is not known is left out, and one blank beside it where there would be one too many.
    using ValueOf = std::function<TextView(Field)>;
    static FilledText FillWith(TextView text, const std::vector<FieldPlace>& places,
                               const ValueOf& valueOf);
    static FilledText Fill(TextView text, const std::vector<FieldPlace>& places,
                           const Person& person);

private:
    LanguageTexts& language;
};

}  // namespace tellwick
