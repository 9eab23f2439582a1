// What an administrator gives: read, and shown in the windows.
#include "settings/Policies.h"

#include <doctest.h>

#include "SettingsModules.h"
#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

const Text FixedKey(PolicyKey);
const Text DefaultsKey = FixedKey + u"\\" + Text(PolicyDefaults);

struct Machine : SettingsModules {
    Machine() { inifilesLite.GetIniFile(); }
    // The value as it would be of the policy's type, or of the other one.
    void Give(Hive hive, const Text& key, const Policies::Known& policy, TextView value,
              bool ofItsType = true) {
        if ((policy.type == RegistryType::Number) == ofItsType) {
            platform.registry.WriteNumber(hive, key, policy.name,
                                          std::uint32_t(LeadingNumber(value)));
        } else {
            platform.registry.WriteString(hive, key, policy.name, value);
        }
        inifilesLite.LookForPolicies();
    }
    Text Value(const Policies::Known& policy) {
        return inifilesLite.GetIniSetting(policy.section, policy.key, u"built in");
    }
};

struct Window : TestProgram {
    Window() { view.Load(); }
    void Fix(TextView name, std::uint32_t value) {
        platform.registry.WriteNumber(Hive::LocalMachine, FixedKey, name, value);
    }
    void Fix(TextView name, TextView value) {
        platform.registry.WriteString(Hive::LocalMachine, FixedKey, name, value);
    }
    void GiveTemplate(const Text& key, TextView name, TextView text) {
        platform.registry.WriteString(Hive::CurrentUser, key + u"\\" + Text(PolicyTemplates), name,
                                      text);
    }
    std::vector<Text> Templates() {
        program.textTemplates.GetTextbausteine();
        view.ComboBoxTextbausteine().Clear();
        program.textTemplates.Fill();
        return view.ComboBoxTextbausteine().items;
    }
    void Save(TextView added = {}) {
        view.ComboBoxTextbausteine().SetText(added);
        program.textTemplates.ButtonAdd_Click();
        program.textTemplates.Save();
    }
};

}  // namespace

TEST_CASE("every policy: fixed, a default, of another type, of machine and user") {
    for (const Policies::Known& policy : Policies::All()) {
        CAPTURE(Text(policy.name));
        Machine machine;
        CHECK(machine.Value(policy) == u"built in");
        // A default holds until the user has a setting, the machine's before the user's.
        machine.Give(Hive::CurrentUser, DefaultsKey, policy, u"1");
        CHECK(machine.Value(policy) == u"1");
        machine.Give(Hive::LocalMachine, DefaultsKey, policy, u"2");
        CHECK(machine.Value(policy) == u"2");
        machine.inifilesLite.SetIniSetting(policy.section, policy.key, u"3");
        CHECK(machine.Value(policy) == u"3");
        CHECK_FALSE(machine.inifilesLite.IsFixed(policy.section, policy.key));
        // What is fixed wins over that.
        machine.Give(Hive::CurrentUser, FixedKey, policy, u"4");
        CHECK(machine.Value(policy) == u"4");
        machine.Give(Hive::LocalMachine, FixedKey, policy, u"5");
        CHECK(machine.Value(policy) == u"5");
        CHECK(machine.inifilesLite.IsFixed(policy.section, policy.key));
        // Of another type it is not there, and the trace says so.
        machine.SetRegistry(AddInKey, u"DebugMode", u"1");
        machine.SetRegistry(AddInKey, u"Active", u"1");
        machine.debug.DebugInit(true, false);
        machine.Give(Hive::LocalMachine, FixedKey, policy, u"6", false);
        CHECK(machine.Value(policy) == u"4");
        const std::string name(policy.name.begin(), policy.name.end());
        CHECK(machine.File(TraceFile).find("Policy of another type: Software\\Policies\\Tellwick\\"
                                           "Outlook " +
                                           name + "\r\n") != std::string::npos);
    }
}

TEST_CASE("what is fixed is grey in the settings window, and nothing of it is written") {
    Window window;
    MemoryFormOptionsView& view = window.optionsView;
    window.program.formOptions.Show();
    CHECK(view.LabelFixed().Caption().empty());
    CHECK(view.CheckNumberCache().Enabled());
    window.program.formOptions.ButtonCancel_Click();

    window.SetSetting(u"Prefixes", u"Remove0InPrefixes", u"+44");
    for (const auto* name : {u"KeepContacts", u"RememberNumbers", u"AskLostCharacters",
                             u"ShowAirCount", u"RememberedNumbers", u"FontSize"}) {
        window.Fix(name, 0);
    }
    window.Fix(u"CountryCodes", u"+43");
    window.Fix(u"Font", u"Tahoma");
    window.Fix(u"Language", u"Deutsch");
    window.program.formOptions.Show();
    CHECK_FALSE(view.LabelFixed().Caption().empty());
    CHECK(view.TextPrefixes().GetText() == u"+43");
    CHECK_FALSE(view.CheckNumberCache().Checked());
    CHECK(view.BoxFont().Item(view.BoxFont().selected) == u"Tahoma");
    view.OptionNational().SetChecked(true);
    window.program.formOptions.OptionNational_Click();
    view.CheckStoreNumbers().SetChecked(true);
    window.program.formOptions.CheckStoreNumbers_Click();
    for (const Control* control : std::initializer_list<const Control*>{
             &view.CheckNumberCache(), &view.CheckStoreNumbers(), &view.TextNumUsedNumber(),
             &view.OptionNational(), &view.OptionInternational(), &view.TextPrefixes(),
             &view.BoxFont(), &view.BoxFontSize(), &view.BoxLanguage(), &view.CheckAirCount(),
             &view.CheckAskLostCharacters()}) {
        CHECK_FALSE(control->Enabled());
    }
    view.CheckStoreNumbers().SetChecked(false);
    window.program.formOptions.ButtonOK_Click();
    CHECK(window.program.iniFile.ReadFromIniFile(window.program.inifilesLite.CurrentFile(),
                                                 u"Prefixes", u"Remove0InPrefixes") == u"+44");
    CHECK(window.program.iniFile
              .ReadFromIniFile(window.program.inifilesLite.CurrentFile(), u"SMS", u"StoreNumbers")
              .empty());
}

TEST_CASE("text templates: for a beginning until the user has his own, or fixed") {
    Window window;
    window.GiveTemplate(DefaultsKey, u"10", u"Tenth");
    window.GiveTemplate(DefaultsKey, u"2", u"Second");
    CHECK(window.Templates() == std::vector<Text>{u"Second", u"Tenth"});
    // What nobody has changed does not become the user's own.
    window.Save();
    CHECK(window.Setting(u"Texte", u"Text0").empty());
    window.Save(u"Own");
    window.GiveTemplate(DefaultsKey, u"3", u"Third");
    CHECK(window.Templates() == std::vector<Text>{u"Own", u"Second", u"Tenth"});

    window.GiveTemplate(FixedKey, u"1", u"Fixed");
    CHECK(window.Templates() == std::vector<Text>{u"Fixed"});
    window.platform.dialogs.shown.clear();
    window.Save(u"Another");
    CHECK(window.platform.dialogs.shown.size() == 1);
    CHECK(window.Templates() == std::vector<Text>{u"Fixed"});
    CHECK(window.Setting(u"Texte", u"Text0") == u"Own");
}
