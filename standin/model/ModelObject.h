// The base of everything in the stand-in's object model: members by name, events, and handles.
// Outside code (the add-in, the COM wrappers) never holds a model object itself but its handle, so
// that the model can tell which of its objects are still referenced.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Object.h"

namespace tellwick::standin {

class Folder;
class ModelObject;
class OutlookModel;

// What the host notes beside the numbers the program knows by name.
namespace error {
using namespace tellwick::error;
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t NamedArgumentNotFound = 448;
inline constexpr std::int32_t WrongNumberOfArguments = 450;
inline constexpr std::int32_t NoSuchEvents = 459;
inline constexpr std::int32_t ServerGone = 462;
}  // namespace error

// One value for each argument of the member, in their written order; an empty value is left out.
using Arguments = std::vector<Value>;

struct Member {
    TextView name;
    bool isMethod;
    std::vector<TextView> arguments;
    std::function<Value(ModelObject&, const Arguments&)> get;
    std::function<void(ModelObject&, const Value&)> put;  // empty: read only
    std::int32_t firstVersion = 0;                        // of Outlook, that has this member
    bool guarded = false;                                 // by the security question
};

// Automation's conversions between plain values; false when there is none.
bool Convert(const Value& value, Text& text);
bool Convert(const Value& value, std::int32_t& number);
bool Convert(const Value& value, bool& truth);
bool Convert(const Value& value, ObjectPtr& object);

class MemberTable {
public:
    // Names are found without regard to letter case; an empty name finds the default member. Null
    // when there is none.
    const Member* Find(TextView name) const;
    const std::vector<Member>& All() const { return members; }
    // True for what has elements, by Count and Item.
    bool IsCollection() const { return isCollection; }

protected:
    Member& Insert(Member member);
    std::vector<Member> members;
    bool isCollection = false;
    TextView defaultName;
};

// The members of a class. The last one added can be limited to newer versions with From.
template <class Type>
class Members : public MemberTable {
public:
    using Getter = std::function<Value(Type&)>;
    using Setter = std::function<void(Type&, const Value&)>;
    using Function = std::function<Value(Type&, const Arguments&)>;

    // A property that is a field of the object, converted to the field's type.
    Members& Field(TextView name, Text Type::*field) { return AddField(name, field); }
    Members& Field(TextView name, std::int32_t Type::*field) { return AddField(name, field); }
    Members& Field(TextView name, bool Type::*field) { return AddField(name, field); }
    Members& Field(TextView name, ObjectPtr Type::*field) { return AddField(name, field); }

    Members& Property(TextView name, Getter get, Setter put = nullptr) {
        Member& member = Insert({name, false, {}, nullptr, nullptr});
        member.get = [get = std::move(get)](ModelObject& self, const Arguments&) {
            return get(static_cast<Type&>(self));
        };
        if (put) {
            member.put = [put = std::move(put)](ModelObject& self, const Value& value) {
                put(static_cast<Type&>(self), value);
            };
        }
        return *this;
    }
    // A property with arguments, read only.
    Members& Indexed(TextView name, std::vector<TextView> arguments, Function get) {
        return AddFunction(name, false, std::move(arguments), std::move(get));
    }
    Members& Method(TextView name, std::vector<TextView> arguments, Function call) {
        return AddFunction(name, true, std::move(arguments), std::move(call));
    }
    // Gives a property or method another body.
    void Replace(TextView name, Function function) {
        for (Member& member : members) {
            if (member.name != name) continue;
            member.get = [function = std::move(function)](ModelObject& self,
                                                          const Arguments& values) {
                return function(static_cast<Type&>(self), values);
            };
            return;
        }
    }
    // Makes a member the default one.
    Members& Default(TextView name) {
        defaultName = name;
        return *this;
    }
    Members& From(std::int32_t version) {
        members.back().firstVersion = version;
        return *this;
    }
    Members& Guarded() {
        members.back().guarded = true;
        return *this;
    }
    // What a collection has whose elements are the object's `all`: Count, and Item by an index from
    // 1 or, if there is `byName`, by a text.
    using Finder = std::function<Value(Type&, const Text&)>;
    Members& Collection(Finder byName = nullptr, bool itemIsMethod = true);

private:
    template <class Plain>
    Members& AddField(TextView name, Plain Type::*field);
    Members& AddFunction(TextView name, bool isMethod, std::vector<TextView> arguments,
                         Function function) {
        Member& member = Insert({name, isMethod, std::move(arguments), nullptr, nullptr});
        member.get = [function = std::move(function)](ModelObject& self, const Arguments& values) {
            return function(static_cast<Type&>(self), values);
        };
        return *this;
    }
};

// One advised handler, as long as its subscription lives.
struct Sink {
    TextView sourceClass;
    EventInterface events;
    EventHandler handler;
    bool dropped = false;
};

class ModelObject : public std::enable_shared_from_this<ModelObject> {
public:
    explicit ModelObject(OutlookModel& outlook) : outlook(outlook) {}
    virtual ~ModelObject() = default;
    ModelObject(const ModelObject&) = delete;
    ModelObject& operator=(const ModelObject&) = delete;

