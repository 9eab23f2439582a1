// The system's newer look of controls, for the add-in's own windows only.
#pragma once

#include "windows/Com.h"

namespace tellwick::windows {

// While it lives, windows created by this thread get the controls that the library's own manifest
// names. Does nothing on systems that have no such thing.
class VisualStyles {
public:
    VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;
    ~VisualStyles();

private:
    ULONG_PTR cookie = 0;
};

}  // namespace tellwick::windows
