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
    return members.Default(u"Caption");
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

}  // namespace tellwick::standin
