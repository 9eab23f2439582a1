// Reads what a modem in PDU mode hands on (3GPP TS 23.040): SMS that arrive, and reports on those
// that were sent.
#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

#include "platform/Text.h"

namespace tellwick::sender {

// An SMS, or one part of one.
struct ReceivedPart {
    Text from;  // "+491711234567", or the name of a service
    Text text;
    double sent = 0;  // by the service centre's clock, there local; as Clock::Now counts
    std::int32_t concatReference = 0;
    std::int32_t parts = 1;
    std::int32_t part = 1;
};

struct StatusReport {
    std::int32_t networkReference = 0;
    Text recipient;
    enum class Kind { Delivered, StillTrying, Failed } kind = Kind::Delivered;
    std::int32_t status = 0;  // the network's own number
};

// Empty (monostate) for another unit, or what is none.
using ReceivedUnit = std::variant<std::monostate, ReceivedPart, StatusReport>;

// From hexadecimal digits, those of the service centre included.
ReceivedUnit ReadPdu(std::string_view digits);

}  // namespace tellwick::sender
