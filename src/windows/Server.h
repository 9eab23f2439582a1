// The library as a COM server: what the class object and the registration share.
#pragma once

#include <new>

#include "windows/Com.h"
#include "windows/MonitorAwareness.h"

namespace tellwick {
class Program;
}

namespace tellwick::windows {

// {6B0B7E52-3C0A-4E0B-9C3A-5D1B7A2F4C81}
inline constexpr CLSID ConnectClass = {
    0x6b0b7e52, 0x3c0a, 0x4e0b, {0x9c, 0x3a, 0x5d, 0x1b, 0x7a, 0x2f, 0x4c, 0x81}};
inline constexpr TextView ConnectClassText = u"{6B0B7E52-3C0A-4E0B-9C3A-5D1B7A2F4C81}";

// The library's own module.
HMODULE Library();

// The one program, put together on first use.
Program& TheProgram();

// Inside a catch at an entry point: traces what was caught.
void ReportException() noexcept;

// Runs what Outlook or the system called. What it throws is traced, and becomes a failed result.
template <class Action>
HRESULT EntryPoint(const Action& action) {
    const MonitorAware aware;
    try {
        action();
        return S_OK;
    } catch (const std::bad_alloc&) {
        ReportException();
        return E_OUTOFMEMORY;
    } catch (...) {
        ReportException();
        return E_UNEXPECTED;
    }
}

// Per-user registration as a COM class and as an add-in of Outlook. False when the registry
// refuses a part; unregistering takes away what registering wrote and nothing else.
bool Register();
bool Unregister();

}  // namespace tellwick::windows
