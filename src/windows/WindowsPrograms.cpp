#include "windows/WindowsPrograms.h"

#include <psapi.h>
#include <shellapi.h>
#include <tlhelp32.h>

#include "windows/ModulePath.h"
#include "windows/SystemFunction.h"
#include "windows/WindowsLocale.h"

// The byte versions are meant: the wide ones came later.
#undef PROCESSENTRY32
#undef Process32First
#undef Process32Next

namespace tellwick::windows {

namespace {

constexpr std::size_t LongestPath = 0x8000;

}  // namespace

Text WindowsPrograms::LibraryFolder() {
    const Text file = ModulePath(library);
    return file.substr(0, file.rfind(u'\\') + 1);
}

Text WindowsPrograms::WindowsFolder() {
    wchar_t path[MAX_PATH];
    Text folder = FromWide(path, GetSystemWindowsDirectoryW(path, MAX_PATH));
    if (!folder.ends_with(u'\\')) folder += u'\\';
    return folder;
}

Text WindowsPrograms::CommandLine() {
    const Text line = FromWide(GetCommandLineW());
    // The host's own name, quoted or not, comes first.
    std::size_t end = 0;
    if (line.starts_with(u'"')) {
        end = line.find(u'"', 1);
        if (end != Text::npos) ++end;
    } else {
        end = line.find(u' ');
    }
    return end < line.size() ? Trimmed(TextView(line).substr(end)) : Text();
}

std::int32_t WindowsPrograms::PlatformId() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    static_assert(sizeof version == 148);
    return GetVersionExA(&version) ? std::int32_t(version.dwPlatformId) : 0;
}

std::vector<Text> WindowsPrograms::SnapshotNames() {
    // Windows NT 4 lacks these functions.
    static const auto createSnapshot = SystemFunction<decltype(&CreateToolhelp32Snapshot)>(
        L"kernel32.dll", "CreateToolhelp32Snapshot");
    static const auto first =
        SystemFunction<decltype(&Process32First)>(L"kernel32.dll", "Process32First");
    static const auto next =
        SystemFunction<decltype(&Process32Next)>(L"kernel32.dll", "Process32Next");
    if (!createSnapshot || !first || !next) return {};
    const Handle snapshot(createSnapshot(TH32CS_SNAPPROCESS, 0));
    if (snapshot.get() == INVALID_HANDLE_VALUE) return {};
    std::vector<Text> names;
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL found = first(snapshot.get(), &entry); found; found = next(snapshot.get(), &entry)) {
        names.push_back(FromAnsi(entry.szExeFile));
    }
    return names;
}

std::vector<std::uint32_t> WindowsPrograms::ProcessIdentifiers(std::size_t entries) {
    // The consumer line of Windows lacks psapi.dll.
    static const auto enumerate =
        SystemFunction<decltype(&EnumProcesses)>(L"psapi.dll", "EnumProcesses");
    if (!enumerate) return {};
    std::vector<DWORD> identifiers(entries);
    DWORD used = 0;
    for (;;) {
        const auto size = DWORD(identifiers.size() * sizeof(DWORD));
        if (!enumerate(identifiers.data(), size, &used)) return {};
        if (used < size) break;
        identifiers.resize(2 * identifiers.size());
    }
    return {identifiers.begin(), identifiers.begin() + std::ptrdiff_t(used / sizeof(DWORD))};
}

Text WindowsPrograms::FirstModulePath(std::uint32_t process) {
    static const auto modules =
        SystemFunction<decltype(&EnumProcessModules)>(L"psapi.dll", "EnumProcessModules");
    static const auto moduleName =
        SystemFunction<decltype(&GetModuleFileNameExA)>(L"psapi.dll", "GetModuleFileNameExA");
    if (!modules || !moduleName) return {};
    const Handle opened(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process));
    HMODULE handles[2] = {};
    DWORD needed = 0;
    if (!opened || !modules(opened.get(), handles, sizeof handles, &needed)) return {};
    char path[LongestPath];
    const DWORD length = moduleName(opened.get(), handles[0], path, sizeof path);
    return FromAnsi({path, length});
}

std::vector<Text> WindowsPrograms::MissingFunctions() {
    return windows::MissingFunctions();
}

bool WindowsPrograms::Start(TextView application, TextView commandLine, WindowStyle style) {
    const Text program(application);
    Text line(commandLine);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = WORD(style == WindowStyle::Normal ? SW_SHOWNORMAL : SW_SHOWMINIMIZED);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.empty() ? nullptr : Wide(program),
                        reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, FALSE, 0,
                        nullptr, nullptr, &start, &process)) {
        errors.Note(error::FileNotFound, u"File not found");
        return false;
    }
    const Handle thread(process.hThread);
    const Handle whole(process.hProcess);
    return true;
}

bool WindowsPrograms::OpenAssociated(TextView document) {
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, nullptr, Wide(Text(document)), nullptr, nullptr, SW_SHOWNORMAL));
    if (result > 32) return true;
    errors.Note(error::FileNotFound, u"File not found");
    return false;
}

}  // namespace tellwick::windows
