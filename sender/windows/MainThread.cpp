#include "windows/MainThread.h"

#include "windows/Server.h"

namespace tellwick::sender {

namespace {

constexpr wchar_t ClassName[] = L"TellwickSenderThread";
constexpr UINT RunAction = WM_APP;
using Action = std::function<void()>;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message != RunAction) return DefWindowProcW(window, message, first, second);
    const std::unique_ptr<Action> action(reinterpret_cast<Action*>(second));
    try {
        (*action)();
    } catch (...) {
        windows::ReportException();
    }
    return 0;
}

DWORD WINAPI Run(void* parameter) {
    const std::unique_ptr<Action> work(static_cast<Action*>(parameter));
    try {
        (*work)();
    } catch (...) {
        // Want of memory: whoever waits for this thread sees that it has ended.
        return 1;
    }
    return 0;
}

}  // namespace

void MainThread::Post(Action action) const {
    // Whoever receives it owns it.
    auto* const posted = new Action(std::move(action));
    if (!PostMessageW(window, RunAction, 0, reinterpret_cast<LPARAM>(posted))) delete posted;
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): it follows no pointer into a number
}

MainThreadWindow::MainThreadWindow() {
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = ClassName;
    RegisterClassW(&type);
    window = CreateWindowExW(0, ClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                             type.hInstance, nullptr);
}

MainThreadWindow::~MainThreadWindow() {
    DestroyWindow(window);
}

windows::Handle StartThread(Action work) {
    auto* const given = new Action(std::move(work));
    windows::Handle thread(CreateThread(nullptr, 0, Run, given, 0, nullptr));
    if (!thread) delete given;
    return thread;
}

}  // namespace tellwick::sender
