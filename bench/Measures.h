// Measurements that run over any platform: natively over the one in memory, on Windows over the
// real one.
#pragma once

#include <algorithm>
#include <chrono>

#include "platform/Modules.h"

namespace tellwick::bench {

// Nanoseconds that one of `count` runs of `work` takes, the best of several rounds.
template <class Work>
double Nanoseconds(int count, const Work& work) {
    using Clock = std::chrono::steady_clock;
    double best = 0;
    for (int round = 0; round < 7; ++round) {
        const auto start = Clock::now();
        for (int i = 0; i < count; ++i) work();
        const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
        best = round == 0 ? taken.count() / count : std::min(best, taken.count() / count);
    }
    return best;
}

// Prints one line: what was measured, the value, its unit, and the target (0: there is none).
void Report(const char* what, double value, const char* unit, double target);

// The 40 settings of a form, in a settings file of 100 KB.
struct FormSettings {
    struct Setting {
        Text section;
        Text key;
    };
    std::vector<Setting> settings;
    std::string file;
    std::size_t characters = 0;  // of all their values
    FormSettings();
};

// Microseconds that reading the form's settings takes, the file being held already.
double ReadFormSettings(test::Modules& modules, const FormSettings& form, const Text& path);

// These two work in the program folder, which must hold no folder "lang".
void MeasureTrace(test::Modules& modules);
void MeasureLanguage(test::Modules& modules);
// Works in the given folder, which ends in "\".
void MeasureSettings(test::Modules& modules, const Text& folder);

#ifdef _WIN32
// The same settings through the engine and through the system's own profile functions.
void CompareWithProfileFunctions(test::Modules& modules, const Text& folder);
#endif

}  // namespace tellwick::bench
