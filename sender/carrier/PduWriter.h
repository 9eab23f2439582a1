// Writes the SMS-SUBMIT units that a modem in PDU mode takes (3GPP TS 23.040): one for each part
// of a text, cut where the add-in's form showed it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Text.h"

namespace tellwick::sender {

// How the parts of a long text are to become one again on the phone. The 16-bit reference takes an
// octet more of each part, so that there can be more parts than the form showed.
enum class Concatenation { Reference8, Reference16, None };

struct SubmitOptions {
    Text serviceCentre;  // empty: the SIM's own
    // Class 0: shown at once, and not kept. Only where the text is one part, as the form has it.
    bool flash = false;
    bool statusReport = false;
    // After which the network gives up; rounded up to what an octet can say (5 minutes to 63
    // weeks). 0: the network decides.
    std::int32_t validityMinutes = 0;
    Concatenation concatenation = Concatenation::Reference8;
};

struct Pdu {
    std::string octets;       // in upper-case hexadecimal digits
    std::int32_t length = 0;  // in octets, those of the service centre left out, as AT+CMGS has it
};

// The units of all parts. The recipient can be dialled; the reference is 0 to 65535, of which the
// 8-bit one is the lower half. Empty for a text of more than 255 parts.
std::vector<Pdu> WriteSubmit(TextView recipient, TextView text, std::int32_t concatReference,
                             const SubmitOptions& options);

}  // namespace tellwick::sender
