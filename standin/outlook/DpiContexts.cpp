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

HANDLE expected = getContext ? getContext() : nullptr;
HANDLE inCalls = nullptr;  // null: as the loop's
std::set<Text> faults;

void CheckNow(TextView what) {
    if (areEqual && !areEqual(getContext(), expected)) faults.emplace(what);
}

// Not this program itself, and no part of the system, which hands calls of other programs on.
bool IsAddIn(const void* code) {
    MEMORY_BASIC_INFORMATION memory{};
    VirtualQuery(code, &memory, sizeof memory);
    const auto module = static_cast<HMODULE>(memory.AllocationBase);
    wchar_t path[MAX_PATH] = L"";
    wchar_t system[MAX_PATH] = L"";
    GetModuleFileNameW(module, path, MAX_PATH);
    const int length = int(GetSystemDirectoryW(system, MAX_PATH));
    return module != GetModuleHandleW(nullptr) &&
           CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, path, length, system, length) !=
               CSTR_EQUAL;
}

}  // namespace

void FollowMonitors(bool follow) {
    expected = follow ? PerMonitorAware : SystemAware;
    inCalls = SystemAware;
    if (setContext) setContext(expected);
}

AddInCall::AddInCall(TextView what)
    : what(what),
      before(setContext && inCalls ? setContext(inCalls) : nullptr),
      expectedBefore(std::exchange(expected, inCalls ? inCalls : expected)) {}

AddInCall::~AddInCall() {
    CheckNow(what);
    expected = expectedBefore;
    if (before) setContext(before);
}

void CheckContext(TextView what, const void* caller) {
    if (IsAddIn(caller)) CheckNow(what);
}

const std::set<Text>& ContextFaults() {
    return faults;
}

}  // namespace tellwick::standin
