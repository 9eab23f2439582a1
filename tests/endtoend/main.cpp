#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest.h>

#include <cstdio>
#include <cstdlib>

// Every case begins by deleting the user's settings, registry values and queue. Only tools/wine,
// with whose machine that is done, says that it may be.
int main(int count, char** words) {
    if (!std::getenv("TELLWICK_MACHINE_FOR_TESTS")) {
        std::fputs("Not run: this would delete the settings and SMS of whoever works here.\n",
                   stderr);
        return 2;
    }
    return doctest::Context(count, words).run();
}
