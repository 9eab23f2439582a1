// Contacts by the thousand, for measuring.
#pragma once

#include "model/OutlookModel.h"

namespace tellwick::standin {

// Adds so many contacts with one to three numbers each, in so many folders below the default one.
// The same every time.
void AddManyContacts(OutlookModel& outlook, std::int32_t count, std::int32_t folders);

}  // namespace tellwick::standin
