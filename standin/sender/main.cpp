// The stand-in sender: takes the queue's messages instead of sending them, and shows what it took.
//
//   Tellwick [nocheck] [off] [late=MILLISECONDS] [--log FILE]
//
//   nocheck   accepted, as the add-in gives it; nothing is checked anyway
//   off       starts switched off: takes nothing until "On" in the registry is not 0
//   late=MS   publishes its window, and looks into the queue, that much later
//   --log     appends what it takes to a file; without it the environment's TELLWICK_SENDER_LOG
//             names one
//
// Each message taken is one line in the log and on the standard output, in the system's code page:
// entry number, recipient and text, separated by tabs. Inside them a line break is \r\n, a tab \t,
// a backslash \\.

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr char RootKey[] = "Software\\Omberline\\Tellwick";
constexpr char QueueKey[] = "Software\\Omberline\\Tellwick\\SMSQueue";
constexpr char ClassName[] = "TellwickSender";
constexpr unsigned long NumberRange = 0x100000;  // entry numbers start again at 0 here
constexpr UINT_PTR LateTimer = 1;

struct Options {
    bool off = false;
    UINT late = 0;
    std::string log;
};

std::string ReadValue(const char* key, const char* name) {
    std::string value;
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, key, 0, KEY_READ, &opened) != ERROR_SUCCESS) return value;
    char buffer[1024];
    DWORD size = sizeof buffer;
    DWORD type = 0;
    if (RegQueryValueExA(opened, name, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size) ==
            ERROR_SUCCESS &&
        type == REG_SZ) {
        value.assign(buffer, size);
        value.resize(std::min(value.size(), value.find('\0')));
    }
    RegCloseKey(opened);
    return value;
}

void WriteValue(const char* name, const std::string& value) {
    HKEY opened = nullptr;
    if (RegCreateKeyA(HKEY_CURRENT_USER, RootKey, &opened) != ERROR_SUCCESS) return;
    RegSetValueExA(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                   DWORD(value.size() + 1));
    RegCloseKey(opened);
}

void DeleteValue(const char* key, const char* name) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, key, 0, KEY_WRITE, &opened) != ERROR_SUCCESS) return;
    RegDeleteValueA(opened, name);
    RegCloseKey(opened);
}

// Nothing when the file cannot be read.
std::optional<std::string> ReadFileBytes(const std::string& path) {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    std::string bytes;
    char buffer[4096];
    DWORD count = 0;
    while (ReadFile(file, buffer, sizeof buffer, &count, nullptr) && count > 0) {
        bytes.append(buffer, count);
    }
    CloseHandle(file);
    return bytes;
}

void AppendToFile(const std::string& path, const std::string& line) {
    const HANDLE file = CreateFileA(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                    OPEN_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, line.data(), DWORD(line.size()), &written, nullptr);
    CloseHandle(file);
}

struct Entry {
    unsigned long number;
    std::string name;
    std::string path;
};

// Oldest first: the entry behind the counter's is the oldest one possible.
std::vector<Entry> ReadQueue() {
    std::vector<Entry> entries;
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, QueueKey, 0, KEY_READ, &opened) != ERROR_SUCCESS) {
        return entries;
    }
    for (DWORD index = 0;; ++index) {
        char name[64];
        char path[1024];
        DWORD nameLength = sizeof name;
        DWORD pathSize = sizeof path - 1;
        DWORD type = 0;
        const LONG result = RegEnumValueA(opened, index, name, &nameLength, nullptr, &type,
                                          reinterpret_cast<BYTE*>(path), &pathSize);
        if (result == ERROR_MORE_DATA) continue;
        if (result != ERROR_SUCCESS) break;
        path[pathSize] = '\0';
        const bool isNumber =
            nameLength > 0 && std::all_of(name, name + nameLength,
                                          [](char digit) { return digit >= '0' && digit <= '9'; });
        if (isNumber && type == REG_SZ)
            entries.push_back({std::strtoul(name, nullptr, 10), name, path});
    }
    RegCloseKey(opened);
    const unsigned long last = std::strtoul(ReadValue(QueueKey, "cOut").c_str(), nullptr, 10);
    const auto age = [last](const Entry& entry) { return (entry.number - last - 1) % NumberRange; };
    std::sort(entries.begin(), entries.end(),
              [&](const Entry& left, const Entry& right) { return age(left) < age(right); });
    return entries;
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char unit : text) {
        switch (unit) {
            case '\\':
                escaped += "\\\\";
                break;
            case '\r':
                escaped += "\\r";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\t':
                escaped += "\\t";
                break;
            default:
                escaped += unit;
        }
    }
    return escaped;
}

