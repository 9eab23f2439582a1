#include "windows/SystemPorts.h"

#include <windows.h>

#include <psapi.h>
#include <shellapi.h>
#include <tlhelp32.h>

#include <cstring>

#include "windows/Lifetime.h"
#include "windows/Server.h"

// The byte versions are meant: the wide ones came later.
#undef PROCESSENTRY32
#undef Process32First
#undef Process32Next

namespace tellwick::windows {

Text FromAnsi(std::string_view bytes) {
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), int(bytes.size()), nullptr, 0);
    Text text(std::size_t(length), u'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), int(bytes.size()),
                        reinterpret_cast<wchar_t*>(text.data()), length);
    return text;
}

std::string ToAnsi(TextView text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length =
        WideCharToMultiByte(CP_ACP, 0, wide, int(text.size()), nullptr, 0, nullptr, nullptr);
    std::string bytes(std::size_t(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide, int(text.size()), bytes.data(), length, nullptr, nullptr);
    return bytes;
}

std::optional<Text> WindowsLocale::LocaleInfo(std::uint32_t locale, std::uint32_t type) {
    char buffer[255];
    const int count = GetLocaleInfoA(locale, type, buffer, sizeof buffer);
    if (count <= 0) return {};
    return FromAnsi({buffer, std::size_t(count)});
}

std::string WindowsLocale::SortKey(TextView text) {
    constexpr DWORD Flags =
        LCMAP_SORTKEY | NORM_IGNORECASE | NORM_IGNOREKANATYPE | NORM_IGNOREWIDTH;
    const Text terminated(text);
    std::string key(8 * text.size() + 16, '\0');
    const int size = LCMapStringW(LOCALE_USER_DEFAULT, Flags, Wide(terminated), int(text.size()),
                                  reinterpret_cast<wchar_t*>(key.data()), int(key.size()));
    key.resize(std::size_t(std::max(size - 1, 0)));  // without the closing NUL
    return key;
}

// Registry ------------------------------------------------------------------------------------

namespace {

HKEY Root(Hive hive) {
    return reinterpret_cast<HKEY>(LONG_PTR(LONG(hive)));
}

RegistryKey CreateKey(Hive hive, TextView key) {
    HKEY opened = nullptr;
    RegCreateKeyA(Root(hive), ToAnsi(key).c_str(), &opened);
    return RegistryKey(opened);
}

RegistryKey OpenKey(Hive hive, TextView key) {
    HKEY opened = nullptr;
    RegOpenKeyA(Root(hive), ToAnsi(key).c_str(), &opened);
    return RegistryKey(opened);
}

bool SetValue(const RegistryKey& key, TextView name, DWORD type, const void* data, DWORD size) {
    return key && RegSetValueExA(key.get(), ToAnsi(name).c_str(), 0, type,
                                 static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

}  // namespace

namespace {

// The value as text, and its type.
std::optional<Text> ReadTyped(Hive hive, TextView key, TextView name, DWORD& type) {
    const RegistryKey opened = OpenKey(hive, key);
    if (!opened) return {};
    const std::string valueName = ToAnsi(name);
    std::string data(256, '\0');
    auto size = DWORD(data.size());
    LSTATUS status = RegQueryValueExA(opened.get(), valueName.c_str(), nullptr, &type,
                                      reinterpret_cast<BYTE*>(data.data()), &size);
    // Another program may make the value longer between two calls.
    while (status == ERROR_MORE_DATA) {
        data.resize(size + 1);
        size = DWORD(data.size());
        status = RegQueryValueExA(opened.get(), valueName.c_str(), nullptr, &type,
                                  reinterpret_cast<BYTE*>(data.data()), &size);
    }
    if (status != ERROR_SUCCESS) return {};
    data.resize(size);
    if (type == REG_DWORD && size == sizeof(DWORD)) {
        DWORD number;
        std::memcpy(&number, data.data(), sizeof number);
        return NumberText(number);
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ) return {};
    if (!data.empty() && data.back() == '\0') data.pop_back();
    return FromAnsi(data);
}

}  // namespace

std::optional<Text> WindowsRegistry::Read(Hive hive, TextView key, TextView name) {
    DWORD type = 0;
    return ReadTyped(hive, key, name, type);
}

std::optional<Text> WindowsRegistry::ReadExpanded(Hive hive, TextView key, TextView name) {
    DWORD type = 0;
    std::optional<Text> value = ReadTyped(hive, key, name, type);
    if (!value || type != REG_EXPAND_SZ) return value;
    const DWORD length = ExpandEnvironmentStringsW(Wide(*value), nullptr, 0);
    Text expanded(length, u'\0');
    if (ExpandEnvironmentStringsW(Wide(*value), reinterpret_cast<wchar_t*>(expanded.data()),
                                  length) != length ||
        length == 0) {
        return value;
    }
    expanded.pop_back();  // the closing NUL
    return expanded;
}

bool WindowsRegistry::WriteString(Hive hive, TextView key, TextView name, TextView value) {
    const std::string data = ToAnsi(value);
    return SetValue(CreateKey(hive, key), name, REG_SZ, data.c_str(), DWORD(data.size() + 1));
}

bool WindowsRegistry::WriteNumber(Hive hive, TextView key, TextView name, std::uint32_t value) {
    const DWORD number = value;
    return SetValue(CreateKey(hive, key), name, REG_DWORD, &number, sizeof number);
}

bool WindowsRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
    const RegistryKey opened = OpenKey(hive, key);
    return opened && RegDeleteValueA(opened.get(), ToAnsi(name).c_str()) == ERROR_SUCCESS;
}

bool WindowsRegistry::DeleteKey(Hive hive, TextView key, TextView subkey) {
    const RegistryKey opened = OpenKey(hive, key);
    return opened && RegDeleteKeyA(opened.get(), ToAnsi(subkey).c_str()) == ERROR_SUCCESS;
}

// Programs ------------------------------------------------------------------------------------

Text WindowsPrograms::LibraryFolder() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(library, path, MAX_PATH);
    const Text file = FromWide(path, length);
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
    char path[MAX_PATH];
    const DWORD length = moduleName(opened.get(), handles[0], path, sizeof path);
    return FromAnsi({path, length});
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

// Messages, time ------------------------------------------------------------------------------

void WindowsMessageLoop::DoEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // Meant for the host's own loop.
            PostQuitMessage(int(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool WindowsMessageLoop::Waiting() {
    return HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE | QS_SENDMESSAGE | QS_HOTKEY)) != 0;
}

bool WindowsMessageLoop::Post(std::uint64_t window, std::uint32_t message, std::uint64_t first,
                              std::uint64_t second) {
    return PostMessageA(reinterpret_cast<HWND>(ULONG_PTR(window)), message, WPARAM(first),
                        LPARAM(second)) != 0;
}

float WindowsClock::SecondsSinceMidnight() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return float(now.wHour * 3600 + now.wMinute * 60 + now.wSecond) +
           float(now.wMilliseconds) / 1000;
}

double WindowsClock::Now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    double date = 0;
    SystemTimeToVariantTime(&now, &date);
    return date;
}

