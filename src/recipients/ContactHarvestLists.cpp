// The distribution lists among the contacts.
#include <algorithm>
#include <utility>

#include "recipients/ContactHarvest.h"

namespace tellwick {

namespace {

constexpr std::int32_t MostMembers = 1000;

}  // namespace

// Outlook would ask the user before it names the members, Redemption does not.
void ContactHarvest::ReadList(const ObjectPtr& opened, std::uint32_t item) {
    const Text name = OneLine(AsText(opened->Get(u"DLName")));
    ObjectPtr list = opened;
    const bool read = !errors;
    if (const ObjectPtr safe = surroundings.automation.Create(u"Redemption.SafeDistList")) {
        safe->Put(u"Item", list);
        list = safe;
    } else if (read) {
        errors.Clear();  // not every machine has it
    }
    std::vector<Text>& members = book.members[item];
    members.push_back(name);
    const std::int32_t count = std::min(AsNumber(list->Get(u"MemberCount")), MostMembers);
    for (std::int32_t index = 1; index <= count; ++index) {
        Text member =
            OneLine(AsText(Get(errors, AsObject(list->Call(u"GetMember", {index})), u"Name")));
        if (!member.empty()) members.push_back(std::move(member));
    }
}

// The first number of each person whom a distribution list names.
void ContactHarvest::FindMembers() {
    const std::size_t end =
        numberOfMember.empty() ? builder.Rows() : std::min(builder.Rows(), next + EntriesAStep);
    for (; next < end && !numberOfMember.empty(); ++next) {
        const AddressRow row = builder.List().Row(next);
        for (const TextView name : {row.name, row.fileAs}) {
            const auto member = numberOfMember.find(LowerCase(name));
            if (member != numberOfMember.end() && member->second.empty())
                member->second = row.number;
        }
    }
    if (end == builder.Rows()) step = Step::Lists;
}

void ContactHarvest::AddLists() {
    for (const auto& [item, members] : book.members) {
        std::vector<Text> numbers;
        Text all;
        for (std::size_t member = 1; member < members.size(); ++member) {
            const Text& number = numberOfMember[LowerCase(members[member])];
            if (number.empty() ||
                std::find(numbers.begin(), numbers.end(), number) != numbers.end())
                continue;
            all.append(all.empty() ? u"" : u";").append(number);
            numbers.push_back(number);
        }
        if (all.empty()) continue;
        builder.Add({members[0], {}, {}, all, NumberKind::List, book.items[item].folder, item});
    }
    step = Step::Build;
}

}  // namespace tellwick
