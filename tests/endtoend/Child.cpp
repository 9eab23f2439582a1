#include "endtoend/Child.h"

#include <doctest.h>

#include "endtoend/Printing.h"

namespace tellwick::endtoend {

namespace {

HANDLE Create(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    if (path.empty()) return nullptr;
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0,
                       nullptr);
}

}  // namespace

Child::Child(const std::wstring& commandLine, const std::wstring& output)
    : Child(commandLine, nullptr, Create(output)) {}

Child::Child(const std::wstring& commandLine, HANDLE input, HANDLE output) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = output ? STARTF_USESTDHANDLES : 0;
    startup.hStdInput = input;
    startup.hStdOutput = startup.hStdError = output;
    PROCESS_INFORMATION started{};
    std::wstring line = commandLine;
    const auto start = [&] {
        return CreateProcessW(nullptr, line.data(), nullptr, nullptr, output != nullptr, 0, nullptr,
                              nullptr, &startup, &started);
    };
    BOOL running = start();
    const DWORD error = GetLastError();
    if (!running) {
        // On a busy machine Wine has failed at this once in thousands of times. It is not what is
        // tested here.
        MESSAGE("error ", error, " at ", doctest::toString(commandLine), ", once more");
        Sleep(1000);
        running = start();
    }
    for (HANDLE handle : {input, output}) CloseHandle(handle);
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
