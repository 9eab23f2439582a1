#include "addin/cOlExplorer.h"

#include <utility>

#include "addin/Ribbon.h"
#include "platform/Clock.h"
#include "platform/Outlook.h"
#include "platform/OutlookEvents.h"
#include "platform/Product.h"
#include "settings/Debug.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

namespace {

constexpr TextView StandardBar = u"Standard";
constexpr TextView MenuBar = u"Menu Bar";
constexpr std::int32_t ButtonIdentifier = 101;
constexpr std::int32_t NoFace = -1;
constexpr std::int32_t FirstWithDeferredSetUp = 10;  // Outlook 2002
// Milliseconds.
constexpr double Slice = 5;
constexpr std::uint32_t Interval = 20;

Text CaptionOr(LanguageTexts& language, TextView key, TextView other) {
    const Text caption = language.GetLanguageString(ComponentTitle, key);
    return caption.empty() ? Text(other) : caption;
}

Text ButtonCaption(LanguageTexts& language) {
    return CaptionOr(language, u"ButtonSMS", u"New SMS");
}

}  // namespace

cOlExplorer::cOlExplorer(PendingError& errors, Debug& debug, LanguageTexts& language,
                         OlButtons& olButtons, FormT1& formT1, SmsReply& smsReply,
                         const ProcessValues& processValues, Ribbon& ribbon, Clock& clock,
                         Timers& timers, SmsOpener openSms)
    : conversation(errors),
      errors(errors),
      debug(debug),
      language(language),
      olButtons(olButtons),
      formT1(formT1),
      smsReply(smsReply),
      processValues(processValues),
      ribbon(ribbon),
      clock(clock),
      timers(timers),
      openSms(std::move(openSms)) {}

void cOlExplorer::OpenItem(const ObjectPtr& explorer, TextView progId, TextView tag) {
    objExplorer.Set(errors, explorer, outlook::ExplorerEvents,
                    [weak = weak_from_this()](std::int32_t event, std::vector<Value>&) {
                        const auto self = weak.lock();
                        if (self) self->debug.Guarded([&] { self->OnExplorerEvent(event); });
                    });
    bOpen = true;
    bMenusSet = false;
    sProgId = progId;
    sTag = tag;
}

void cOlExplorer::OpenItemOl20(const ObjectPtr& explorer, TextView progId, TextView tag) {
    bOpen = true;
    bMenusSet = false;
    sProgId = progId;
    sTag = tag;
    SetMenus(explorer);
    bMenusSet = true;
}

void cOlExplorer::OnExplorerEvent(std::int32_t event) {
    if (event == outlook::event::ExplorerActivate) {
        objExplorer_Activate();
    } else if (event == outlook::event::ExplorerSelectionChange) {
        objExplorer_SelectionChange();
    } else if (event == outlook::event::ExplorerClose) {
        objExplorer_Close();
    }
}

void cOlExplorer::objExplorer_Activate() {
    ribbon.FollowResolution();
    if (processValues.outlookVersion >= FirstWithDeferredSetUp && !bMenusSet) {
        formT1.StartT(shared_from_this());
        bMenusSet = true;
    }
}

void cOlExplorer::objExplorer_SelectionChange() {
    if (processValues.outlookVersion >= FirstWithDeferredSetUp && !bMenusSet) {
        SetMenus(objExplorer.Reference());
    }
    ForgetSelected();
    const auto selection = outlook::Explorer(errors, objExplorer.Reference()).Selection();
    if (selection.Count() != 0) {
        smsReply.Follow(objMailItem, selection.Item(1), SmsReply::Place::Explorer);
    } else if (processValues.outlookVersion >= FirstWithConversations) {
        conversation.Begin(selection, 1);
        FollowConversation();
    }
}

// In slices: Outlook waits for the event's end, and nobody replies before he has read the mail.
void cOlExplorer::FollowConversation() {
    const double end = clock.Milliseconds() + Slice;
    while (conversation.More() && clock.Milliseconds() < end) {
        if (const outlook::Item mail = conversation.Next())
            smsReply.Follow(objMailItem, mail, SmsReply::Place::Explorer);
    }
    if (!conversation.More()) {
        conversation.Clear();
        timer.reset();
    } else if (!timer) {
        timer = timers.Create();
        timer->Start(Interval, [weak = weak_from_this()] {
            const auto self = weak.lock();
            if (self) self->debug.Guarded([&] { self->FollowConversation(); });
        });
    }
}

void cOlExplorer::ForgetSelected() {
    timer.reset();
    conversation.Clear();
    objMailItem.Clear();
}

void cOlExplorer::CompleteMenus() {
    if (bOpen && !ButtonSMSNew) SetMenus(nullptr);
}

