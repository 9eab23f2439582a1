// The fields of a text: words in braces, in the language in force or in English, that stand for
// what a person is called, or for what an appointment is. What is in braces and is no field is
// text.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/Controls.h"
#include "platform/Text.h"

namespace tellwick {

class LanguageTexts;
struct Person;

enum class Field { FirstName, LastName, FullName, Company, Subject, Date, Time, Place };
inline constexpr std::array<Field, 4> PersonFields{Field::FirstName, Field::LastName,
                                                   Field::FullName, Field::Company};
inline constexpr std::array<Field, 4> AppointmentFields{Field::Subject, Field::Date, Field::Time,
                                                        Field::Place};
inline constexpr std::array<Field, 8> AllFields{Field::FirstName, Field::LastName, Field::FullName,
                                                Field::Company,   Field::Subject,  Field::Date,
                                                Field::Time,      Field::Place};

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
    std::vector<FieldPlace> Find(TextView text, std::span<const Field> wanted = AllFields) const;

    // What is not known is left out, and one blank beside it where there would be one too many; so
    // is a line of which nothing is left. A value that is empty is known: there is none.
    using ValueOf = std::function<std::optional<TextView>(Field)>;
    static FilledText FillWith(TextView text, const std::vector<FieldPlace>& places,
                               const ValueOf& valueOf);
    // What a person is called; empty where it is not known, and of any other field.
    static std::optional<TextView> NameOf(const Person& person, Field field);

private:
    LanguageTexts& language;
};

}  // namespace tellwick
