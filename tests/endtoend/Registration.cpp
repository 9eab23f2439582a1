// What the library leaves in the registry for Outlook's loader and for COM.
#include <doctest.h>

#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;

TEST_CASE("regsvr32 registers for the user alone and takes everything back") {
    const std::wstring progId = L"Software\\Classes\\TellwickOutlookAddIn.Connect";
    Machine machine;

    CHECK(ReadText(LoaderKey, L"FriendlyName") == L"Tellwick");
    CHECK(ReadText(LoaderKey, L"Description") ==
          L"Tellwick, send and receive SMS with Outlook (2000, 2002 (XP), 2003)\r\n");
    CHECK(ReadText(LoaderKey, L"LoadBehavior") == L"3");

    const auto clsid = ReadText(progId + L"\\CLSID", L"");
    REQUIRE(clsid);
    const std::wstring classKey = L"Software\\Classes\\CLSID\\" + *clsid;
    CHECK(ReadText(classKey + L"\\ProgID", L"") == L"TellwickOutlookAddIn.Connect");
    CHECK(ReadText(classKey + L"\\InprocServer32", L"") ==
          machine.ProgramFolder() + L"TellwickOutlookAddIn.dll");
    CHECK(ReadText(classKey + L"\\InprocServer32", L"ThreadingModel") == L"Apartment");

    // The sender application's own settings outlive the add-in.
    WriteText(RootKey, L"On", L"1");
    machine.Unregister();
    CHECK_FALSE(KeyExists(HKEY_CURRENT_USER, LoaderKey));
    CHECK_FALSE(KeyExists(HKEY_CURRENT_USER, progId));
    CHECK_FALSE(KeyExists(HKEY_CURRENT_USER, classKey));
    CHECK(ReadText(RootKey, L"On") == L"1");
    machine.Register();
}

TEST_CASE("a library is registered where it is: far down, and below letters the code page lacks") {
    const Machine machine;
    const std::wstring foreign =
        L"\\\\?\\" + machine.ProgramFolder() + L"\u017Dlu\u0165 \u0141\u03C3\\";
    const std::wstring folder = foreign + std::wstring(230, L'x') + L"\\";
    const std::wstring path = folder + L"TellwickOutlookAddIn.dll";
    CreateDirectoryW(foreign.c_str(), nullptr);
    CreateDirectoryW(folder.c_str(), nullptr);
    CopyFileW((BuildFolder() + L"TellwickOutlookAddIn.dll").c_str(), path.c_str(), FALSE);
    const HMODULE library = LoadLibraryW(path.c_str());
    const auto registerServer = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllRegisterServer")));
    CHECK((registerServer && registerServer() == S_OK));
    FreeLibrary(library);
    // The next machine's clean-up does not reach that far.
    DeleteFileW(path.c_str());
    RemoveDirectoryW(folder.c_str());
    const auto clsid = ReadText(L"Software\\Classes\\TellwickOutlookAddIn.Connect\\CLSID", L"");
    REQUIRE(clsid);
    const auto registered =
        ReadText(L"Software\\Classes\\CLSID\\" + *clsid + L"\\InprocServer32", L"");
    REQUIRE(registered);
    CHECK(registered->size() > MAX_PATH);
    CHECK_MESSAGE(path.ends_with(*registered), *registered);  // with or without its prefix
}
