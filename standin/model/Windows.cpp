#include "model/Windows.h"

#include <type_traits>

#include "model/OutlookModel.h"
#include "model/Stores.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

using namespace tellwick::outlook;

template <class Type>
Members<Type> WindowMembers(std::int32_t objectClass) {
    Members<Type> members = OutlookMembers<Type>(objectClass);
    members.Property(u"Parent", [](Type& self) { return self.outlook.Application(); })
        .Property(u"Caption", [](Type& self) { return self.Caption(); })
        .Property(u"CommandBars",
                  [](Type& self) -> Value {
                      if (!self.outlook.startupComplete &&
                          self.outlook.Does(Documented::BarsAfterStartup)) {
                          return self.Fail(error::Automation);
                      }
                      return self.commandBars->Handle();
                  })
        .Method(u"Activate", {},
                [](Type& self, const Arguments&) {
                    self.outlook.Activate(Self(self));
                    return Value();
                })
        .Method(u"Display", {u"Modal"}, [](Type& self, const Arguments&) {
            self.outlook.Activate(Self(self));
            return Value();
        });
    return members.Default(u"Caption");
}

template <class Type>
MemberTable CollectionMembers(std::int32_t objectClass) {
    return OutlookMembers<Type>(objectClass)
        .Property(u"Parent", [](Type& self) { return self.outlook.Application(); })
        .Collection();
}

}  // namespace

void Window::RaiseActivate() {
    Raise(event::ExplorerActivate);
}

void Window::RaiseDeactivate() {
    Raise(event::ExplorerDeactivate);
}

void Window::RaiseClose() {
    Raise(event::ExplorerClose);
}

const MemberTable& Explorer::Table() const {
    static const MemberTable table =
        WindowMembers<Explorer>(34)
            .Property(
                u"CurrentFolder", [](Explorer& self) { return self.folder->Handle(); },
                [](Explorer& self, const Value& value) {
                    const auto folder = TargetAs<Folder>(AsObject(value));
                    if (folder) {
                        self.outlook.SwitchFolder(Self(self), folder);
                    } else {
                        self.Fail(error::TypeMismatch);
                    }
                })
            .Property(u"Selection",
                      [](Explorer& self) { return std::make_shared<Selection>(self)->Handle(); })
            .Method(u"Close", {},
                    [](Explorer& self, const Arguments&) {
                        self.outlook.CloseExplorer(Self(self));
                        return Value();
                    })
            .Property(u"NavigationPane",
                      [](Explorer& self) {
                          return std::make_shared<NavigationPane>(self.outlook)->Handle();
                      })
            .From(12);
    return table;
}

const EventInterface* Explorer::Events() const {
    return &ExplorerEvents;
}

Text Explorer::Caption() const {
    return folder->name + u" - Microsoft Outlook";
}

std::shared_ptr<CommandBarControl> Explorer::ToolbarControl(TextView caption) const {
    return commandBars->Find(u"Standard")->Find(caption);
}

std::shared_ptr<CommandBar> Explorer::NewMenu() const {
    const auto& controls = commandBars->Find(u"Standard")->Controls()->all;
    const auto popup =
        controls.empty() ? nullptr : std::dynamic_pointer_cast<CommandBarPopup>(controls[0]);
    return popup ? popup->Menu() : nullptr;
}

std::shared_ptr<CommandBarControl> Explorer::NewMenuEntry(TextView caption) const {
    const auto menu = NewMenu();
    return menu ? menu->Find(caption) : nullptr;
}

const MemberTable& Inspector::Table() const {
    static const MemberTable table =
        WindowMembers<Inspector>(35)
            .Property(u"CurrentItem", [](Inspector& self) { return self.item->Handle(); })
            .Method(u"Close", {u"SaveMode"}, [](Inspector& self, const Arguments&) {
                self.outlook.CloseInspector(Self(self));
                return Value();
            });
    return table;
}

const EventInterface* Inspector::Events() const {
    return &InspectorEvents;
}

Text Inspector::Caption() const {
    return item->Title() + (item->itemClass == MailClass ? u" - Message" : u"");
}

template <>
TextView WindowCollection<Explorer>::ClassName() const {
    return u"Explorers";
}

template <>
TextView WindowCollection<Inspector>::ClassName() const {
    return u"Inspectors";
}

template <class Type>
const MemberTable& WindowCollection<Type>::Table() const {
    static const MemberTable table =
        CollectionMembers<WindowCollection<Type>>(std::is_same_v<Type, Explorer> ? 60 : 61);
    return table;
}

template const MemberTable& WindowCollection<Explorer>::Table() const;
template const MemberTable& WindowCollection<Inspector>::Table() const;

template <>
const EventInterface* WindowCollection<Explorer>::Events() const {
    return &ExplorersEvents;
}

template <>
const EventInterface* WindowCollection<Inspector>::Events() const {
    return &InspectorsEvents;
}

const MemberTable& ConversationHeader::Table() const {
    static const MemberTable table = OutlookMembers<ConversationHeader>(182).Method(
        u"GetItems", {}, [](ConversationHeader& self, const Arguments&) {
            return std::make_shared<SimpleItems>(self.outlook, self.mails)->Handle();
        });
    return table;
}

const MemberTable& SimpleItems::Table() const {
    static const MemberTable table = CollectionMembers<SimpleItems>(179);
    return table;
}

Selection::Selection(const Explorer& explorer)
    : ModelObject(explorer.outlook),
      all(explorer.selection.begin(), explorer.selection.end()),
      conversations(explorer.conversations) {}

const MemberTable& Selection::Table() const {
    constexpr std::int32_t ConversationHeaders = 1;
    static const MemberTable table = [] {
        auto members = OutlookMembers<Selection>(74);
        members.Property(u"Parent", [](Selection& self) { return self.outlook.Application(); })
            .Collection()
            .Method(u"GetSelection", {u"SelectionContents"},
                    [](Selection& self, const Arguments& arguments) -> Value {
                        std::int32_t contents = 0;
                        if (!Convert(arguments[0], contents) || contents != ConversationHeaders)
                            return self.Fail(error::InvalidCall);
                        const auto headers = std::make_shared<Selection>(self.outlook);
                        headers->all.assign(self.conversations.begin(), self.conversations.end());
                        return headers->Handle();
                    })
            .From(14);
        return members;
    }();
    return table;
}

}  // namespace tellwick::standin
