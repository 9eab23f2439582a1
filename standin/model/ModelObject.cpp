#include "model/ModelObject.h"

#include <algorithm>
#include <cmath>

#include "model/OutlookModel.h"

namespace tellwick::standin {

namespace {

TextView Description(std::int32_t number) {
    switch (number) {
        case error::InvalidCall:
            return u"Invalid procedure call or argument";
        case error::SubscriptOutOfRange:
            return u"Subscript out of range";
        case error::TypeMismatch:
            return u"Type mismatch";
        case error::ObjectNotSet:
            return u"Object variable or With block variable not set";
        case error::NoSuchMember:
            return u"Object doesn't support this property or method";
        case error::NamedArgumentNotFound:
            return u"Named argument not found";
        case error::WrongNumberOfArguments:
            return u"Wrong number of arguments";
        case error::NoSuchEvents:
            return u"Object does not support this set of events";
        case error::ServerGone:
            return u"The remote server does not exist or is unavailable";
        default:
            return u"Automation error";
    }
}

class SinkSubscription : public Subscription {
public:
    explicit SinkSubscription(std::shared_ptr<Sink> sink) : sink(std::move(sink)) {}
    // The handler itself lives on while it runs.
    ~SinkSubscription() override { sink->dropped = true; }

private:
    std::shared_ptr<Sink> sink;
};

}  // namespace

bool Convert(const Value& value, Text& text) {
    if (std::holds_alternative<ObjectPtr>(value)) return false;
    text = AsText(value);
    return true;
}

bool Convert(const Value& value, std::int32_t& number) {
    if (std::holds_alternative<ObjectPtr>(value)) return false;
    if (const auto* text = std::get_if<Text>(&value)) {
        TextView digits = *text;
        if (StartsWith(digits, u"-")) digits.remove_prefix(1);
        const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
        if (digits.empty() || !std::all_of(digits.begin(), digits.end(), isDigit)) return false;
    }
    if (const auto* real = std::get_if<double>(&value)) {
        if (!(std::fabs(*real) < 2147483648.0)) return false;
        number = std::int32_t(std::nearbyint(*real));
        return true;
    }
    number = AsNumber(value);
    return true;
}

bool Convert(const Value& value, bool& truth) {
    if (const auto* text = std::get_if<Text>(&value)) {
        std::int32_t number = 0;
        if (!EqualFolded(*text, u"True") && !EqualFolded(*text, u"False") &&
            !Convert(value, number)) {
            return false;
        }
    }
    if (std::holds_alternative<ObjectPtr>(value)) return false;
    truth = AsBoolean(value);
    return true;
}

bool Convert(const Value& value, ObjectPtr& object) {
    if (!std::holds_alternative<ObjectPtr>(value)) return false;
    object = AsObject(value);
    return true;
}

const Member* MemberTable::Find(TextView name) const {
    for (const Member& member : members) {
        if (EqualFolded(member.name, name.empty() ? defaultName : name)) return &member;
    }
    return nullptr;
}

Member& MemberTable::Insert(Member member) {
    members.push_back(std::move(member));
    return members.back();
}

ObjectPtr ModelObject::Handle(bool trusted) {
    ObjectPtr held = handles[trusted].lock();
    if (!held) {
        if (!IsHeld()) OnHeld();
        held = std::make_shared<Reference>(outlook, shared_from_this(), trusted);
        handles[trusted] = held;
    }
    return held;
}

Value ModelObject::Fail(std::int32_t number) const {
    outlook.errors.Note(number, Description(number));
    return {};
}

void ModelObject::Raise(std::int32_t event, Arguments& arguments) {
    // A handler may let go of the last reference to this object.
    const std::shared_ptr<ModelObject> self = shared_from_this();
    const std::vector<std::weak_ptr<Sink>> current = sinks;
    RaiseTo(current, event, arguments);
}

void ModelObject::AddSink(const std::shared_ptr<Sink>& sink) {
    AddTo(sinks, sink);
}

void AddTo(std::vector<std::weak_ptr<Sink>>& sinks, const std::shared_ptr<Sink>& sink) {
    std::erase_if(sinks, [](const std::weak_ptr<Sink>& other) { return other.expired(); });
    sinks.push_back(sink);
}

void RaiseTo(const std::vector<std::weak_ptr<Sink>>& sinks, std::int32_t event,
             Arguments& arguments) {
    for (const std::weak_ptr<Sink>& weak : sinks) {
        const std::shared_ptr<Sink> sink = weak.lock();
        if (sink && !sink->dropped) sink->handler(event, arguments);
    }
}

Reference::Reference(OutlookModel& outlook, std::shared_ptr<ModelObject> object, bool trusted)
    : errors(outlook.errors),
      object(std::move(object)),
      trusted(trusted),
      isFolder(dynamic_cast<Folder*>(this->object.get()) != nullptr) {
    outlook.references.insert(this);
    if (isFolder) outlook.FolderOpened();
}

Reference::~Reference() {
    if (!object) return;
    object->outlook.references.erase(this);
    if (isFolder) object->outlook.FolderLetGo();
}

const Member* Reference::FindMember(TextView name) {
    if (!object) {
        errors.Note(error::ServerGone, Description(error::ServerGone));
        return nullptr;
    }
    if (const std::int32_t failure = object->outlook.FailureOf(object->ClassName(), name)) {
        object->Fail(failure);
        return nullptr;
    }
    if (const auto folder = object->Within()) object->outlook.Touch(*folder);
    if (object->IsGone()) {
        object->Fail(error::Automation);
        return nullptr;
    }
    const Member* member = object->Table().Find(name);
    const bool withoutDefault = name.empty() && object->ClassName() == u"MailItem" &&
                                object->outlook.Does(Documented::NoDefaultMember);
    if (!member || withoutDefault || member->firstVersion > object->outlook.version) {
        object->Fail(error::NoSuchMember);
        return nullptr;
    }
    return member;
}

Value Reference::Get(TextView member, const std::vector<Value>& arguments) {
    return Call(member, arguments, {});
}

void Reference::Put(TextView name, const Value& value) {
    const Member* member = FindMember(name);
    if (!member) return;
    // The member's code may let go of this handle.
    const std::shared_ptr<ModelObject> target = object;
    if (member->put) {
        member->put(*target, value);
        target->outlook.Changed();
    } else {
        target->Fail(error::NoSuchMember);
    }
}

Value Reference::Call(TextView name, const std::vector<Value>& arguments,
                      const std::vector<NamedValue>& named) {
    const Member* member = FindMember(name);
    if (!member) return {};
    const std::shared_ptr<ModelObject> target = object;
    if (member->guarded) target->outlook.AskUser(trusted);
    if (arguments.size() > member->arguments.size()) {
        return target->Fail(error::WrongNumberOfArguments);
    }
    Arguments all = arguments;
    all.resize(member->arguments.size());
    for (const NamedValue& argument : named) {
        const auto at =
            std::find_if(member->arguments.begin(), member->arguments.end(),
                         [&](TextView other) { return EqualFolded(other, argument.name); });
        if (at == member->arguments.end()) return target->Fail(error::NamedArgumentNotFound);
        all[std::size_t(at - member->arguments.begin())] = argument.value;
    }
    const bool trustedHere = trusted;  // the member's code may let go of this handle
    Value result = member->get(*target, all);
    const std::shared_ptr<ModelObject> given = trustedHere ? nullptr : TargetOf(AsObject(result));
    return given ? given->Handle(false) : result;
}

Text Reference::TypeName() {
    return object ? Text(object->ClassName()) : Text();
}

SubscriptionPtr Reference::Advise(const EventInterface& events, EventHandler handler) {
    if (!object) {
        errors.Note(error::ServerGone, Description(error::ServerGone));
        return nullptr;
    }
    const EventInterface* offered = object->Events();
    if (!offered || !EqualFolded(offered->identifier, events.identifier) || !handler) {
        object->Fail(error::NoSuchEvents);
        return nullptr;
    }
    if (const std::int32_t failure = object->outlook.FailureOf(object->ClassName(), u"Advise")) {
        object->Fail(failure);
        return nullptr;
    }
    // A host that is thrown at ends; this one counts.
    const auto heard = [&outlook = object->outlook, handler = std::move(handler)](
                           std::int32_t event, Arguments& arguments) {
        const auto call = [&] { handler(event, arguments); };
        try {
            if (outlook.aroundHandler) {
                outlook.aroundHandler(call);
            } else {
                call();
            }
        } catch (...) {
            ++outlook.thrownAtHost;
        }
    };
    auto sink = std::make_shared<Sink>(Sink{object->ClassName(), events, heard});
    object->AddSink(sink);
    AddTo(object->outlook.sinks, sink);
    return std::make_unique<SinkSubscription>(std::move(sink));
}

std::shared_ptr<ModelObject> TargetOf(const ObjectPtr& object) {
    const auto* reference = dynamic_cast<const Reference*>(object.get());
    return reference ? reference->Target() : nullptr;
}

}  // namespace tellwick::standin
