#include "endtoend/Child.h"

#include <doctest.h>

#include "endtoend/Printing.h"

namespace tellwick::endtoend {

Child::Child(const std::wstring& commandLine, const std::wstring& output) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (!output.empty()) {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = CreateFileW(output.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                         CREATE_ALWAYS, 0, nullptr);
    }
    PROCESS_INFORMATION started{};
    std::wstring line = commandLine;
    const BOOL running = CreateProcessW(nullptr, line.data(), nullptr, nullptr, !output.empty(), 0,
                                        nullptr, nullptr, &startup, &started);
    if (!output.empty()) CloseHandle(startup.hStdOutput);
    REQUIRE_MESSAGE(running, "cannot start " << doctest::toString(commandLine));
    CloseHandle(started.hThread);
    process = started.hProcess;
}

Child::~Child() {
    Kill();
    CloseHandle(process);
}

bool Child::Ends(DWORD milliseconds) const {
    return WaitForSingleObject(process, milliseconds) == WAIT_OBJECT_0;
}

void Child::Kill() {
    if (!Ends(0)) TerminateProcess(process, 1);
    Ends(INFINITE);
}

DWORD Child::ExitCode() const {
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process, &code);
    return code;
}

}  // namespace tellwick::endtoend
