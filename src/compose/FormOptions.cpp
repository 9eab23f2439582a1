#include "compose/FormOptions.h"

#include <algorithm>
#include <utility>

#include "compose/FormSupport.h"
#include "recipients/Countries.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/LanguageTexts.h"
#include "settings/QuestionBox.h"
#include "settings/TraceSwitch.h"

namespace tellwick {

namespace {

constexpr TextView FormName = u"FormOptions";
constexpr TextView PrefixSection = u"Prefixes";
constexpr TextView CountryPrefixes = u"Remove0InPrefixes";
constexpr std::int64_t MostNumbers = 10000;
constexpr std::int32_t UsualSizes[] = {8,  9,  10, 11, 12, 14, 16, 18,
                                       20, 22, 24, 26, 28, 36, 48, 72};  // points

// What is no digit is left out; nothing left stands for the default.
Text CleanNumber(TextView typed) {
    Text digits;
    std::copy_if(typed.begin(), typed.end(), std::back_inserter(digits), IsDigit);
    return digits.empty() ? digits : NumberText(std::min(LeadingNumber(digits), MostNumbers));
}

std::vector<Text> FontSizes(std::int32_t chosen) {
    std::vector<std::int32_t> sizes(std::begin(UsualSizes), std::end(UsualSizes));
    const auto place = std::lower_bound(sizes.begin(), sizes.end(), chosen);
    if (chosen > 0 && (place == sizes.end() || *place != chosen)) sizes.insert(place, chosen);
    std::vector<Text> texts(sizes.size());
    std::transform(sizes.begin(), sizes.end(), texts.begin(), NumberText);
    return texts;
}

// The first item stands for no choice.
Text Chosen(const ItemList& box) {
    return box.SelectedIndex() < 1 ? Text() : box.Item(box.SelectedIndex());
}

}  // namespace

FormOptions::FormOptions(const Services& services, FormOptionsView& view, Forms& forms,
                         Locale& locale, TraceSwitch& traceSwitch, FormSupport& formSupport,
                         std::function<void()> applied)
    : Services(services),
      view(view),
      forms(forms),
      locale(locale),
      traceSwitch(traceSwitch),
      formSupport(formSupport),
      fixedOptions(view, inifilesLite, language),
      applied(std::move(applied)) {
    view.SetEvents(*this);
}

FormOptions::~FormOptions() {
    forms.Remove(*this);
}

void FormOptions::Show(Field field) {
    if (!view.Loaded()) {
        if (!view.Load()) return;
        Form_Load();
    }
    view.Show();
    if (field != Field::Prefixes) return;
    CheckBox& national = view.OptionNational();
    (national.Checked() ? national : view.OptionInternational()).SetFocus();
}

void FormOptions::Form_Load() {
    Procedure procedure{debug, u"_Load"};
    forms.Add(*this);
    language.GetLanguageStringsForForm(FormName, view);

    // The sender application may have changed the settings since they were last read, and an
    // administrator what he has given.
    constexpr std::int16_t LookForChanges = 1;
    inifilesLite.LookForPolicies();
    const auto read = [&](TextView section, TextView key, TextView defaultValue) {
        return inifilesLite.GetIniSetting(section, key, defaultValue, false, LookForChanges);
    };
    const auto readBool = [&](TextView key) { return LeadingNumber(read(u"SMS", key, u"1")) != 0; };
    view.CheckStoreNumbers().SetChecked(readBool(u"StoreNumbers"));
    view.CheckNumberCache().SetChecked(readBool(u"NumberCache"));
    view.CheckAirCount().SetChecked(readBool(u"AirCount"));
    view.CheckAskLostCharacters().SetChecked(readBool(u"AskLostCharacters"));
    const std::int64_t numbers = LeadingNumber32(read(u"SMS", u"NumUsedNumber", u"10"));
    view.TextNumUsedNumber().SetText(NumberText(std::clamp(numbers, std::int64_t(0), MostNumbers)));
    EnableNumUsedNumber();

    prefixesSet = read(PrefixSection, CountryPrefixes, {});
    ShowPrefixes();

    std::vector<Text> fonts = view.FontNames();
    // The settings file could not hold the name of every font.
    std::erase_if(
        fonts, [this](const Text& name) { return locale.FromAnsi(locale.ToAnsi(name)) != name; });
    Fill(view.BoxFont(), fonts, read(u"Editor", u"Font", {}));
    const std::int32_t size = LeadingNumber32(read(u"Editor", u"FontSize", {}));
    Fill(view.BoxFontSize(), FontSizes(size), size > 0 ? NumberText(size) : Text());

    FillLanguages(read(u"Settings", u"Language", {}));

    view.CheckForgetAnswers().SetChecked(false);
    view.CheckForgetAnswers().SetEnabled(questionBox.AnswersRemembered());
    traceShown = traceSwitch.SwitchedOn();
    view.CheckTrace().SetChecked(traceShown);
    fixedOptions.Show();
    shown = Entered();
    // What is only proposed is not set yet: OK writes it.
    for (Setting& setting : shown) {
        if (setting.key == CountryPrefixes && prefixesSet.empty()) setting.value.clear();
    }
}

// A choice that is not to be had stays one.
void FormOptions::Fill(ItemList& box, const std::vector<Text>& choices, TextView chosen) {
    box.Clear();
    box.Add(language.TextOrBuiltIn(FormName, u"AsWindows"));
    for (const Text& choice : choices) box.Add(choice);
    const auto place = std::find_if(choices.begin(), choices.end(), [chosen](const Text& choice) {
        return EqualFolded(choice, chosen);
    });
    if (!chosen.empty() && place == choices.end()) box.Add(chosen);
    box.SetSelectedIndex(chosen.empty() ? 0 : std::int32_t(place - choices.begin()) + 1);
}

// Languages are shown by their own names.
void FormOptions::FillLanguages(const Text& setting) {
    languages = language.Languages();
    const Text name = language.LanguageName(setting);
    Text chosen = setting;
    std::vector<Text> ownNames;
    for (const LanguageChoice& one : languages) {
        ownNames.push_back(one.ownName);
        if (EqualFolded(one.name, name)) chosen = one.ownName;
    }
    Fill(view.BoxLanguage(), ownNames, chosen);
}

Text FormOptions::ChosenLanguage() {
    const std::int32_t index = view.BoxLanguage().SelectedIndex();
    const bool known = index > 0 && index <= std::int32_t(languages.size());
    return known ? languages[std::size_t(index - 1)].name : Chosen(view.BoxLanguage());
}

// Without the setting what suits the user's country; numbers as they are suit every one.
void FormOptions::ShowPrefixes() {
    const Text proposed = ProposedPrefix(locale.Country());
    const Text& prefixes = prefixesSet.empty() ? proposed : prefixesSet;
    const bool national = !prefixes.empty() && CountryCodes(prefixes) != NoNumbersPrefix;
    view.OptionNational().SetChecked(national);
    view.OptionInternational().SetChecked(!national);
    // Where he changes his mind there is a code to begin with, if his country has one.
    view.TextPrefixes().SetText(national                      ? prefixes
                                : proposed == NoNumbersPrefix ? Text()
                                                              : proposed);
    EnablePrefixes();
}

Text FormOptions::EnteredPrefixes() {
    if (view.OptionInternational().Checked()) return Text(NoNumbersPrefix);
    const Text typed = view.TextPrefixes().GetText();
    return CountryCodes(typed).value_or(typed);
}

// What another program has set stays as it is while nobody changes it.
bool FormOptions::PrefixesMissing() {
    const Text typed = view.TextPrefixes().GetText();
    return view.OptionNational().Checked() && !CountryCodes(typed) &&
           (typed.empty() || typed != prefixesSet);
}

std::vector<FormOptions::Setting> FormOptions::Entered() {
    const auto flag = [](const CheckBox& box) { return Text(box.Checked() ? u"1" : u"0"); };
    return {{u"SMS", u"StoreNumbers", flag(view.CheckStoreNumbers())},
            {u"SMS", u"NumberCache", flag(view.CheckNumberCache())},
            {u"SMS", u"NumUsedNumber", CleanNumber(view.TextNumUsedNumber().GetText())},
            {PrefixSection, CountryPrefixes, EnteredPrefixes()},
            {u"Editor", u"Font", Chosen(view.BoxFont())},
            {u"Editor", u"FontSize", Chosen(view.BoxFontSize())},
            {u"Settings", u"Language", ChosenLanguage()},
            {u"SMS", u"AirCount", flag(view.CheckAirCount())},
            {u"SMS", u"AskLostCharacters", flag(view.CheckAskLostCharacters())}};
}

bool FormOptions::HasPrefixes() {
    return !inifilesLite.GetIniSetting(PrefixSection, CountryPrefixes).empty();
}

void FormOptions::SetFirstPrefixes(TextView typed) {
    const Text clean =
        typed.empty() ? ProposedPrefix(locale.Country()) : CountryCodes(typed).value_or(Text());
    if (clean.empty() || HasPrefixes()) return;
    inifilesLite.SetIniSetting(PrefixSection, CountryPrefixes, clean);
}

void FormOptions::CheckStoreNumbers_Click() {
    Procedure procedure{debug, u"CheckStoreNumbers_Click"};
    EnableNumUsedNumber();
}

void FormOptions::EnableNumUsedNumber() {
    const bool store = view.CheckStoreNumbers().Checked();
    view.LabelNumUsedNumber().SetEnabled(store);
    view.TextNumUsedNumber().SetEnabled(store);
    fixedOptions.Show();
}

void FormOptions::OptionNational_Click() {
    Procedure procedure{debug, u"OptionNational_Click"};
    EnablePrefixes();
}

void FormOptions::OptionInternational_Click() {
    Procedure procedure{debug, u"OptionInternational_Click"};
    EnablePrefixes();
}

// Not by which one was clicked: an option button may say so of itself when it only gets the focus.
void FormOptions::EnablePrefixes() {
    view.TextPrefixes().SetEnabled(view.OptionNational().Checked());
    fixedOptions.Show();
}

void FormOptions::ButtonOK_Click() {
    Procedure procedure{debug, u"ButtonOK_Click"};
    if (PrefixesMissing()) {
        questionBox.MsgBoxEx(language.TextOrBuiltIn(FormName, u"PrefixesMissing"),
                             box::IconExclamation);
        TextBox& prefixes = view.TextPrefixes();
        prefixes.SetFocus();
        prefixes.Select(0, std::int32_t(prefixes.GetText().size()));
        return;
    }
    {
        const SettingsBatch batch{inifilesLite};
        const std::vector<Setting> entered = Entered();
        for (std::size_t i = 0; i < entered.size(); ++i) {
            const auto& [section, key, value] = entered[i];
            if (value != shown[i].value) inifilesLite.SetIniSetting(section, key, value);
        }
        if (view.CheckForgetAnswers().Checked()) questionBox.ForgetAnswers();
        const bool trace = view.CheckTrace().Checked();
        if (trace != traceShown) traceSwitch.SwitchOn(trace);
    }
    Unload();
    applied();
}

void FormOptions::ButtonSupport_Click() {
    Procedure procedure{debug, u"ButtonSupport_Click"};
    formSupport.Show();
}

void FormOptions::ButtonCancel_Click() {
    Procedure procedure{debug, u"ButtonCancel_Click"};
    Unload();
}

void FormOptions::Unload() {
    if (!view.Loaded()) return;
    formSupport.Unload();
    view.Unload();
    forms.Remove(*this);
}

}  // namespace tellwick
