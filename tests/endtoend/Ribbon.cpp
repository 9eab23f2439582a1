// The add-in on the ribbon of newer Outlooks: asked for through COM, drawn, clicked, taken away.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

// Items of the stand-in.
constexpr char Mail[] = "1";
constexpr char Sms[] = "2";
constexpr char Contact[] = "6";

// The recipient in the form that is open, which is closed then.
std::wstring TakeRecipient() {
    const HWND form = WaitForWindow(L"SMS erstellen");
    REQUIRE(form);
    const std::wstring recipient = TextOf(FindByClass(form, L"ComboBox"));
    SendMessageW(form, WM_CLOSE, 0, 0);
    CHECK(WaitUntilGone(form));
    return recipient;
}

}  // namespace

TEST_CASE("ribbon and menus have the add-in's buttons instead of the bars, while it is connected") {
    for (const int version : {12, 14, 16}) {
        CAPTURE(version);
        Machine machine;
        StandIn outlook(version);
        const bool explorers = version >= 14;
        const auto begins = [&](const std::string& command, const std::string& expected,
                                const std::string& face = "large=1 face=32x32") {
            const std::string answer = outlook.Command(command);
            CAPTURE(answer);
            CHECK(answer.starts_with(expected));
            CHECK(answer.ends_with(expected.empty() ? "" : "/transparent"));
            CHECK((expected.empty() || answer.find(face + "/") != std::string::npos));
        };
        begins("ribbon 1",
               explorers ? "\"Neue SMS\" at=TabMail behind=GroupMailNew group=\"SMS\" " : "");
        if (explorers) {
            outlook.ClickButton(1, "Neue SMS");
            TakeRecipient();
        }
        outlook.Command("open-explorer");
        outlook.Command("wait 230");
        CHECK(outlook.HasBars("1") == !explorers);
        CHECK(outlook.HasBars("2") == !explorers);
        outlook.Command("close-explorer 2");
        outlook.Command("folder 1 contacts");
        begins("ribbon 1", explorers ? "\"Neue SMS\" at=TabContacts group=\"SMS\" " : "");
        outlook.Command("select 1 6 7");
        begins("context-menu 1", explorers ? "\"SMS schreiben\" at=ContextMenuMultipleItems" : "",
               "large=0 face=16x16");
        if (explorers) {
            outlook.Command("click-context 1 \"SMS schreiben\"");
            CHECK(TakeRecipient().find(L';') != std::wstring::npos);
        }
        outlook.Command(std::string("open-inspector ") + Sms);
        begins("ribbon-inspector 1",
               "\"Per SMS antworten\" at=TabReadMessage behind=GroupRespond group=\"SMS\" ");
        outlook.Command("click-ribbon-inspector 1 \"Per SMS antworten\"");
        CHECK(TakeRecipient() == L"+491701234567");
        outlook.Command(std::string("open-inspector ") + Contact);
        begins("ribbon-inspector 2", "\"SMS an diesen Kontakt\" at=TabContact group=\"SMS\" ");
        outlook.Command("click-ribbon-inspector 2 \"SMS an diesen Kontakt\"");
        CHECK(TakeRecipient().find(L"01712345678") != std::wstring::npos);
        outlook.Command(std::string("open-inspector ") + Mail);
        outlook.Command("click-ribbon-inspector 3 \"Per SMS weiterleiten\"");
        const Form forwarded = Form::Opened();
        CHECK(TextOf(forwarded.message).starts_with(L"Anna Berger: Minutes of Tuesday's meeting"));
        CHECK(Focus() == forwarded.to);
        CHECK(TakeRecipient().empty());
        const std::string connected = outlook.Command("references");
        CHECK(connected.find("IRibbonControl") == std::string::npos);
        CHECK(connected.find("IRibbonUI") != std::string::npos);

        // A user takes the add-in out while it answers a click. The other two commands are taken,
        // and answered, while the first lets messages run. Remarks are not answered.
        CHECK(outlook
                  .Command("click-ribbon-inspector 1 \"Per SMS antworten\"\ndisconnect\n"
                           "references")
                  .empty());
        CHECK(outlook.Command("#").find("Application") != std::string::npos);
        CHECK(outlook.Command("#").empty());
        CHECK(outlook.Command("references").find("IRibbon") == std::string::npos);
        CHECK(outlook.Command("ribbon-inspector 1").empty());
        CHECK(outlook.Command("unload") == "unloaded");
        outlook.Command("connect");
        CHECK(outlook.Command("ribbon-inspector 1").find("Per SMS") != std::string::npos);
        CHECK(outlook.HasBars("1") == (version < 14));
        CHECK(outlook.Command("ribbon-errors").empty());
        CheckClean(outlook.Quit());
    }
}

TEST_CASE(
    "an Outlook that was started without a window has the add-in on the ribbon of the first") {
    for (const int version : {14, 16}) {
        CAPTURE(version);
        Machine machine;
        StandIn outlook(version, L"--no-window");
        outlook.Command("open-explorer");
        outlook.Command(std::string("select 1 ") + Contact);
        outlook.ClickButton(1, "Neue SMS");
        CHECK(TakeRecipient() == L"01712345678");
        CHECK_FALSE(outlook.HasBars("1"));
        CheckClean(outlook.Quit());
    }
}

TEST_CASE("at 200 % the pictures are twice the size") {
    WriteNumber(L"Control Panel\\Desktop", L"LogPixels", 192);
    {
        Machine machine;
        StandIn outlook(16);
        CHECK(outlook.Command("ribbon 1").find("face=64x64/") != std::string::npos);
        CHECK(outlook.Command("context-menu 1").find("face=32x32/") != std::string::npos);
    }
    WriteNumber(L"Control Panel\\Desktop", L"LogPixels", 96);
}
