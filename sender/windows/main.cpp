// Tellwick: sends the SMS that the add-in for Outlook puts into the queue.
//
//   Tellwick [nocheck | end]
//
//   nocheck   as the add-in starts it: minimised
//   end       ends the one that runs, for the set-up program; 0 where there was one, 1 where there
//             was none, 2 where it goes on
//
// One runs for each user; another start shows its window, or with "nocheck" has it look at the
// queue, and ends.
#include "windows/Com.h"

#include <objbase.h>

#include <optional>

#include "spool/SenderTexts.h"
#include "windows/Sender.h"
#include "windows/SenderWindow.h"
#include "windows/Server.h"

using namespace tellwick;
using namespace tellwick::sender;

namespace {

constexpr wchar_t OnlyOne[] = L"TellwickSender.Running";
constexpr DWORD BetweenCalls = 100;       // milliseconds
constexpr DWORD LongestCalling = 15'000;  // longer than a sender takes to end

Sender* running = nullptr;

// Whether this is the one that runs; else the other one has been told.
bool IsFirst(HANDLE mutex, bool minimised) {
    for (const DWORD start = GetTickCount(); GetTickCount() - start < LongestCalling;) {
        const DWORD waited = WaitForSingleObject(mutex, BetweenCalls);
        if (waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED) return true;
        if (SenderWindow::Call(!minimised)) return false;
    }
    return false;
}

int End(HANDLE mutex) {
    int result = 1;
    for (const DWORD start = GetTickCount(); GetTickCount() - start < LongestCalling; result = 0) {
        const DWORD waited = WaitForSingleObject(mutex, result == 0 ? BetweenCalls : 0);
        if (waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED) return result;
        const HWND there = FindWindowW(SenderWindow::ClassName, nullptr);
        if (there) PostMessageW(there, WM_CLOSE, 0, 0);
    }
    return 2;
}

int Run(bool minimised) {
    const MainThreadWindow mainThread;
    Sender sender(mainThread);
    running = &sender;
    int result = 1;
    std::optional<SenderWindow> window;
    if (sender.Start()) {
        window.emplace(sender);
    } else {
        MessageBoxW(nullptr, windows::Wide(SenderText(sender.Texts(), u"NoFolder")), L"Tellwick",
                    MB_OK | MB_ICONERROR);
    }
    if (window && window->Open(minimised)) {
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (window->TakesKey(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        result = 0;
    }
    running = nullptr;
    return result;
}

}  // namespace

HMODULE windows::Library() {
    return GetModuleHandleW(nullptr);
}

windows::IconHandle windows::LoadLibraryIcon(int resource, int size) {
    return IconHandle(static_cast<HICON>(
        LoadImageW(Library(), MAKEINTRESOURCEW(resource), IMAGE_ICON, size, size, 0)));
}

void windows::ReportException() noexcept {
    if (running) running->ReportException();
}

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* words, int) {
    const Text wish = LowerCase(windows::FromWide(words));
    const bool minimised = Contains(wish, u"nocheck");
    const windows::Handle mutex(CreateMutexW(nullptr, FALSE, OnlyOne));
    if (Trimmed(wish) == u"end") return End(mutex.get());
    if (!IsFirst(mutex.get(), minimised)) return 0;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int result = 1;
    try {
        result = Run(minimised);
    } catch (...) {
        running = nullptr;
    }
    CoUninitialize();
    return result;
}
