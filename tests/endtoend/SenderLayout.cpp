// The sender's windows in every language at every resolution, and by keys alone. A modem on COM5,
// whose SIM card asks for its PIN, is a program outside Windows: tests/sender/layout_tests.py.
#include <doctest.h>

#include <algorithm>
#include <cwctype>

#include "endtoend/Form.h"
#include "endtoend/Layout.h"
#include "outlook/ControlDescriptions.h"
#include "platform/Utf8.h"

using namespace tellwick::endtoend;

namespace {

// What starts it.
std::wstring CommandLine(const Machine& machine, const std::string& language, bool withModem) {
    WriteBytes(machine.SettingsFile(), "[Settings]\r\nLanguage=" + language + "\r\n" +
                                           (withModem ? "ComPort=COM5\r\n" : ""));
    return L"\"" + machine.ProgramFolder() + L"Tellwick.exe\"";
}

HWND Started() {
    HWND window = nullptr;
    REQUIRE(WaitUntil([&] {
        window = FindWindowW(L"TellwickSender", nullptr);
        return window && IsWindowVisible(window);
    }));
    return window;
}

// The dialog of the sender's window that is open now.
HWND Dialog(HWND window) {
    HWND dialog = nullptr;
    REQUIRE(WaitUntil([&] {
        dialog = GetLastActivePopup(window);
        return dialog != window && IsWindowVisible(dialog) && GetForegroundWindow() == dialog;
    }));
    return dialog;
}

void Leave(HWND dialog) {
    const HWND owner = GetWindow(dialog, GW_OWNER);
    Press(VK_ESCAPE);
    REQUIRE(WaitUntil([&] { return IsChild(owner, Focus()) != 0; }));
}

// The settings' second option.
void ChooseGateway(HWND settings) {
    PostMessageW(Descendants(settings)[2], BM_CLICK, 0, 0);
    REQUIRE(WaitUntil([&] {
        const std::vector<HWND> controls = Descendants(settings);
        return std::any_of(controls.begin(), controls.end(), [](HWND control) {
            return IsWindowVisible(control) &&
                   TextOf(control).find(L"{password}") != std::wstring::npos;
        });
    }));
}

void Check(HWND window, int resolution, std::size_t least) {
    std::vector<ControlOnForm> controls;
    for (const auto& description : tellwick::standin::DescribeControls(window, resolution))
        controls.push_back(Described(tellwick::ToUtf8(description)));
    CheckLayout(controls, least);
    CheckReading(window);
}

// The tabulator goes once round, and the mnemonic of each label leads to its field.
void CheckKeys(HWND window) {
    REQUIRE(WaitUntil([&] { return IsChild(window, Focus()) != 0; }));
    CheckTabOrder(window);
    for (const HWND label : Descendants(window)) {
        const std::wstring text = TextOf(label);
        const std::size_t mark = text.find(L'&');
        if (ClassOf(label) != L"Static" || !IsWindowVisible(label) || mark > text.size()) continue;
        CAPTURE(text);
        Press(WORD(std::towupper(text[mark + 1])), {VK_MENU});
        CHECK(WaitUntil([&] { return Focus() == GetWindow(label, GW_HWNDNEXT); }));
    }
}

}  // namespace

TEST_CASE("every caption of the sender fits and nothing overlaps, in every look") {
    Machine machine;
    InEveryLook([&](const std::string& language, int resolution) {
        // The modem takes its seconds to ask.
        const bool withModem = resolution == 192;
        const Child sender(CommandLine(machine, language, withModem));
        const HWND window = Started();
        if (withModem) {
            const HWND pin = Dialog(window);
            Check(pin, resolution, 6);
            Leave(pin);
        }
        const std::size_t least = withModem ? 9 : 8;
        Check(window, resolution, least);
        SetWindowPos(window, nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
        Check(window, resolution, least);
        const std::vector<HWND> buttons = Descendants(window);
        PostMessageW(*std::find_if(buttons.begin(), buttons.end(),
                                   [](HWND button) { return TextOf(button).ends_with(L"..."); }),
                     BM_CLICK, 0, 0);
        const HWND settings = Dialog(window);
        Check(settings, resolution, 25);
        ChooseGateway(settings);
        Check(settings, resolution, 20);
    });
}

TEST_CASE("the sender's windows are used by keys alone") {
    Machine machine;
    const Child sender(CommandLine(machine, "Deutsch", true));
    const HWND window = Started();
    CheckKeys(Dialog(window));
    Leave(Dialog(window));
    CheckKeys(window);
    Press('P', {VK_MENU});
    Leave(Dialog(window));
    Press('N', {VK_MENU});
    CheckKeys(Dialog(window));
    ChooseGateway(Dialog(window));
    CheckKeys(Dialog(window));
}
