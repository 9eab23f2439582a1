// Puts queue and settings under fire, through the add-in's own modules over the real system:
//
//   fire queue NAME COUNT                        submits so many SMS to NAME, numbered from 1
//   fire sms NAME TEXT [NAME TEXT]...            submits these
//   fire settings FILE SECTION SECONDS           counts the keys of a section up
//   fire sender-settings FILE SECTION SECONDS    the same as a program does that has no lock
//   fire swap FILE STEP                          replaces the file by its letters in upper case,
//                                                but dies before that step; a step is a call that
//                                                changes files, or one byte of what is written
//   fire full-disk FILE STEP                     the same, but the step fails and the program goes
//                                                on; what deletes is no step
//   fire library NAME FUNCTION                   looks a function of a system library up; the exit
//                                                code is 0 when there is one
//
// The settings modes look each time whether the value they wrote last is still there, and print
// "KEY=VALUE" with the last value of each key, and "lost=N".
#include "windows/Com.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "compose/SmsQueue.h"
#include "platform/MemoryPlatform.h"
#include "platform/Modules.h"
#include "windows/SystemFunction.h"
#include "windows/WindowsFileSystem.h"
#include "windows/WindowsLocale.h"
#include "windows/WindowsLocks.h"
#include "windows/WindowsRegistry.h"

using namespace tellwick;

