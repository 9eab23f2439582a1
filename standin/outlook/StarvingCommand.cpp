// The command that lets an add-in's memory run out.
#include <stdexcept>

#include "outlook/CommandText.h"
#include "outlook/Commands.h"

namespace tellwick::standin {

namespace {

// Answers every message box as it comes up.
class AnsweredBoxes {
public:
    AnsweredBoxes() : hook(SetWindowsHookExW(WH_CBT, Activated, nullptr, GetCurrentThreadId())) {}
    ~AnsweredBoxes() { UnhookWindowsHookEx(hook); }
    AnsweredBoxes(const AnsweredBoxes&) = delete;
    AnsweredBoxes& operator=(const AnsweredBoxes&) = delete;

private:
    static LRESULT CALLBACK Activated(int code, WPARAM window, LPARAM information) {
        wchar_t className[16] = L"";
        const auto box = reinterpret_cast<HWND>(window);
        if (code == HCBT_ACTIVATE && GetClassNameW(box, className, 16) &&
            FromWide(className) == u"#32770") {
            for (const int answer : {IDNO, IDOK}) {
                if (const HWND button = GetDlgItem(box, answer))
                    PostMessageW(button, BM_CLICK, 0, 0);
            }
        }
        return CallNextHookEx(nullptr, code, window, information);
    }

    const HHOOK hook;
};

}  // namespace

Text Commands::Starve(const Words& words) {
    using FailAllocations = long (*)(long, int);
    const auto fail = reinterpret_cast<FailAllocations>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"TellwickOutlookAddIn.dll"), "FailAllocations")));
    if (!fail) throw std::runtime_error("the library's allocations do not fail");
    const Held held(dispatcher);
    const AnsweredBoxes boxes;
    fail(LeadingNumber32(words[0]), EqualFolded(words[1], u"all"));
    try {
        Perform({words.begin() + 2, words.end()});
    } catch (const std::runtime_error&) {
        // A button, say, of a window that has not come up.
    }
    desk.RunMessages(0);
    return NumberText(fail(-1, 0));
}

}  // namespace tellwick::standin
