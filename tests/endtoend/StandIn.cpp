#include "endtoend/StandIn.h"

#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Machine.h"

namespace tellwick::endtoend {

StandIn::StandIn(const std::wstring& options) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE theirInput, theirOutput;
    REQUIRE(CreatePipe(&theirInput, &input, &inherited, 0));
    REQUIRE(CreatePipe(&output, &theirOutput, &inherited, 0));
    SetHandleInformation(input, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = theirInput;
    startup.hStdOutput = theirOutput;
    startup.hStdError = theirOutput;
    PROCESS_INFORMATION started{};
    std::wstring line = L"\"" + ProgramsFolder() + L"OutlookStandIn.exe\" --commands " + options;
    const BOOL running = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &startup, &started);
    CloseHandle(theirInput);
    CloseHandle(theirOutput);
    REQUIRE(running);
    CloseHandle(started.hThread);
    process = started.hProcess;
}

StandIn::~StandIn() {
    if (WaitForSingleObject(process, 0) == WAIT_TIMEOUT) TerminateProcess(process, 1);
    for (HANDLE handle : {process, input, output}) CloseHandle(handle);
}

std::string StandIn::Line(int milliseconds) {
    std::size_t end;
    const bool complete = WaitUntil(
        [&] {
            DWORD waiting = 0;
            if (PeekNamedPipe(output, nullptr, 0, nullptr, &waiting, nullptr) && waiting > 0) {
                std::string more(waiting, '\0');
                ReadFile(output, more.data(), waiting, &waiting, nullptr);
                unread.append(more, 0, waiting);
            }
            return (end = unread.find('\n')) != std::string::npos;
        },
        milliseconds);
    REQUIRE_MESSAGE(complete, "no answer from the stand-in; so far: " << unread);
    std::string line = unread.substr(0, end);
    unread.erase(0, end + 1);
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

std::string StandIn::Command(const std::string& command) {
    DWORD written;
    const std::string line = command + "\n";
    WriteFile(input, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    const std::string answer = Line(10000);
    REQUIRE_MESSAGE(answer.starts_with("ok"), command << ": " << answer);
    return answer.substr(answer.size() > 2 ? 3 : 2);
}

}  // namespace tellwick::endtoend
