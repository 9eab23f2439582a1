// Office's command bars as an explorer or inspector window has them.
#pragma once

#include "model/ModelObject.h"

namespace tellwick::standin {

inline constexpr std::int32_t ButtonType = 1;
inline constexpr std::int32_t PopupType = 10;
// Id of controls that Office itself did not make.
inline constexpr std::int32_t CustomId = 1;

class CommandBar;
class CommandBarPopup;

class CommandBarControl : public ModelObject {
public:
    using ModelObject::ModelObject;
    bool IsGone() const override { return deleted; }
    virtual std::int32_t Type() const = 0;
    // A copy that stands in another window: same looks, no sinks.
    virtual std::shared_ptr<CommandBarControl> Copy() const = 0;
    bool BuiltIn() const { return id != CustomId; }
    void Delete();

    std::int32_t id = CustomId;
    Text tag;
    Text caption;
    Text parameter;
    Text onAction;
    Text toolTipText;
    std::int32_t oleUsage = 1;  // 0 neither, 1 server, 2 client, 3 both
    bool beginGroup = false;
    bool visible = true;
    bool enabled = true;
    bool temporary = false;
    bool deleted = false;
    std::weak_ptr<CommandBar> bar;  // the bar, or the drop-down's own bar, that it stands in

protected:
    void CopyLooks(CommandBarControl& copy) const;
};

class CommandBarButton : public CommandBarControl {
public:
    using CommandBarControl::CommandBarControl;
    TextView ClassName() const override { return u"CommandBarButton"; }
    const MemberTable& Table() const override;
    const EventInterface* Events() const override;
    std::int32_t Type() const override { return ButtonType; }
    std::shared_ptr<CommandBarControl> Copy() const override;

    // Clicks the button as a user does. Every sink of a button that shares its tag hears it, in
    // whichever window that is. True when a handler asked to cancel the default.
    bool Click();

    std::int32_t style = 0;
    std::int32_t faceId = 0;
    ObjectPtr picture;              // Outlook 2003 and later
    ObjectPtr mask;                 // likewise; white pixels of it are transparent
    std::uintptr_t pastedFace = 0;  // what OutlookModel::pasteFace gave
};

class CommandBarPopup : public CommandBarControl {
public:
    explicit CommandBarPopup(OutlookModel& outlook) : CommandBarControl(outlook) {}
    TextView ClassName() const override { return u"CommandBarPopup"; }
    const MemberTable& Table() const override;
    std::int32_t Type() const override { return PopupType; }
    std::shared_ptr<CommandBarControl> Copy() const override;

    // The drop-down, a bar of its own.
    const std::shared_ptr<CommandBar>& Menu();

private:
    std::shared_ptr<CommandBar> menu;
};

// The Controls collection of a bar.
class CommandBarControls : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"CommandBarControls"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<CommandBarControl>> all;
    std::weak_ptr<CommandBar> bar;
};

class CommandBar : public ModelObject {
public:
    explicit CommandBar(OutlookModel& outlook, Text name = {})
        : ModelObject(outlook), name(std::move(name)) {}
    TextView ClassName() const override { return u"CommandBar"; }
    const MemberTable& Table() const override;

    const std::shared_ptr<CommandBarControls>& Controls();
    // Adds a control at the end, or before the one at the index from 1.
    void Add(const std::shared_ptr<CommandBarControl>& control, std::size_t before = 0);
    std::shared_ptr<CommandBarButton> AddButton(TextView caption, std::int32_t id = CustomId);
    std::shared_ptr<CommandBarPopup> AddPopup(TextView caption, std::int32_t id = CustomId);
    // The first control with that caption ("&" not counted), drop-downs not searched.
    std::shared_ptr<CommandBarControl> Find(TextView caption);

    Text name;
    bool visible = true;
    bool builtIn = true;
    std::weak_ptr<ModelObject> parent;  // what the bar belongs to: the window's bars or a popup

private:
    std::shared_ptr<CommandBarControls> controls;
};

// All bars of one window.
class CommandBars : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"CommandBars"; }
    const MemberTable& Table() const override;

    std::shared_ptr<CommandBar> AddBar(TextView name);
    // Null when there is none. Names are found without regard to letter case.
    std::shared_ptr<CommandBar> Find(TextView name) const;
    // Deletes every control: the window has gone.
    void Close();
    // Every button, those of drop-downs included.
    std::vector<std::shared_ptr<CommandBarButton>> Buttons() const;
    // Those bars' own controls that are not temporary come here, as after a restart.
    void TakeOver(const CommandBars& earlier);

    std::vector<std::shared_ptr<CommandBar>> all;
    std::weak_ptr<ModelObject> window;
};

}  // namespace tellwick::standin
