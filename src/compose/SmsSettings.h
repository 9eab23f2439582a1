// The settings that the SMS form reads as one block.
#pragma once

#include <cstdint>

#include "platform/Text.h"
#include "settings/Services.h"

namespace tellwick {

// Values as they were last read. Those of the connection, the service centres and the stored
// messages are the sender application's own; the form keeps them with the rest.
struct SmsSettings {
    Text comPort;
    std::int32_t baudrate = 0;
    std::int32_t parity = 0;
    std::int32_t stopbits = 0;
    std::int32_t protocol = 0;
    bool rts = false;

    std::int32_t serviceCenterUseNotDefault = 0;  // not 0: the own service centre is used
    Text serviceCenter;
    Text areaCodeForOtherServiceCenter;  // ";49;43;": separated, begun and ended by ";"
    Text otherServiceCenter;

    std::int32_t numUsedNumber = 10;
    bool storeNumbers = true;
    bool storeSentSms = true;
    bool storeReadSms = true;
    std::int32_t maxSentSms = 999;
    std::int32_t maxReadSms = 999;
    bool doNotContactLong = false;
    bool airCount = true;           // the status bar says what goes on air
    bool askLostCharacters = true;  // before a text is queued that does not get through whole

    // Reads all of them anew.
    void GetSettings(const Services& services);
};

}  // namespace tellwick
