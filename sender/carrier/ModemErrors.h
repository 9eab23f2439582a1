// What the numbers of a modem's errors mean for an SMS (3GPP TS 24.011, 23.040, 27.005, 27.007).
#pragma once

#include "carrier/AtDialogue.h"
#include "carrier/Carrier.h"

namespace tellwick::sender {

// Of an answer to AT+CMGS that is neither OK nor silence.
Outcome OutcomeOf(const AtAnswer& answer);

// Why the SIM cannot be used, of an answer to AT+CPIN?. Empty when it is only not ready yet.
Reason SimReason(const AtAnswer& answer);

}  // namespace tellwick::sender
