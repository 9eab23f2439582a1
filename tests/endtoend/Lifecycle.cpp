// From Outlook's start to its end: connection, shutdown, what is left behind.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Form.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"
#include "endtoend/StandIn.h"

using namespace tellwick::endtoend;

TEST_CASE("nothing of the add-in keeps Outlook alive") {
    for (const int version : {9, 10, 11, 16}) {
        CAPTURE(version);
        Machine machine;
        WriteText(RootKey, L"OlAddInActive", L"x");
        StandIn outlook(version);
        outlook.Command("open-explorer");
        outlook.Command("open-inspector 1");
        outlook.Command("select 1 2");
        outlook.Command("wait 250");
        outlook.Command("close-inspector 1");
        outlook.Command("close-explorer 2");
        outlook.Command("open-explorer");
        Form::Fill(Form::Open(outlook).message, L"halb fertig");
        CheckClean(outlook.Quit());
        CHECK(ReadBytes(machine.SettingsFile()).find("LastText=halb fertig\r\n") !=
              std::string::npos);
        CHECK(ReadText(RootKey, L"OlAddInActive") == L"");
    }
}

TEST_CASE("an Outlook without windows leaves the add-in inert") {
    Machine machine;
    WriteText(AddInKey, L"DebugMode", L"1");
    StandIn outlook(11, L"--no-window");
    outlook.Command("open-explorer");
    outlook.Command("wait 300");
    CHECK(outlook.List("toolbar 1").size() > 0);
    CHECK(outlook.Command("toolbar 1").find("TellwickOutlookAddIn") == std::string::npos);
    CHECK_FALSE(FileExists(machine.ProgramFolder() + L"TellwickAddIn.dbg.xml"));
    CheckClean(outlook.Quit());
}

TEST_CASE("the user takes the add-in out and puts it back") {
    Machine machine;
    StandIn outlook(11, L"--late");
    const std::string before = outlook.Command("references");
    outlook.Command("load-addin");
    CHECK(outlook.Command("toolbar 1").find("TellwickOutlookAddIn.Connect") != std::string::npos);
    outlook.Command("disconnect");
    CHECK(outlook.Command("toolbar 1").find("TellwickOutlookAddIn.Connect") == std::string::npos);
    CHECK(outlook.Command("references") == before);
    CHECK(outlook.Command("unload") == "unloaded");
    outlook.Command("connect");
    CHECK(outlook.Command("toolbar 1").find("TellwickOutlookAddIn.Connect") != std::string::npos);
    CheckClean(outlook.Quit());
}

TEST_CASE("a failing step of the host takes only itself away") {
    struct {
        std::wstring failing;
        bool button, entry;
    } cases[] = {{L"Inspectors.Count=0x80004005", true, true},
                 {L"COMAddIn.ProgId=0x80004005", true, true},
                 {L"CommandBarButton.Style=438", true, true},
                 {L"CommandBarButton.PasteFace=0x80004005", true, true},
                 {L"CommandBarButton.Picture=0x80004005", true, true},
                 {L"CommandBars.Item=0x80004005", false, false},
                 {L"CommandBarPopup.Controls=438", true, false}};
    for (const auto& expected : cases) {
        CAPTURE(expected.failing);
        Machine machine;
        StandIn outlook(11, L"--fail " + expected.failing);
        const bool button = outlook.Command("toolbar 1").find("tag=\"101\"") != std::string::npos;
        const bool entry = outlook.Command("menu 1").find("tag=\"101\"") != std::string::npos;
        CHECK(button == expected.button);
        CHECK(entry == expected.entry);
        CheckClean(outlook.Quit());
    }
}
