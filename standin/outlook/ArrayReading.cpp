#include "outlook/ArrayReading.h"

#include <initializer_list>

#include "outlook/Com.h"

namespace tellwick::standin {

namespace {

// A member of an object by name, with at most one argument.
class Read {
public:
    Read(IDispatch* object, const wchar_t* member, const VARIANT* argument = nullptr) {
        VariantInit(&result);
        auto* name = const_cast<wchar_t*>(member);
        DISPID identifier = DISPID_UNKNOWN;
        if (!object ||
            FAILED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &identifier))) {
            return;
        }
        DISPPARAMS arguments{const_cast<VARIANT*>(argument), nullptr, argument ? 1U : 0U, 0};
        object->Invoke(identifier, IID_NULL, LOCALE_USER_DEFAULT,
                       DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments, &result, nullptr,
                       nullptr);
    }
    Read(const Read&) = delete;
    Read& operator=(const Read&) = delete;
    ~Read() { VariantClear(&result); }
    IDispatch* Object() const { return result.vt == VT_DISPATCH ? result.pdispVal : nullptr; }
    long Number() const { return result.vt == VT_I4 ? result.lVal : 0; }
    bool Truth() const { return result.vt == VT_BOOL && result.boolVal != VARIANT_FALSE; }
    bool IsArray() const { return (result.vt & VT_ARRAY) != 0; }

private:
    VARIANT result;
};

VARIANT Argument(long number) {
    VARIANT argument;
    argument.vt = VT_I4;
    argument.lVal = number;
    return argument;
}

class TextArgument {
public:
    explicit TextArgument(const wchar_t* text) {
        value.vt = VT_BSTR;
        value.bstrVal = SysAllocString(text);
    }
    TextArgument(const TextArgument&) = delete;
    TextArgument& operator=(const TextArgument&) = delete;
    ~TextArgument() { VariantClear(&value); }
    const VARIANT* Value() const { return &value; }

private:
    VARIANT value;
};

}  // namespace

long ReadContactArrays(IDispatch& application) {
    long count = 0;
    const Read nameSpace(&application, L"GetNamespace", TextArgument(L"MAPI").Value());
    constexpr long ContactsFolder = 10;
    const VARIANT wanted = Argument(ContactsFolder);
    const VARIANT rows = Argument(64);
    const Read contacts(nameSpace.Object(), L"GetDefaultFolder", &wanted);
    const Read folders(contacts.Object(), L"Folders");
    for (long folder = 1; folder <= Read(folders.Object(), L"Count").Number(); ++folder) {
        const VARIANT place = Argument(folder);
        const Read of(folders.Object(), L"Item", &place);
        const Read table(of.Object(), L"GetTable");
        const Read columns(table.Object(), L"Columns");
        const Read removed(columns.Object(), L"RemoveAll");
        for (const wchar_t* property :
             {L"EntryID", L"CreationTime", L"LastModificationTime", L"MessageClass", L"FullName",
              L"FileAs", L"CompanyName", L"MobileTelephoneNumber", L"HomeTelephoneNumber",
              L"Home2TelephoneNumber", L"BusinessTelephoneNumber", L"Business2TelephoneNumber",
              L"CarTelephoneNumber", L"OtherTelephoneNumber", L"PrimaryTelephoneNumber"}) {
            const Read added(columns.Object(), L"Add", TextArgument(property).Value());
        }
        while (!Read(table.Object(), L"EndOfTable").Truth()) {
            if (!Read(table.Object(), L"GetArray", &rows).IsArray()) break;
            ++count;
        }
    }
    return count;
}

}  // namespace tellwick::standin
