// A trace that may be passed on.
#pragma once

#include <string>
#include <string_view>

namespace tellwick {

// The last part of a trace, at most so many bytes of whole lines, with everything blanked that is
// no record of a procedure: of errors and free texts every letter becomes "x" and every digit "0".
// What stays are the names of procedures, the numbers of errors, and times.
std::string BlankedTrace(std::string_view trace, std::size_t most = 500'000);

}  // namespace tellwick