namespace {

constexpr int Keys = 10;

// Nothing but registry, files and locks is real; the user's answers and the like are not needed.
struct Machine {
    test::MemoryPlatform memory;
    windows::WindowsRegistry registry;
    windows::WindowsFileSystem fileSystem{memory.errors, memory.automation};
    windows::WindowsLocale locale;
    windows::WindowsLocks locks;
    test::Modules modules{{memory.errors, registry, fileSystem, memory.programs, memory.messageLoop,
                           memory.dialogs, memory.clock, locale, memory.automation, memory.bitmaps,
                           memory.timers, locks}};
};

// The n-th SMS, counted from 0; none behind the last one.
using SmsAt = std::function<std::optional<std::pair<Text, Text>>(int)>;

void Queue(Machine& machine, const SmsAt& smsAt) {
    SmsQueue queue(machine.modules.regEdit, machine.modules.files, machine.fileSystem,
                   machine.locks);
    for (int number = 0;; ++number) {
        const auto sms = smsAt(number);
        if (!sms) return;
        queue.AddEntry(sms->first, sms->second);
        // The signal that the sender waits for.
        PostMessageW(FindWindowW(L"TellwickSender", nullptr), WM_KEYUP, 0, 0);
    }
}

// Calls change(key, last value, new value) for one key after the other. It answers whether the last
// value was there.
template <class Change>
void CountUp(DWORD seconds, const Change& change) {
    std::array<int, Keys> last{};
    int lost = 0;
    int count = 0;
    for (const DWORD start = GetTickCount(); GetTickCount() - start < seconds * 1000;) {
        int& value = last[std::size_t(++count % Keys)];
        const std::string key = "Key" + std::to_string(count % Keys);
        lost += !change(key, value == 0 ? "" : std::to_string(value), std::to_string(count));
        value = count;
    }
    for (int key = 0; key < Keys; ++key) std::printf("Key%d=%d\n", key, last[std::size_t(key)]);
    std::printf("lost=%d\n", lost);
}

void Settings(Machine& machine, const Text& file, const Text& section, DWORD seconds) {
    IniFile& iniFile = machine.modules.iniFile;
    const auto wide = [](const std::string& ascii) { return Text(ascii.begin(), ascii.end()); };
    CountUp(seconds, [&](const std::string& key, const std::string& last, const std::string& next) {
        const bool kept = iniFile.ReadFromIniFile(file, section, wide(key), {}, 1) == wide(last);
        iniFile.WriteToIniFile(file, section, wide(key), wide(next));
        return kept;
    });
    for (int attempt = 0; !iniFile.Flush() && attempt < 100; ++attempt) Sleep(10);
}

// The section is there already, with all its keys.
void SenderSettings(const Text& path, const std::string& section, DWORD seconds) {
    CountUp(seconds, [&](const std::string& key, const std::string& last, const std::string& next) {
        windows::Handle file;
        do {
            Sleep(10);
            file.reset(CreateFileW(windows::Wide(path), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
        } while (file.get() == INVALID_HANDLE_VALUE);
        std::string contents(GetFileSize(file.get(), nullptr), '\0');
        DWORD bytes = 0;
        ReadFile(file.get(), contents.data(), DWORD(contents.size()), &bytes, nullptr);
        const std::size_t value =
            contents.find("\r\n" + key + "=", contents.find("[" + section + "]")) + key.size() + 3;
        const std::size_t end = contents.find("\r\n", value);
        const bool kept = contents.substr(value, end - value) == last;
        contents.replace(value, end - value, next);
        SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN);
        WriteFile(file.get(), contents.data(), DWORD(contents.size()), &bytes, nullptr);
        SetEndOfFile(file.get());
        return kept;
    });
}

test::Faults steps;
bool stepsFail = false;

// False when this one fails.
bool Step() {
    if (!steps.Hit()) return true;
    if (!stepsFail) TerminateProcess(GetCurrentProcess(), 1);
    SetLastError(ERROR_DISK_FULL);
    return false;
}

template <class Function>
Function* OfSystem(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

HANDLE WINAPI StepAndCreate(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                            DWORD disposition, DWORD attributes, HANDLE likeThis) {
    return Step() ? OfSystem<decltype(CreateFileW)>("CreateFileW")(
                        path, access, share, security, disposition, attributes, likeThis)
                  : INVALID_HANDLE_VALUE;
}
BOOL WINAPI StepAndFlush(HANDLE file) {
    return Step() && OfSystem<decltype(FlushFileBuffers)>("FlushFileBuffers")(file);
}
BOOL WINAPI StepAndLink(LPCWSTR link, LPCWSTR file, SECURITY_ATTRIBUTES* security) {
    return Step() && OfSystem<decltype(CreateHardLinkW)>("CreateHardLinkW")(link, file, security);
}
BOOL WINAPI StepAndMove(LPCWSTR from, LPCWSTR to, DWORD flags) {
    return Step() && OfSystem<decltype(MoveFileExW)>("MoveFileExW")(from, to, flags);
}
BOOL WINAPI StepAndDelete(LPCWSTR path) {
    if (!stepsFail) Step();
    return OfSystem<decltype(DeleteFileW)>("DeleteFileW")(path);
}
BOOL WINAPI WriteInSteps(HANDLE file, const void* bytes, DWORD count, DWORD* written, OVERLAPPED*) {
    const auto write = OfSystem<decltype(WriteFile)>("WriteFile");
    for (*written = 0; *written < count; ++*written) {
        DWORD one = 0;
        if (!Step() || !write(file, static_cast<const char*>(bytes) + *written, 1, &one, nullptr))
            return FALSE;
    }
    return TRUE;
}

// Puts another function where this program keeps the address of the system's.
template <class Function>
bool Replace(const char* name, Function* replacement) {
    auto* const base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(
        base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
    auto* entry = reinterpret_cast<Function**>(base + table.VirtualAddress);
    auto* const end = entry + table.Size / sizeof *entry;
    entry = std::find(entry, end, OfSystem<Function>(name));
    DWORD before = 0;
    if (entry == end || !VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &before))
        return false;
    *entry = replacement;
    return true;
}

// 0 when it was replaced, 5 when it was although a step has failed, 4 when it was not.
int SwapUntil(Machine& machine, const Text& file, int step) {
    const std::string before = machine.fileSystem.Read(file).value_or("");
    std::string after = before;
    std::transform(before.begin(), before.end(), after.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? char(letter - 'a' + 'A') : letter;
    });
    if (!Replace("CreateFileW", StepAndCreate) || !Replace("FlushFileBuffers", StepAndFlush) ||
        !Replace("CreateHardLinkW", StepAndLink) || !Replace("MoveFileExW", StepAndMove) ||
        !Replace("DeleteFileW", StepAndDelete) || !Replace("WriteFile", WriteInSteps))
        return 3;
    steps.failAt = step;
    if (machine.fileSystem.Swap(file, before, after) == SwapResult::Done)
        return steps.calls < step ? 0 : 5;
    return 4;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    const auto word = [&](int index) {
        return windows::FromWide(index < count ? words[index] : L"");
    };
    const auto number = [&](int index) { return int(LeadingNumber(word(index))); };
    const Text mode = word(1);
    Machine machine;
    if (mode == u"queue") {
        Queue(machine, [&](int at) -> std::optional<std::pair<Text, Text>> {
            if (at == number(3)) return {};
            return std::pair(word(2), NumberText(at + 1));
        });
    } else if (mode == u"sms") {
        Queue(machine, [&](int at) -> std::optional<std::pair<Text, Text>> {
            if (2 * at + 3 >= count) return {};
            return std::pair(word(2 * at + 2), word(2 * at + 3));
        });
    } else if (mode == u"settings") {
        Settings(machine, word(2), word(3), DWORD(number(4)));
    } else if (mode == u"sender-settings") {
        SenderSettings(word(2), windows::ToAnsi(word(3)), DWORD(number(4)));
    } else if (mode == u"swap" || mode == u"full-disk") {
        stepsFail = mode == u"full-disk";
        return SwapUntil(machine, word(2), number(3));
    } else if (mode == u"library") {
        const auto function = windows::SystemFunction<FARPROC>(windows::Wide(word(2)),
                                                               windows::ToAnsi(word(3)).c_str());
        return function ? 0 : 4;
    } else {
        return 2;
    }
    return 0;
}
