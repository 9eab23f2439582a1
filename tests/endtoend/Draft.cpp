// What is typed outlives an Outlook that is ended by force.
#include <doctest.h>

#include "endtoend/Form.h"

using namespace tellwick::endtoend;

TEST_CASE("what was typed when Outlook was killed stands in the next form") {
    Machine machine;
    {
        StandIn outlook(16, L"--empty");
        const Form form = Form::Open(outlook);
        Form::Fill(form.to, L"0171 2345678");
        Form::Fill(form.message, L"Sch\u00F6ne Gr\u00FC\u00DFe");
        Sleep(2500);
        TerminateProcess(outlook.Process(), 1);
        WaitForSingleObject(outlook.Process(), 5000);
    }
    CHECK(machine.Setting(L"SMS", L"LastText") == L"(none)");
    StandIn outlook(16, L"--empty");
    const Form form = Form::Open(outlook);
    CHECK(TextOf(form.to) == L"0171 2345678");
    CHECK(TextOf(form.message) == L"Sch\u00F6ne Gr\u00FC\u00DFe");
    CHECK(TextOf(FindByClass(form.window, L"msctls_statusbar32")).find(L"Wiederhergestellt") == 0);
    CheckClean(outlook.Quit());
    CHECK(machine.Setting(L"SMS", L"LastText") == L"Sch\u00F6ne Gr\u00FC\u00DFe");
    CHECK_FALSE(FileExists(machine.SettingsFile().substr(0, machine.SettingsFile().rfind(L'\\')) +
                           L"\\draft.txt"));
}
