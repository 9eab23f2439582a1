// What an administrator has fixed, and the support file, in the real windows.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

constexpr const wchar_t* PolicyKey = L"Software\\Policies\\Tellwick\\Outlook";

struct Policies {
    Policies() {
        WriteNumber(PolicyKey, L"KeepContacts", 0);
        WriteText(PolicyKey, L"CountryCodes", L"+43");
    }
    ~Policies() { DeleteKey(PolicyKey); }
    Policies(const Policies&) = delete;
    Policies& operator=(const Policies&) = delete;
};

std::wstring Desktop() {
    return ReadText(L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                    L"Desktop")
        .value_or(L"");
}

}  // namespace

TEST_CASE("a fixed setting is grey, and the support file is on the desktop once it was seen") {
    Machine machine;
    const Policies policies;
    const std::wstring file = Desktop() + L"\\Tellwick-Support.zip";
    DeleteFileW(file.c_str());
    StandIn outlook(11, L"--empty");
    const Form form = Form::Open(outlook);
    Form::Fill(form.to, L"0171 2345678");
    Form::Fill(form.message, L"Geheimnis");
    Press('T', {VK_MENU});
    const HWND options = WaitForWindow(L"Einstellungen");
    REQUIRE(options);
    const HWND kept = FindByText(options, L"Kontakte f\u00FCr den n\u00E4chsten Start merken");
    CHECK_FALSE(IsWindowEnabled(kept));
    CHECK(SendMessageW(kept, BM_GETCHECK, 0, 0) == BST_UNCHECKED);
    CHECK_FALSE(IsWindowEnabled(FindByText(options, L"+43")));
    const HWND why = FindByText(
        options, L"Ihr Administrator hat einige dieser Einstellungen festgelegt. Sie sind grau.");
    CHECK(IsWindowVisible(why));
    CheckTabOrder(options);

    Press('U', {VK_MENU});
    const HWND support = WaitForWindow(L"Support-Datei");
    REQUIRE(support);
    CHECK_FALSE(IsWindowEnabled(options));
    const std::wstring shown = TextOf(FindByClass(support, L"Edit"));
    CHECK(shown.find(L"Outlook: 11.0") != std::wstring::npos);
    CHECK(shown.find(L"Fixed: KeepContacts") != std::wstring::npos);
    CHECK(shown.find(L"Geheimnis") == std::wstring::npos);
    CheckTabOrder(support);
    CHECK_FALSE(FileExists(file));
    Press('S', {VK_MENU});
    const HWND box = WaitForBox();
    REQUIRE(box);
    Press(VK_RETURN);
    REQUIRE(WaitUntilGone(support));
    CHECK(WaitUntil([&] { return IsWindowEnabled(options) != 0; }));
    const std::string archive = ReadBytes(file);
    CHECK(archive.starts_with("PK\3\4"));
    CHECK(archive.find("2345678") == std::string::npos);
    DeleteFileW(file.c_str());
    Press(VK_ESCAPE);
    REQUIRE(WaitUntilGone(options));
}