    virtual TextView ClassName() const = 0;
    virtual const MemberTable& Table() const = 0;
    // Null when the object has no events.
    virtual const EventInterface* Events() const { return nullptr; }
    // True for what has been closed or deleted: every use from outside fails.
    virtual bool IsGone() const { return false; }
    // The folder that the object is or lies in: its store may be slow, or has to be opened first.
    virtual std::shared_ptr<Folder> Within() { return nullptr; }

    // The object as outside code holds it: one and the same as long as somebody holds it. What is
    // reached through an untrusted handle is untrusted, too.
    ObjectPtr Handle(bool trusted = true);
    bool IsHeld() const { return !handles[0].expired() || !handles[1].expired(); }
    // Outside code takes hold of it, and held it not before.
    virtual void OnHeld() {}

    // Notes the error; the value is empty.
    Value Fail(std::int32_t number) const;

    // Calls every handler advised when it begins, except those dropped meanwhile. Handlers may
    // change Boolean arguments.
    void Raise(std::int32_t event, Arguments& arguments);
    void Raise(std::int32_t event) {
        Arguments none;
        Raise(event, none);
    }
    void AddSink(const std::shared_ptr<Sink>& sink);
    std::vector<std::weak_ptr<Sink>> Sinks() const { return sinks; }

    OutlookModel& outlook;

private:
    std::weak_ptr<Object> handles[2];  // the untrusted one, and the trusted
    std::vector<std::weak_ptr<Sink>> sinks;
};

// Adds a sink, and keeps none whose subscription has gone.
void AddTo(std::vector<std::weak_ptr<Sink>>& sinks, const std::shared_ptr<Sink>& sink);

// Calls the handlers of the sinks in order, except those dropped meanwhile.
void RaiseTo(const std::vector<std::weak_ptr<Sink>>& sinks, std::int32_t event,
             Arguments& arguments);

// A model object in outside hands. When the model has gone, every use fails.
class Reference : public Object, public std::enable_shared_from_this<Reference> {
public:
    Reference(OutlookModel& outlook, std::shared_ptr<ModelObject> object, bool trusted);
    ~Reference() override;
    Value Get(TextView member, const std::vector<Value>& arguments) override;
    void Put(TextView member, const Value& value) override;
    Value Call(TextView member, const std::vector<Value>& arguments,
               const std::vector<NamedValue>& named) override;
    Text TypeName() override;
    SubscriptionPtr Advise(const EventInterface& events, EventHandler handler) override;

    // Null when the model has gone.
    const std::shared_ptr<ModelObject>& Target() const { return object; }
    void Disconnect() { object.reset(); }

private:
    const Member* FindMember(TextView name);

    PendingError& errors;
    std::shared_ptr<ModelObject> object;
    const bool trusted;
    const bool isFolder;
};

// The model object behind a handle; null for objects of others.
std::shared_ptr<ModelObject> TargetOf(const ObjectPtr& object);

template <class Type>
std::shared_ptr<Type> TargetAs(const ObjectPtr& object) {
    return std::dynamic_pointer_cast<Type>(TargetOf(object));
}

template <class Type>
std::shared_ptr<Type> Self(Type& self) {
    return std::static_pointer_cast<Type>(self.shared_from_this());
}

// The handle, or the empty reference for null.
template <class Type>
Value HandleOf(const std::shared_ptr<Type>& object) {
    return object ? object->Handle() : ObjectPtr();
}

// Item of a collection by its index from 1; notes 9 when there is none, 13 when it is no number.
template <class Type>
Value ItemAt(const ModelObject& self, const std::vector<std::shared_ptr<Type>>& all,
             const Value& index) {
    std::int32_t number = 0;
    if (!Convert(index, number)) return self.Fail(error::TypeMismatch);
    if (number < 1 || std::size_t(number) > all.size()) {
        return self.Fail(error::SubscriptOutOfRange);
    }
    return all[std::size_t(number) - 1]->Handle();
}

template <class Type>
Members<Type>& Members<Type>::Collection(Finder byName, bool itemIsMethod) {
    isCollection = true;
    Property(u"Count", [](Type& self) { return std::int32_t(self.all.size()); });
    return AddFunction(u"Item", itemIsMethod, {u"Index"},
                       [byName = std::move(byName)](Type& self, const Arguments& arguments) {
                           const auto* name = std::get_if<Text>(&arguments[0]);
                           return name && byName ? byName(self, *name)
                                                 : ItemAt(self, self.all, arguments[0]);
                       })
        .Default(u"Item");
}

template <class Type>
template <class Plain>
Members<Type>& Members<Type>::AddField(TextView name, Plain Type::*field) {
    return Property(
        name, [field](Type& self) { return Value(self.*field); },
        [field](Type& self, const Value& value) {
            Plain converted{};
            if (Convert(value, converted)) {
                self.*field = converted;
            } else {
                self.Fail(error::TypeMismatch);
            }
        });
}

}  // namespace tellwick::standin
