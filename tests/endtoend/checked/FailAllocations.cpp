// The way for the stand-in Outlook to let the allocations of the add-in's library fail.
#include "platform/FailingAllocations.h"

// The next but so many fails, or that one and all behind it; below 0 none does. How many have
// failed since it was last said.
extern "C" __declspec(dllexport) long FailAllocations(long after, int all) {
    auto& failing = tellwick::test::failingAllocations;
    const long failed = failing.failed;
    failing = {after, all != 0};
    return failed;
}
