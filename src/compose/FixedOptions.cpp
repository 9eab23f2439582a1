#include "compose/FixedOptions.h"

#include <initializer_list>

#include "compose/FormOptionsView.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"

namespace tellwick {

FixedOptions::FixedOptions(FormOptionsView& view, InifilesLite& inifilesLite,
                           LanguageTexts& language)
    : view(view), inifilesLite(inifilesLite), language(language) {}

void FixedOptions::Show() {
    struct Field {
        TextView section, key;
        Control* controls[3];
    };
    bool any = false;
    for (const Field& field : std::initializer_list<Field>{
             {u"Prefixes",
              u"Remove0InPrefixes",
              {&view.OptionNational(), &view.OptionInternational(), &view.TextPrefixes()}},
             {u"Settings", u"Language", {&view.BoxLanguage()}},
             {u"Editor", u"Font", {&view.BoxFont()}},
             {u"Editor", u"FontSize", {&view.BoxFontSize()}},
             {u"SMS", u"NumberCache", {&view.CheckNumberCache()}},
             {u"SMS", u"StoreNumbers", {&view.CheckStoreNumbers()}},
             {u"SMS", u"NumUsedNumber", {&view.LabelNumUsedNumber(), &view.TextNumUsedNumber()}},
             {u"SMS", u"AirCount", {&view.CheckAirCount()}},
             {u"SMS", u"AskLostCharacters", {&view.CheckAskLostCharacters()}}}) {
        if (!inifilesLite.IsFixed(field.section, field.key)) continue;
        any = true;
        for (Control* control : field.controls) {
            if (control) control->SetEnabled(false);
        }
    }
    view.LabelFixed().SetVisible(any);
    view.LabelFixed().SetCaption(any ? language.TextOrBuiltIn(u"FormOptions", u"LabelFixed")
                                     : Text());
}

}  // namespace tellwick
