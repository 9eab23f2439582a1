// One process that a test has started and may end as it likes.
#pragma once

#include <windows.h>

#include <string>

namespace tellwick::endtoend {

class Child {
public:
    // What it prints goes into the file, where one is named.
    explicit Child(const std::wstring& commandLine, const std::wstring& output = {});
    // It reads from one handle and prints to the other, which are closed here.
    Child(const std::wstring& commandLine, HANDLE input, HANDLE output);
    // Ends the process if it still runs.
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // Waits for its end, at most for that long.
    bool Ends(DWORD milliseconds) const;
    // At once, whatever it is doing; returns when it is gone.
    void Kill();
    DWORD ExitCode() const;
    HANDLE Process() const { return process; }

private:
    HANDLE process = nullptr;
};

}  // namespace tellwick::endtoend
