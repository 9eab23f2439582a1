#include "windows/WindowsTimers.h"

#include <algorithm>
#include <vector>

#include "windows/Com.h"
#include "windows/Lifetime.h"
#include "windows/Server.h"

namespace tellwick::windows {

namespace {

class WindowsTimer;
// The timer behind a running system timer; one thread only.
std::vector<std::pair<UINT_PTR, WindowsTimer*>> runningTimers;

class WindowsTimer : public Timer {
public:
    ~WindowsTimer() override { WindowsTimer::Stop(); }

    void Start(std::uint32_t milliseconds, std::function<void()> newTick) override {
        Stop();
        tick = std::move(newTick);
        identifier = SetTimer(nullptr, 0, milliseconds, &OnTimer);
        if (identifier) runningTimers.emplace_back(identifier, this);
    }

    void Stop() override {
        if (!identifier) return;
        KillTimer(nullptr, identifier);
        std::erase(runningTimers, std::pair(identifier, this));
        identifier = 0;
    }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR identifier, DWORD) {
        // Also when what the tick does ends the add-in.
        const Lifetime ticking;
        const MonitorAware aware(MonitorAware::Loop);
        try {
            for (const auto& [running, timer] : runningTimers) {
                if (running != identifier) continue;
                const std::function<void()> current = timer->tick;
                current();
                return;
            }
        } catch (...) {
            ReportException();
        }
    }

    UINT_PTR identifier = 0;
    std::function<void()> tick;
    Lifetime lifetime;
};

}  // namespace

std::unique_ptr<Timer> WindowsTimers::Create() {
    return std::make_unique<WindowsTimer>();
}

}  // namespace tellwick::windows
