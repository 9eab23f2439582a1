// Owners of COM references, strings and variants, and the program's text in COM's types.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

#include "platform/Text.h"

namespace tellwick::standin {

template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    // Adds a reference of its own.
    explicit ComPtr(Interface* object) : object(object) {
        if (object) object->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.object) {}
    ComPtr(ComPtr&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object, other.object);
        return *this;
    }
    ~ComPtr() { Reset(); }
    // Takes over a reference that was counted already.
    static ComPtr Attach(Interface* object) {
        ComPtr owner;
        owner.object = object;
        return owner;
    }
    void Reset() {
        if (Interface* released = std::exchange(object, nullptr)) released->Release();
    }
    Interface* Detach() { return std::exchange(object, nullptr); }
    // For functions that fill in a reference.
    Interface** Receive() {
        Reset();
        return &object;
    }
    void** ReceiveVoid() { return reinterpret_cast<void**>(Receive()); }
    template <class Other>
    ComPtr<Other> As(REFIID identifier) const {
        ComPtr<Other> other;
        if (object) object->QueryInterface(identifier, other.ReceiveVoid());
        return other;
    }
    Interface* Get() const { return object; }
    Interface* operator->() const { return object; }
    explicit operator bool() const { return object != nullptr; }

private:
    Interface* object = nullptr;
};

// The IUnknown of an object that has one interface. Its maker holds the first reference.
template <class Interface, const IID& Identifier>
class ComClass : public Interface {
public:
    ComClass() = default;
    virtual ~ComClass() = default;
    ComClass(const ComClass&) = delete;
    ComClass& operator=(const ComClass&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identifier, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (identifier != IID_IUnknown && identifier != Identifier) return E_NOINTERFACE;
        AddRef();
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }

private:
    ULONG references = 1;
};

class Variant : public VARIANT {
public:
    Variant() { VariantInit(this); }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
};

inline const wchar_t* Wide(const Text& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

inline Text FromWide(const wchar_t* text) {
    return text ? Text(reinterpret_cast<const char16_t*>(text)) : Text();
}

inline BSTR NewBstr(TextView text) {
    return SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), UINT(text.size()));
}

inline Text FromBstr(BSTR text) {
    return text ? Text(reinterpret_cast<const char16_t*>(text), SysStringLen(text)) : Text();
}

// {00000000-0000-0000-0000-000000000000} when the text is none.
inline GUID ToGuid(TextView identifier) {
    GUID guid{};
    const Text text(identifier);
    if (FAILED(CLSIDFromString(Wide(text), &guid))) guid = GUID{};
    return guid;
}

// Runs an entry point's work; nothing may leave it but an HRESULT.
template <class Work>
HRESULT EntryPoint(Work work) noexcept {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace tellwick::standin
