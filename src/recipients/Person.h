// A person as far as a text can name them.
#pragma once

#include "platform/Text.h"

namespace tellwick {

// What is not known is empty.
struct Person {
    Text firstName, lastName;
    Text fullName;
    Text company;

    bool operator==(const Person& other) const = default;
};

// Of a contact whose names are known only as they are written: "Anna Berger", filed as "Berger,
// Anna" where that is another name, else empty. Outlook takes one word for the first name, and so
// does this; titles and suffixes with a dot belong to neither name. One who is named as the company
// is nobody but the company.
Person PersonNamed(TextView name, TextView fileAs, TextView company);

}  // namespace tellwick
