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

// Values under HKEY_CURRENT_USER, a number in decimal digits. No value means that it is not there.
std::optional<std::wstring> ReadText(const std::wstring& key, const std::wstring& name);
void WriteText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
void WriteNumber(const std::wstring& key, const std::wstring& name, DWORD number);
void DeleteKey(const std::wstring& key);
bool KeyExists(HKEY hive, const std::wstring& key);

// Where the programs under test were built, with a trailing "\".
std::wstring BuildFolder();

bool FileExists(const std::wstring& path);
std::string ReadBytes(const std::wstring& path);
void WriteBytes(const std::wstring& path, const std::string& bytes);

// Runs a command line to its end; whether that came within 30 seconds, and with code 0.
bool Run(const std::wstring& commandLine);

// Ends the sender application if it runs.
void EndSender();

// A clean user who works in German, with the add-in installed in a folder of its own and
// registered.
class Machine {
public:
    Machine();
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    // With a trailing "\".
    const std::wstring& ProgramFolder() const { return programFolder; }
    // The user's settings file, shared with the sender application.
    std::wstring SettingsFile() const;
    // As the system's profile functions read it; "(none)" where there is none.
    std::wstring Setting(const wchar_t* section, const wchar_t* key) const;

    // What the sender has taken, in that order: of each SMS recipient, TAB and text. With no modem
    // and no gateway it keeps them all.
    std::vector<std::string> Taken() const;

    void Register();
    void Unregister();

private:
    std::wstring programFolder;
};

}  // namespace tellwick::endtoend
