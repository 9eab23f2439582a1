#include "model/CommandBars.h"

#include <algorithm>

#include "model/OutlookModel.h"

namespace tellwick::standin {

namespace {

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

// Their FindControl: the first one that fits every argument given; null when there is none.
ObjectPtr FindControl(CommandBar& bar, const Arguments& arguments, bool recursive) {
    const auto fits = [&](std::size_t argument, const Value& value) {
        return std::holds_alternative<std::monostate>(arguments[argument]) ||
               AsText(arguments[argument]) == AsText(value);
    };
    for (const auto& control : bar.Controls()->all) {
        if (fits(0, control->Type()) && fits(1, control->id) && fits(2, control->tag) &&
            (!AsBoolean(arguments[3]) || control->visible)) {
            return control->Handle();
        }
        const auto popup = std::dynamic_pointer_cast<CommandBarPopup>(control);
        if (!popup || !recursive) continue;
        if (auto found = FindControl(*popup->Menu(), arguments, recursive)) return found;
    }
    return nullptr;
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

const MemberTable& CommandBarControls::Table() const {
    static const MemberTable table =
        Members<CommandBarControls>()
            .Property(u"Application",
                      [](CommandBarControls& self) { return self.outlook.Application(); })
            .Property(u"Parent", [](CommandBarControls& self) { return HandleOf(self.bar.lock()); })
            .Collection(
                [](CommandBarControls& self, const Text& name) -> Value {
                    const auto bar = self.bar.lock();
                    const auto control = bar ? bar->Find(name) : nullptr;
                    return control ? control->Handle() : self.Fail(error::InvalidCall);
                },
                false)
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
            .Field(u"Visible", &CommandBar::visible)
            .Default(u"Name")
            .Method(u"FindControl", {u"Type", u"Id", u"Tag", u"Visible", u"Recursive"},
                    [](CommandBar& self, const Arguments& arguments) -> Value {
                        return FindControl(self, arguments, AsBoolean(arguments[4]));
                    });
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
            .Collection(
                [](CommandBars& self, const Text& name) -> Value {
                    const auto bar = self.Find(name);
                    return bar ? bar->Handle() : self.Fail(error::InvalidCall);
                },
                false)
            .Property(u"ActiveMenuBar",
                      [](CommandBars& self) { return HandleOf(self.Find(u"Menu Bar")); })
            .Method(u"FindControl", {u"Type", u"Id", u"Tag", u"Visible"},
                    [](CommandBars& self, const Arguments& arguments) -> Value {
                        for (const auto& bar : self.all) {
                            if (auto found = FindControl(*bar, arguments, true)) return found;
                        }
                        return ObjectPtr();
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
