// The connection to Outlook and its end: windows followed, buttons added and taken away.
#include "addin/Connect.h"

#include <doctest.h>

#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;

TEST_CASE("Outlook without any window: nothing is touched, and shutting down is harmless") {
    Host host(11, false);
    host.SetRegistry(AddInKey, u"DebugMode", u"1");
    host.connect.AddinInstance_OnConnection(host.outlook.Application(), 1, host.addIn->Handle());
    CHECK(host.outlook.LiveSubscriptions().empty());
    CHECK(host.program.processValues.applicationTitle.empty());
    // Later windows do not bring it to life.
    const auto explorer = host.outlook.OpenExplorer();
    CHECK(Host::Button(explorer) == nullptr);
    host.Disconnect();
    CHECK(host.WritesOfActiveFlag() == 3);
    CHECK_FALSE(host.platform.fileSystem.files.contains(TraceFile));
}

TEST_CASE("an administrator's set-up leaves a user's part to the first use, once") {
    struct Case {
        Hive hive;
        TextView due, given, expected;
    };
    for (const Case& c :
         {Case{Hive::LocalMachine, u"1", u"", u"+49"}, Case{Hive::CurrentUser, u"1", u"", u"+49"},
          Case{Hive::LocalMachine, u"1", u"+43", u"+43"},
          Case{Hive::LocalMachine, u"", u"", u""}}) {
        CAPTURE(c.given);
        Host host;
        host.platform.locale.country = u"DE";
        host.platform.registry.WriteString(c.hive, AddInKey, u"FirstUse", c.due);
        if (!c.given.empty()) host.SetSetting(u"Prefixes", u"Remove0InPrefixes", c.given);
        host.Connect();
        CHECK(host.Setting(u"Prefixes", u"Remove0InPrefixes") == c.expected);
        host.Disconnect();
        host.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"");
        host.Connect();
        CHECK(host.Setting(u"Prefixes", u"Remove0InPrefixes").empty());
    }
}

TEST_CASE("the first window gets button and entry at once, and a click on them opens the form") {
    for (const std::int32_t version : {9, 10, 11, 12, 16}) {
        CAPTURE(version);
        Host host(version);
        host.platform.bitmaps.clipboard = 7;
        host.Connect();
        CHECK(host.program.processValues.outlookVersion == version);
        const auto button = Host::Button(host.first);
        REQUIRE(button);
        CHECK(host.Captions(u"Standard")[1] == u"New SMS");
        CHECK(button->parameter == u"TellwickOutlookAddIn.Main");
        CHECK(button->onAction == u"<!TellwickOutlookAddIn.Connect>");
        CHECK(button->tag == u"101");
        CHECK(button->style == 3);
        CHECK(button->oleUsage == 3);
        CHECK(button->beginGroup);
        CHECK(button->temporary);
        CHECK(button->visible);
        CHECK((button->picture != nullptr) == (version >= 11));
        const auto entry = host.first->NewMenuEntry(u"SMS");
        REQUIRE(entry);
        CHECK(entry->onAction == button->onAction);
        CHECK(entry->temporary);
        CHECK(host.platform.bitmaps.clipboard == (version >= 12 ? 7u : version == 11 ? 0u : 3101u));
        if (version >= 11) {
            CHECK(MemoryBitmaps::BitmapOf(button->picture) == 1101);
            CHECK(MemoryBitmaps::BitmapOf(button->mask) == 1201);
        }
        // The timer's second set-up replaces the button instead of doubling it.
        host.platform.timers.Tick();
        const std::vector<Text> captions = host.Captions(u"Standard");
        CHECK(std::count(captions.begin(), captions.end(), u"New SMS") == 1);
        // A click cancels the default, and a second one leaves what was typed.
        CHECK(host.outlook.ClickButton(Host::Button(host.first)));
        CHECK(host.view.Loaded());
        host.view.Message().SetText(u"getippt");
        host.outlook.ClickButton(host.first->NewMenuEntry(u"SMS"));
        CHECK(host.view.Message().GetText() == u"getippt");
        host.Disconnect();
        CHECK_FALSE(host.view.Loaded());
        CHECK(host.Setting(u"SMS", u"LastText") == u"getippt");
    }
}

