// Whole sessions in which one call fails: every call into the host, every call into the system, and
// every allocation, one after the other. Nothing crashes, nothing is thrown at the host, nothing of
// Outlook's is kept, and what the user typed is in the form, in the settings file or in the queue.
#include <doctest.h>

#include <new>
#include <stdexcept>

#include "platform/FailingAllocations.h"
#include "platform/Meanwhile.h"
#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

struct Session : Host {
    explicit Session(std::int32_t version, bool traced) : Host(version) {
        InstallRedemption();
        platform.automation.running.clear();
        platform.programs.snapshot = {u"Tellwick.exe"};
        platform.programs.paths = {u"C:\\Program\\Tellwick.exe"};
        SetRegistry(RootKey, u"hWnd", u"4711");
        if (traced) SetRegistry(AddInKey, u"DebugMode", u"17");
        outlook.aroundHandler = [](const std::function<void()>& handler) { Inside(handler); };
        ribbon->around = outlook.aroundHandler;
        sms = AddSms(u"+491701234567", u"Hello");
        contact = outlook.AddItem(outlook::ContactClass, {{u"FullName", u"Eva Maier"},
                                                          {u"MobileTelephoneNumber", u"0171"}});
        plain = outlook.AddItem(outlook::MailClass, {{u"SentOnBehalfOfName", u"Eva Maier"}});
        other = outlook.AddItem(outlook::AppointmentClass, {{u"Subject", u"Eva Maier"}});
        other->appointment->recurrence = standin::Master;
        other->appointment->series = {
            standin::Weekly, 4, 0, 0, {46007}, true, {{46000, 46001}, {45993, {}}}};
        other->appointment->attendees = {{u"Eva Maier", standin::Required, contact}};
        other->appointment->links = {contact};
    }

    // What a user does in Outlook and in the form.
    void Run() {
        Inside([this] {
            connect.AddinInstance_OnConnection(outlook.Application(), 1, addIn->Handle());
        });
        outlook.ribbons.Add(u"Tellwick", ribbon);
        outlook.Activate(first);
        Inside([this] { platform.timers.Tick(); });
        const auto second = outlook.OpenExplorer();
        Inside([this] { platform.timers.Tick(); });
        outlook.Select(first, {contact, plain, other});
        outlook.ClickButton(Button(first));
        ClickRibbon(first);
        Type(u"0172", u"one");
        Inside([this] { program.submission.ButtonSend_Click(); });
        CheckNothingLost();
        outlook.CloseExplorer(second);
        outlook.Select(first, {sms});
        outlook.PressReply(sms);
        Type(u"0173", u"two");
        Inside([this] { program.submission.ButtonStore_Click(); });
        CheckNothingLost();
        outlook.OpenInspector(plain);
        outlook.PressReply(plain);
        outlook.ClickButton(first->NewMenuEntry(u"SMS"));
        Type(u"0174", u"three");
        Inside([this] { program.formSmsSend.ButtonOK_Click(); });
        CheckNothingLost();
        const auto inspector = outlook.OpenInspector(sms);
        outlook.PressReply(sms);
        Type(u"0175", u"four");
        CheckNothingLost();
        ClickRibbon(inspector);
        ClickRibbon(outlook.InspectorOf(plain));
        ClickRibbon(outlook.OpenInspector(contact));
        ClickRibbon(outlook.OpenInspector(other));
        outlook.Select(first, {other});
        outlook.ClickButton(Button(first));
        Inside([this] { platform.timers.Tick(); });
        outlook.Select(first, {other, other});
        outlook.ClickButton(Button(first));
        Inside([this] { Settle(); });
        Type(u"0171;0176", u"five {Vorname} {Betreff}");
        Inside([this] {
            program.formSmsSend.AirCount_Click();
            program.formSmsPreview.ButtonForward_Click();
        });
        const std::size_t texts = program.personalTexts.All().size();
        Inside([this] { program.submission.ButtonSend_Click(); });
        CheckAllOrNone(texts);
        CheckNothingLost();
        outlook.ClickButton(Button(first));
        Type(u"0177", u"six");
        outlook.shutDownAddIns = [this] { Inside([this] { Host::Disconnect(); }); };
        outlook.Quit();
    }

