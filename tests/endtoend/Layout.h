// Where controls stand in a window, and what they say, whichever program's it is.
#pragma once

#include <functional>
#include <string>

#include "endtoend/Desktop.h"

namespace tellwick::endtoend {

struct ControlOnForm {
    std::string className, caption;
    RECT place{};
    LONG needed = 0;  // the width of its caption
};

// As the stand-in describes it.
ControlOnForm Described(const std::string& description);

// Of so many controls at least every caption fits, none overlaps another, and each mnemonic is that
// of one only.
void CheckLayout(const std::vector<ControlOnForm>& controls, std::size_t least);

// The tabulator goes on to the right and down; a screen reader finds a label before every field;
// and no hidden control hears a mnemonic, as Windows has them do.
void CheckReading(HWND window);

// In every language, for programs that start in it, at every resolution in dots per inch.
void InEveryLook(const std::function<void(const std::string& language, int resolution)>& check);

}  // namespace tellwick::endtoend
