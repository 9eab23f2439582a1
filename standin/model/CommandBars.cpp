#include "model/CommandBars.h"

#include <algorithm>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

template <class Control>
Members<Control> ControlMembers() {
    Members<Control> members;
    members.Property(u"Application", [](Control& self) { return self.outlook.Application(); })
        .Property(u"Parent", [](Control& self) { return HandleOf(self.bar.lock()); })
        .Property(u"BuiltIn", [](Control& self) { return self.BuiltIn(); })
        .Property(u"Id", [](Control& self) { return self.id; })
        .Property(u"Type", [](Control& self) { return self.Type(); })
        .Property(u"Index",
                  [](Control& self) -> Value {
                      const auto bar = self.bar.lock();
                      if (!bar) return 0;
                      const auto& all = bar->Controls()->all;
                      for (std::size_t index = 0; index < all.size(); ++index) {
                          if (all[index].get() == &self) return std::int32_t(index + 1);
                      }
                      return 0;
                  })
        .Field(u"Caption", &Control::caption)
        .Field(u"Tag", &Control::tag)
        .Field(u"Parameter", &Control::parameter)
        .Field(u"OnAction", &Control::onAction)
        .Field(u"TooltipText", &Control::toolTipText)
        .Field(u"BeginGroup", &Control::beginGroup)
        .Field(u"Visible", &Control::visible)
        .Field(u"Enabled", &Control::enabled)
        .Property(
            u"OLEUsage", [](Control& self) { return self.oleUsage; },
            [](Control& self, const Value& value) {
                std::int32_t usage = 0;
                if (!Convert(value, usage)) {
                    self.Fail(error::TypeMismatch);
                } else if (usage < 0 || usage > 3) {
                    self.Fail(error::InvalidCall);
                } else {
                    self.oleUsage = usage;
                }
            })
        .Method(u"Delete", {u"Temporary"}, [](Control& self, const Arguments&) {
            self.Delete();
            return Value();
        });
    return members;
}

bool IsButtonStyle(std::int32_t style) {
    return (style >= 0 && style <= 3) || style == 7 || (style >= 11 && style <= 15);
}

void SetStyle(CommandBarButton& button, const Value& value) {
    std::int32_t style = 0;
    if (!Convert(value, style)) {
        button.Fail(error::TypeMismatch);
    } else if (!IsButtonStyle(style)) {
        button.Fail(error::InvalidCall);
    } else {
        button.style = style;
    }
}

void PasteFace(CommandBarButton& button) {
    const std::uintptr_t face = button.outlook.pasteFace ? button.outlook.pasteFace() : 0;
    if (face == 0) {
        button.Fail(error::Automation);
        return;
    }
    button.pastedFace = face;
    button.outlook.Changed();
}

// Controls.Add
Value AddControl(CommandBarControls& self, const Arguments& arguments) {
    enum { Type, Id, Parameter, Before, Temporary };
    const auto isMissing = [&](int argument) {
        return std::holds_alternative<std::monostate>(arguments[std::size_t(argument)]);
    };
    std::int32_t type = ButtonType;
    std::int32_t id = CustomId;
    std::int32_t before = 0;
    Text parameter;
    bool temporary = false;
    if ((!isMissing(Type) && !Convert(arguments[Type], type)) ||
        (!isMissing(Id) && !Convert(arguments[Id], id)) ||
        (!isMissing(Before) && !Convert(arguments[Before], before)) ||
        !Convert(arguments[Parameter], parameter) || !Convert(arguments[Temporary], temporary)) {
        return self.Fail(error::TypeMismatch);
    }
    const bool isPlace =
        isMissing(Before) || (before >= 1 && std::size_t(before) <= self.all.size() + 1);
    const auto bar = self.bar.lock();
    if (!bar || !isPlace || (type != ButtonType && type != PopupType)) {
        return self.Fail(error::InvalidCall);
    }
    std::shared_ptr<CommandBarControl> control;
    if (type == ButtonType) {
        control = std::make_shared<CommandBarButton>(self.outlook);
    } else {
        control = std::make_shared<CommandBarPopup>(self.outlook);
    }
    control->id = id;
    control->parameter = parameter;
    control->temporary = temporary;
    bar->Add(control, std::size_t(before));
    return control->Handle();
}

void CollectButtons(CommandBar& bar, std::vector<std::shared_ptr<CommandBarButton>>& buttons) {
    for (const auto& control : bar.Controls()->all) {
        if (auto button = std::dynamic_pointer_cast<CommandBarButton>(control)) {
            buttons.push_back(std::move(button));
        } else if (const auto popup = std::dynamic_pointer_cast<CommandBarPopup>(control)) {
            CollectButtons(*popup->Menu(), buttons);
        }
    }
}

