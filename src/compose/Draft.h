// What stands in the form, kept in a file of its own for as long as the form is open: an Outlook
// that ends without closing it leaves it to the next form.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/Timer.h"
#include "recipients/EscapedText.h"
#include "settings/Services.h"

namespace tellwick {

class Draft : private Services {
public:
    struct Contents {
        Text recipients;
        Text text;
        bool operator==(const Contents& other) const = default;
    };

    // `shown` says what stands in the form.
    Draft(const Services& services, FileSystem& fileSystem, Locale& locale, Timers& timers,
          std::function<Contents()> shown);

    // What was left behind; empty when nothing was, or it cannot be read.
    std::optional<Contents> Find();

    // The form is open with what it was opened with, which need not be kept.
    void Begin();
    // The user or the program has changed it: kept two seconds after the last change.
    void Changed();
    // Keeps it now, unless it is kept already. What cannot be written is tried again with the next
    // change.
    void Keep();
    // It is queued or saved: the file goes, and nothing more is kept until the next Begin.
    void End();

private:
    Text Path();

    FileSystem& fileSystem;
    EscapedText escaped;
    Timers& timers;
    std::function<Contents()> shown;
    std::unique_ptr<Timer> timer;  // while a change waits
    std::optional<Contents> kept;  // while the form is open
};

}  // namespace tellwick
