#include "outlook/Stopwatch.h"

namespace tellwick::standin {

Stopwatch::Stopwatch() {
    QueryPerformanceFrequency(&frequency);
    changed = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    over = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Omberline\\Tellwick\\SMSQueue", 0, nullptr, 0,
                    KEY_NOTIFY, nullptr, &queue, nullptr);
    RegNotifyChangeKeyValue(queue, FALSE, REG_NOTIFY_CHANGE_LAST_SET, changed, TRUE);
    watcher = CreateThread(nullptr, 0, &Watch, this, 0, nullptr);
    start = Now();
}

Stopwatch::~Stopwatch() {
    Queued();
    RegCloseKey(queue);
    CloseHandle(changed);
    CloseHandle(over);
}

DWORD WINAPI Stopwatch::Watch(void* self) {
    auto& watch = *static_cast<Stopwatch*>(self);
    const HANDLE events[] = {watch.changed, watch.over};
    if (WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0) {
        watch.queued = watch.Now();
    }
    return 0;
}

LONGLONG Stopwatch::Now() const {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

double Stopwatch::Elapsed() const {
    return double(Now() - start) * 1000.0 / double(frequency.QuadPart);
}

std::optional<double> Stopwatch::Queued() {
    if (watcher) {
        SetEvent(over);
        WaitForSingleObject(watcher, INFINITE);
        CloseHandle(watcher);
        watcher = nullptr;
    }
    if (queued == 0) return {};
    return double(queued - start) * 1000.0 / double(frequency.QuadPart);
}

}  // namespace tellwick::standin
