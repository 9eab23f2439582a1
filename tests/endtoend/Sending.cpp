// One SMS on its way: form, queue, question, sender.
#include <doctest.h>
#include <windows.h>

#include <shellapi.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

namespace {

// Types one SMS and sends it with the mouse.
void WriteSms(StandIn& outlook, const std::wstring& to, const std::wstring& text) {
    const Form form = Form::Open(outlook);
    Form::Fill(form.to, to);
    Form::Fill(form.message, text);
    Click(form.Control(L"SMS senden"));
}

}  // namespace

TEST_CASE("an SMS arrives in the queue, and at the sender after a Yes") {
    Machine machine;
    StandIn outlook(9, L"--empty");
    WriteSms(outlook, L"0171 2345678", L"Gr\u00fc\u00dfe aus K\u00f6ln,\nzweite Zeile");
    const HWND question = WaitForBox();
    REQUIRE(question);
    CHECK(ReadText(QueueKey, L"cOut") == L"1");
    const auto path = ReadText(QueueKey, L"1");
    REQUIRE(path);
    CHECK(path->find(L"\\sms") != std::wstring::npos);
    CHECK(ReadBytes(*path) ==
          "0171 2345678\tGr\xfc\xdf"
          "e aus K\xf6ln,\r\nzweite Zeile");
    CHECK_FALSE(ReadText(RootKey, L"On"));

    Click(GetDlgItem(question, IDYES));
    CHECK(WaitUntilGone(question));
    std::vector<std::string> sent{"01712345678\tGr\u00fc\u00dfe aus K\u00f6ln,\r\nzweite Zeile"};
    CHECK(WaitUntil([&] { return machine.Taken() == sent; }, 10000));
    CHECK(WaitUntil([&] { return !ReadText(QueueKey, L"1") && !FileExists(*path); }));
    CHECK(ReadText(RootKey, L"On") == L"1");
    CHECK(WaitUntil([] { return !FindTopWindow(L"SMS erstellen"); }));

    // The sender runs now: no question, and the next SMS is taken at the signal.
    WriteSms(outlook, L"0171 2345678", L"Noch eine");
    CHECK(WaitUntil([] { return ReadText(QueueKey, L"cOut") == L"2"; }));
    sent.emplace_back("01712345678\tNoch eine");
    CHECK(WaitUntil([&] { return machine.Taken() == sent; }));
    CHECK(outlook.Quit().exitCode == 0);

    // Explorer has ended and begins anew, without the icon.
    NOTIFYICONDATAW icon{};
    icon.cbSize = NOTIFYICONDATAW_V2_SIZE;
    icon.hWnd = FindWindowW(L"TellwickSender", nullptr);
    icon.uID = 1;
    CHECK(Shell_NotifyIconW(NIM_DELETE, &icon));
    CHECK_FALSE(Shell_NotifyIconW(NIM_MODIFY, &icon));
    PostMessageW(HWND_BROADCAST, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    CHECK(WaitUntil([&] { return Shell_NotifyIconW(NIM_MODIFY, &icon) != 0; }));
}
