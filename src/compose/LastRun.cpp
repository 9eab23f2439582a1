#include "compose/LastRun.h"

#include <string>

#include "compose/PersonalTexts.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/LocalDate.h"
#include "platform/Utf8.h"
#include "settings/Documents.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView FileName = u"lastrun.txt";
constexpr char16_t ByteOrderMark = 0xFEFF;

Text TwoDigits(std::int64_t number) {
    return (number < 10 ? u"0" : u"") + NumberText(number);
}

// "2026-11-22 14:05"
Text DateText(double date) {
    const LocalDate local(date);
    return NumberText(local.Year()) + u"-" + TwoDigits(local.Month()) + u"-" +
           TwoDigits(local.Day()) + u" " + TwoDigits(local.Hour()) + u":" +
           TwoDigits(local.Minute());
}

}  // namespace

LastRun::LastRun(const Services& services, FileSystem& fileSystem, Clock& clock,
                 Documents& documents)
    : Services(services), fileSystem(fileSystem), clock(clock), documents(documents) {}

// Empty where settings have no folder.
Text LastRun::Path() {
    const Text folder = inifilesLite.SettingsFolder();
    return folder.empty() ? folder : folder + Text(FileName);
}

void LastRun::Keep(const std::vector<PersonalText>& sent, bool mayRemember) {
    const Text path = Path();
    if (path.empty()) return;
    if (!mayRemember) {
        if (fileSystem.Exists(path)) fileSystem.Delete(path);
        return;
    }
    Text head = language.TextOrBuiltIn(u"TextFields", u"LastRunHead");
    head = ReplaceAll(head, u"%n", NumberText(std::int64_t(sent.size())));
    Text contents(1, ByteOrderMark);
    contents.append(ReplaceAll(head, u"%d", DateText(clock.Now()))).append(LineBreak);
    for (const PersonalText& each : sent) contents.append(LineBreak).append(each.Named());
    contents.append(LineBreak);
    fileSystem.Write(path, ToUtf8(contents), WriteMode::Replace);
}

bool LastRun::Known() {
    const Text path = Path();
    return !path.empty() && fileSystem.Exists(path);
}

void LastRun::Show() {
    documents.ExecApp(Path(), 0);
}

}  // namespace tellwick
