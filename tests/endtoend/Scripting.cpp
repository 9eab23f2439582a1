// Other programs that drive Outlook while the add-in is in it.
#include <doctest.h>

#include <windows.h>

#include <oleauto.h>
#include <tlhelp32.h>

#include <memory>

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

template <class Interface>
using Pointer = std::unique_ptr<Interface, decltype([](IUnknown* held) { held->Release(); })>;

// A member without arguments, by name; what has none is what every object has, by identifier.
VARIANT Get(IDispatch* object, const wchar_t* name, DISPID identifier = DISPID_UNKNOWN) {
    auto member = const_cast<LPOLESTR>(name);
    if (name) object->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &identifier);
    DISPPARAMS none{};
    VARIANT result{};
    CHECK(object->Invoke(identifier, IID_NULL, LOCALE_USER_DEFAULT,
                         DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &result, nullptr,
                         nullptr) == S_OK);
    return result;
}

}  // namespace

TEST_CASE("a collection is walked in any steps, from another process") {
    RenewService();
    Machine machine;
    StandIn outlook(11);
    outlook.Command("pump");
    REQUIRE(SUCCEEDED(CoInitialize(nullptr)));
    {
        CLSID type;
        REQUIRE(CLSIDFromProgID(L"Outlook.Application", &type) == S_OK);
        IDispatch* created = nullptr;
        REQUIRE(CoCreateInstance(type, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                 reinterpret_cast<void**>(&created)) == S_OK);
        const Pointer<IDispatch> application(created);
        const Pointer<IDispatch> explorer(Get(created, L"ActiveExplorer").pdispVal);
        const Pointer<IDispatch> folder(Get(explorer.get(), L"CurrentFolder").pdispVal);
        const Pointer<IDispatch> items(Get(folder.get(), L"Items").pdispVal);
        const Pointer<IUnknown> unknown(Get(items.get(), nullptr, DISPID_NEWENUM).punkVal);
        IEnumVARIANT* found = nullptr;
        REQUIRE(unknown->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&found)) ==
                S_OK);
        const Pointer<IEnumVARIANT> first(found);
        IEnumVARIANT* cloned = nullptr;

        // How many come next of so many.
        const auto next = [](IEnumVARIANT* from, ULONG count, HRESULT expected) {
            VARIANT elements[8]{};
            ULONG fetched = 0;
            CHECK(from->Next(count, elements, &fetched) == expected);
            for (ULONG index = 0; index < fetched; ++index) VariantClear(&elements[index]);
            return fetched;
        };
        CHECK(next(found, 3, S_OK) == 3);
        REQUIRE(found->Clone(&cloned) == S_OK);
        const Pointer<IEnumVARIANT> second(cloned);
        CHECK(next(found, 3, S_FALSE) == 1);
        CHECK(next(cloned, 2, S_FALSE) == 1);
        CHECK(cloned->Reset() == S_OK);
        CHECK(cloned->Skip(2) == S_OK);
        CHECK(next(cloned, 3, S_FALSE) == 2);
        CHECK(cloned->Skip(1) == S_FALSE);
    }
    CoUninitialize();
    CheckClean(outlook.Quit());
}

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
