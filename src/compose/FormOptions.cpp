#include "compose/FormOptions.h"

#include <algorithm>
#include <utility>

#include "recipients/Countries.h"
#include "recipients/Prefixes.h"
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
                         Prefixes& prefixes, Locale& locale, TraceSwitch& traceSwitch,
                         std::function<void()> applied)
    : Services(services),
      view(view),
      forms(forms),
      prefixes(prefixes),
      locale(locale),
      traceSwitch(traceSwitch),
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
    if (field == Field::Prefixes) {
        view.TextPrefixes().SetFocus();
        view.TextPrefixes().Select(0, std::int32_t(view.TextPrefixes().GetText().size()));
    }
}

void FormOptions::Form_Load() {
    Procedure procedure{debug, u"_Load"};
    forms.Add(*this);
    language.GetLanguageStringsForForm(FormName, view);

    // The sender application may have changed the settings since they were last read.
    constexpr std::int16_t LookForChanges = 1;
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

    view.TextPrefixes().SetText(read(PrefixSection, CountryPrefixes, {}));
    const Text proposed = ProposedPrefix(locale.Country());
    view.ButtonPrefix().SetVisible(!proposed.empty());
    view.ButtonPrefix().SetCaption(ReplaceAll(language.TextOrBuiltIn(FormName, u"ButtonPrefix"),
                                              u"%n", TextView(proposed).substr(!proposed.empty())));

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
    shown = Entered();
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

// Prefixes as they are compared with numbers, single blanks between them. A mere "+" would be the
// beginning of every number.
Text FormOptions::CleanPrefixes(TextView typed) {
    Text blanks(typed);
    std::replace_if(
        blanks.begin(), blanks.end(),
        [](char16_t unit) { return unit == u',' || unit == u';' || unit == Tab; }, u' ');
    Text clean;
    for (const Text& part : Split(blanks, u" ")) {
        const Text prefix = prefixes.ConvertPhoneNumber(part);
        if (prefix.empty() || prefix == u"+") continue;
        if (!clean.empty()) clean += u' ';
        clean += prefix;
    }
    return clean;
}

std::vector<FormOptions::Setting> FormOptions::Entered() {
    const auto flag = [](const CheckBox& box) { return Text(box.Checked() ? u"1" : u"0"); };
    return {{u"SMS", u"StoreNumbers", flag(view.CheckStoreNumbers())},
            {u"SMS", u"NumberCache", flag(view.CheckNumberCache())},
            {u"SMS", u"NumUsedNumber", CleanNumber(view.TextNumUsedNumber().GetText())},
            {PrefixSection, CountryPrefixes, CleanPrefixes(view.TextPrefixes().GetText())},
            {u"Editor", u"Font", Chosen(view.BoxFont())},
            {u"Editor", u"FontSize", Chosen(view.BoxFontSize())},
            {u"Settings", u"Language", ChosenLanguage()},
            {u"SMS", u"AirCount", flag(view.CheckAirCount())},
            {u"SMS", u"AskLostCharacters", flag(view.CheckAskLostCharacters())}};
}

void FormOptions::SetFirstPrefixes(TextView typed) {
    const Text clean = typed.empty() ? ProposedPrefix(locale.Country()) : CleanPrefixes(typed);
    if (clean.empty() || !inifilesLite.GetIniSetting(PrefixSection, CountryPrefixes).empty()) {
        return;
    }
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
}

void FormOptions::ButtonPrefix_Click() {
    Procedure procedure{debug, u"ButtonPrefix_Click"};
    const Text proposed = ProposedPrefix(locale.Country());
    Text entered = CleanPrefixes(view.TextPrefixes().GetText());
    const std::vector<Text> present = Split(entered, u" ");
    // The "+" may be left out.
    const bool there = std::any_of(present.begin(), present.end(), [&](const Text& prefix) {
        return prefix == proposed || u"+" + prefix == proposed;
    });
    // That numbers stay international is said by its prefix alone: beside another one it is idle.
    const bool alone = proposed == NoNumbersPrefix || entered == NoNumbersPrefix;
    if (alone || entered.empty()) {
        entered = proposed;
    } else if (!there) {
        entered += u" " + proposed;
    }
    view.TextPrefixes().SetText(entered);
}

void FormOptions::ButtonOK_Click() {
    Procedure procedure{debug, u"ButtonOK_Click"};
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

void FormOptions::ButtonCancel_Click() {
    Procedure procedure{debug, u"ButtonCancel_Click"};
    Unload();
}

void FormOptions::Unload() {
    if (!view.Loaded()) return;
    view.Unload();
    forms.Remove(*this);
}

}  // namespace tellwick
