// taking.exe FOLDER: the yardstick for the sender's taking of entries. Does for each one in the
// queue what has to be done at least, and prints the seconds: its file is read, one is made in the
// folder, value and file are deleted.
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int MostInFolder = 128;

struct Entry {
    std::wstring name, path;
};

std::vector<Entry> Entries(HKEY queue) {
    std::vector<Entry> entries;
    for (DWORD index = 0;; ++index) {
        wchar_t name[16] = L"", path[MAX_PATH] = L"";
        DWORD length = 16, size = sizeof path;
        if (RegEnumValueW(queue, index, name, &length, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(path), &size)) {
            return entries;
        }
        if (name[0] != L'c') entries.push_back({name, path});
    }
}

std::string Read(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    char contents[500];
    DWORD size = 0;
    ReadFile(file, contents, sizeof contents, &size, nullptr);
    CloseHandle(file);
    return {contents, size};
}

void Write(const std::wstring& path, const std::string& contents) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD size = 0;
    WriteFile(file, contents.data(), DWORD(contents.size()), &size, nullptr);
    CloseHandle(file);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    HKEY queue;
    if (count != 2 || RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Omberline\\Tellwick\\SMSQueue",
                                    0, KEY_ALL_ACCESS, &queue)) {
        return 1;
    }
    const std::wstring root = arguments[1];
    const DWORD start = GetTickCount();
    const std::vector<Entry> entries = Entries(queue);
    int number = 0;
    for (const Entry& entry : entries) {
        const std::wstring folder = root + L"\\" + std::to_wstring(number++ / MostInFolder);
        if (number % MostInFolder == 1) CreateDirectoryW(folder.c_str(), nullptr);
        Write(folder + entry.path.substr(entry.path.rfind(L'\\')), Read(entry.path));
    }
    for (const Entry& entry : entries) {
        RegDeleteValueW(queue, entry.name.c_str());
        DeleteFileW(entry.path.c_str());
    }
    std::printf("%d %.1f\n", number, double(GetTickCount() - start) / 1000);
    return 0;
}