TEST_CASE("an Outlook 2000 whose bars come later gets its button once they are there") {
    Host host(9);
    host.outlook.Switch(standin::Documented::BarsAfterStartup, true);
    host.Connect();
    CHECK(Host::Button(host.first));
    CHECK(host.first->NewMenuEntry(u"SMS"));
    CHECK(host.Captions(u"Standard").size() == Host(9).Captions(u"Standard").size() + 1);
}

TEST_CASE("the user's placement decides bar, position, style and group") {
    struct Case {
        TextView bar, position, style, separator;
        TextView expectedBar;
        std::size_t expectedIndex;  // from 0; 99: last
        std::int32_t expectedStyle;
        bool expectedGroup;
    };
    for (const Case& c : {Case{u"", u"", u"", u"", u"Standard", 1, 3, true},
                          Case{u"Custom", u"1", u"1", u"0", u"Custom", 0, 1, false},
                          Case{u"Missing", u"3x", u"x", u"1", u"Standard", 2, 0, true},
                          Case{u"", u"0", u"2", u"-1", u"Standard", 99, 2, true},
                          Case{u"", u"x", u"", u"x", u"Standard", 99, 3, false}}) {
        Host host;
        host.first->commandBars->AddBar(u"Custom")->AddButton(u"Own");
        for (const auto& [name, value] : {std::pair(u"Bar101", c.bar),
                                          {u"Pos101", c.position},
                                          {u"Style101", c.style},
                                          {u"Sep101", c.separator}}) {
            if (!value.empty()) host.SetRegistry(AddInKey, name, value);
        }
        host.Connect();
        const std::vector<Text> captions = host.Captions(c.expectedBar);
        const std::size_t index = c.expectedIndex == 99 ? captions.size() - 1 : c.expectedIndex;
        REQUIRE(index < captions.size());
        CHECK(captions[index] == u"New SMS");
        const auto button = Host::Button(host.first, c.expectedBar);
        CHECK(button->style == c.expectedStyle);
        CHECK(button->beginGroup == c.expectedGroup);
    }
}

TEST_CASE("leftovers of an earlier run go, a user's own button stays") {
    Host host;
    const auto bar = host.first->commandBars->Find(u"Standard");
    for (const TextView action : {u"<!TellwickOutlookAddIn.Connect>", u"MyMacro"}) {
        const auto button = bar->AddButton(u"New SMS");
        button->tag = u"101";
        button->onAction = action;
    }
    host.Connect();
    const std::vector<Text> captions = host.Captions(u"Standard");
    CHECK(std::count(captions.begin(), captions.end(), u"New SMS") == 2);
}

TEST_CASE("later windows get their button by the timer, the last one that asked only") {
    Host host(10);
    host.Connect();
    host.platform.timers.Tick();
    const auto explorers = [&] {
        const std::vector<Text> live = host.outlook.LiveSubscriptions();
        return std::count(live.begin(), live.end(), u"Explorer");
    };
    const auto second = host.outlook.OpenExplorer();
    CHECK(Host::Button(second) == nullptr);
    CHECK(host.platform.timers.Tick() == 1);
    CHECK(Host::Button(second));
    CHECK(host.platform.timers.Tick() == 0);
    const auto third = host.outlook.OpenExplorer();
    const auto fourth = host.outlook.OpenExplorer();
    host.platform.timers.Tick();
    CHECK(Host::Button(third) == nullptr);
    CHECK(Host::Button(fourth));
    CHECK(explorers() == 4);
    // The next one takes the place of one that was closed, which cuts off the wrappers behind it.
    host.outlook.CloseExplorer(third);
    CHECK(explorers() == 3);
    host.outlook.OpenExplorer();
    CHECK(explorers() == 3);
    CHECK(Host::Button(fourth));
}

TEST_CASE("disconnection leaves no reference, no sink and no button, in every version") {
    for (const std::int32_t version : {9, 10, 11, 16}) {
        for (const bool byQuit : {false, true}) {
            CAPTURE(version);
            CAPTURE(byQuit);
            Host host(version);
            host.platform.automation.running.clear();
            host.outlook.applicationHasEvents = version > 9 || byQuit;
            host.Connect();
            host.outlook.OpenExplorer();
            const auto inspector =
                host.outlook.OpenInspector(host.outlook.AddItem(outlook::MailClass));
            host.outlook.ClickButton(Host::Button(host.first));
            if (byQuit) {
                host.outlook.Quit();
            } else {
                const auto button = Host::Button(host.first);
                host.Disconnect();
                CHECK(button->deleted);
                CHECK_FALSE(host.first->NewMenuEntry(u"SMS"));
                // Written by both releases and by the disconnection itself.
                CHECK(host.WritesOfActiveFlag() == 3);
            }
            while (host.platform.timers.Tick() != 0) {
            }
            CHECK(host.outlook.LiveSubscriptions().empty());
            CHECK(host.Held().empty());
            CHECK(host.Registry(RootKey, u"OlAddInActive").empty());
        }
    }
}

