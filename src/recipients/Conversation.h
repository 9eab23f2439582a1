// Mails that Outlook 2010 and later show as one line, which counts as nothing selected.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/Outlook.h"

namespace tellwick {

inline constexpr std::int32_t FirstWithConversations = 14;

// Of each conversation whose line is selected, so many at most, the mail that came last; empty
// where none is, or Outlook does not tell.
std::vector<outlook::Item> NewestOfConversations(PendingError& errors,
                                                 const outlook::Selection& selection,
                                                 std::int32_t most);

}  // namespace tellwick
