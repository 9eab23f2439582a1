// An add-in object that has a part of the ribbon, called through COM as Office calls it.
#pragma once

#include <memory>

#include "model/Ribbon.h"
#include "outlook/ComObjects.h"

namespace tellwick::standin {

// Null when the add-in object has nothing for the ribbon.
std::shared_ptr<RibbonAddIn> RibbonAddInOf(ComObjects& objects, IUnknown* addIn);

}  // namespace tellwick::standin
