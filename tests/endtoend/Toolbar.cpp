// The button and the drop-down entry in Outlook's windows, as the host has them.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"
#include "endtoend/StandIn.h"

using namespace tellwick::endtoend;

namespace {

const std::string Marks =
    " tag=\"101\" action=\"<!TellwickOutlookAddIn.Connect>\" "
    "parameter=\"TellwickOutlookAddIn.Main\" ";

// The add-in's controls of a bar or menu.
std::vector<std::string> Own(std::vector<std::string> controls) {
    std::erase_if(controls, [](const std::string& control) {
        return control.find("tag=\"101\"") == std::string::npos;
    });
    return controls;
}

}  // namespace

TEST_CASE("every version with bars shows one button and one entry, with a picture") {
    for (const int version : {9, 10, 11, 12}) {
        CAPTURE(version);
        Machine machine;
        StandIn outlook(version);
        const auto buttons = Own(outlook.List("toolbar 1"));
        REQUIRE(buttons.size() == 1);
        CAPTURE(buttons[0]);
        CHECK(buttons[0].starts_with("2 \"Neue SMS\"" + Marks +
                                     "style=3 group=1 visible=1 temporary=1 builtin=0 face=16x16"));
        const auto entries = Own(outlook.List("menu 1"));
        REQUIRE(entries.size() == 1);
        CAPTURE(entries[0]);
        CHECK(entries[0].find("\"SMS\"" + Marks + "style=3 group=1 visible=1 temporary=1") !=
              std::string::npos);
        CHECK(entries[0].find("face=16x16") != std::string::npos);
        outlook.Command("click-menu 1 SMS");
        CHECK(WaitForWindow(L"SMS erstellen"));
        CheckClean(outlook.Quit());
    }
}

TEST_CASE("placement and leftovers are heeded, and a failing step takes only itself away") {
    Machine machine;
    WriteText(AddInKey, L"Pos101", L"0");
    WriteText(AddInKey, L"Style101", L"2x");
    WriteText(AddInKey, L"Sep101", L"0");
    WriteText(AddInKey, L"Bar101", L"Mobile");
    StandIn outlook(11, L"--late");
    outlook.Command("add-bar 1 Mobile");
    outlook.Command("add-control 1 Mobile Left 101 <!TellwickOutlookAddIn.Connect>");
    outlook.Command("add-control 1 Mobile Mine 101 <!Other.AddIn>");
    outlook.Command("load-addin");
    const auto controls = outlook.List("toolbar 1 Mobile");
    CAPTURE(outlook.Command("toolbar 1 Mobile"));
    REQUIRE(controls.size() == 2);
    CHECK(controls[0].find("\"Mine\"") != std::string::npos);
    CHECK(controls[1].find("\"Neue SMS\"" + Marks + "style=2 group=0") != std::string::npos);
    CHECK(Own(outlook.List("toolbar 1")).empty());
    outlook.Command("disconnect");
    CHECK(outlook.List("toolbar 1 Mobile").size() == 1);

    DeleteKey(AddInKey);
    struct {
        std::string member, error;
        std::size_t buttons, entries;
    } failing[] = {
        {"Inspectors.Count", "0x80004005", 1, 1}, {"COMAddIn.ProgId", "0x80004005", 1, 1},
        {"CommandBarButton.Style", "438", 1, 1},  {"CommandBarButton.Picture", "0x80004005", 1, 1},
        {"CommandBars.Item", "0x80004005", 0, 0}, {"CommandBarPopup.Controls", "438", 1, 0}};
    for (const auto& expected : failing) {
        CAPTURE(expected.member);
        outlook.Command("fail " + expected.member + " " + expected.error);
        outlook.Command("connect");
        CHECK(Own(outlook.List("toolbar 1")).size() == expected.buttons);
        CHECK(Own(outlook.List("menu 1")).size() == expected.entries);
        outlook.Command("disconnect");
        outlook.Command("fail " + expected.member + " 0");
    }
    CheckClean(outlook.Quit());
}
