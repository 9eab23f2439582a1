#include "addin/Ribbon.h"

#include <array>
#include <optional>
#include <utility>

#include "addin/SmsForward.h"
#include "addin/SmsReminder.h"
#include "addin/SmsReply.h"
#include "compose/FormSmsSend.h"
#include "platform/Bitmaps.h"
#include "platform/Outlook.h"
#include "platform/Product.h"
#include "recipients/RecipientLookup.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr std::int32_t FirstWithContextMenus = 14;  // Outlook 2010
constexpr std::int32_t SmsIcon = 1;                 // the resource
// Sides of pictures in pixels at 96 dots per inch.
constexpr std::int32_t LargePicture = 32;
constexpr std::int32_t SmallPicture = 16;

// A button of the ribbon. Its tag is the key of its label in the language file, which heads its
// screen tip, too; with ".ToolTip" behind it, of the explanation below that.
Text RibbonButton(TextView id, TextView key, TextView action) {
    return Text(
               u"<button size=\"large\" getImage=\"Ribbon_getLargeImage\""
               u" getLabel=\"Ribbon_getLabel\" getScreentip=\"Ribbon_getLabel\""
               u" getSupertip=\"Ribbon_getSupertip\" id=\"")
        .append(id)
        .append(u"\" tag=\"")
        .append(key)
        .append(u"\" onAction=\"")
        .append(action)
        .append(u"\"/>");
}

// A group of its own on one of Outlook's tabs: behind one of Outlook's groups or, where none is
// named, at the end.
Text TabWith(TextView tab, TextView behind, TextView id, const Text& buttons) {
    Text xml = Text(u"<tab idMso=\"").append(tab).append(u"\"><group id=\"SMSGroup").append(id);
    if (!behind.empty()) xml.append(u"\" insertAfterMso=\"").append(behind);
    return xml.append(u"\" getLabel=\"Ribbon_getGroupLabel\">").append(buttons) + u"</group></tab>";
}

// The identifier is unique with the menu's name behind it.
Text MenuEntry(TextView menu, TextView id, TextView key, TextView action) {
    return Text(u"<button getImage=\"Ribbon_getSmallImage\" getLabel=\"Ribbon_getLabel\" tag=\"")
        .append(key)
        .append(u"\" onAction=\"")
        .append(action)
        .append(u"\" id=\"")
        .append(id)
        .append(menu)
        .append(u"\"/>");
}

Text ExplorerTabs() {
    constexpr TextView Key = u"ButtonSMS";
    constexpr TextView Action = u"RibbonSMSNew_Click";
    return TabWith(u"TabMail", u"GroupMailNew", u"Mail", RibbonButton(u"SMSNewMail", Key, Action)) +
           TabWith(u"TabContacts", {}, u"Contacts", RibbonButton(u"SMSNewContacts", Key, Action)) +
           TabWith(u"TabCalendar", {}, u"Calendar", RibbonButton(u"SMSNewCalendar", Key, Action));
}

Text ExplorerMenus() {
    Text menus;
    for (const TextView menu : {u"ContextMenuMailItem", u"ContextMenuContactItem",
                                u"ContextMenuFlaggedContactItem", u"ContextMenuMultipleItems"}) {
        menus.append(u"<contextMenu idMso=\"").append(menu).append(u"\">");
        menus += MenuEntry(menu, u"SMS", u"RibbonMenu", u"RibbonSMSContact_Click");
        if (menu == u"ContextMenuMailItem")
            menus += MenuEntry(menu, u"SMSForward", u"RibbonForward", u"RibbonSMSForward_Click");
        menus += u"</contextMenu>";
    }
    constexpr TextView Calendar = u"ContextMenuCalendarItem";
    menus.append(u"<contextMenu idMso=\"").append(Calendar).append(u"\">");
    menus += MenuEntry(Calendar, u"SMSReminder", u"RibbonReminder", u"RibbonSMSReminder_Click");
    menus += u"</contextMenu>";
    return u"<contextMenus>" + menus + u"</contextMenus>";
}

}  // namespace

struct Ribbon::Callback {
    TextView name;
    Value (Ribbon::*run)(const ObjectPtr&);
};

