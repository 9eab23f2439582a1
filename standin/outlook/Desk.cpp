#include "outlook/Desk.h"

#include <algorithm>
#include <chrono>
#include <iterator>

#include "outlook/ExplorerWindow.h"
#include "outlook/InspectorWindow.h"
#include "outlook/MenuCommands.h"

namespace tellwick::standin {

Desk::Desk(OutlookModel& outlook, Dispatcher& dispatcher, TextView language)
    : outlook(outlook), dispatcher(dispatcher), look(language) {
    ACCEL keys[] = {{FCONTROL | FVIRTKEY, 'N', menu::NewMail},
                    {FCONTROL | FVIRTKEY, 'O', menu::OpenItem},
                    {FCONTROL | FVIRTKEY, 'D', menu::Delete},
                    {FCONTROL | FVIRTKEY, 'R', menu::Reply}};
    accelerators = CreateAcceleratorTableW(keys, int(std::size(keys)));
    outlook.changed = [this] {
        if (synchronisePosted) return;
        synchronisePosted = true;
        this->dispatcher.Post([this] {
            synchronisePosted = false;
            Synchronise();
        });
    };
}

Desk::~Desk() {
    outlook.changed = nullptr;
    DestroyAcceleratorTable(accelerators);
}

Frame* Desk::FrameOf(const std::shared_ptr<Window>& window) const {
    const auto found = std::find_if(frames.begin(), frames.end(),
                                    [&](const auto& frame) { return frame->Model() == window; });
    return found == frames.end() ? nullptr : found->get();
}

void Desk::Show(const std::shared_ptr<Window>& window) {
    if (!window->displayed || window->closed || FrameOf(window)) return;
    if (const auto explorer = std::dynamic_pointer_cast<Explorer>(window)) {
        frames.push_back(std::make_unique<ExplorerWindow>(look, explorer));
    } else if (const auto inspector = std::dynamic_pointer_cast<Inspector>(window)) {
        frames.push_back(std::make_unique<InspectorWindow>(look, inspector));
    }
    hadWindows = true;
}

void Desk::Synchronise() {
    const auto explorers = outlook.explorers->all;
    const auto inspectors = outlook.inspectors->all;
    for (const auto& explorer : explorers) Show(explorer);
    for (const auto& inspector : inspectors) Show(inspector);

    // Out of the list first: destroying a window sends messages that may come back here.
    std::vector<std::unique_ptr<Frame>> gone;
    for (auto& frame : frames) {
        if (frame->Model()->closed) gone.push_back(std::move(frame));
    }
    std::erase_if(frames, [](const auto& frame) { return !frame; });
    gone.clear();
    for (const auto& frame : frames) frame->Refresh();

    const std::shared_ptr<Window> now = outlook.FrontWindow();
    if (now != front.lock()) {
        front = now;
        Frame* frame = FrameOf(now);
        // A window can be activated while it is hidden, when a box of an add-in closes.
        const bool byUser = frame && frame->TakeUserActivation();
        if (frame && !(byUser && IsWindowVisible(frame->Handle()))) frame->Raise();
    }
    if (hadWindows && explorers.empty() && inspectors.empty()) {
        hadWindows = false;
        outlook.quitRequested();
    }
}

bool Desk::Translate(MSG& message) const {
    for (const auto& frame : frames) {
        const HWND window = frame->Handle();
        if (message.hwnd != window && !IsChild(window, message.hwnd)) continue;
        return TranslateAcceleratorW(window, accelerators, &message) ||
               IsDialogMessageW(window, &message);
    }
    return false;
}

void Desk::Dispatch(const MSG& message, bool ansi) const {
    const auto start = std::chrono::steady_clock::now();
    (ansi ? DispatchMessageA : DispatchMessageW)(&message);
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    if (message.message == WM_TIMER) longestTick = std::max(longestTick, taken.count());
}

void Desk::RunMessages(DWORD milliseconds) const {
    const DWORD start = GetTickCount();
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                PostQuitMessage(int(message.wParam));
                return;
            }
            if (Translate(message)) continue;
            TranslateMessage(&message);
            Dispatch(message);
        }
        const DWORD passed = GetTickCount() - start;
        if (passed >= milliseconds) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
    }
}

}  // namespace tellwick::standin
