#include "outlook/Enumerator.h"

#include <algorithm>

namespace tellwick::standin {

ULONG Enumerator::Left() const {
    const std::int32_t count = AsNumber(collection->Handle()->Get(u"Count"));
    return ULONG(std::max(0, count - next + 1));
}

HRESULT Enumerator::Next(ULONG count, VARIANT* elements, ULONG* fetched) {
    return EntryPoint([&]() -> HRESULT {
        if (fetched) *fetched = 0;
        if (!elements || (!fetched && count != 1)) return E_POINTER;
        for (ULONG index = 0; index < count; ++index) VariantInit(&elements[index]);
        const ErrorScope scope(objects.outlook.errors);
        ULONG done = 0;
        for (; done < count && Left() > 0; ++done, ++next) {
            objects.ToVariant(collection->Handle()->Call(u"Item", {next}), elements[done]);
        }
        if (const PendingError& errors = objects.outlook.errors) {
            for (ULONG index = 0; index < done; ++index) VariantClear(&elements[index]);
            return AutomationCode(errors);
        }
        if (fetched) *fetched = done;
        return done == count ? S_OK : S_FALSE;
    });
}

HRESULT Enumerator::Skip(ULONG count) {
    return EntryPoint([&]() -> HRESULT {
        const ErrorScope scope(objects.outlook.errors);
        const ULONG skipped = std::min(count, Left());
        next += std::int32_t(skipped);
        return skipped == count ? S_OK : S_FALSE;
    });
}

HRESULT Enumerator::Clone(IEnumVARIANT** copy) {
    return EntryPoint([&]() -> HRESULT {
        if (!copy) return E_POINTER;
        *copy = new Enumerator(objects, collection, next);
        return S_OK;
    });
}

}  // namespace tellwick::standin
