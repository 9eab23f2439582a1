// UTF-8, for what is read and written independently of the system's code page.
#pragma once

#include <string>
#include <string_view>

#include "platform/Text.h"

namespace tellwick {

// Every text comes back from its bytes as it was: a surrogate that stands alone becomes three bytes
// like any other unit.
std::string ToUtf8(TextView text);

// Bytes that are no UTF-8 become U+FFFD, one each.
Text FromUtf8(std::string_view bytes);

}  // namespace tellwick
