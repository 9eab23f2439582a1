// How other programs and the add-in find this Outlook: class names in the registry, class objects
// for creation, and the running object table.
#pragma once

#include <functional>
#include <vector>

#include "outlook/Com.h"

namespace tellwick::standin {

using ObjectSource = std::function<ComPtr<IDispatch>()>;

// One class name that creates objects in this process, from construction to destruction, when it
// goes out of the registry again.
class RegisteredClass {
public:
    // `local` offers the class to other processes too, the way a program's class is; otherwise it
    // is a class of this process, as a library's.
    RegisteredClass(TextView programmaticIdentifier, TextView classIdentifier, bool local,
                    ObjectSource source);
    ~RegisteredClass();
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;

private:
    const Text programmaticIdentifier;
    const Text classIdentifier;
    DWORD cookie = 0;
};

// Takes a class name out of the registry, as if its program were not installed.
void ForgetClass(TextView programmaticIdentifier, TextView classIdentifier);

// An entry of the running object table, until destruction; from construction on, or from the moment
// that no window of this thread is the active one any more.
class RunningObject {
public:
    enum Since { Start, FocusLost };
    RunningObject(TextView classIdentifier, const ComPtr<IDispatch>& object, Since since);
    ~RunningObject();
    RunningObject(const RunningObject&) = delete;
    RunningObject& operator=(const RunningObject&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    void Register();

    const Text classIdentifier;
    const ComPtr<IDispatch> object;
    HWND window = nullptr;  // never seen
    DWORD cookie = 0;
};

}  // namespace tellwick::standin
