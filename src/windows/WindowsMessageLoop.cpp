#include "windows/WindowsMessageLoop.h"

#include "windows/MonitorAwareness.h"

namespace tellwick::windows {

void WindowsMessageLoop::DoEvents() {
    // Outlook's timers are among them.
    const OutlooksContext context;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // Meant for the host's own loop.
            PostQuitMessage(int(message.wParam));
            return;
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
