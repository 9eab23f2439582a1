// Finds in a text whom of the address list it names first.
#pragma once

#include "platform/Text.h"

namespace tellwick {

class AddressList;

// The number of the person named first, letter case ignored; of several names that begin there, of
// the longest. Empty when the text names nobody whom the list has. A name counts where it stands by
// itself, not within a word.
Text NumberOfPersonIn(const AddressList& list, TextView text);

}  // namespace tellwick
