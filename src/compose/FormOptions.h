// The settings window: what the add-in itself reads can be changed here. The settings are shared
// with the sender application, which has windows of its own for the rest.
#pragma once

#include <functional>
#include <vector>

#include "compose/FixedOptions.h"
#include "compose/FormOptionsView.h"
#include "platform/Locale.h"
#include "settings/LanguageTexts.h"
#include "settings/Services.h"

namespace tellwick {

class FormSupport;
class TraceSwitch;

class FormOptions : public Form, public FormOptionsEvents, private Services {
public:
    enum class Field { First, Prefixes };

    // `applied` is called once the user's changes are written.
    FormOptions(const Services& services, FormOptionsView& view, Forms& forms, Locale& locale,
                TraceSwitch& traceSwitch, FormSupport& formSupport, std::function<void()> applied);
    ~FormOptions() override;

    // Opens the window, or brings the open one to the front, with the focus in a field.
    void Show(Field field = Field::First);

    // Takes the window away; nothing is written.
    void Unload() override;

    // Whether the user has country codes, or has said that numbers stay international.
    bool HasPrefixes();
    // Writes country codes, as they may be typed, where the user has none yet; for an empty text
    // what is proposed for the user's country. Nothing for what CountryCodes does not take.
    void SetFirstPrefixes(TextView typed);

    void CheckStoreNumbers_Click() override;
    void OptionNational_Click() override;
    void OptionInternational_Click() override;
    // Shows what a support file would hold.
    void ButtonSupport_Click() override;
    // Writes what was changed, to the current settings file in one go. Country codes that are none
    // are told of first, and nothing is written.
    void ButtonOK_Click() override;
    void ButtonCancel_Click() override;

private:
    struct Setting {
        TextView section, key;
        Text value;  // empty: as without the setting
    };

    void Form_Load();
    void EnableNumUsedNumber();
    void ShowPrefixes();
    void EnablePrefixes();
    Text EnteredPrefixes();
    bool PrefixesMissing();
    void Fill(ItemList& box, const std::vector<Text>& choices, TextView chosen);
    void FillLanguages(const Text& setting);
    Text ChosenLanguage();
    std::vector<Setting> Entered();

    // As the window was opened.
    std::vector<Setting> shown;
    Text prefixesSet;  // empty where the window shows what is only proposed
    bool traceShown = false;
    std::vector<LanguageChoice> languages;

    FormOptionsView& view;
    Forms& forms;
    Locale& locale;
    TraceSwitch& traceSwitch;
    FormSupport& formSupport;
    FixedOptions fixedOptions;
    std::function<void()> applied;
};

}  // namespace tellwick