class Sender {
public:
    explicit Sender(Options options) : options(std::move(options)) {}
    Sender(const Sender&) = delete;
    Sender& operator=(const Sender&) = delete;

    // Until the window is closed.
    int Run();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    void CreateList();
    void Publish();
    void TakeAll();
    void Take(const Entry& entry);
    void Log(const Entry& entry, const std::string& message);

    Options options;
    HWND window = nullptr;
    HWND list = nullptr;
    HFONT font = nullptr;
    std::size_t taken = 0;
};

int Sender::Run() {
    WNDCLASSA type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleA(nullptr);
    type.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    type.hIcon = LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_APPLICATION));
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    type.lpszClassName = ClassName;
    RegisterClassA(&type);
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    if (!CreateWindowExA(0, ClassName, "Tellwick (stand-in)", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                         CW_USEDEFAULT, MulDiv(460, dotsPerInch, 96), MulDiv(240, dotsPerInch, 96),
                         nullptr, nullptr, type.hInstance, this)) {
        return 1;
    }
    // As whoever started this program wants it to be shown.
    ShowWindow(window, SW_SHOWDEFAULT);
    WriteValue("On", options.off ? "0" : "1");
    if (options.late > 0) {
        SetTimer(window, LateTimer, options.late, nullptr);
    } else {
        Publish();
    }
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    DeleteObject(font);
    return 0;
}

LRESULT CALLBACK Sender::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        auto* created = reinterpret_cast<CREATESTRUCTA*>(second);
        auto* self = static_cast<Sender*>(created->lpCreateParams);
        self->window = window;
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<Sender*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    try {
        return self ? self->Handle(message, first, second)
                    : DefWindowProcA(window, message, first, second);
    } catch (...) {
        return 0;
    }
}

LRESULT Sender::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_CREATE:
            CreateList();
            return 0;
        case WM_SIZE:
            MoveWindow(list, 0, 0, LOWORD(second), HIWORD(second), TRUE);
            return 0;
        case WM_KEYUP:
            TakeAll();
            return 0;
        case WM_TIMER:
            KillTimer(window, LateTimer);
            Publish();
            return 0;
        case WM_DESTROY:
            DeleteValue(RootKey, "hWnd");
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(window, message, first, second);
    }
}

void Sender::CreateList() {
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    font = CreateFontIndirectA(&metrics.lfMessageFont);
    list =
        CreateWindowExA(WS_EX_CLIENTEDGE, "LISTBOX", "",
                        WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS,
                        0, 0, 0, 0, window, nullptr, GetModuleHandleA(nullptr), nullptr);
    SendMessageA(list, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

void Sender::Publish() {
    WriteValue("hWnd", std::to_string(reinterpret_cast<std::uintptr_t>(window)));
    TakeAll();
}

void Sender::TakeAll() {
    if (std::strtol(ReadValue(RootKey, "On").c_str(), nullptr, 10) == 0) return;
    for (const Entry& entry : ReadQueue()) Take(entry);
}

// Logged before it is deleted: who is killed in between takes the entry twice, and loses none.
void Sender::Take(const Entry& entry) {
    const std::optional<std::string> message = ReadFileBytes(entry.path);
    if (message) Log(entry, *message);
    DeleteValue(QueueKey, entry.name.c_str());
    DeleteFileA(entry.path.c_str());
}

void Sender::Log(const Entry& entry, const std::string& message) {
    const std::size_t tab = std::min(message.find('\t'), message.size());
    const std::string recipient = Escaped(message.substr(0, tab));
    const std::string text = Escaped(message.substr(std::min(tab + 1, message.size())));
    const std::string line = entry.name + "\t" + recipient + "\t" + text;

    DWORD written = 0;
    const std::string printed = line + "\n";
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), printed.data(), DWORD(printed.size()), &written,
              nullptr);
    if (!options.log.empty()) AppendToFile(options.log, printed);
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    const std::string title = "Tellwick (stand-in) - " + std::to_string(++taken) + " sent";
    SetWindowTextA(window, title.c_str());
}

Options ReadOptions(int count, char** words) {
    Options options;
    char log[MAX_PATH];
    const DWORD length = GetEnvironmentVariableA("TELLWICK_SENDER_LOG", log, sizeof log);
    if (length > 0 && length < sizeof log) options.log = log;
    for (int index = 1; index < count; ++index) {
        const std::string word = words[index];
        if (word == "off") {
            options.off = true;
        } else if (word.starts_with("late=")) {
            options.late = UINT(std::strtoul(word.c_str() + 5, nullptr, 10));
        } else if (word == "--log" && index + 1 < count) {
            options.log = words[++index];
        }
    }
    return options;
}

}  // namespace

int main(int count, char** words) {
    return Sender(ReadOptions(count, words)).Run();
}