TEST_CASE(
    "settings that could not be written get a last try, also at an end that only Quit tells") {
    for (const bool byQuit : {false, true}) {
        CAPTURE(byQuit);
        Host host(16);
        host.Connect();
        host.outlook.ClickButton(Host::Button(host.first));
        host.view.Message().SetText(u"wartet");
        auto& file = host.platform.fileSystem.files[host.program.inifilesLite.CurrentFile()];
        file.readOnly = true;
        host.program.formSmsSend.Unload();
        CHECK(file.contents.find("wartet") == std::string::npos);
        file.readOnly = false;
        if (byQuit) {
            host.outlook.Quit();
        } else {
            host.Disconnect();
        }
        CHECK(file.contents.find("LastText=wartet") != std::string::npos);
    }
}

TEST_CASE("whatever member of Outlook fails, the steps behind it still run") {
    struct Case {
        TextView className, member;
        bool button;
    };
    for (const Case& c :
         {Case{u"Application", u"Inspectors", true}, Case{u"Explorers", u"Count", true},
          Case{u"COMAddIn", u"ProgId", true}, Case{u"CommandBars", u"Count", true},
          Case{u"CommandBarButton", u"Parameter", true}, Case{u"CommandBarButton", u"Style", true},
          Case{u"CommandBarButton", u"Picture", true}, Case{u"Explorer", u"CommandBars", false},
          Case{u"Application", u"Explorers", false}}) {
        CAPTURE(c.className);
        CAPTURE(c.member);
        Host host;
        host.outlook.FailMember(c.className, c.member, error::Automation);
        host.Connect();
        CHECK((Host::Button(host.first) != nullptr) == c.button);
        host.Disconnect();
        CHECK(host.outlook.LiveSubscriptions().empty());
    }
}

TEST_CASE("tracing begins behind the set-up and follows a click and the form's life in order") {
    const auto connected = [](Host& host, bool ribbon) {
        host.SetRegistry(AddInKey, u"DebugMode", u"1");
        host.Connect(ribbon);
        CHECK(host.Trace().starts_with("<start>_\r\n\r\n"));
    };
    Host bars(11);
    connected(bars, false);
    bars.outlook.ClickButton(Host::Button(bars.first));
    CHECK(bars.Trace().find("SetMenus") == std::string::npos);
    for (const char* record : {"<ButtonSMSNew_Click>_", "<NewSMS>_", "</NewSMS>"}) {
        CHECK(bars.Trace().find(record) != std::string::npos);
    }

    Host host(16);
    connected(host, true);
    host.outlook.ribbons.Entries(host.first)[0].click();
    host.program.formSmsSend.Form_Activate();
    host.Disconnect();
    const std::vector<Text> expected = {
        u"<GetCustomUI>_",        u"<Ribbon_onLoad>_",  u"<Ribbon_getLargeImage>_",
        u"<RibbonSMSNew_Click>_", u"<_Load>_",          u"<Form_SetLanguage>_",
        u"<LoadBackGround>_",     u"<SetButtons>_",     u"<Form_Initialize_>_",
        u"<GetTextbausteine>_",   u"<SetHexButton>_",   u"<GetSettings>_",
        u"<GetListNumbers>_",     u"<Message_Change>_", u"</RibbonSMSNew_Click>",
        u"<_Activate>_",          u"<Form_Unload>_"};
    std::vector<Text> steps;
    for (const Text& line : Split(host.platform.locale.FromAnsi(host.Trace()), LineBreak)) {
        const Text record = Trimmed(line);
        if (std::find(expected.begin(), expected.end(), record) != expected.end()) {
            steps.push_back(record);
        }
    }
    CHECK(steps == expected);
}
