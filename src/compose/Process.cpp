#include "compose/Process.h"

#include <algorithm>
#include <cstddef>

#include "settings/Debug.h"

namespace tellwick {

namespace {

constexpr std::int32_t ConsumerLine = 1;
constexpr std::int32_t NtLine = 2;
constexpr std::size_t FirstIdentifiers = 128;  // entries of the first identifier buffer

Text WithoutFolder(TextView path) {
    return Text(path.substr(path.rfind(u'\\') + 1));
}

// Some systems put the names of processes they cannot look into in brackets.
TextView WithoutBrackets(TextView name) {
    return name.size() >= 2 && name.front() == u'[' && name.back() == u']'
               ? name.substr(1, name.size() - 2)
               : name;
}

}  // namespace

Process::Process(Debug& debug, Programs& programs) : debug(debug), programs(programs) {}

bool Process::GetProcList(std::vector<ProcessRecord>& list, bool forceSnapshot) {
    Procedure procedure{debug, u"GetProcList"};
    list.clear();
    if (platformId == 0) platformId = programs.PlatformId();
    bool byNames = platformId == ConsumerLine || forceSnapshot;
    if (!byNames && platformId != NtLine) return false;
    if (!byNames) {
        for (const std::uint32_t identifier : programs.ProcessIdentifiers(FirstIdentifiers)) {
            const Text path = programs.FirstModulePath(identifier);
            // One of another bitness, or with more rights, does not tell it.
            if (path.empty()) byNames = true;
            list.push_back({WithoutFolder(path)});
        }
    }
    if (byNames) {
        for (const Text& name : programs.SnapshotNames()) {
            list.push_back({WithoutFolder(WithoutBrackets(CutAtNul(name)))});
        }
    }
    return true;
}

bool Process::CheckIfRunning(TextView name, bool refresh, bool forceSnapshot) {
    Procedure procedure{debug, u"CheckIfRunning"};
    if (refresh || !listBuilt) {
        GetProcList(processList, forceSnapshot);
        listBuilt = true;
    }
    return std::any_of(processList.begin(), processList.end(), [&](const ProcessRecord& record) {
        return EqualFolded(record.executable, name);
    });
}

}  // namespace tellwick
