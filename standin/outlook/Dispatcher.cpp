#include "outlook/Dispatcher.h"

namespace tellwick::standin {

namespace {

constexpr UINT RunMessage = WM_APP;

}  // namespace

Dispatcher::Dispatcher() {
    InitializeCriticalSection(&section);
    WNDCLASSW type{};
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = L"OutlookStandInDispatcher";
    RegisterClassW(&type);
    window = CreateWindowExW(0, type.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                             type.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Dispatcher::~Dispatcher() {
    DestroyWindow(window);
    DeleteCriticalSection(&section);
}

void Dispatcher::Post(std::function<void()> work) {
    EnterCriticalSection(&section);
    queue.push_back(std::move(work));
    LeaveCriticalSection(&section);
    PostMessageW(window, RunMessage, 0, 0);
}

void Dispatcher::Release() {
    if (--holds > 0) return;
    EnterCriticalSection(&section);
    const std::size_t waiting = queue.size();
    LeaveCriticalSection(&section);
    for (std::size_t index = 0; index < waiting; ++index) PostMessageW(window, RunMessage, 0, 0);
}

void Dispatcher::RunNext() {
    if (holds > 0) return;
    EnterCriticalSection(&section);
    std::function<void()> work;
    if (!queue.empty()) {
        work = std::move(queue.front());
        queue.pop_front();
    }
    LeaveCriticalSection(&section);
    if (work) work();
}

LRESULT CALLBACK Dispatcher::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* self = reinterpret_cast<Dispatcher*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != RunMessage || !self) return DefWindowProcW(window, message, first, second);
    try {
        self->RunNext();
    } catch (...) {
        // The next piece of work is independent of this one.
    }
    return 0;
}

}  // namespace tellwick::standin
