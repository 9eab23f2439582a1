#include "compose/Draft.h"

#include <utility>
#include <vector>

#include "settings/Debug.h"
#include "settings/InifilesLite.h"

namespace tellwick {

namespace {

constexpr TextView FileName = u"draft.txt";
constexpr TextView NewEnding = u".new";
constexpr std::string_view Title = "Tellwick draft 1";
constexpr std::string_view EndOfLine = "\r\n";
constexpr std::uint32_t Quiet = 2000;  // milliseconds behind the last change

}  // namespace

Draft::Draft(const Services& services, FileSystem& fileSystem, Locale& locale, Timers& timers,
             std::function<Contents()> shown)
    : Services(services),
      fileSystem(fileSystem),
      escaped(locale),
      timers(timers),
      shown(std::move(shown)) {}

// Empty where settings have no folder.
Text Draft::Path() {
    const Text folder = inifilesLite.SettingsFolder();
    return folder.empty() ? folder : folder + Text(FileName);
}

std::optional<Draft::Contents> Draft::Find() {
    const Text path = Path();
    if (path.empty() || !fileSystem.Exists(path)) return {};
    const std::string bytes = fileSystem.Read(path).value_or("");
    std::vector<std::string_view> lines;
    for (std::size_t start = 0, end; (end = bytes.find(EndOfLine, start)) != std::string::npos;
         start = end + EndOfLine.size()) {
        lines.push_back(std::string_view(bytes).substr(start, end - start));
    }
    if (lines.size() != 3 || lines[0] != Title) return {};
    return Contents{escaped.Read(lines[1]), escaped.Read(lines[2])};
}

void Draft::Begin() {
    kept = shown();
}

void Draft::Changed() {
    if (!kept) return;
    if (!timer) timer = timers.Create();
    timer->Start(Quiet, [this] {
        Procedure procedure{debug, u"TimerDraft_Timer"};
        Keep();
    });
}

void Draft::Keep() {
    timer.reset();
    if (!kept) return;
    Contents now = shown();
    const Text path = Path();
    if (now == *kept || path.empty()) return;
    std::string bytes;
    bytes.append(Title).append(EndOfLine);
    escaped.Append(bytes, now.recipients);
    bytes.append(EndOfLine);
    escaped.Append(bytes, now.text);
    bytes.append(EndOfLine);
    // The one before stays until the new one is whole.
    const Text written = path + Text(NewEnding);
    if (fileSystem.Write(written, bytes, WriteMode::Replace) && fileSystem.Rename(written, path))
        kept = std::move(now);
}

void Draft::End() {
    timer.reset();
    kept.reset();
    const Text path = Path();
    if (!path.empty() && fileSystem.Exists(path)) fileSystem.Delete(path);
}

}  // namespace tellwick
