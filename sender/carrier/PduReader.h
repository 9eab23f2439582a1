// Reads what a modem in PDU mode hands on (3GPP TS 23.040): SMS that arrive, and reports on those
// that were sent.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

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

// Joins parts. Holds what is not complete yet; the parts themselves are kept safe elsewhere until
// then.
class PartsJoiner {
public:
    // The whole text, with `parts` 1, once the last missing part comes. A part that comes twice
    // counts once.
    std::optional<ReceivedPart> Add(const ReceivedPart& part);

private:
    using Key = std::tuple<Text, std::int32_t, std::int32_t>;  // sender, reference, number of parts
    std::map<Key, std::map<std::int32_t, ReceivedPart>> incomplete;
};

}  // namespace tellwick::sender
