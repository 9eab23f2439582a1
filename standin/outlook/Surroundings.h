// What is around Outlook on some machines and not on others.
#pragma once

#include <windows.h>

namespace tellwick::standin {

// A viewer of the clipboard: it opens the clipboard after every change and looks at it for a while.
class ClipboardViewer {
public:
    ClipboardViewer();
    ClipboardViewer(const ClipboardViewer&) = delete;
    ClipboardViewer& operator=(const ClipboardViewer&) = delete;
    ~ClipboardViewer();

private:
    HANDLE thread;
    DWORD identifier = 0;
};

// The temporary folder is from now on that of a user whose name the code page lacks.
void BecomeForeignUser();

// Programs of that name that run now: nobody may look into them from now on.
void LockProcesses(const wchar_t* executable);

}  // namespace tellwick::standin
