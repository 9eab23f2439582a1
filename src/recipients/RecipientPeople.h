// Who the form's recipients are. Its field holds numbers; whom the user chose with a number is kept
// here beside it, and of a number that was typed the address list in memory tells the person.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <span>
#include <vector>

#include "recipients/Person.h"

namespace tellwick {

class Addresses;

class RecipientPeople {
public:
    explicit RecipientPeople(Addresses& addresses);

    // Hears that somebody may be known now who was not, or another.
    void SetListener(std::function<void()> newListener) { listener = std::move(newListener); }

    // The user chose this person; the number as it comes into the field.
    void Choose(TextView number, Person person);
    // The same of a row of the address list: one number of a person, or those of a distribution
    // list, each of which belongs to the member who has it.
    void ChooseRow(std::size_t row, const std::vector<Text>& numbers);
    // The members of a distribution list, an item; for each number the rows of all who have it.
    void ChooseMembers(std::uint32_t item, const std::vector<Text>& numbers,
                       std::span<const std::vector<std::uint32_t>> rowsOf);
    // The form goes, and what was chosen with it.
    void Forget();

    // In the order of the numbers; of nobody, all is empty. A number that several people have, of
    // whom none was chosen, is nobody's. As long as somebody is missing, Outlook's contacts are
    // read for those that are not in the list yet.
    std::vector<Person> Of(const std::vector<Text>& numbers);

private:
    void Addresses_Change(bool listChanged);

    std::map<Text, Person, std::less<>> chosen;  // by number
    // Found last.
    std::vector<Text> lastNumbers;
    std::vector<Person> lastPeople;
    std::function<void()> listener = [] {};

    Addresses& addresses;
};

}  // namespace tellwick
