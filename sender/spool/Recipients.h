// Whom a carrier can send to.
#pragma once

#include "platform/Text.h"

namespace tellwick::sender {

// Whether a number, normalised as the recipient field does it, can stand in an SMS: 3 to 20 digits,
// "*" and "#" among them, behind one "+" or none. A "p" is for calls.
bool CanBeDialled(TextView number);

}  // namespace tellwick::sender
