// The least of a type description: the name of a class and what kind of type it is.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "outlook/Com.h"
#include "platform/Text.h"

namespace tellwick::standin {

// A description whose GetDocumentation and GetTypeAttr work; everything else is not implemented.
ComPtr<ITypeInfo> DescribeType(TextView name, TYPEKIND kind);

}  // namespace tellwick::standin
