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
