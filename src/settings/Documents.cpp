#include "settings/Documents.h"

#include "settings/Debug.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

// A command may name the file's place as %1, %l or %L, in quotes or not, or not at all.
Text WithFilePlace(Text command) {
    const auto unit = [&](std::size_t at) { return at < command.size() ? command[at] : u' '; };
    for (std::size_t at = command.find(u'%'); at != Text::npos; at = command.find(u'%', at + 1)) {
        const char16_t letter = unit(at + 1);
        const char16_t next = unit(at + 2);
        // "%LocalAppData%" is none.
        const bool ends = next == u' ' || next == u'"';
        if (letter != u'1' && !(ends && (letter == u'l' || letter == u'L'))) continue;
        const bool quoted = next == u'"' && at > 0 && command[at - 1] == u'"';
        return quoted ? command.replace(at - 1, 4, Documents::FilePlace)
                      : command.replace(at, 2, Documents::FilePlace);
    }
    return command.append(u" ").append(Documents::FilePlace);
}

}  // namespace

Documents::Documents(Debug& debug, RegEdit& regEdit, Programs& programs)
    : debug(debug), regEdit(regEdit), programs(programs) {}

bool Documents::ExecApp(TextView document, [[maybe_unused]] std::int32_t flag) {
    Procedure procedure{debug, u"ExecApp"};
    // A quote would end the argument it stands in.
    if (document.empty() || Contains(document, u"\"")) return false;
    if (programs.OpenAssociated(document)) return true;
    const Text quoted = Text(u"\"").append(document).append(u"\"");
    const bool mail = StartsWithFolded(document, u"mailto:");
    const bool page = Contains(document, u"://") || EndsWithFolded(document, u".htm") ||
                      EndsWithFolded(document, u".html");
    if (page && !mail) {
        const Text browser = GetApplForExt(u"htm");
        if (!browser.empty() &&
            programs.Start({}, ReplaceAll(browser, FilePlace, quoted), WindowStyle::Normal)) {
            return true;
        }
    }
    return programs.Start(programs.WindowsFolder().append(u"System32\\cmd.exe"),
                          u"cmd /c start \"\" " + quoted, WindowStyle::MinimisedWithFocus);
}

Text Documents::GetApplForExt(TextView extension) {
    Procedure procedure{debug, u"GetApplForExt"};
    const Text dotted = Text(u".").append(extension);
    const Text choices =
        u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\" + dotted;
    const Text userChoice = choices + u"\\UserChoice";
    for (const Text& progId : {regEdit.ReadValue(Hive::CurrentUser, userChoice, u"ProgId"),
                               regEdit.ReadValue(Hive::CurrentUser, choices, u"ProgID"),
                               regEdit.ReadValue(Hive::ClassesRoot, dotted, u"")}) {
        const Text command = progId.empty() ? Text() : OpenCommand(progId);
        if (!command.empty()) return command;
    }
    return {};
}

Text Documents::OpenCommand(TextView progId) {
    const Text command = regEdit.ReadExpandedValue(
        Hive::ClassesRoot, Text(progId).append(u"\\shell\\open\\command"), u"");
    return command.empty() ? command : WithFilePlace(command);
}

}  // namespace tellwick
