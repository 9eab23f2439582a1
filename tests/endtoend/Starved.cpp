// The library's memory runs out, at one allocation after the other. It is a library that was built
// with checks, which end the process where something undefined is done.
#include <doctest.h>

#include <filesystem>

#include "endtoend/StandIn.h"

using namespace tellwick::endtoend;

namespace {

struct Step {
    std::string before, starved;
    bool inForm = true;  // the form is open before
};

// They are done for each allocation that fails, so they are short.
const Step Steps[] = {
    {"", "click 1 \"Neue SMS\"", false},
    {"fill \"0171 2345678\" \"Ganz\"", "push \"SMS senden\""},
    {"", "fill \"0171 2345678; anna\" \"Text\""},
    {"", "push \"An:\""},
    {"", "push Einstellungen"},
    {"", "close-forms"},
    {"", "reply 2", false},
};

}  // namespace

TEST_CASE("whichever allocation fails, once or from there on, Outlook and the next SMS are well") {
    Machine machine;
    std::filesystem::copy_file(BuildFolder() + L"checked\\TellwickOutlookAddIn.dll",
                               machine.ProgramFolder() + L"TellwickOutlookAddIn.dll",
                               std::filesystem::copy_options::overwrite_existing);
    const Child sender(L"\"" + machine.ProgramFolder() + L"Tellwick.exe\" nocheck");
    StandIn outlook(11);
    const auto open = [&] { outlook.Command("click 1 \"Neue SMS\""); };
    long failures = 0;
    for (const Step& step : Steps) {
        CAPTURE(step.starved);
        for (const std::string mode : {"one", "all"}) {
            CAPTURE(mode);
            for (int after = 0;; after += 1 + after / 2) {
                CAPTURE(after);
                if (step.inForm) open();
                if (!step.before.empty()) outlook.Command(step.before);
                const long failed = std::stol(outlook.Command("starve " + std::to_string(after) +
                                                              " " + mode + " " + step.starved));
                failures += failed;
                outlook.Command("close-forms");
                if (failed == 0) break;
            }
            open();
            CHECK(outlook.List("controls").size() >= 20);
            outlook.Command("close-forms");
        }
    }
    MESSAGE(failures, " allocations failed");
    CheckClean(outlook.Quit());
}
