// The button and the drop-down entry in Outlook's windows, as the host has them.
#include <doctest.h>

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
