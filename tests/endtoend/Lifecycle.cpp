// Connections that do not go as they should.
#include <doctest.h>

#include "endtoend/Machine.h"
#include "endtoend/Printing.h"
#include "endtoend/StandIn.h"

using namespace tellwick::endtoend;

TEST_CASE("an add-in that stayed away writes no trace") {
    Machine machine;
    WriteText(AddInKey, L"DebugMode", L"1");
    StandIn outlook(11, L"--no-window");
    outlook.Command("open-explorer");
    CHECK_FALSE(FileExists(machine.ProgramFolder() + L"TellwickAddIn.dbg.xml"));
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
