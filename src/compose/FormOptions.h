// The settings window: what the add-in itself reads can be changed here. The settings are shared
// with the sender application, which has windows of its own for the rest.
#pragma once

#include <functional>
#include <vector>

#include "compose/FormOptionsView.h"
#include "platform/Locale.h"
#include "settings/LanguageTexts.h"
#include "settings/Services.h"

namespace tellwick {

class Prefixes;
class TraceSwitch;

class FormOptions : public Form, public FormOptionsEvents, private Services {
public:
    enum class Field { First, Prefixes };

    // `applied` is called once the user's changes are written.
    FormOptions(const Services& services, FormOptionsView& view, Forms& forms, Prefixes& prefixes,
                Locale& locale, TraceSwitch& traceSwitch, std::function<void()> applied);
    ~FormOptions() override;

    // Opens the window, or brings the open one to the front, with the focus in a field.
    void Show(Field field = Field::First);

    // Takes the window away; nothing is written.
    void Unload() override;

    // Writes the prefixes, as they may be typed, where the user has none yet; for an empty text
    // what is proposed for the user's country.
    void SetFirstPrefixes(TextView typed);

    void CheckStoreNumbers_Click() override;
    // Puts what is proposed for the user's country into the field, unless it is there.
    void ButtonPrefix_Click() override;
    // Writes what was changed, to the current settings file in one go.
    void ButtonOK_Click() override;
    void ButtonCancel_Click() override;

private:
    struct Setting {
        TextView section, key;
        Text value;  // empty: as without the setting
    };

    void Form_Load();
    void EnableNumUsedNumber();
    Text CleanPrefixes(TextView typed);
    void Fill(ItemList& box, const std::vector<Text>& choices, TextView chosen);
    void FillLanguages(const Text& setting);
    Text ChosenLanguage();
    std::vector<Setting> Entered();

    // As the window was opened.
    std::vector<Setting> shown;
    bool traceShown = false;
    std::vector<LanguageChoice> languages;

    FormOptionsView& view;
    Forms& forms;
    Prefixes& prefixes;
    Locale& locale;
    TraceSwitch& traceSwitch;
    std::function<void()> applied;
};

}  // namespace tellwick
