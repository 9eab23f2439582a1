#include "recipients/DistributionLists.h"

#include <algorithm>
#include <utility>

namespace tellwick {

namespace {

constexpr std::int32_t MostMembers = 1000;

}  // namespace

std::vector<Text> ReadDistributionList(TimedCalls& calls, Automation& automation,
                                       const ObjectPtr& list, bool outlookAsks) {
    std::vector<Text> names{OneLine(AsText(calls.Get(list, u"DLName")))};
    ObjectPtr source = list;
    const bool read = !calls.errors;
    if (const ObjectPtr safe = automation.Create(u"Redemption.SafeDistList")) {
        calls.Put(safe, u"Item", list);
        source = safe;
    } else {
        if (read) calls.errors.Clear();  // not every machine has it
        if (outlookAsks) return names;
    }
    const std::int32_t count = std::min(AsNumber(calls.Get(source, u"MemberCount")), MostMembers);
    for (std::int32_t index = 1; index <= count; ++index) {
        const ObjectPtr member = AsObject(calls.Call(source, u"GetMember", {index}));
        Text name = OneLine(AsText(calls.Get(member, u"Name")));
        if (!name.empty()) names.push_back(std::move(name));
    }
    return names;
}

MemberNumbers::MemberNumbers(const std::map<std::uint32_t, std::vector<Text>>& lists) {
    for (const auto& [item, names] : lists) {
        for (const Text& name : names) numbers.try_emplace(LowerCase(name));
    }
}

void MemberNumbers::LookAt(const AddressRow& row) {
    for (const TextView name : {row.name, row.fileAs}) {
        const auto member = numbers.find(LowerCase(name));
        if (member != numbers.end() && member->second.empty()) member->second = row.number;
    }
}

Text MemberNumbers::NumbersOf(const std::vector<Text>& names) const {
    std::vector<Text> taken;
    Text all;
    for (std::size_t member = 1; member < names.size(); ++member) {
        const auto found = numbers.find(LowerCase(names[member]));
        if (found == numbers.end() || found->second.empty() ||
            std::find(taken.begin(), taken.end(), found->second) != taken.end())
            continue;
        all.append(all.empty() ? u"" : u";").append(found->second);
        taken.push_back(found->second);
    }
    return all;
}

}  // namespace tellwick