double WindowsClock::Milliseconds() {
    LARGE_INTEGER frequency, now;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return double(now.QuadPart) * 1000 / double(frequency.QuadPart);
}

namespace {

constexpr DWORD LongestWait = 1000;  // milliseconds that a lock is waited for

class WindowsTimer;
// The timer behind a running system timer; one thread only.
std::vector<std::pair<UINT_PTR, WindowsTimer*>> runningTimers;

class WindowsTimer : public Timer {
public:
    ~WindowsTimer() override { WindowsTimer::Stop(); }

    void Start(std::uint32_t milliseconds, std::function<void()> newTick) override {
        Stop();
        tick = std::move(newTick);
        identifier = SetTimer(nullptr, 0, milliseconds, &OnTimer);
        if (identifier) runningTimers.emplace_back(identifier, this);
    }

    void Stop() override {
        if (!identifier) return;
        KillTimer(nullptr, identifier);
        std::erase(runningTimers, std::pair(identifier, this));
        identifier = 0;
    }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR identifier, DWORD) {
        try {
            for (const auto& [running, timer] : runningTimers) {
                if (running != identifier) continue;
                const std::function<void()> current = timer->tick;
                current();
                return;
            }
        } catch (...) {
            ReportException();
        }
    }

    UINT_PTR identifier = 0;
    std::function<void()> tick;
    Lifetime lifetime;
};

}  // namespace

std::unique_ptr<Timer> WindowsTimers::Create() {
    return std::make_unique<WindowsTimer>();
}

std::unique_ptr<Lock> WindowsLocks::Take(TextView name) {
    struct Held : Lock {
        explicit Held(Handle mutex) : mutex(std::move(mutex)) {}
        ~Held() override { ReleaseMutex(mutex.get()); }
        Handle mutex;
    };
    Handle mutex(CreateMutexW(nullptr, FALSE, Wide(Text(u"Tellwick.").append(name))));
    if (!mutex) return nullptr;
    // One whose holder has died is held like any other.
    const DWORD waited = WaitForSingleObject(mutex.get(), LongestWait);
    if (waited != WAIT_OBJECT_0 && waited != WAIT_ABANDONED) return nullptr;
    return std::make_unique<Held>(std::move(mutex));
}

}  // namespace tellwick::windows
