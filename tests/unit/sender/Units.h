// Units as a phone gets them.
#pragma once

#include <string>

#include "carrier/PduWriter.h"

namespace tellwick::test {

// One of ours to +49171234567, as if it came from there.
inline std::string Delivered(const sender::Pdu& pdu) {
    const std::string& octets = pdu.octets;
    const int first = std::stoi(octets.substr(2, 2), nullptr, 16);
    const std::size_t data = octets.find("0B919471214365F7") + 16;
    return std::string("00") + (first & 0x40 ? "44" : "04") + "0B919471214365F7" +
           octets.substr(data, 4) + "62112231700004" + octets.substr(data + 4);
}

}  // namespace tellwick::test
