// Reads contacts as a simple macro does, through COM: the yardstick for faster ways.
#pragma once

#include <oaidl.h>

namespace tellwick::standin {

// Asks every item in the folders below the default contacts folder for each property that the
// add-in reads; answers how many items there were.
long ReadContactsNaively(IDispatch& application);

}  // namespace tellwick::standin
