// One stand-in Outlook, driven through its command pipe: one command a line, one answer each.
#pragma once

#include <windows.h>

#include <string>

namespace tellwick::endtoend {

class StandIn {
public:
    // Starts it and waits until it answers.
    explicit StandIn(const std::wstring& options);
    // Ends the process if it still runs.
    ~StandIn();
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    // The answer behind "ok "; a case fails on "error", or if nothing comes within ten seconds.
    std::string Command(const std::string& command);

    // Quits Outlook as its user would and returns everything it printed until its end.
    std::string Quit();

private:
    std::string Line(int milliseconds);

    HANDLE process = nullptr;
    HANDLE input = nullptr;
    HANDLE output = nullptr;
    std::string unread;
};

}  // namespace tellwick::endtoend
