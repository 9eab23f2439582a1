#include "outlook/DpiContexts.h"

#include <utility>

namespace tellwick::standin {

namespace {

// Handles that stand for contexts, newer than the headers used.
const auto SystemAware = reinterpret_cast<HANDLE>(INT_PTR(-2));
const auto PerMonitorAware = reinterpret_cast<HANDLE>(INT_PTR(-3));

template <class Function>
Function UserFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}
const auto setContext = UserFunction<HANDLE(WINAPI*)(HANDLE)>("SetThreadDpiAwarenessContext");
const auto getContext = UserFunction<HANDLE(WINAPI*)()>("GetThreadDpiAwarenessContext");
const auto areEqual = UserFunction<BOOL(WINAPI*)(HANDLE, HANDLE)>("AreDpiAwarenessContextsEqual");

HANDLE expected = nullptr;
std::set<Text> faults;

}  // namespace

void FollowMonitors(bool follow) {
    expected = follow ? PerMonitorAware : SystemAware;
    if (setContext) setContext(expected);
}

AddInCall::AddInCall(TextView what)
    : what(what),
      before(setContext ? setContext(SystemAware) : nullptr),
      expectedBefore(std::exchange(expected, SystemAware)) {}

AddInCall::~AddInCall() {
    CheckContext(what);
    expected = expectedBefore;
    if (before) setContext(before);
}

void CheckContext(TextView what) {
    if (areEqual && !areEqual(getContext(), expected)) faults.emplace(what);
}

const std::set<Text>& ContextFaults() {
    return faults;
}

}  // namespace tellwick::standin
