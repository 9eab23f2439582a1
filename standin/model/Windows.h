// Outlook's windows: explorers, inspectors, and what is selected in them.
#pragma once

#include "model/CommandBars.h"
#include "model/Items.h"

namespace tellwick::standin {

// An explorer or an inspector.
class Window : public ModelObject {
public:
    using ModelObject::ModelObject;
    bool IsGone() const override { return closed; }
    virtual Text Caption() const = 0;
    // The dispatch identifiers of its events, one set for both kinds.
    void RaiseActivate();
    void RaiseDeactivate();
    void RaiseClose();

    std::shared_ptr<CommandBars> commandBars;
    bool displayed = false;
    bool closed = false;
};

// The line of a conversation in a folder's list.
class ConversationHeader : public ModelObject {
public:
    ConversationHeader(OutlookModel& outlook, std::vector<std::shared_ptr<Item>> mails)
        : ModelObject(outlook), mails(std::move(mails)) {}
    TextView ClassName() const override { return u"ConversationHeader"; }
    const MemberTable& Table() const override;

    const std::vector<std::shared_ptr<Item>> mails;
};

// The items of a conversation.
class SimpleItems : public ModelObject {
public:
    SimpleItems(OutlookModel& outlook, std::vector<std::shared_ptr<Item>> items)
        : ModelObject(outlook), all(std::move(items)) {}
    TextView ClassName() const override { return u"SimpleItems"; }
    const MemberTable& Table() const override;

    const std::vector<std::shared_ptr<Item>> all;
};

// A main window: a folder's list of items.
class Explorer : public Window {
public:
    using Window::Window;
    TextView ClassName() const override { return u"Explorer"; }
    const MemberTable& Table() const override;
    const EventInterface* Events() const override;
    Text Caption() const override;
    // A control of the bar "Standard" by its caption; null when there is none.
    std::shared_ptr<CommandBarControl> ToolbarControl(TextView caption) const;
    // The drop-down of the first control of "Standard"; null when that has none.
    std::shared_ptr<CommandBar> NewMenu() const;
    // An entry of that drop-down.
    std::shared_ptr<CommandBarControl> NewMenuEntry(TextView caption) const;

    std::shared_ptr<Folder> folder;
    std::vector<std::shared_ptr<Item>> selection;
    std::vector<std::shared_ptr<ConversationHeader>> conversations;  // that are selected
};

// A window that shows one item.
class Inspector : public Window {
public:
    using Window::Window;
    TextView ClassName() const override { return u"Inspector"; }
    const MemberTable& Table() const override;
    const EventInterface* Events() const override;
    Text Caption() const override;

    std::shared_ptr<Item> item;
};

// A collection of a window kind.
template <class Type>
class WindowCollection : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override;
    const MemberTable& Table() const override;
    const EventInterface* Events() const override;

    std::vector<std::shared_ptr<Type>> all;
};

// What was selected in an explorer when it was asked.
class Selection : public ModelObject {
public:
    using ModelObject::ModelObject;
    explicit Selection(const Explorer& explorer);
    TextView ClassName() const override { return u"Selection"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<ModelObject>> all;
    std::vector<std::shared_ptr<ConversationHeader>> conversations;
};

}  // namespace tellwick::standin
