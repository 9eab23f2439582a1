// What the add-in holds after many windows, forms and messages is what it held after a few. Twenty
// rounds in a normal run; TELLWICK_SOAK makes them a thousand.
#include <doctest.h>

#include <winternl.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "endtoend/Child.h"
#include "endtoend/Desktop.h"
#include "endtoend/Form.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;

namespace {

struct Figures {
    long handles, gdi, user;
    long long memory;                     // private bytes
    std::vector<std::string> references;  // sorted
};

std::ostream& operator<<(std::ostream& out, const Figures& figures) {
    return out << figures.handles << " handles, " << figures.gdi << " GDI objects, " << figures.user
               << " USER objects, " << figures.memory / 1024 << " KB private";
}

template <class Function>
Function SystemFunction(const char* library, const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(library), name)));
}

// Wine answers 0 where Windows counts: there the tables are counted that both have.
long CountHandles(HANDLE process) {
    DWORD count = 0;
    const auto ask =
        SystemFunction<BOOL(WINAPI*)(HANDLE, DWORD*)>("kernel32", "GetProcessHandleCount");
    if (ask && ask(process, &count) && count > 0) return long(count);
    struct Entry {
        USHORT process, trace;
        UCHAR type, attributes;
        USHORT handle;
        void* object;
        ULONG access;
    };
    std::vector<void*> table(1 << 20);
    const auto query =
        SystemFunction<decltype(&NtQuerySystemInformation)>("ntdll", "NtQuerySystemInformation");
    REQUIRE(query(SYSTEM_INFORMATION_CLASS(16), table.data(), ULONG(table.size() * sizeof(void*)),
                  nullptr) == 0);
    const auto* entries = reinterpret_cast<const Entry*>(&table[1]);
    for (ULONG entry = 0; entry < *reinterpret_cast<const ULONG*>(table.data()); ++entry)
        count += entries[entry].process == USHORT(GetProcessId(process));
    return long(count);
}

long CountGdi(HANDLE process) {
    if (const DWORD count = GetGuiResources(process, GR_GDIOBJECTS)) return long(count);
    struct Entry {
        ULONGLONG object;
        ULONG owner;
        USHORT unique;
        UCHAR type, flags;
        ULONGLONG user;
    };
    PROCESS_BASIC_INFORMATION basic{};
    const auto query =
        SystemFunction<decltype(&NtQueryInformationProcess)>("ntdll", "NtQueryInformationProcess");
    REQUIRE(query(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) == 0);
    const auto* block = reinterpret_cast<const BYTE*>(basic.PebBaseAddress);
    const void* shared = nullptr;
    std::vector<Entry> table(0x10000);
    REQUIRE(ReadProcessMemory(process, block + (sizeof(void*) == 8 ? 0xF8 : 0x94), &shared,
                              sizeof shared, nullptr));
    REQUIRE(
        ReadProcessMemory(process, shared, table.data(), table.size() * sizeof(Entry), nullptr));
    long count = 0;
    for (const Entry& entry : table) count += entry.type != 0;
    return count;
}

struct WindowCount {
    DWORD process;
    long count;
};
BOOL CALLBACK CountWindow(HWND window, LPARAM parameter) {
    auto& windows = *reinterpret_cast<WindowCount*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != windows.process) return TRUE;
    windows.count += 1 + long(Descendants(window).size());
    return TRUE;
}

// Under Wine the windows only: it does not count menus; icons it holds as bitmaps, which are GDI
// objects.
long CountUser(HANDLE process) {
    if (const DWORD count = GetGuiResources(process, GR_USEROBJECTS)) return long(count);
    WindowCount windows{GetProcessId(process), 0};
    EnumWindows(CountWindow, reinterpret_cast<LPARAM>(&windows));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr));)
        CountWindow(window, reinterpret_cast<LPARAM>(&windows));
    return windows.count;
}

Figures Measure(StandIn& outlook) {
    outlook.Command("wait 500");
    const std::string memory = outlook.Command("memory");
    auto references = outlook.List("references");
    std::sort(references.begin(), references.end());
    return {CountHandles(outlook.Process()), CountGdi(outlook.Process()),
            CountUser(outlook.Process()), std::stoll(memory.substr(memory.rfind(' '))), references};
}

// After so many repetitions. The add-in and the stand-in keep nothing; the system's heaps take some
// 100 KB until they have found their sizes. Wine keeps a block of every label that was given a
// font, 350 bytes a form, and the library's name of every icon read from it, 1.5 KB a load. The
// handle that a load leaves is the 32-bit runtime's, whose registry of stack frames keeps a
// semaphore.
void Compare(const char* what, const Figures& before, const Figures& after, int repetitions,
             int loads) {
    std::ostringstream text;
    text << what << "\n  before: " << before << "\n  after:  " << after;
    MESSAGE(text.str());
    CHECK(after.gdi == before.gdi);
    CHECK(after.user == before.user);
    CHECK(after.references == before.references);
    CHECK(after.handles <= before.handles + 2 + (sizeof(void*) == 4 ? loads : 0));
    CHECK(after.memory - before.memory <= 192 * 1024 + 450 * repetitions + 2048 * loads);
}

void SendSms(StandIn& outlook, int window) {
    const std::string number = std::to_string(window);
    REQUIRE(WaitUntil([&] {
        return outlook.Command("toolbar " + number).find("tag=\"101\"") != std::string::npos;
    }));
    outlook.Command("click " + number + " \"Neue SMS\"");
    const Form form = Form::Opened();
    for (const HWND field : {form.to, form.message}) {
        SendMessageW(field, EM_SETSEL, 0, -1);
        SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"0171 2345678"));
    }
    PostMessageW(form.Control(L"SMS senden"), BM_CLICK, 0, 0);
    REQUIRE(WaitUntilGone(form.window));
}

}  // namespace

TEST_CASE("many windows, forms and messages leave nothing behind, nor does reloading the library") {
    Machine machine;
    const Child sender(L"\"" + machine.ProgramFolder() + L"Tellwick.exe\" nocheck");
    REQUIRE(WaitUntil([] { return ReadText(RootKey, L"hWnd").has_value(); }));
    StandIn outlook(11, L"--empty");
    const int rounds = std::getenv("TELLWICK_SOAK") ? 1000 : 20;
    Figures early{}, loaded{};
    for (int round = 1; round <= rounds; ++round) {
        CAPTURE(round);
        outlook.Command("open-explorer");
        SendSms(outlook, round + 1);
        outlook.Command("close-explorer " + std::to_string(round + 1));
        if (round == 10) early = Measure(outlook);
    }
    const std::string what = "rounds 10 and " + std::to_string(rounds);
    Compare(what.c_str(), early, Measure(outlook), rounds - 10, 0);
    CHECK(WaitUntil([&] { return int(machine.Taken().size()) == rounds; }));

    for (int load = 1; load <= 10; ++load) {
        CAPTURE(load);
        outlook.Command("disconnect");
        CHECK(outlook.Command("unload") == "unloaded");
        outlook.Command("connect");
        SendSms(outlook, 1);
        if (load == 2) loaded = Measure(outlook);
    }
    Compare("loads 2 and 10", loaded, Measure(outlook), 8, 8);
    CheckClean(outlook.Quit());
}
