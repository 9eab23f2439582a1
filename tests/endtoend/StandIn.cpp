#include "endtoend/StandIn.h"

#include <doctest.h>

#include <sstream>
#include <utility>

namespace tellwick::endtoend {

StandIn::StandIn(int version, const std::wstring& options) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE theirInput, theirOutput;
    REQUIRE(CreatePipe(&theirInput, &input, &inherited, 0));
    REQUIRE(CreatePipe(&output, &theirOutput, &inherited, 0));
    SetHandleInformation(input, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);

    child.emplace(L"\"" + BuildFolder() + L"OutlookStandIn.exe\" --commands --version " +
                      std::to_wstring(version) + L" " + options,
                  theirInput, theirOutput);
}

StandIn::~StandIn() {
    child.reset();
    for (HANDLE handle : {input, output}) CloseHandle(handle);
}

void StandIn::Read() {
    DWORD waiting = 0;
    if (!PeekNamedPipe(output, nullptr, 0, nullptr, &waiting, nullptr) || waiting == 0) return;
    std::string more(waiting, '\0');
    ReadFile(output, more.data(), waiting, &waiting, nullptr);
    unread.append(more, 0, waiting);
}

bool StandIn::TakeAnswer(std::string& answer) {
    Read();
    for (std::size_t end; (end = unread.find('\n')) != std::string::npos;) {
        answer = unread.substr(0, end);
        unread.erase(0, end + 1);
        // The sender prints to the same place when Outlook started it.
        if (answer.starts_with("ok") || answer.starts_with("error")) return true;
    }
    return false;
}

std::string StandIn::Command(const std::string& command) {
    DWORD written;
    const std::string line = command + "\n";
    WriteFile(input, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    std::string answer;
    // Most answers come at once, and there are many.
    for (const DWORD start = GetTickCount();
         !TakeAnswer(answer) && !child->Ends(0) && GetTickCount() - start < 10000;) {
        Sleep(1);
    }
    REQUIRE_MESSAGE(answer.starts_with("ok"), command << ": " << answer);
    return answer.substr(answer.size() > 2 ? 3 : 2);
}

std::vector<std::string> StandIn::List(const std::string& command) {
    std::vector<std::string> entries;
    std::string answer = Command(command);
    for (std::size_t end; !answer.empty(); answer.erase(0, end)) {
        end = answer.find(" | ");
        entries.push_back(answer.substr(0, end));
        end = end == std::string::npos ? answer.size() : end + 3;
    }
    return entries;
}

HWND StandIn::Window(int explorer) {
    const std::string handle = Command("window " + std::to_string(explorer));
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(std::stoll(handle)));
}

void StandIn::ClickButton(int explorer, const std::string& caption) {
    const std::string number = std::to_string(explorer);
    Command("activate " + number);
    SetWindowPos(Window(explorer), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    const auto place = [&] {
        POINT corners[2]{};
        std::istringstream(Command("where " + number + " \"" + caption + "\"")) >> corners[0].x >>
            corners[0].y >> corners[1].x >> corners[1].y;
        return POINT{(corners[0].x + corners[1].x) / 2, (corners[0].y + corners[1].y) / 2};
    };
    // The window manager may still be placing the window.
    POINT middle = place();
    const bool there = WaitUntil([&] {
        const POINT before = std::exchange(middle, place());
        Sleep(60);
        return before.x == middle.x && before.y == middle.y &&
               (ClassOf(WindowFromPoint(middle)) == L"OutlookStandInToolbar" ||
                ClassOf(WindowFromPoint(middle)) == L"OutlookStandInRibbon");
    });
    REQUIRE_MESSAGE(there, "in front of the button at " << middle.x << "," << middle.y << ": "
                                                        << ClassOf(WindowFromPoint(middle)));
    ClickAt(middle.x, middle.y);
}

bool StandIn::HasBars(const std::string& explorer) {
    const auto has = [&](const std::string& controls) {
        for (const std::string& control : List(controls + explorer)) {
            if (control.find("<!TellwickOutlookAddIn.Connect>") == std::string::npos) continue;
            CHECK_MESSAGE(control.find("face=16x16") != std::string::npos, control);
            return true;
        }
        return false;
    };
    const bool button = has("toolbar ");
    CHECK(button == has("menu "));
    return button;
}

StandIn::End StandIn::Quit() {
    Command("quit");
    return WaitForEnd();
}

StandIn::End StandIn::WaitForEnd() {
    child->Ends(10000);
    Read();
    return {child->ExitCode(), unread};
}

void CheckClean(const StandIn::End& end) {
    CAPTURE(end.report);
    CHECK(end.exitCode == 0);
    CHECK(end.report.find("end library unloaded") != std::string::npos);
    CHECK(end.report.find("end referenced") == std::string::npos);
    CHECK(end.report.find("end advised") == std::string::npos);
    CHECK(end.report.find("end context") == std::string::npos);
}

}  // namespace tellwick::endtoend
