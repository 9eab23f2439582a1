#include "recipients/RecipientPeople.h"

#include <algorithm>
#include <utility>

#include "recipients/Addresses.h"

namespace tellwick {

namespace {

Person PersonOf(const AddressRow& row) {
    return PersonNamed(row.name, row.fileAs, row.company);
}

// Nobody when the rows are of several people.
Person OnlyPersonOf(const AddressList& list, const std::vector<std::uint32_t>& rows) {
    if (rows.empty()) return {};
    Person person = PersonOf(list.Row(rows[0]));
    for (const std::uint32_t row : rows) {
        if (!EqualFolded(list.Row(row).name, person.fullName)) return {};
        // One contact of several may say more.
        if (person.company.empty()) person.company = list.Row(row).company;
    }
    return person;
}

}  // namespace

RecipientPeople::RecipientPeople(Addresses& addresses) : addresses(addresses) {
    addresses.AddListener([this](bool listChanged) { Addresses_Change(listChanged); });
}

void RecipientPeople::Addresses_Change(bool listChanged) {
    if (!listChanged) return;
    lastNumbers.clear();
    listener();
}

void RecipientPeople::Choose(TextView number, Person person) {
    chosen.insert_or_assign(Text(number), std::move(person));
    lastNumbers.clear();
}

void RecipientPeople::ChooseRow(std::size_t row, const std::vector<Text>& numbers) {
    const AddressList& list = addresses.List();
    const AddressRow chosenRow = list.Row(row);
    if (chosenRow.kind != NumberKind::List) {
        for (const Text& number : numbers) Choose(number, PersonOf(chosenRow));
        return;
    }
    ChooseMembers(chosenRow.item, numbers, list.RowsOf(numbers));
}

void RecipientPeople::ChooseMembers(std::uint32_t item, const std::vector<Text>& numbers,
                                    std::span<const std::vector<std::uint32_t>> rowsOf) {
    const AddressList& list = addresses.List();
    const std::vector<Text>& members = addresses.MembersOf(item);
    const auto isMember = [&](TextView name) {
        return !name.empty() && std::ranges::any_of(members, [&](const Text& member) {
            return EqualFolded(member, name);
        });
    };
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        for (const std::uint32_t one : rowsOf[at]) {
            const AddressRow member = list.Row(one);
            if (!isMember(member.name) && !isMember(member.fileAs)) continue;
            Choose(numbers[at], PersonOf(member));
            break;
        }
    }
}

void RecipientPeople::Forget() {
    chosen.clear();
    lastNumbers.clear();
    lastPeople.clear();
}

std::vector<Person> RecipientPeople::Of(const std::vector<Text>& numbers) {
    if (numbers.empty()) return {};
    if (numbers == lastNumbers) return lastPeople;
    const AddressList& list = addresses.List();
    const RowsOfNumbers found = list.RowsOf(numbers);
    std::vector<Person> people;
    people.reserve(numbers.size());
    bool missing = false;
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        const auto known = chosen.find(numbers[at]);
        people.push_back(known == chosen.end() ? OnlyPersonOf(list, found[at]) : known->second);
        missing = missing || people.back() == Person();
    }
    lastNumbers = numbers;
    lastPeople = std::move(people);
    // A short list is read at once, and the listener has asked meanwhile.
    if (missing) addresses.RefreshOnce();
    return lastNumbers == numbers ? lastPeople : Of(numbers);
}

}  // namespace tellwick
