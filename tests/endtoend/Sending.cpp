// One SMS on its way: form, queue, question, sender.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Form.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

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

TEST_CASE("an SMS arrives in the queue, and at the sender after a Yes; an empty one is refused") {
    Machine machine;
    StandIn outlook(9, L"--empty");
    // Without a recipient it is refused and stays open.
    const Form form = Form::Open(outlook);
    Click(form.Control(L"SMS senden"));
    const HWND refusal = WaitForBox();
    REQUIRE(refusal);
    CHECK(FindByText(refusal, L"Bitte geben Sie einen Empf\u00e4nger ein."));
    Press(VK_RETURN);
    CHECK(WaitUntilGone(refusal));
    CHECK(WaitUntil([&] { return Focus() == form.to; }));
    CHECK_FALSE(ReadText(QueueKey, L"cOut"));

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
    const std::string first =
        "1\t0171 2345678\tGr\xfc\xdf"
        "e aus K\xf6ln,\\r\\nzweite Zeile\n";
    CHECK(WaitUntil([&] { return machine.Sent() == first; }, 10000));
    CHECK(WaitUntil([&] { return !ReadText(QueueKey, L"1") && !FileExists(*path); }));
    CHECK(ReadText(QueueKey, L"cOut") == L"1");
    CHECK(ReadText(RootKey, L"On") == L"1");
    CHECK(WaitUntil([] { return !FindTopWindow(L"SMS erstellen"); }));

    // The sender runs now: no question, and the next SMS is taken at the signal.
    WriteSms(outlook, L"0171 2345678", L"Noch eine");
    CHECK(WaitUntil([] { return ReadText(QueueKey, L"cOut") == L"2"; }));
    CHECK(WaitUntil([&] { return machine.Sent() == first + "2\t0171 2345678\tNoch eine\n"; }));
    CHECK(outlook.Quit().exitCode == 0);
}