void DeleteAll(CommandBar& bar) {
    const auto all = bar.Controls()->all;
    for (const auto& control : all) {
        if (const auto popup = std::dynamic_pointer_cast<CommandBarPopup>(control)) {
            DeleteAll(*popup->Menu());
        }
        control->Delete();
    }
}

// Copies the bar's own controls that are to be remembered, and those of its drop-downs.
void CopyRemembered(CommandBar& from, CommandBar& to) {
    for (const auto& control : from.Controls()->all) {
        const auto popup = std::dynamic_pointer_cast<CommandBarPopup>(control);
        std::shared_ptr<CommandBarControl> copy;
        if (!control->BuiltIn() && !control->temporary) {
            copy = control->Copy();
            to.Add(copy);
        } else if (popup && control->BuiltIn()) {
            copy = to.Find(control->caption);
        }
        const auto copiedPopup = std::dynamic_pointer_cast<CommandBarPopup>(copy);
        if (popup && copiedPopup) CopyRemembered(*popup->Menu(), *copiedPopup->Menu());
    }
}

}  // namespace

void CommandBarControl::Delete() {
    deleted = true;
    if (const auto inside = bar.lock()) {
        std::erase_if(inside->Controls()->all,
                      [this](const auto& control) { return control.get() == this; });
    }
    outlook.Changed();
}

void CommandBarControl::CopyLooks(CommandBarControl& copy) const {
    copy.id = id;
    copy.tag = tag;
    copy.caption = caption;
    copy.parameter = parameter;
    copy.onAction = onAction;
    copy.toolTipText = toolTipText;
    copy.oleUsage = oleUsage;
    copy.beginGroup = beginGroup;
    copy.visible = visible;
    copy.enabled = enabled;
}

const MemberTable& CommandBarButton::Table() const {
    static const MemberTable table =
        ControlMembers<CommandBarButton>()
            .Property(
                u"Style", [](CommandBarButton& self) { return self.style; }, SetStyle)
            .Field(u"FaceId", &CommandBarButton::faceId)
            .Field(u"Picture", &CommandBarButton::picture)
            .From(11)
            .Field(u"Mask", &CommandBarButton::mask)
            .From(11)
            .Method(u"PasteFace", {},
                    [](CommandBarButton& self, const Arguments&) {
                        PasteFace(self);
                        return Value();
                    })
            .Method(u"Execute", {}, [](CommandBarButton& self, const Arguments&) {
                self.Click();
                return Value();
            });
    return table;
}

const EventInterface* CommandBarButton::Events() const {
    return &tellwick::outlook::CommandBarButtonEvents;
}

std::shared_ptr<CommandBarControl> CommandBarButton::Copy() const {
    auto copy = std::make_shared<CommandBarButton>(outlook);
    CopyLooks(*copy);
    copy->style = style;
    copy->faceId = faceId;
    copy->picture = picture;
    copy->mask = mask;
    copy->pastedFace = pastedFace;
    return copy;
}

bool CommandBarButton::Click() {
    std::vector<std::weak_ptr<Sink>> sinks;
    if (tag.empty()) {
        sinks = Sinks();
    } else {
        for (const auto& button : outlook.Buttons()) {
            if (button->tag != tag) continue;
            const auto more = button->Sinks();
            sinks.insert(sinks.end(), more.begin(), more.end());
        }
    }
    Arguments arguments{Handle(), false};
    RaiseTo(sinks, tellwick::outlook::event::ButtonClick, arguments);
    return AsBoolean(arguments[1]);
}

const MemberTable& CommandBarPopup::Table() const {
    static const MemberTable table =
        ControlMembers<CommandBarPopup>()
            .Property(u"Controls",
                      [](CommandBarPopup& self) { return self.Menu()->Controls()->Handle(); })
            .Property(u"CommandBar", [](CommandBarPopup& self) { return self.Menu()->Handle(); });
    return table;
}

const std::shared_ptr<CommandBar>& CommandBarPopup::Menu() {
    if (!menu) {
        menu = std::make_shared<CommandBar>(outlook, caption);
        menu->parent = weak_from_this();
    }
    return menu;
}

std::shared_ptr<CommandBarControl> CommandBarPopup::Copy() const {
    auto copy = std::make_shared<CommandBarPopup>(outlook);
    CopyLooks(*copy);
    return copy;
}