void cOlExplorer::SetMenus(const ObjectPtr& target) {
    Procedure procedure{debug, u"SetMenus"};
    if (ribbon.InExplorers()) {
        bMenusSet = true;
        return;
    }
    outlook::Explorer window(errors, nullptr);
    if (TypeName(target) == u"Explorer") {
        window = outlook::Explorer(errors, target);
    } else if (!target) {
        window = outlook::Explorer(errors, objExplorer.Reference()).Parent().ActiveExplorer();
    } else if (const outlook::Application application(errors, target);
               application.Name() == u"Outlook") {
        window = application.ActiveExplorer();
    }
    if (!window) return;

    outlook::CommandBarControl newControl(errors, nullptr);
    const outlook::CommandBars bars = window.CommandBars();
    for (std::int32_t index = 1, count = bars.Count(); index <= count; ++index) {
        const outlook::CommandBar bar = bars.Item(index);
        if (bar.Name() == StandardBar) {
            newControl = bar.Controls().Item(1);
            break;
        }
    }
    bMenusSet = true;

    SinkClicks(MenuSMSNew,
               olButtons.AddMenuItem(newControl, sProgId, CaptionOr(language, u"mNewSMS", u"SMS"),
                                     NoFace, sTag, ButtonIdentifier, true),
               &cOlExplorer::MenuSMSNew_Click);
    SinkClicks(ButtonSMSNew,
               olButtons.AddButton(window, ButtonIdentifier, sProgId, ButtonCaption(language), sTag,
                                   {.beginGroup = true, .style = 3, .position = 2}),
               &cOlExplorer::ButtonSMSNew_Click);
}

void cOlExplorer::SinkClicks(SunkObject& button, const outlook::CommandBarControl& control,
                             ClickHandler handler) {
    button.Set(
        errors, control.Reference(), outlook::CommandBarButtonEvents,
        [weak = weak_from_this(), handler](std::int32_t event, std::vector<Value>& arguments) {
            const auto self = weak.lock();
            if (self && event == outlook::event::ButtonClick) {
                self->debug.Guarded([&] { ((*self).*handler)(arguments); });
            }
        });
}

void cOlExplorer::RemoveMenus(const ObjectPtr& explorer) {
    Procedure procedure{debug, u"RemoveMenus"};
    if (TypeName(explorer) != u"Explorer") return;
    const outlook::CommandBars bars = outlook::Explorer(errors, explorer).CommandBars();
    const Text caption = ButtonCaption(language);
    const Text action = OlButtons::ActionText(sProgId);
    OlButtons::DeleteControls(
        bars.Item(StandardBar).Controls(), [&](const outlook::CommandBarControl& control) {
            return control.Caption() == caption && control.OnAction() == action;
        });
    // The entry in the menu bar is temporary and goes with Outlook.
    // Deliberate: "The menu bar is only walked".
    const outlook::CommandBarControls menus = bars.Item(MenuBar).Controls();
    for (std::int32_t index = 1, count = menus.Count(); index <= count; ++index) menus.Item(index);
}

void cOlExplorer::objExplorer_Close() {
    bOpen = false;
    debug.Guarded([this] { RemoveMenus(objExplorer.Reference()); });
    bMenusSet = false;
    ButtonSMSNew.Clear();
    MenuSMSNew.Clear();
    ForgetSelected();
    objExplorer.Clear();
}

void cOlExplorer::GiveWay() {
    debug.Guarded([this] {
        for (SunkObject* control : {&ButtonSMSNew, &MenuSMSNew}) {
            if (!*control) continue;
            errors.Clear();
            outlook::CommandBarControl(errors, control->Reference()).Delete();
            // One that stays is to go on answering.
            if (!errors) control->Clear();
        }
    });
}

void cOlExplorer::Leave() {
    GiveWay();
    objExplorer_Close();
}

void cOlExplorer::ButtonSMSNew_Click(std::vector<Value>& arguments) {
    Procedure procedure{debug, u"ButtonSMSNew_Click"};
    Click(arguments);
}

void cOlExplorer::MenuSMSNew_Click(std::vector<Value>& arguments) {
    Procedure procedure{debug, u"MenuSMSNew_Click"};
    Click(arguments);
}

// Office may raise one window's click in every window, since the buttons share a tag; opening the
// one form again is harmless.
void cOlExplorer::Click(std::vector<Value>& arguments) {
    const ObjectPtr clicked = arguments.empty() ? nullptr : AsObject(arguments[0]);
    if (outlook::CommandBarControl(errors, clicked).OnAction() == OlButtons::ActionText(sProgId)) {
        debug.Guarded([this] { NewSMS(); });
    }
    if (arguments.size() > 1) arguments[1] = true;
}

void cOlExplorer::NewSMS() {
    Procedure procedure{debug, u"NewSMS"};
    openSms(objExplorer ? outlook::Explorer(errors, objExplorer.Reference()).Parent().Reference()
                        : nullptr);
}

}  // namespace tellwick
