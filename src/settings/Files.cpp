#include "settings/Files.h"

#include <vector>

#include "settings/Debug.h"
#include "settings/MessageBoxes.h"

namespace tellwick {

Files::Files(PendingError& errors, Debug& debug, MessageBoxes& messageBoxes, FileSystem& fileSystem,
             Locale& locale)
    : errors(errors),
      debug(debug),
      messageBoxes(messageBoxes),
      fileSystem(fileSystem),
      locale(locale) {}

bool Files::WriteFileConents(Text& path, TextView contents, bool append,
                             [[maybe_unused]] std::int32_t mode, bool showError) {
    Procedure procedure{debug, u"WriteFileConents"};
    if (path.empty()) return false;
    path = ReplaceAll(ReplaceAll(path, u"?", u"_"), u"/", u"_");
    const std::string bytes = locale.ToAnsi(contents);
    const WriteMode writeMode = append ? WriteMode::Append : WriteMode::Replace;
    if (fileSystem.Write(path, bytes, writeMode)) return true;
    const std::size_t backslash = path.rfind(u'\\');
    if (backslash != Text::npos) MkDir_(TextView(path).substr(0, backslash));
    errors.Clear();
    if (fileSystem.Write(path, bytes, writeMode)) return true;
    // Deliberate: "Drive M: fails in silence".
    if (showError && !StartsWithFolded(path, u"m:")) ReportFailure(path);
    return false;
}

void Files::ReportFailure(TextView path) {
    messageBoxes.MsgBoxEx(
        Text(u"Error writing file: ").append(path).append(u", ").append(errors.description),
        box::IconExclamation);
}

void Files::MkDir_(TextView folder) {
    Procedure procedure{debug, u"MkDir_"};
    std::vector<Text> missing;
    for (Text level(folder); !level.empty() && !fileSystem.FolderExists(level);
         level = fileSystem.ParentFolderName(level)) {
        missing.push_back(level);
    }
    for (; !missing.empty(); missing.pop_back()) {
        if (!fileSystem.CreateFolder(missing.back())) return;
    }
}

Text Files::NormalisePath(TextView path) {
    // The two leading backslashes of a network path stay, and its server and share are no levels
    // that ".." could leave.
    const bool network = path.starts_with(u"\\\\");
    const bool rooted = path.starts_with(u'\\');
    std::vector<Text> levels;
    std::size_t fixed = 0;
    for (Text& level : Split(path, u"\\")) {
        if (level.empty() || level == u".") continue;
        if (level == u".." && (rooted || !levels.empty())) {
            if (levels.size() > fixed) levels.pop_back();
            continue;
        }
        levels.push_back(std::move(level));
        if (network ? levels.size() <= 2 : levels.back().ends_with(u':')) fixed = levels.size();
    }
    Text normal(network ? u"\\\\" : rooted ? u"\\" : u"");
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (i > 0) normal += u'\\';
        normal += levels[i];
    }
    if (path.ends_with(u'\\') && !levels.empty()) normal += u'\\';
    return normal;
}

}  // namespace tellwick
