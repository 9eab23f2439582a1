#include "forms/FormPin.h"

#include "spool/SenderTexts.h"

namespace tellwick::sender {

FormPin::FormPin(FormPinView& view, PinKeeper& keeper, LanguageTexts& language)
    : view(view), keeper(keeper), language(language) {
    view.SetEvents(*this);
}

void FormPin::Look(const Reason& away) {
    if (!keeper.Asks()) {
        cancelled = false;
        view.Unload();
    } else if (!cancelled && !view.Loaded()) {
        Show(away);
    }
}

void FormPin::Show(const Reason& away) {
    if (!view.Loaded()) {
        if (!view.Load()) return;
        SetSenderTexts(language, u"PinCaption", view);
        view.LabelAsked().SetCaption(InWords(away, language));
        view.TextPin().SetText({});
    }
    cancelled = false;
    view.Show();
}

void FormPin::ButtonOK_Click() {
    if (keeper.Enter(view.TextPin().GetText())) {
        view.Unload();
        return;
    }
    view.Tell(SenderText(language, u"BadPin"));
    view.TextPin().SetFocus();
}

void FormPin::ButtonCancel_Click() {
    cancelled = true;
    view.Unload();
}

}  // namespace tellwick::sender
