#include "windows/WindowsLocks.h"

#include "windows/Com.h"

namespace tellwick::windows {

namespace {

constexpr DWORD LongestWait = 1000;  // milliseconds that a lock is waited for

}  // namespace

std::unique_ptr<Lock> WindowsLocks::Take(TextView name) {
    struct Held : Lock {
        explicit Held(Handle mutex) : mutex(std::move(mutex)) {}
        ~Held() override { ReleaseMutex(mutex.get()); }
        Handle mutex;
    };
    Handle mutex(CreateMutexW(nullptr, FALSE, Wide(Text(u"Tellwick.").append(name))));
    if (!mutex) return nullptr;
    // One whose holder has died is held like any other.
    const DWORD waited = WaitForSingleObject(mutex.get(), LongestWait);
    if (waited != WAIT_OBJECT_0 && waited != WAIT_ABANDONED) return nullptr;
    return std::make_unique<Held>(std::move(mutex));
}

}  // namespace tellwick::windows
