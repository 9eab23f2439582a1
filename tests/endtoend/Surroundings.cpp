// What every other case takes for granted of the machine and of the hands and eyes used here.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;

TEST_CASE("a window of another process is found, typed into and read") {
    CHECK(GetACP() == 1252);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    wchar_t commandLine[] = L"notepad";
    REQUIRE(CreateProcessW(nullptr, commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                           &startup, &process));
    const HWND notepad = WaitForWindow(L"Notepad", 20000);
    REQUIRE(notepad != nullptr);
    const HWND edit = FindByClass(notepad, L"Edit");
    Click(edit);
    CHECK(WaitUntil([&] { return Focus() == edit; }));
    Type(L"Gr\u00fc\u00dfe, 5;\nA_b");
    CHECK(WaitUntil([&] { return TextOf(edit).ends_with(L"b"); }));
    CHECK(TextOf(edit) == L"Gr\u00fc\u00dfe, 5;\r\nA_b");
    TerminateProcess(process.hProcess, 0);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}
