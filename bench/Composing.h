// Measurements of the form's work, over the platform in memory.
#pragma once

namespace tellwick::bench {

void MeasureComposing();
// Reading, keeping and finding contacts.
void MeasurePeople();

}  // namespace tellwick::bench
