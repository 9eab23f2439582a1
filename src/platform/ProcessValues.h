// Values that the connection to Outlook sets for the whole process.
#pragma once

#include <cstdint>

#include "platform/Text.h"

namespace tellwick {

struct ProcessValues {
    std::int32_t outlookVersion = 0;  // major version: 9 for Outlook 2000, 10 for 2002, 11 for 2003
    Text applicationTitle;            // of the add-in component; empty until the connection
};

}  // namespace tellwick