const MemberTable& CommandBarControls::Table() const {
    static const MemberTable table =
        Members<CommandBarControls>()
            .Property(u"Application",
                      [](CommandBarControls& self) { return self.outlook.Application(); })
            .Property(u"Parent", [](CommandBarControls& self) { return HandleOf(self.bar.lock()); })
            .Property(u"Count",
                      [](CommandBarControls& self) { return std::int32_t(self.all.size()); })
            .Indexed(u"Item", {u"Index"},
                     [](CommandBarControls& self, const Arguments& arguments) -> Value {
                         const auto* name = std::get_if<Text>(&arguments[0]);
                         if (!name) return ItemAt(self, self.all, arguments[0]);
                         const auto bar = self.bar.lock();
                         const auto control = bar ? bar->Find(*name) : nullptr;
                         return control ? control->Handle() : self.Fail(error::InvalidCall);
                     })
            .Method(u"Add", {u"Type", u"Id", u"Parameter", u"Before", u"Temporary"}, AddControl);
    return table;
}

const MemberTable& CommandBar::Table() const {
    static const MemberTable table =
        Members<CommandBar>()
            .Property(u"Application", [](CommandBar& self) { return self.outlook.Application(); })
            .Property(u"Parent", [](CommandBar& self) { return HandleOf(self.parent.lock()); })
            .Property(u"Controls", [](CommandBar& self) { return self.Controls()->Handle(); })
            .Property(u"Name", [](CommandBar& self) { return self.name; })
            .Property(u"BuiltIn", [](CommandBar& self) { return self.builtIn; })
            .Field(u"Visible", &CommandBar::visible);
    return table;
}

const std::shared_ptr<CommandBarControls>& CommandBar::Controls() {
    if (!controls) {
        controls = std::make_shared<CommandBarControls>(outlook);
        controls->bar = std::static_pointer_cast<CommandBar>(shared_from_this());
    }
    return controls;
}

void CommandBar::Add(const std::shared_ptr<CommandBarControl>& control, std::size_t before) {
    auto& all = Controls()->all;
    control->bar = std::static_pointer_cast<CommandBar>(shared_from_this());
    const std::size_t at = before >= 1 && before <= all.size() ? before - 1 : all.size();
    all.insert(all.begin() + std::ptrdiff_t(at), control);
    outlook.Changed();
}

std::shared_ptr<CommandBarButton> CommandBar::AddButton(TextView caption, std::int32_t id) {
    auto button = std::make_shared<CommandBarButton>(outlook);
    button->caption = caption;
    button->id = id;
    button->style = 3;
    Add(button);
    return button;
}

std::shared_ptr<CommandBarPopup> CommandBar::AddPopup(TextView caption, std::int32_t id) {
    auto popup = std::make_shared<CommandBarPopup>(outlook);
    popup->caption = caption;
    popup->id = id;
    Add(popup);
    return popup;
}

std::shared_ptr<CommandBarControl> CommandBar::Find(TextView caption) {
    const Text wanted = ReplaceAll(caption, u"&", u"");
    for (const auto& control : Controls()->all) {
        if (EqualFolded(ReplaceAll(control->caption, u"&", u""), wanted)) return control;
    }
    return nullptr;
}

const MemberTable& CommandBars::Table() const {
    static const MemberTable table =
        Members<CommandBars>()
            .Property(u"Application", [](CommandBars& self) { return self.outlook.Application(); })
            .Property(u"Parent", [](CommandBars& self) { return HandleOf(self.window.lock()); })
            .Property(u"Count", [](CommandBars& self) { return std::int32_t(self.all.size()); })
            .Indexed(u"Item", {u"Index"},
                     [](CommandBars& self, const Arguments& arguments) -> Value {
                         const auto* name = std::get_if<Text>(&arguments[0]);
                         if (!name) return ItemAt(self, self.all, arguments[0]);
                         const auto bar = self.Find(*name);
                         return bar ? bar->Handle() : self.Fail(error::InvalidCall);
                     });
    return table;
}

std::shared_ptr<CommandBar> CommandBars::AddBar(TextView name) {
    auto bar = std::make_shared<CommandBar>(outlook, Text(name));
    bar->parent = weak_from_this();
    all.push_back(bar);
    outlook.Changed();
    return bar;
}

std::shared_ptr<CommandBar> CommandBars::Find(TextView name) const {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const auto& bar) { return EqualFolded(bar->name, name); });
    return found == all.end() ? nullptr : *found;
}

void CommandBars::Close() {
    for (const auto& bar : all) DeleteAll(*bar);
}

std::vector<std::shared_ptr<CommandBarButton>> CommandBars::Buttons() const {
    std::vector<std::shared_ptr<CommandBarButton>> buttons;
    for (const auto& bar : all) CollectButtons(*bar, buttons);
    return buttons;
}

void CommandBars::TakeOver(const CommandBars& earlier) {
    for (const auto& from : earlier.all) {
        auto to = Find(from->name);
        if (!to) {
            to = AddBar(from->name);
            to->builtIn = from->builtIn;
        }
        CopyRemembered(*from, *to);
    }
}

}  // namespace tellwick::standin