    // What was typed last is in the form, the settings or the queue; the next reply may take its
    // place in the form, where the user can undo that.
    void CheckNothingLost() {
        const Meanwhile noFaults(platform.faults, Faults());
        Text kept = view.Message().GetText() + u"|" + Setting(u"SMS", u"LastText");
        for (const auto& [path, file] : platform.fileSystem.files) {
            if (path.ends_with(u".tmp")) kept += u"|" + platform.locale.FromAnsi(file.contents);
        }
        for (const auto& one : typed) {
            CAPTURE(one.first);
            CHECK_MESSAGE(Contains(kept, one.second), "lost");
        }
        typed.clear();
    }
    // Of the text with fields. Without any memory for good nothing can be taken back.
    void CheckAllOrNone(std::size_t texts) {
        if (failingAllocations.forGood) return;
        const Meanwhile noFaults(platform.faults, Faults());
        std::size_t entered = 0;
        for (const auto& [name, path] : platform.registry.values) {
            const auto file = platform.fileSystem.files.find(path);
            if (!Contains(name, u"\\SMSQueue\\") || file == platform.fileSystem.files.end())
                continue;
            entered += file->second.contents.find("\tfive") != std::string::npos;
        }
        CHECK((entered == 0 || entered == texts));
    }
    void CheckNothingHeld() {
        CHECK(outlook.thrownAtHost == 0);
        CHECK(outlook.LiveSubscriptions().empty());
        for (const auto& still : outlook.StillReferenced()) {
            CAPTURE(still.className);
            CHECK(still.count == 0);
        }
        CHECK(platform.locks.held.empty());
    }

private:
    // Runs what the host or the system has called; the windows catch what such a call throws.
    template <class Action>
    static void Inside(const Action& action) {
        const Meanwhile inside(failingAllocations.watching, true);
        try {
            action();
        } catch (const std::bad_alloc&) {
            CHECK(failingAllocations.failed > 0);
        }
    }
    void Type(TextView recipient, TextView text) {
        if (view.Loaded()) {
            // Not left halfway, where nobody sees it.
            CHECK(view.seen);
            view.TextTo().SetText(recipient);
            view.Message().SetText(text);
            typed.emplace_back(std::string(text.begin(), text.end()), text);
        }
    }

    void ClickRibbon(const std::shared_ptr<standin::Window>& window) {
        for (const auto& entry : outlook.ribbons.Entries(window)) entry.click();
    }

    std::shared_ptr<standin::Item> sms, contact, plain, other;
    std::vector<std::pair<std::string, Text>> typed;
};

}  // namespace

TEST_CASE("every call into the host fails once") {
    int sessions = 0;
    for (const std::int32_t version : {9, 11, 16}) {
        for (int failAt = 1, calls = failAt; failAt <= calls; ++failAt) {
            Session session(version, false);
            calls = 0;
            Text failed;
            session.outlook.failUse = [&](TextView className, TextView member) {
                if (++calls != failAt) return false;
                failed = Text(className) + u"." + Text(member);
                return true;
            };
            session.Run();
            CAPTURE(version);
            CAPTURE(failAt);
            CAPTURE(std::string(failed.begin(), failed.end()));
            // Without events a quiet end leaves only that of the process.
            if (version == 16 && failed == u"Application.Advise") session.Disconnect();
            session.CheckNothingHeld();
            session.CheckNothingLost();
            ++sessions;
        }
    }
    MESSAGE("calls into the host failed one by one: ", sessions);
}

TEST_CASE("every call into the system fails once") {
    int sessions = 0;
    for (const bool traced : {false, true}) {
        for (int failAt = 1, calls = failAt; failAt <= calls; ++failAt) {
            Session session(traced ? 10 : 16, traced);
            session.platform.faults = {0, failAt};
            session.Run();
            calls = session.platform.faults.calls;
            session.platform.faults = {};
            CAPTURE(traced);
            CAPTURE(failAt);
            session.CheckNothingHeld();
            session.CheckNothingLost();
            ++sessions;
        }
    }
    MESSAGE("calls into the system failed one by one: ", sessions);
}

TEST_CASE("every allocation fails once, and from there on for good") {
    const Meanwhile outside(failingAllocations.watching, false);
    for (const bool each : {false, true}) {
        const Meanwhile lasting(failingAllocations.forGood, each);
        long sessions = 0;
        // What fails for good fails alike at the next few.
        const long step = each ? 5 : 1;
        for (long failAt = 0, failed = 1; failed > 0; failAt += step) {
            Session session(16, false);
            failingAllocations.failed = 0;
            failingAllocations.left = failAt;
            session.Run();
            failingAllocations.left = -1;
            failed = failingAllocations.failed;
            CAPTURE(each);
            CAPTURE(failAt);
            session.CheckNothingHeld();
            session.CheckNothingLost();
            sessions += failed > 0;
        }
        MESSAGE("allocations failed one by one: ", sessions, std::string(each ? ", for good" : ""));
    }
}

TEST_CASE("what a handler throws reaches the trace and not the host") {
    Session session(11, true);
    session.platform.messageLoop.onDoEvents = [] { throw std::runtime_error("broken"); };
    session.Run();
    session.CheckNothingHeld();
    const std::string trace =
        session.platform.fileSystem.files[u"C:\\Program\\TellwickAddIn.dbg.xml"].contents;
    CHECK(trace.find("440:broken\r\n") != std::string::npos);
    CHECK(trace.find("Exception\r\n") != std::string::npos);
}
