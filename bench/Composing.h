// Measurements of the form's work, over the platform in memory.
#pragma once

namespace tellwick::bench {

void MeasureComposing();

}  // namespace tellwick::bench
