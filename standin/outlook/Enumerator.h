// What For Each walks a collection with: its elements as they are when their turn comes, so that
// one that deletes as it goes skips some, as with Outlook's own collections.
#pragma once

#include "outlook/ComObject.h"

namespace tellwick::standin {

class Enumerator : public ComClass<IEnumVARIANT, IID_IEnumVARIANT> {
public:
    // Begins at that index, from 1.
    Enumerator(ComObjects& objects, ComPtr<ComObject> collection, std::int32_t next)
        : objects(objects), collection(std::move(collection)), next(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* elements, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override {
        next = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

private:
    ULONG Left() const;

    ComObjects& objects;
    const ComPtr<ComObject> collection;  // held, so that it counts as referenced
    std::int32_t next;
};

}  // namespace tellwick::standin