std::span<const Ribbon::Callback> Ribbon::Callbacks() {
    static constexpr Callback callbacks[] = {
        {u"Ribbon_onLoad", &Ribbon::Ribbon_onLoad},
        {u"Ribbon_getGroupLabel", &Ribbon::Ribbon_getGroupLabel},
        {u"Ribbon_getLabel", &Ribbon::Ribbon_getLabel},
        {u"Ribbon_getSupertip", &Ribbon::Ribbon_getSupertip},
        {u"Ribbon_getLargeImage", &Ribbon::Ribbon_getLargeImage},
        {u"Ribbon_getSmallImage", &Ribbon::Ribbon_getSmallImage},
        {u"RibbonSMSNew_Click", &Ribbon::RibbonSMSNew_Click},
        {u"RibbonSMSReply_Click", &Ribbon::RibbonSMSReply_Click},
        {u"RibbonSMSForward_Click", &Ribbon::RibbonSMSForward_Click},
        {u"RibbonSMSReminder_Click", &Ribbon::RibbonSMSReminder_Click},
        {u"RibbonSMSContact_Click", &Ribbon::RibbonSMSContact_Click}};
    return callbacks;
}

Ribbon::Ribbon(PendingError& errors, Debug& debug, LanguageTexts& language, Bitmaps& bitmaps,
               RecipientLookup& recipientLookup, SmsReply& smsReply, SmsForward& smsForward,
               SmsReminder& smsReminder, FormSmsSend& formSmsSend)
    : errors(errors),
      debug(debug),
      language(language),
      bitmaps(bitmaps),
      recipientLookup(recipientLookup),
      smsReply(smsReply),
      smsForward(smsForward),
      smsReminder(smsReminder),
      formSmsSend(formSmsSend) {}

Text Ribbon::GetCustomUI(TextView ribbonId, std::int32_t outlookVersion, Connection connection) {
    Procedure procedure{debug, u"GetCustomUI"};
    const bool isExplorer = ribbonId == u"Microsoft.Outlook.Explorer";
    Text tabs;
    Text menus;
    if (isExplorer) {
        tabs = ExplorerTabs();
        menus = ExplorerMenus();
    } else if (ribbonId == u"Microsoft.Outlook.Mail.Read") {
        tabs =
            TabWith(u"TabReadMessage", u"GroupRespond", u"Read",
                    RibbonButton(u"SMSReply", u"RibbonReply", u"RibbonSMSReply_Click") +
                        RibbonButton(u"SMSForward", u"RibbonForward", u"RibbonSMSForward_Click"));
    } else if (ribbonId == u"Microsoft.Outlook.Contact") {
        tabs = TabWith(u"TabContact", {}, u"Contact",
                       RibbonButton(u"SMSContact", u"RibbonContact", u"RibbonSMSContact_Click"));
    } else if (ribbonId == u"Microsoft.Outlook.Appointment") {
        tabs = TabWith(u"TabAppointment", {}, u"Appointment",
                       RibbonButton(u"SMSReminder", u"RibbonReminder", u"RibbonSMSReminder_Click"));
    } else {
        return {};
    }
    const bool live = connection == Connection::Live;
    Text xml = Text(u"<customUI")
                   .append(live ? u" onLoad=\"Ribbon_onLoad\"" : u"")
                   .append(u" xmlns=\"http://schemas.microsoft.com/office/")
                   .append(outlookVersion < FirstWithContextMenus ? u"2006/01" : u"2009/07")
                   .append(u"/customui\"><ribbon><tabs>")
                   .append(tabs)
                   .append(u"</tabs></ribbon>")
                   .append(menus)
                   .append(u"</customUI>");
    inExplorers = inExplorers || (live && isExplorer);
    return xml;
}

std::span<const TextView> Ribbon::CallbackNames() {
    static const auto names = [] {
        std::vector<TextView> all;
        for (const Callback& callback : Callbacks()) all.push_back(callback.name);
        return all;
    }();
    return names;
}

Value Ribbon::Call(std::size_t callback, const ObjectPtr& argument) {
    Value result;
    debug.Guarded([&] {
        const Callback& called = Callbacks()[callback];
        Procedure procedure{debug, called.name};
        result = (this->*called.run)(argument);
    });
    return result;
}

void Ribbon::FollowResolution() {
    if (ribbons.empty() || pictureResolution == 0) return;
    const std::int32_t resolution = bitmaps.Resolution();
    if (std::exchange(pictureResolution, resolution) == resolution) return;
    // Held here: Office asks for the pictures from within.
    const std::vector<ObjectPtr> loaded = ribbons;
    for (const ObjectPtr& ribbon : loaded) tellwick::Call(errors, ribbon, u"Invalidate");
}

