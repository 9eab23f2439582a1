// The class object that makes the add-in's connection objects.
#pragma once

#include "windows/Com.h"

namespace tellwick::windows {

// For DllGetClassObject.
HRESULT GetConnectFactory(REFIID interfaceIdentifier, void** object);

}  // namespace tellwick::windows
