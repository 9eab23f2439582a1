// libFuzzer's entry points: fuzz --target=NAME [OPTION]... [FOLDER]...
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/Targets.h"

using namespace tellwick::test;

namespace {

const FuzzTarget* target = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    constexpr std::string_view option = "--target=";
    for (int i = 1; i < *count; ++i) {
        const std::string_view argument = (*arguments)[i];
        if (!argument.starts_with(option)) continue;
        for (const FuzzTarget& each : FuzzTargets) {
            if (each.name == argument.substr(option.size())) target = &each;
        }
    }
    if (target) return 0;
    std::fputs("which target?", stderr);
    std::exit(2);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    target->run(Input({reinterpret_cast<const char*>(bytes), size}));
    return 0;
}
