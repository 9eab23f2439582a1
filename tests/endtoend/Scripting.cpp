// Other programs that drive Outlook while the add-in is in it.
#include <doctest.h>

#include <windows.h>

#include <tlhelp32.h>

#include "endtoend/StandIn.h"

using namespace tellwick::endtoend;

namespace {

// Once a host was ended by force, Wine's service for calls between processes answers no more. The
// next call starts a new one.
void RenewService() {
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W process{};
    process.dwSize = sizeof process;
    for (BOOL found = Process32FirstW(processes, &process); found;
         found = Process32NextW(processes, &process)) {
        if (lstrcmpiW(process.szExeFile, L"rpcss.exe") != 0) continue;
        const HANDLE service =
            OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, process.th32ProcessID);
        TerminateProcess(service, 0);
        WaitForSingleObject(service, 5000);
        CloseHandle(service);
    }
    CloseHandle(processes);
}

// What the host's script interpreter prints.
std::string RunScript(const Machine& machine, const std::wstring& name) {
    const std::wstring output = machine.ProgramFolder() + L"script.txt";
    CHECK(Run(L"cmd /c cscript //nologo \"" + BuildFolder() + name + L"\" > \"" + output + L"\""));
    return ReadBytes(output);
}

}  // namespace

TEST_CASE("a macro finds the button, takes the add-in out and in, answers SMS and quits") {
    const std::string controls =
        "Standard, &New: SMS, tag 101\r\n"
        "Standard: Neue SMS, tag 101\r\n";
    for (const int version : {9, 12}) {
        CAPTURE(version);
        RenewService();
        Machine machine;
        StandIn outlook(version, L"--switch no-redemption=off");  // the macro uses it, too
        outlook.Command("pump");                                  // answered when scripts find it
        CHECK(RunScript(machine, L"Macro.vbs") ==
              "Outlook " + std::to_string(version) +
                  ", Inbox - Microsoft Outlook\r\n"
                  "folder Inbox: 4\r\n"
                  "folder Calendar: 1\r\n"
                  "folder Contacts: 5\r\n"
                  "folder Drafts: 0\r\n"
                  "folder Deleted Items: 0\r\n"
                  "add-in TellwickOutlookAddIn.Connect, Tellwick, connected: yes\r\n" +
                  controls +
                  "selected: no mail\r\n"
                  "not marked: mail to Anna Berger\r\n"
                  "taken out\r\n"
                  "put back\r\n" +
                  controls +
                  "found SMS\r\n"
                  "executed Neue SMS\r\n"
                  "SMS from +491701234567 in a window: no mail\r\n"
                  "SMS from +436641112223 in a window: no mail\r\n"
                  "windows left: 1 + 0\r\n"
                  "quit\r\n");
        CheckClean(outlook.WaitForEnd());
        CHECK(machine.Setting(L"SMS", L"LastText") == L"Your parcel is here.");
    }
}
