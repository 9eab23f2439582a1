// Allocations that fail on demand, of the whole program or library that links this.
#pragma once

namespace tellwick::test {

struct FailingAllocations {
    long left = -1;        // that still succeed; below 0 none fails
    bool forGood = false;  // not the next one alone, but all behind it as well
    bool watching = true;  // others neither count nor fail
    long failed = 0;
};
extern FailingAllocations failingAllocations;

}  // namespace tellwick::test
