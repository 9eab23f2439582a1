// Outlook's and Office's objects, as far as the program uses them: thin views over late-bound
// objects. A view of an empty reference is allowed; every use of it notes 91 and yields an empty
// value. Collections count from 1.
#pragma once

#include <optional>
#include <utility>

#include "platform/Object.h"

namespace tellwick::outlook {

class View {
public:
    View(PendingError& errors, ObjectPtr object) : errors(&errors), object(std::move(object)) {}
    explicit operator bool() const { return object != nullptr; }
    const ObjectPtr& Reference() const { return object; }

protected:
    Value Get(TextView member, const std::vector<Value>& arguments = {}) const {
        return tellwick::Get(*errors, object, member, arguments);
    }
    void Put(TextView member, const Value& value) const {
        tellwick::Put(*errors, object, member, value);
    }
    Value Call(TextView member, const std::vector<NamedValue>& named = {}) const {
        return tellwick::Call(*errors, object, member, {}, named);
    }
    template <class Other>
    Other As(const Value& value) const {
        return Other(*errors, AsObject(value));
    }

    PendingError* errors;

private:
    ObjectPtr object;
};

template <class Element>
class Collection : public View {
public:
    using View::View;
    std::int32_t Count() const { return AsNumber(Get(u"Count")); }
    Element Item(std::int32_t index) const { return As<Element>(Get(u"Item", {index})); }
    Element Item(TextView name) const { return As<Element>(Get(u"Item", {Text(name)})); }
};

class Application;
class CommandBarControls;
class Item;

class CommandBarControl : public View {
public:
    using View::View;
    bool BuiltIn() const { return AsBoolean(Get(u"BuiltIn")); }
    Text Tag() const { return AsText(Get(u"Tag")); }
    Text Caption() const { return AsText(Get(u"Caption")); }
    Text OnAction() const { return AsText(Get(u"OnAction")); }
    inline CommandBarControls Controls() const;
    inline tellwick::outlook::Application Application() const;
    void SetTag(TextView tag) const { Put(u"Tag", Text(tag)); }
    void SetCaption(TextView caption) const { Put(u"Caption", Text(caption)); }
    void SetParameter(TextView parameter) const { Put(u"Parameter", Text(parameter)); }
    void SetOleUsage(std::int32_t usage) const { Put(u"OLEUsage", usage); }
    void SetStyle(std::int32_t style) const { Put(u"Style", style); }
    void SetBeginGroup(bool begins) const { Put(u"BeginGroup", begins); }
    void SetOnAction(TextView action) const { Put(u"OnAction", Text(action)); }
    void SetFaceId(std::int32_t face) const { Put(u"FaceId", face); }
    void SetPicture(const ObjectPtr& picture) const { Put(u"Picture", picture); }
    void SetMask(const ObjectPtr& mask) const { Put(u"Mask", mask); }
    void SetVisible(bool visible) const { Put(u"Visible", visible); }
    void PasteFace() const { Call(u"PasteFace"); }
    void Delete() const { Call(u"Delete"); }
};

class CommandBarControls : public Collection<CommandBarControl> {
public:
    using Collection::Collection;

    // Adds a temporary control: of the given type (the collection's own when there is none),
    // before the control at the given index (at the end when there is none).
    CommandBarControl Add(std::optional<std::int32_t> type,
                          std::optional<std::int32_t> before) const {
        std::vector<NamedValue> arguments;
        if (type) arguments.push_back({u"Type", *type});
        if (before) arguments.push_back({u"Before", *before});
        arguments.push_back({u"Temporary", true});
        return As<CommandBarControl>(Call(u"Add", arguments));
    }
};

CommandBarControls CommandBarControl::Controls() const {
    return As<CommandBarControls>(Get(u"Controls"));
}

class CommandBar : public View {
public:
    using View::View;
    Text Name() const { return AsText(Get(u"Name")); }
    CommandBarControls Controls() const { return As<CommandBarControls>(Get(u"Controls")); }
};

using CommandBars = Collection<CommandBar>;

class Explorer : public View {
public:
    using View::View;
    inline Application Parent() const;
    outlook::CommandBars CommandBars() const {
        return As<outlook::CommandBars>(Get(u"CommandBars"));
    }
    inline Collection<Item> Selection() const;
};

using Explorers = Collection<Explorer>;

class Inspector : public View {
public:
    using View::View;
    inline Item CurrentItem() const;
};

using Inspectors = Collection<Inspector>;

class UserProperty : public View {
public:
    using View::View;
    bool Value() const { return AsBoolean(Get(u"Value")); }
};

class Item : public View {
public:
    using View::View;
    std::int32_t Class() const { return AsNumber(Get(u"Class")); }
};

class MailItem : public Item {
public:
    using Item::Item;
    outlook::UserProperty UserProperty(TextView name) const {
        return As<Collection<outlook::UserProperty>>(Get(u"UserProperties")).Item(name);
    }
};

using Selection = Collection<Item>;

class ComAddIn : public View {
public:
    using View::View;
    Text ProgId() const { return AsText(Get(u"ProgId")); }
    bool Connected() const { return AsBoolean(Get(u"Connect")); }
};

using ComAddIns = Collection<ComAddIn>;

class Application : public View {
public:
    using View::View;
    Text Name() const { return AsText(Get(u"Name")); }
    Text Version() const { return AsText(Get(u"Version")); }
    // The number before the first dot: 9 for Outlook 2000.
    std::int32_t MajorVersion() const { return LeadingNumber32(Version().substr(0, 2)); }
    outlook::Explorers Explorers() const { return As<outlook::Explorers>(Get(u"Explorers")); }
    outlook::Inspectors Inspectors() const { return As<outlook::Inspectors>(Get(u"Inspectors")); }
    Explorer ActiveExplorer() const { return As<Explorer>(Call(u"ActiveExplorer")); }
    Inspector ActiveInspector() const { return As<Inspector>(Call(u"ActiveInspector")); }
    outlook::ComAddIns ComAddIns() const { return As<outlook::ComAddIns>(Get(u"COMAddIns")); }
};

Collection<Item> Explorer::Selection() const {
    return As<Collection<Item>>(Get(u"Selection"));
}

Item Inspector::CurrentItem() const {
    return As<Item>(Get(u"CurrentItem"));
}

Application Explorer::Parent() const {
    return As<Application>(Get(u"Parent"));
}

tellwick::outlook::Application CommandBarControl::Application() const {
    return As<tellwick::outlook::Application>(Get(u"Application"));
}

}  // namespace tellwick::outlook
