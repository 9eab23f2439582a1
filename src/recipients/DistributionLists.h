// The distribution lists among the contacts: whom they name, and these people's numbers.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Object.h"
#include "recipients/AddressList.h"
#include "recipients/TimedCalls.h"

namespace tellwick {

// The list's own name, and behind it the names of its members; these are left out where Outlook
// would ask the user whether they may be read, and nothing else helps. Notes an error when Outlook
// fails: then some may be missing.
std::vector<Text> ReadDistributionList(TimedCalls& calls, Automation& automation,
                                       const ObjectPtr& list, bool outlookAsks);

// The first number of each person whom a list names.
class MemberNumbers {
public:
    // The names by item, as ReadDistributionList gives them.
    explicit MemberNumbers(const std::map<std::uint32_t, std::vector<Text>>& lists);

    // False when nobody is looked for.
    explicit operator bool() const { return !numbers.empty(); }
    void LookAt(const AddressRow& row);
    // Those of a list's members, each once, separated by ";".
    Text NumbersOf(const std::vector<Text>& names) const;

private:
    std::unordered_map<std::u16string, Text> numbers;  // by folded name
};

}  // namespace tellwick
