#include "endtoend/Machine.h"

#include <shlobj.h>
#include <shlwapi.h>

#include <doctest.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "endtoend/Child.h"

namespace fs = std::filesystem;

namespace tellwick::endtoend {

namespace {

constexpr wchar_t Classes[] = L"Software\\Classes\\";
constexpr wchar_t ProgId[] = L"TellwickOutlookAddIn.Connect";

std::wstring SettingsFolder() {
    wchar_t path[MAX_PATH]{};
    SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path);
    return std::wstring(path) + L"\\Tellwick\\";
}

// The classes that the library registers for the user: its ProgID and its CLSID.
std::vector<std::wstring> RegisteredClasses() {
    std::vector<std::wstring> classes{ProgId};
    if (const auto clsid = ReadText(Classes + std::wstring(ProgId) + L"\\CLSID", L""))
        classes.push_back(L"CLSID\\" + *clsid);
    return classes;
}

}  // namespace

std::wstring BuildFolder() {
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return fs::path(path).parent_path().wstring() + L"\\";
}

std::optional<std::wstring> ReadText(const std::wstring& key, const std::wstring& name) {
    wchar_t text[4096]{};
    DWORD bytes = sizeof text - sizeof *text;
    DWORD type = 0;
    const LSTATUS status =
        SHGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), &type, text, &bytes);
    if (!status && type == REG_DWORD) return std::to_wstring(text[0] | text[1] << 16);
    if (status || type != REG_SZ) return {};
    return text;
}

void WriteText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    SHSetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void WriteNumber(const std::wstring& key, const std::wstring& name, DWORD number) {
    SHSetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_DWORD, &number, sizeof number);
}

void DeleteKey(const std::wstring& key) {
    SHDeleteKeyW(HKEY_CURRENT_USER, key.c_str());
}

bool KeyExists(HKEY hive, const std::wstring& key) {
    HKEY handle;
    if (RegOpenKeyExW(hive, key.c_str(), 0, KEY_READ, &handle)) return false;
    RegCloseKey(handle);
    return true;
}

bool FileExists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string ReadBytes(const std::wstring& path) {
    std::ifstream file(path.c_str(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
    std::ofstream(path.c_str(), std::ios::binary) << bytes;
}

bool Run(const std::wstring& commandLine) {
    const Child child(commandLine);
    return child.Ends(30000) && child.ExitCode() == 0;
}

void EndSender() {
    const HWND window = FindWindowW(L"TellwickSender", nullptr);
    if (!window) return;
    DWORD identifier = 0;
    GetWindowThreadProcessId(window, &identifier);
    const HANDLE process = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, identifier);
    PostMessageW(window, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(process, 3000) == WAIT_TIMEOUT) TerminateProcess(process, 1);
    CloseHandle(process);
}

Machine::Machine() : programFolder(L"C:\\Tellwick for Outlook\\") {
    REQUIRE(GetACP() == 1252);
    EndSender();
    DeleteKey(RootKey);
    for (const auto& file : fs::directory_iterator(fs::temp_directory_path())) {
        if (file.path().filename().wstring().starts_with(L"sms")) fs::remove(file.path());
    }
    for (const std::wstring& folder : {SettingsFolder(), programFolder}) {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    WriteBytes(SettingsFile(), "[Settings]\r\nLanguage=Deutsch\r\n");
    // Where the tests' settings say so, the library that stops at undefined behaviour.
    const std::wstring library = L"TellwickOutlookAddIn.dll";
    fs::copy(BuildFolder() + (_wgetenv(L"TELLWICK_CHECKED") ? L"checked\\" : L"") + library,
             programFolder + library);
    fs::copy(BuildFolder() + L"Tellwick.exe", programFolder + L"Tellwick.exe");
    fs::copy(BuildFolder() + L"lang", programFolder + L"lang");
    Register();
}

std::vector<std::string> Machine::Taken() const {
    std::map<fs::path, fs::path> files;  // by their names, which are in order
    const fs::path waiting = SettingsFolder() + L"Spool\\waiting";
    if (!fs::exists(waiting)) return {};
    for (const auto& file : fs::recursive_directory_iterator(waiting))
        if (file.path().extension() == L".sms") files[file.path().filename()] = file.path();
    std::vector<std::string> taken;
    for (const auto& [name, path] : files) {
        const std::string sms = ReadBytes(path.wstring());
        const std::size_t to = sms.find("\r\nTo=") + 5, end = sms.find("\r\n\r\n");
        const std::size_t bytes = sms.find("\r\nBytes=");
        // One that is just being written is not taken yet.
        if (end == std::string::npos || sms.size() - end - 4 != std::stoul(sms.substr(bytes + 8)))
            continue;
        taken.push_back(sms.substr(to, sms.find("\r\n", to) - to) + "\t" + sms.substr(end + 4));
    }
    return taken;
}

Machine::~Machine() {
    EndSender();
    Unregister();
}

std::wstring Machine::SettingsFile() const {
    return SettingsFolder() + L"corvane.ini";
}

std::wstring Machine::Setting(const wchar_t* section, const wchar_t* key) const {
    wchar_t text[512]{};
    GetPrivateProfileStringW(section, key, L"(none)", text, 512, SettingsFile().c_str());
    return text;
}

void Machine::Register() {
    REQUIRE(Run(L"regsvr32 /s \"" + programFolder + L"TellwickOutlookAddIn.dll\""));
    // Wine looks for classes in the machine's part of the registry only.
    for (const std::wstring& name : RegisteredClasses()) {
        HKEY copy;
        REQUIRE(!RegCreateKeyW(HKEY_LOCAL_MACHINE, (Classes + name).c_str(), &copy));
        SHCopyKeyW(HKEY_CURRENT_USER, (Classes + name).c_str(), copy, 0);
        RegCloseKey(copy);
    }
}

void Machine::Unregister() {
    for (const std::wstring& name : RegisteredClasses())
        SHDeleteKeyW(HKEY_LOCAL_MACHINE, (Classes + name).c_str());
    CHECK(Run(L"regsvr32 /u /s \"" + programFolder + L"TellwickOutlookAddIn.dll\""));
}

}  // namespace tellwick::endtoend
