// The items a fresh stand-in Outlook has.
#pragma once

#include "model/OutlookModel.h"

namespace tellwick::standin {

// Mails (two of them received SMS), contacts, a distribution list and an appointment.
void AddSampleItems(OutlookModel& outlook);

}  // namespace tellwick::standin
