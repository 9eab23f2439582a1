// Whole runs of Outlook, in every version, each twice in one process: what the add-in does in them,
// and that nothing of it is left behind.
#include <doctest.h>

#include <string>
#include <vector>

#include "endtoend/StandIn.h"

using namespace tellwick::endtoend;

namespace {

// Steps and ends are commands of the stand-in, but for "has N" and "none N", which look whether
// window N has the add-in's controls, on its bars or, without a tick, on its ribbon. The end "" is
// that of Outlook's last window.
struct Course {
    std::string name;
    std::vector<std::string> steps;
    std::vector<std::string> ends;
};

const std::string Tick = "wait 230";
constexpr int FirstWithRibbon = 14;

const Course Courses[] = {
    {"one window", {"start", "has 1"}, {"quit", "end-addins", "disconnect"}},
    {"no window", {"start no-window", "open-explorer", Tick, "none 1"}, {"quit", "end-addins"}},
    {"later windows", {"start", "open-explorer", "none 2", Tick, "has 2"}, {"disconnect"}},
    {"two activations, one tick",
     {"start", "open-explorer", "open-explorer", Tick, "none 2", "has 3"},
     {"quit"}},
    {"tick still to come", {"start", "open-explorer"}, {"quit", "disconnect"}},
    {"closed in their order",
     {"start", "open-explorer", "open-explorer", "close-explorer 1", Tick, "has 3",
      "close-explorer 2", "close-explorer 3"},
     {""}},
    {"closed the other way round",
     {"start", "open-explorer", "open-explorer", "close-explorer 3", "close-explorer 2", "has 1",
      "close-explorer 1"},
     {""}},
    {"a place taken again",
     {"start", "open-explorer", Tick, "open-explorer", Tick, "close-explorer 2", "open-explorer",
      Tick, "has 1", "has 3", "has 4"},
     {"quit"}},
    {"all closed, one opened again",
     {"start", "open-inspector 1", "open-explorer", "close-explorer 1", "close-explorer 2",
      "open-explorer", Tick, "has 3"},
     {"disconnect"}},
    {"a mail's window is the last",
     {"start", "open-inspector 1", "open-inspector 6", "close-explorer 1", "close-inspector 1",
      "close-inspector 2"},
     {""}},
    {"mails selected and open, form open",
     {"start", "open-inspector 2", "select 1 2", "open-inspector 6", "reply-inspector 1",
      "select 1 1"},
     {"quit", "end-addins", "disconnect"}},
    {"connected late",
     {"start late", "none 1", "load-addin", "has 1", "open-explorer", Tick, "has 2"},
     {"quit", "disconnect"}},
};

void Play(StandIn& outlook, int version, const std::vector<std::string>& steps) {
    for (const std::string& step : steps) {
        CAPTURE(step);
        const std::string window = step.substr(step.find(' ') + 1);
        if (version >= FirstWithRibbon && (step.starts_with("has ") || step.starts_with("none "))) {
            CHECK_FALSE(outlook.HasBars(window));
            if (step.starts_with("has ")) CHECK_FALSE(outlook.Command("ribbon " + window).empty());
        } else if (step.starts_with("has ")) {
            // Outlook 2000 sets up its first window only.
            CHECK(outlook.HasBars(window) == (version >= 10 || window == "1"));
        } else if (step.starts_with("none ")) {
            CHECK_FALSE(outlook.HasBars(window));
        } else {
            outlook.Command(step);
        }
    }
}

// What is left when the add-in has gone, "clean" when nothing is.
std::string Left(StandIn& outlook, const std::string& references) {
    std::string left;
    const auto note = [&](bool is, const char* what) {
        if (is) left += left.empty() ? what : std::string(",") + what;
    };
    for (const std::string& window : outlook.List("explorers")) {
        const std::string number = window.substr(0, window.find(' '));
        note(outlook.HasBars(number), "controls");
        note(!outlook.Command("ribbon " + number).empty(), "ribbon");
    }
    note(outlook.Command("references") != references, "references");
    note(outlook.Command("can-unload") != "yes", "library");
    note(ReadText(RootKey, L"OlAddInActive") != L"", "flag");
    return left.empty() ? "clean" : left;
}

}  // namespace

TEST_CASE("every run of Outlook, whatever its course and end, leaves nothing of the add-in") {
    for (const int version : {9, 11, 14, 16}) {
        CAPTURE(version);
        Machine machine;
        // Being found by others is a reference of its own, from some moment on.
        StandIn outlook(version, L"--stay --switch running-after-focus=off");
        const std::string references = outlook.Command("references");
        for (const Course& course : Courses) {
            for (const std::string& end : course.ends) {
                // An add-in that stayed away hears nothing of an end that tells it only Quit.
                const bool unheard = version >= 14 && course.name == "no window" && end == "quit";
                for (const int round : {1, 2}) {
                    CAPTURE(course.name);
                    CAPTURE(end);
                    CAPTURE(round);
                    WriteText(RootKey, L"OlAddInActive", L"x");
                    Play(outlook, version, course.steps);
                    if (!end.empty()) outlook.Command(end);
                    outlook.Command("pump");  // the end comes from the message loop
                    outlook.Command("pump");
                    CHECK(Left(outlook, references) == (unheard ? "flag" : "clean"));
                    if (!outlook.List("explorers").empty()) {
                        outlook.Command("quit");
                        outlook.Command("pump");
                    }
                }
                CHECK(outlook.Command("unload") == "unloaded");
            }
        }
        CheckClean(outlook.Quit());
    }
}
