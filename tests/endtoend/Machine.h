// The machine as the add-in finds it: the current user's registry, the folder it is installed in,
// the queue it leaves behind. Every case starts from the same clean state.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace tellwick::endtoend {

inline constexpr wchar_t RootKey[] = L"Software\\Omberline\\Tellwick";
inline constexpr wchar_t AddInKey[] = L"Software\\Omberline\\Tellwick\\OlAddIn";
inline constexpr wchar_t QueueKey[] = L"Software\\Omberline\\Tellwick\\SMSQueue";
inline constexpr wchar_t LoaderKey[] =
    L"Software\\Microsoft\\Office\\Outlook\\Addins\\TellwickOutlookAddIn.Connect";

// Values under HKEY_CURRENT_USER, text or number. No value means that it is not there.
std::optional<std::wstring> ReadText(const std::wstring& key, const std::wstring& name);
std::optional<DWORD> ReadNumber(const std::wstring& key, const std::wstring& name);
void WriteText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
void DeleteKey(const std::wstring& key);
bool KeyExists(HKEY hive, const std::wstring& key);

// Where the programs under test were built, with a trailing "\".
std::wstring ProgramsFolder();

bool FileExists(const std::wstring& path);
std::string ReadBytes(const std::wstring& path);
void WriteBytes(const std::wstring& path, const std::string& bytes);

struct Finished {
    DWORD exitCode;
    bool inTime;
};
// Runs a command line to its end, at most 30 seconds.
Finished Run(const std::wstring& commandLine);

// A clean user with the add-in installed in a folder of its own and registered.
class Machine {
public:
    Machine();
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    // With a trailing "\".
    const std::wstring& ProgramFolder() const { return programFolder; }
    std::wstring SettingsFolder() const;

    void Register();
    void Unregister();

private:
    std::wstring programFolder;
};

}  // namespace tellwick::endtoend
