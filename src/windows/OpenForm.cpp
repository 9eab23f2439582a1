#include "windows/OpenForm.h"

#include <algorithm>
#include <vector>

#include "windows/Server.h"

namespace tellwick::windows {

namespace {

// All of them, and the hook that serves them. Outlook's thread only.
std::vector<OpenForm*> openForms;
HHOOK hook = nullptr;

}  // namespace

OpenForm::OpenForm(HWND window, std::function<bool(MSG&)> input)
    : window(window), input(std::move(input)) {
    openForms.push_back(this);
    if (!hook) hook = SetWindowsHookExW(WH_GETMESSAGE, &MessageHook, nullptr, GetCurrentThreadId());
}

OpenForm::~OpenForm() {
    std::erase(openForms, this);
    if (openForms.empty() && hook) UnhookWindowsHookEx(std::exchange(hook, nullptr));
}

LRESULT CALLBACK OpenForm::MessageHook(int code, WPARAM removal, LPARAM parameter) {
    const Lifetime running;
    try {
        const MonitorAware aware(MonitorAware::Loop);
        auto& message = *reinterpret_cast<MSG*>(parameter);
        if (code >= 0 && removal == PM_REMOVE) {
            for (const OpenForm* form : openForms) {
                if (message.hwnd != form->window && !IsChild(form->window, message.hwnd)) continue;
                const std::function<bool(MSG&)> input = form->input;
                // The host's loop does not know this window and must not see its keys.
                if (input(message)) message.message = WM_NULL;
                break;
            }
        }
    } catch (...) {
        ReportException();
    }
    return CallNextHookEx(hook, code, removal, parameter);
}

}  // namespace tellwick::windows
