#include "compose/Tellwick.h"

#include "compose/Process.h"
#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/QuestionBox.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr TextView Executable = u"Tellwick.exe";
constexpr std::int32_t AskSwitchOn = 126;
constexpr std::int32_t AskStart = 127;
// The low bits tell the two questions apart; both offer Yes and No.
constexpr std::uint32_t SwitchOnStyle = QuestionBox::RememberedAnswer | 1;
constexpr std::uint32_t StartStyle = QuestionBox::RememberedAnswer | 2;
constexpr int Retries = 50;
constexpr std::uint32_t RetryPause = 50;  // milliseconds

}  // namespace

Tellwick::Tellwick(Debug& debug, RegEdit& regEdit, Process& process, QuestionBox& questionBox,
                   Programs& programs, MessageLoop& messageLoop)
    : debug(debug),
      regEdit(regEdit),
      process(process),
      questionBox(questionBox),
      programs(programs),
      messageLoop(messageLoop) {}

void Tellwick::StartSenderApplication(bool quiet) {
    Procedure procedure{debug, u"StartSenderApplication"};
    const auto switchOn = [this] { regEdit.WriteValue(Hive::CurrentUser, RootKey, u"On", u"1"); };
    if (process.CheckIfRunning(Executable, true, false)) {
        const Text on = regEdit.ReadValue(Hive::CurrentUser, RootKey, u"On");
        if (LeadingNumber(on) == 0 &&
            questionBox.MsgBoxMessage(AskSwitchOn, SwitchOnStyle) == Answer::Yes) {
            switchOn();
        }
    } else if (quiet || questionBox.MsgBoxMessage(AskStart, StartStyle) == Answer::Yes) {
        switchOn();
        const Text application = programs.LibraryFolder().append(Executable);
        programs.Start(application, application + u" nocheck", WindowStyle::MinimisedWithFocus);
        return;
    }
    // Also after a No: a window that shows up meanwhile is told.
    NotifyWindow();
}

void Tellwick::NotifyWindow() {
    for (int retry = 0;; ++retry) {
        const std::int64_t window =
            LeadingNumber(regEdit.ReadValue(Hive::CurrentUser, RootKey, u"hWnd"));
        if (window != 0) {
            messageLoop.Post(std::uint64_t(window), WindowMessageKeyUp, 0, 0);
            return;
        }
        if (retry == Retries) return;
        messageLoop.Sleep(RetryPause);
        messageLoop.DoEvents();
    }
}

}  // namespace tellwick
