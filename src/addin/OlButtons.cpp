#include "addin/OlButtons.h"

#include <vector>

#include "platform/Product.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

using outlook::CommandBarControl;

constexpr std::int32_t TypeButton = 1;
constexpr std::int32_t UsageBoth = 3;
constexpr std::int32_t StyleIconAndCaption = 3;
constexpr std::int32_t MaskOffset = 100;       // a face's mask is the bitmap 100 behind it
constexpr std::int32_t FirstWithPicture = 11;  // Outlook 2003 takes Picture and Mask
constexpr std::int32_t FirstToKeepClipboard = 12;
constexpr int MostPastes = 10;
constexpr std::uint32_t PastePause = 20;  // milliseconds
constexpr TextView ControlTag = u"101";

}  // namespace

OlButtons::OlButtons(PendingError& errors, RegEdit& regEdit, Bitmaps& bitmaps,
                     MessageLoop& messageLoop)
    : errors(errors), regEdit(regEdit), bitmaps(bitmaps), messageLoop(messageLoop) {}

Text OlButtons::ActionText(TextView progId) {
    return Text(u"<!").append(progId).append(u">");
}

void OlButtons::DeleteControls(const outlook::CommandBarControls& controls,
                               const std::function<bool(const CommandBarControl&)>& isOwn) {
    std::vector<CommandBarControl> own;
    for (std::int32_t index = 1, count = controls.Count(); index <= count; ++index) {
        const CommandBarControl control = controls.Item(index);
        if (control && !control.BuiltIn() && isOwn(control)) own.push_back(control);
    }
    for (const CommandBarControl& control : own) control.Delete();
}

CommandBarControl OlButtons::AddButton(const outlook::Explorer& explorer, std::int32_t identifier,
                                       TextView progId, TextView caption, TextView tag,
                                       const ButtonDefaults& defaults) {
    // The user's placement of the button, written by the sender application.
    const auto placement = [&](TextView prefix) {
        return regEdit.ReadValue(Hive::CurrentUser, AddInKey,
                                 Text(prefix) + NumberText(identifier));
    };
    const outlook::CommandBars bars = explorer.CommandBars();
    const Text barName = placement(u"Bar");
    outlook::CommandBar bar = bars.Item(barName.empty() ? TextView(u"Standard") : barName);
    if (!bar) bar = bars.Item(u"Standard");
    const outlook::CommandBarControls controls = bar.Controls();
    const Text action = ActionText(progId);

    // Left behind when Outlook ended abnormally.
    DeleteControls(controls, [&](const CommandBarControl& control) {
        return control.Tag() == ControlTag && control.OnAction() == action;
    });

    const Text position = placement(u"Pos");
    const std::int32_t before = position.empty() ? defaults.position : LeadingNumber32(position);
    const CommandBarControl button =
        before < 1 ? controls.Add(TypeButton, {}) : controls.Add(TypeButton, before);
    button.SetParameter(tag);
    button.SetCaption(caption);
    button.SetOleUsage(UsageBoth);
    const Text style = placement(u"Style");
    button.SetStyle(style.empty() ? defaults.style : LeadingNumber32(style));
    const Text separator = placement(u"Sep");
    button.SetBeginGroup(separator.empty() ? defaults.beginGroup : LeadingNumber(separator) != 0);
    button.SetOnAction(action);
    button.SetFaceId(0);
    SetFace(button, identifier, SystemColour::Menu);
    button.SetVisible(true);
    button.SetTag(ControlTag);
    return button;
}

CommandBarControl OlButtons::AddMenuItem(const CommandBarControl& parent, TextView progId,
                                         TextView caption, std::int32_t faceNumber, TextView tag,
                                         std::int32_t picture, bool beginGroup) {
    const CommandBarControl entry = parent.Controls().Add({}, {});
    entry.SetParameter(tag);
    entry.SetCaption(caption);
    entry.SetOleUsage(UsageBoth);
    entry.SetStyle(StyleIconAndCaption);
    entry.SetBeginGroup(beginGroup);
    entry.SetOnAction(ActionText(progId));
    if (faceNumber >= 0) entry.SetFaceId(faceNumber);
    if (picture != 0) SetFace(entry, picture, SystemColour::Number0);
    entry.SetVisible(true);
    entry.SetTag(ControlTag);
    return entry;
}

void OlButtons::SetFace(const CommandBarControl& control, std::int32_t picture,
                        SystemColour lightGrey) {
    const std::int32_t version = LeadingNumber32(control.Application().Version());
    // What newer ones have on the clipboard is the user's.
    if (version < FirstToKeepClipboard) bitmaps.ClearClipboard();
    if (version < FirstWithPicture) {
        bitmaps.PutOnClipboard(BitmapToPicture(bitmaps.CreateMapped(picture, lightGrey)));
        // A viewer of the clipboard may have it open after the change, so that Outlook cannot.
        for (int attempt = 1; attempt <= MostPastes; ++attempt) {
            errors.Clear();
            control.PasteFace();
            if (!errors) break;
            messageLoop.Sleep(PastePause);
        }
    } else {
        control.SetPicture(BitmapToPicture(bitmaps.Load(picture)));
        control.SetMask(BitmapToPicture(bitmaps.Load(picture + MaskOffset)));
    }
}

ObjectPtr OlButtons::BitmapToPicture(BitmapHandle bitmap) {
    return bitmap ? bitmaps.CreatePicture(bitmap) : nullptr;
}

}  // namespace tellwick
