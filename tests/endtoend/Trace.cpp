// The trace of a whole run, as it stands in the file.
#include <doctest.h>

#include "endtoend/Desktop.h"
#include "endtoend/Form.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;

TEST_CASE("the trace file follows one SMS from the click to the queue") {
    Machine machine;
    WriteText(AddInKey, L"Active", L"1");
    WriteText(AddInKey, L"DebugMode", L"1");
    StandIn outlook(11, L"--empty");
    const HWND question = WaitForBox();
    REQUIRE(question);
    Click(GetDlgItem(question, IDOK));

    const Form form = Form::Open(outlook);
    Form::Fill(form.to, L"0171");
    Form::Fill(form.message, L"ab");
    Press(VK_RETURN, {VK_CONTROL});
    const HWND start = WaitForBox();
    REQUIRE(start);
    Click(GetDlgItem(start, IDNO));
    CHECK(WaitUntil([] { return !FindTopWindow(L"SMS erstellen"); }));
    CHECK(outlook.Quit().exitCode == 0);

    const std::string trace = ReadBytes(machine.ProgramFolder() + L"TellwickAddIn.dbg.xml");
    CAPTURE(trace);
    CHECK(trace.starts_with("<start>_\r\n\r\n"));
    std::size_t at = 0;
    for (const char* record :
         {"<ButtonSMSNew_Click>_\r\n", "<NewSMS>_\r\n", "<Form_Initialize_>_\r\n",
          "</Form_Initialize_>\r\n", "</NewSMS>\r\n", "</ButtonSMSNew_Click>\r\n",
          "<Message_Change>_\r\n", "</Message_Change>\r\n", "<ButtonSend_Click>_\r\n",
          "<CheckIfRunning>_\r\n", "<GetProcList>_\r\n", "</GetProcList>\r\n",
          "</CheckIfRunning>\r\n", "<Form_Unload>_\r\n", "</Form_Unload>\r\n",
          "</ButtonSend_Click>\r\n"}) {
        const std::size_t found = trace.find(record, at);
        CHECK_MESSAGE(found != std::string::npos, record);
        if (found != std::string::npos) at = found + 1;
    }
    // Nothing but whole lines.
    for (at = 0; (at = trace.find('\n', at)) != std::string::npos; ++at)
        CHECK(trace[at - 1] == '\r');
}

TEST_CASE("registry mode leaves the last record in the registry and no file") {
    Machine machine;
    WriteText(AddInKey, L"DebugMode", L"-1");
    StandIn outlook(9, L"--empty");
    const HWND question = WaitForBox();
    REQUIRE(question);
    Click(GetDlgItem(question, IDYES));
    Form::Open(outlook);
    const auto last = ReadText(L"Software\\Omberline\\Tellwick\\Debug", L"");
    REQUIRE(last);
    CHECK(last->starts_with(L"</"));
    CHECK_FALSE(FileExists(machine.ProgramFolder() + L"TellwickAddIn.dbg.xml"));
    CHECK(outlook.Quit().exitCode == 0);
}