void Ribbon::Release() {
    ribbons.clear();
    pictureResolution = 0;
    inExplorers = false;
}

Value Ribbon::Ribbon_onLoad(const ObjectPtr& ribbon) {
    ribbons.push_back(ribbon);
    return {};
}

Value Ribbon::Ribbon_getGroupLabel(const ObjectPtr&) {
    return language.TextOrBuiltIn(ComponentTitle, u"RibbonGroup");
}

Value Ribbon::Ribbon_getLabel(const ObjectPtr& control) {
    return language.TextOrBuiltIn(ComponentTitle, TagOf(control));
}

Value Ribbon::Ribbon_getSupertip(const ObjectPtr& control) {
    return language.TextOrBuiltIn(ComponentTitle, TagOf(control) + u".ToolTip");
}

Value Ribbon::Ribbon_getLargeImage(const ObjectPtr&) {
    return Image(LargePicture);
}

Value Ribbon::Ribbon_getSmallImage(const ObjectPtr&) {
    return Image(SmallPicture);
}

Value Ribbon::RibbonSMSNew_Click(const ObjectPtr& control) {
    ObjectPtr application = outlook::Explorer(errors, ContextOf(control)).Parent().Reference();
    if (smsReminder.OpenSelected(application)) return {};
    const Text recipients = recipientLookup.LookInSelection(application);
    application.reset();
    formSmsSend.Open(recipients);
    return {};
}

// What is not needed any more is not held when the form opens, which may ask the user something
// first.
Value Ribbon::RibbonSMSReply_Click(const ObjectPtr& control) {
    ObjectPtr mail = outlook::Inspector(errors, ContextOf(control)).CurrentItem().Reference();
    if (const auto parts = smsReply.PartsOf(mail)) {
        mail.reset();
        smsReply.Open(*parts, SmsReply::Place::Inspector);
    } else {
        const Text recipient = recipientLookup.LookInItem(mail);
        mail.reset();
        formSmsSend.Open(recipient);
    }
    return {};
}

Value Ribbon::RibbonSMSForward_Click(const ObjectPtr& control) {
    smsForward.Open(ItemOf(control));
    return {};
}

Value Ribbon::RibbonSMSReminder_Click(const ObjectPtr& control) {
    ObjectPtr context = ContextOf(control);
    if (TypeName(context) == u"Inspector") {
        ObjectPtr appointment = outlook::Inspector(errors, context).CurrentItem().Reference();
        context.reset();
        smsReminder.Open(std::move(appointment), RecipientLookup::Origin::Connection);
    } else if (!smsReminder.OpenItems(context, RecipientLookup::Origin::Connection)) {
        formSmsSend.Open({});
    }
    return {};
}

Value Ribbon::RibbonSMSContact_Click(const ObjectPtr& control) {
    ObjectPtr context = ContextOf(control);
    const bool isInspector = TypeName(context) == u"Inspector";
    if (!isInspector && smsReminder.OpenItems(context, RecipientLookup::Origin::Connection))
        return {};
    const Text recipients = isInspector
                                ? recipientLookup.LookInItem(
                                      outlook::Inspector(errors, context).CurrentItem().Reference())
                                : recipientLookup.LookInItems(context);
    context.reset();
    formSmsSend.Open(recipients);
    return {};
}

ObjectPtr Ribbon::ContextOf(const ObjectPtr& control) {
    return AsObject(Get(errors, control, u"Context"));
}

// The item of the window, or the first one selected.
ObjectPtr Ribbon::ItemOf(const ObjectPtr& control) {
    const ObjectPtr context = ContextOf(control);
    return (TypeName(context) == u"Inspector" ? outlook::Inspector(errors, context).CurrentItem()
                                              : outlook::Selection(errors, context).Item(1))
        .Reference();
}

Text Ribbon::TagOf(const ObjectPtr& control) {
    return AsText(Get(errors, control, u"Tag"));
}

Value Ribbon::Image(std::int32_t size) {
    pictureResolution = bitmaps.Resolution();
    return bitmaps.CreateIconPicture(SmsIcon, size);
}

}  // namespace tellwick
