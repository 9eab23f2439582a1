// The sender's settings, as they stand in the store that it shares with the add-in.
#pragma once

#include <cstdint>

#include "carrier/Gateway.h"
#include "carrier/PduWriter.h"
#include "delivery/Inbox.h"
#include "platform/Text.h"
#include "spool/Spool.h"

namespace tellwick {
class InifilesLite;
}

namespace tellwick::sender {

// Section "Settings". Numbers as the system's serial ports take them; 0 baud: as the port is set.
struct SerialSettings {
    Text port;  // "COM5"
    std::int32_t baudRate = 0;
    std::int32_t parity = 0;    // 0 none, 1 odd, 2 even
    std::int32_t stopBits = 0;  // 0 one, 1 one and a half, 2 two
    bool rts = false;           // hardware handshake

    bool operator==(const SerialSettings&) const = default;
};

// Section "Sender" says which carrier, and how the gateway is spoken to; "SMS" how they are sent
// and what is kept. The gateway's password is none of them: it is kept where passwords are.
struct SenderSettings {
    bool gateway = false;  // else the modem
    SerialSettings serial;
    SubmitOptions submit;
    GatewaySettings gatewaySettings;
    SentLimits sent;
    ReadLimits read;

    // Looks first whether another program changed the file.
    static SenderSettings Read(InifilesLite& inifilesLite);
};

}  // namespace tellwick::sender
