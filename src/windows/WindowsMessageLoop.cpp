#include "windows/WindowsMessageLoop.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "windows/MonitorAwareness.h"

namespace tellwick::windows {

void WindowsMessageLoop::RunPending() {
    // Outlook's timers are among them.
    const OutlooksContext context;
    std::vector<std::pair<HWND, WPARAM>> ticked;
    bool again = false;
    MSG message;
    while (!again && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // Meant for the host's own loop.
            PostQuitMessage(int(message.wParam));
            return;
        }
        // Timers come when nothing else is left. One whose tick takes longer than its interval is
        // always due.
        if (message.message == WM_TIMER) {
            const std::pair timer(message.hwnd, message.wParam);
            again = std::find(ticked.begin(), ticked.end(), timer) != ticked.end();
            ticked.push_back(timer);
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool WindowsMessageLoop::Waiting() {
    return HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE | QS_SENDMESSAGE | QS_HOTKEY)) != 0;
}

bool WindowsMessageLoop::Post(std::uint64_t window, std::uint32_t message, std::uint64_t first,
                              std::uint64_t second) {
    return PostMessageA(reinterpret_cast<HWND>(ULONG_PTR(window)), message, WPARAM(first),
                        LPARAM(second)) != 0;
}

}  // namespace tellwick::windows
