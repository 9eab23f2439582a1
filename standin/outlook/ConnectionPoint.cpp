#include "outlook/ConnectionPoint.h"

#include "outlook/DpiContexts.h"

namespace tellwick::standin {

void InvokeSink(ComObjects& objects, const ComPtr<IDispatch>& sink, std::int32_t event,
                std::vector<Value>& arguments) {
    const std::size_t count = arguments.size();
    std::vector<VARIANT_BOOL> truths(count);
    std::vector<VARIANT> variants(count);
    for (std::size_t index = 0; index < count; ++index) {
        VARIANT& variant = variants[count - 1 - index];  // last argument first
        VariantInit(&variant);
        if (const bool* truth = std::get_if<bool>(&arguments[index])) {
            truths[index] = *truth ? VARIANT_TRUE : VARIANT_FALSE;
            variant.vt = VT_BYREF | VT_BOOL;
            variant.pboolVal = &truths[index];
        } else {
            objects.ToVariant(arguments[index], variant);
        }
    }
    DISPPARAMS parameters{variants.data(), nullptr, UINT(count), 0};
    Variant result;
    EXCEPINFO exception{};
    UINT wrongArgument = 0;
    {
        const AddInCall call(u"event " + NumberText(event));
        sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result,
                     &exception, &wrongArgument);
    }
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    for (std::size_t index = 0; index < count; ++index) {
        if (std::holds_alternative<bool>(arguments[index])) {
            arguments[index] = truths[index] != VARIANT_FALSE;
        }
        VariantClear(&variants[count - 1 - index]);
    }
}

}  // namespace tellwick::standin
