// Owners of the system's and COM's resources. What an owner holds it alone gives back. Only what
// the system puts into a structure, or lends for the length of a function, is given back without
// an owner.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <utility>

#include "platform/Text.h"

// The program has names of its own that the system's headers would rewrite.
#undef MessageBox
#undef WriteProfileString

namespace tellwick::windows {

// Text and the system's wide strings are the same units under two names.
inline const wchar_t* Wide(const Text& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline Text FromWide(const wchar_t* text, std::size_t length) {
    return Text(reinterpret_cast<const char16_t*>(text), length);
}
inline Text FromWide(const wchar_t* text) {
    return text ? FromWide(text, std::wcslen(text)) : Text();
}

// A counted reference to a COM object.
template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(const ComPtr& other) : pointer(other.pointer) {
        if (pointer) pointer->AddRef();
    }
    ComPtr(ComPtr&& other) noexcept : pointer(std::exchange(other.pointer, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer, other.pointer);
        return *this;
    }
    ~ComPtr() {
        if (pointer) pointer->Release();
    }

    // Takes over a reference that was counted already.
    static ComPtr Take(Interface* counted) {
        ComPtr owner;
        owner.pointer = counted;
        return owner;
    }
    // Counts a reference of its own.
    static ComPtr Share(Interface* borrowed) {
        if (borrowed) borrowed->AddRef();
        return Take(borrowed);
    }

    Interface* Get() const { return pointer; }
    Interface* operator->() const { return pointer; }
    explicit operator bool() const { return pointer != nullptr; }
    // For functions that hand out a counted reference; drops what is held.
    Interface** Out() {
        *this = ComPtr();
        return &pointer;
    }
    template <class Other>
    ComPtr<Other> As(REFIID identifier) const {
        ComPtr<Other> other;
        if (pointer) pointer->QueryInterface(identifier, reinterpret_cast<void**>(other.Out()));
        return other;
    }

private:
    Interface* pointer = nullptr;
};

class Bstr {
public:
    Bstr() = default;
    explicit Bstr(TextView text)
        : string(SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                                   UINT(text.size()))) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(string); }
    BSTR Get() const { return string; }
    BSTR* Out() { return &string; }
    BSTR Detach() { return std::exchange(string, nullptr); }
    Text AsText() const { return string ? FromWide(string, SysStringLen(string)) : Text(); }

private:
    BSTR string = nullptr;
};

class Variant : public VARIANT {
public:
    Variant() { VariantInit(this); }
    Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(this); }
};

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const {
        if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    }
};
using Handle = std::unique_ptr<void, HandleCloser>;

struct KeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using RegistryKey = std::unique_ptr<HKEY__, KeyCloser>;

struct GdiDeleter {
    using pointer = HGDIOBJ;
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using GdiObject = std::unique_ptr<void, GdiDeleter>;

struct IconDestroyer {
    using pointer = HICON;
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<HICON__, IconDestroyer>;

// A picture of the library's own icons at a size in pixels; null when there is none.
IconHandle LoadLibraryIcon(int resource, int size);

}  // namespace tellwick::windows
