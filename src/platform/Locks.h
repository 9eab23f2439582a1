// Port: locks that all programs of one user share by their names.
#pragma once

#include <memory>

#include "platform/Text.h"

namespace tellwick {

// Held as long as it exists.
class Lock {
public:
    virtual ~Lock() = default;
};

class Locks {
public:
    virtual ~Locks() = default;

    // Waits until nobody else holds the lock, a second at most; who holds it may take it again.
    // Null when it cannot be had: the caller then goes on without.
    virtual std::unique_ptr<Lock> Take(TextView name) = 0;
};

}  // namespace tellwick
