// The system's message box and the program's own small dialogs.
#pragma once

#include "windows/Com.h"

#include "platform/Dialogs.h"

namespace tellwick::windows {

class WindowsDialogs : public Dialogs {
public:
    Answer MessageBox(TextView text, std::uint32_t flags, TextView title) override;
    Answer CheckedMessageBox(TextView text, const std::vector<Choice>& choices, std::uint32_t icon,
                             TextView title, TextView checkBoxText, bool& checked) override;
    Text InputBox(TextView prompt, TextView title) override;
};

// Nobody is there: every box is answered as if it had been closed.
class NoDialogs : public Dialogs {
public:
    Answer MessageBox(TextView, std::uint32_t flags, TextView) override {
        return (flags & box::ButtonMask) == box::YesNo ? Answer::No : Answer::Ok;
    }
    Answer CheckedMessageBox(TextView, const std::vector<Choice>& choices, std::uint32_t, TextView,
                             TextView, bool&) override {
        return choices.back().answer;
    }
    Text InputBox(TextView, TextView) override { return {}; }
};

}  // namespace tellwick::windows
