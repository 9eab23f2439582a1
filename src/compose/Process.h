// The processes that run on this machine, and whether one of them is a given program.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Programs.h"
#include "platform/Text.h"

namespace tellwick {

class Debug;

struct ProcessRecord {
    Text executable;  // file name without its folder
};

class Process {
public:
    Process(Debug& debug, Programs& programs);

    // Rebuilds the list, by a snapshot on the consumer line of Windows or when forced, else by
    // the process-status functions, and by the snapshot as well where these do not tell every path.
    // False, with an empty list, on a system that has neither.
    bool GetProcList(std::vector<ProcessRecord>& list, bool forceSnapshot);

    // True when a process runs whose executable has this file name, letter case ignored. Uses the
    // list of the last call unless it is to be refreshed or was never built.
    bool CheckIfRunning(TextView name, bool refresh, bool forceSnapshot);

private:
    Debug& debug;
    Programs& programs;
    std::vector<ProcessRecord> processList;
    bool listBuilt = false;
    std::int32_t platformId = 0;  // 0: not asked yet
};

}  // namespace tellwick
