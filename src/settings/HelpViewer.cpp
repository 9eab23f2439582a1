#include "settings/HelpViewer.h"

#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/Documents.h"
#include "settings/LanguageTexts.h"
#include "settings/QuestionBox.h"

namespace tellwick {

namespace {

constexpr std::int32_t OtherLanguage = 138;
constexpr std::uint32_t OtherLanguageStyle = QuestionBox::RememberedAnswer | box::IconError;
constexpr TextView Viewer = u"hh.exe";

}  // namespace

HelpViewer::HelpViewer(const Services& services, Documents& documents, FileSystem& fileSystem,
                       Programs& programs)
    : Services(services), documents(documents), fileSystem(fileSystem), programs(programs) {}

void HelpViewer::CallHelp(TextView topic, TextView page, [[maybe_unused]] std::int32_t flag) {
    Procedure procedure{debug, u"CallHelp"};
    language.LoadLanguageFile();
    const ManualPlaces& manual = language.Manual();
    if (manual.helpFile != manual.languageHelpFile) TellOfOtherLanguage();
    if (fileSystem.Exists(manual.helpFile)) {
        OpenCompiled(topic);
    } else {
        documents.ExecApp(Text(manual.folder).append(page), -1);
    }
}

void HelpViewer::TellOfOtherLanguage() {
    for (const TextView code : {u"fr", u"pt", u"es", u"it", u"nl"}) {
        if (Contains(language.Manual().languageHelpFile, u"cv" + Text(code) + u".chm")) {
            questionBox.MsgBoxMessage(OtherLanguage, OtherLanguageStyle, u"%m", ApplicationName);
        }
    }
}

void HelpViewer::OpenCompiled(TextView topic) {
    const Text& file = language.Manual().helpFile;
    const Text reference = u"\"" + file + u"::/" + Text(topic) + u"\"";
    if (programs.Start(programs.WindowsFolder().append(Viewer), Text(Viewer) + u" " + reference,
                       WindowStyle::Normal)) {
        return;
    }
    const Text command = documents.GetApplForExt(u"chm");
    if (!command.empty() && programs.Start({}, ReplaceAll(command, Documents::FilePlace, reference),
                                           WindowStyle::MinimisedWithFocus)) {
        return;
    }
    const Text blank(LineBreak);
    questionBox.MsgBoxEx(u"Unable to start the help!" + blank + blank + u"Please open the file" +
                             blank + file + blank +
                             u"manually or open the help via the start menu.",
                         box::IconExclamation);
}

}  // namespace tellwick
