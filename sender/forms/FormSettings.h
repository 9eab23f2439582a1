// The sender's settings as its user changes them. What cannot be used is shown as it stands, and is
// told of where it would be kept; nothing is kept then, and nothing that was typed is lost.
#pragma once

#include <functional>
#include <vector>

#include "delivery/SecretStore.h"
#include "forms/FormSettingsView.h"
#include "forms/SettingChoice.h"

namespace tellwick {
class InifilesLite;
class LanguageTexts;
}  // namespace tellwick

namespace tellwick::sender {

class FormSettings : public FormSettingsEvents {
public:
    // What the settings are for.
    struct Work {
        // Uses the settings that were changed.
        std::function<void()> applied;
        // Sends a text to a number, as it was typed. False where that is no number.
        std::function<bool(TextView number, TextView text)> sendTest;
        // What has become of it, in the user's language.
        std::function<Text()> testState;
    };

    FormSettings(FormSettingsView& view, InifilesLite& inifilesLite, LanguageTexts& language,
                 SecretStore& secrets, Work work);

    // Opens the window, or brings the open one to the front.
    void Show();
    bool Shown() const { return view.Loaded(); }
    // To be called now and then while it is shown.
    void ShowTestState();

    void OptionCarrier_Click() override { ShowCarrier(); }
    void CheckServiceCentre_Click() override { EnableFields(); }
    void CheckStoreSent_Click() override { EnableFields(); }
    void ButtonKannel_Click() override;
    void ButtonTest_Click() override;
    void ButtonOK_Click() override;
    void ButtonCancel_Click() override { view.Unload(); }

private:
    struct Setting {
        TextView section, key;
        Text value;  // empty: as without the setting
    };

    void Load();
    void LoadModem();
    void LoadGateway();
    void ShowCarrier();
    void EnableFields();
    void ShowFixed();
    Text Words(TextView name) const;
    Text Stored(TextView section, TextView key, TextView otherwise = {}) const;
    bool StoredYes(TextView section, TextView key, TextView otherwise = {}) const;
    std::vector<Setting> Entered() const;
    bool Right();
    bool RightModem();
    bool Complain(TextView name, Control& field, TextView what = {});
    // Whether everything entered is kept and used now.
    bool Apply();

    FormSettingsView& view;
    FormSettingsFields fields;
    InifilesLite& inifilesLite;
    LanguageTexts& language;
    SecretStore& secrets;
    Work work;

    SettingChoice port, baudrate, parity, stopbits, validity, longTexts, method;
    std::vector<Setting> shown;  // as the window was opened, or as it was kept last
    Text password;
    bool testing = false;
};

}  // namespace tellwick::sender
