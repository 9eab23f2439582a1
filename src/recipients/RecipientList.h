// Several recipients in one text.
#pragma once

#include <vector>

#include "platform/Text.h"

namespace tellwick {

// The recipients of a field, separated by ";" or ",", blanks around them left out; none is empty.
std::vector<Text> RecipientsIn(TextView field);

}  // namespace tellwick
