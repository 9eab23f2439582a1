#include "windows/OutlookThread.h"

#include <objbase.h>

#include "delivery/OutlookInbox.h"
#include "windows/AutomationObject.h"

namespace tellwick::sender {

void OutlookThread::Store(const ReceivedSms& sms, bool triedBefore,
                          std::function<void(Stored)> answer) {
    const auto work = [sms, triedBefore, answer, mainThread = mainThread] {
        Stored stored = Stored::Failed;
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        try {
            PendingError errors;
            windows::WindowsAutomation automation(errors);
            stored = OutlookInbox(errors, automation).Put(sms, triedBefore);
        } catch (...) {
            // Want of memory: this SMS is tried again later.
            stored = Stored::Failed;
        }
        CoUninitialize();
        mainThread.Post([answer, stored] { answer(stored); });
    };
    if (!StartThread(work)) mainThread.Post([answer] { answer(Stored::Away); });
}

}  // namespace tellwick::sender
