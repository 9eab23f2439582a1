// Locks among the programs of one user.
#pragma once

#include "platform/Locks.h"

namespace tellwick::windows {

class WindowsLocks : public Locks {
public:
    std::unique_ptr<Lock> Take(TextView name) override;
};

}  // namespace tellwick::windows
