#include "windows/SenderIcon.h"

#include "spool/SenderTexts.h"

namespace tellwick::sender {

void SenderIcon::Add(HWND newWindow) {
    window = newWindow;
    icon.Add(window);
}

SenderIcon::Wish SenderIcon::WishOf(LPARAM second) const {
    switch (TrayIcon::EventOf(second)) {
        case TrayIcon::Event::Open:
            return Wish::Open;
        case TrayIcon::Event::Menu:
            return ShowMenu();
        default:
            return Wish::None;
    }
}

SenderIcon::Wish SenderIcon::ShowMenu() const {
    const HMENU menu = CreatePopupMenu();
    const auto add = [&](Wish item, TextView name, UINT state = 0) {
        AppendMenuW(menu, MF_STRING | state, UINT_PTR(item),
                    windows::Wide(SenderText(sender.Texts(), name)));
    };
    add(Wish::Open, u"MenuOpen");
    add(Wish::Switch, u"CheckOn", sender.On() ? MF_CHECKED : MF_UNCHECKED);
    add(Wish::Settings, u"ButtonSettings");
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    add(Wish::Exit, u"MenuExit");
    SetMenuDefaultItem(menu, UINT(Wish::Open), FALSE);
    POINT place{};
    GetCursorPos(&place);
    // Or it would stay when the user clicks elsewhere.
    SetForegroundWindow(window);
    const auto chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                       place.x, place.y, 0, window, nullptr);
    PostMessageW(window, WM_NULL, 0, 0);
    DestroyMenu(menu);
    return Wish(chosen);
}

void SenderIcon::Failed(const Text& id) {
    ++failed;
    lastFailed = id;
}

Text SenderIcon::Counted(TextView name) const {
    return ReplaceAll(SenderText(sender.Texts(), name), u"%d", NumberText(std::int64_t(failed)));
}

void SenderIcon::ShowFailed() {
    if (failed == std::exchange(told, failed)) return;
    const std::optional<SpooledSms> sms = sender.TheSpool().Load(State::Failed, lastFailed);
    if (failed > 1 || !sms) {
        icon.ShowBalloon(u"Tellwick", Counted(u"BalloonSeveral"));
        return;
    }
    const Text title = SenderText(sender.Texts(), u"BalloonFailed");
    icon.ShowBalloon(ReplaceAll(title, u"%d", sms->recipient),
                     InWords(sms->reason, sender.Texts()));
}

void SenderIcon::ShowPinWanted() {
    icon.ShowBalloon(InWords(sender.Away(), sender.Texts()),
                     SenderText(sender.Texts(), u"PinHeld"));
}

void SenderIcon::ShowState(const Text& waiting, const Text& why) {
    Text tip = u"Tellwick: " + waiting;
    if (failed > 0) tip += u" " + Counted(u"CountFailed");
    icon.SetTip(Trimmed(tip + u" " + why));
}

}  // namespace tellwick::sender
