#include "forms/FormSettings.h"

#include <algorithm>
#include <utility>

#include "carrier/Gateway.h"
#include "settings/InifilesLite.h"
#include "spool/Recipients.h"
#include "spool/SenderTexts.h"

namespace tellwick::sender {

namespace {

constexpr TextView Connection = u"Settings";
constexpr TextView Sms = u"SMS";
constexpr TextView Sender = u"Sender";
constexpr std::size_t MostDigits = 5;  // of the number of SMS that are kept
constexpr TextView UsualKannel = u"localhost:13013";

using Item = SettingChoice::Item;

Text YesOrNo(const CheckBox& box) {
    return box.Checked() ? u"1" : u"0";
}

// As people write numbers.
Text WithoutSeparators(TextView number) {
    Text bare;
    std::copy_if(number.begin(), number.end(), std::back_inserter(bare), [](char16_t unit) {
        return TextView(u" -/().\u00A0").find(unit) == TextView::npos;
    });
    return bare;
}

bool AllDigits(TextView text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

// "sms.example.com:13013" of "http://sms.example.com:13013/cgi-bin/..."; as it is where there is no
// more than a host.
Text HostOf(TextView address) {
    const std::size_t scheme = address.find(u"://");
    if (scheme != TextView::npos) address.remove_prefix(scheme + 3);
    return Trimmed(address.substr(0, address.find(u'/')));
}

}  // namespace

FormSettings::FormSettings(FormSettingsView& view, InifilesLite& inifilesLite,
                           LanguageTexts& language, SecretStore& secrets, Work work)
    : view(view),
      fields(view.Fields()),
      inifilesLite(inifilesLite),
      language(language),
      secrets(secrets),
      work(std::move(work)),
      port(fields.boxPort),
      baudrate(fields.boxBaudrate),
      parity(fields.boxParity),
      stopbits(fields.boxStopbits),
      validity(fields.boxValidity),
      longTexts(fields.boxLong),
      method(fields.boxMethod) {
    view.SetEvents(*this);
}

Text FormSettings::Words(TextView name) const {
    return SenderText(language, name);
}

Text FormSettings::Stored(TextView section, TextView key, TextView otherwise) const {
    return Trimmed(inifilesLite.GetIniSetting(section, key, otherwise));
}

bool FormSettings::StoredYes(TextView section, TextView key, TextView otherwise) const {
    return LeadingNumber(Stored(section, key, otherwise)) != 0;
}

void FormSettings::Show() {
    if (!view.Loaded()) {
        if (!view.Load()) return;
        SetSenderTexts(language, u"SettingsCaption", view);
        Load();
    }
    view.Show();
}

void FormSettings::Load() {
    constexpr std::int16_t LookForChanges = 1;
    inifilesLite.LookForPolicies();
    const bool gateway = inifilesLite.GetIniSettingBool(Sender, u"Gateway", {}, LookForChanges);
    fields.optionGateway.SetChecked(gateway);
    fields.optionModem.SetChecked(!gateway);
    LoadModem();
    LoadGateway();
    fields.checkStoreSent.SetChecked(StoredYes(Sms, u"StoreSentSMS", u"1"));
    fields.textMaxSent.SetText(Stored(Sms, u"MaxSentSMS", u"999"));
    fields.textTestNumber.SetText({});
    testing = false;
    ShowTestState();
    EnableFields();
    ShowFixed();
    ShowCarrier();
    shown = Entered();
}

void FormSettings::LoadModem() {
    const Item asSet{{}, Words(u"AsSet")};
    const auto fill = [](SettingChoice& choice, const Item& first, const std::vector<Text>& others,
                         const Text& value, bool othersAreGood) {
        std::vector<Item> items{first};
        for (const Text& other : others) items.push_back({other, other});
        choice.Fill(std::move(items), value, othersAreGood);
    };
    // A port that is not there now comes back when its modem is plugged in.
    fill(port, {}, view.Ports(), Stored(Connection, u"ComPort"), true);
    const Text rate = Stored(Connection, u"Baudrate");
    fill(baudrate, asSet,
         {u"2400", u"4800", u"9600", u"19200", u"38400", u"57600", u"115200", u"230400", u"460800"},
         rate == u"0" ? Text() : rate, AllDigits(rate));
    parity.Fill(
        {{u"0", Words(u"ParityNone")}, {u"1", Words(u"ParityOdd")}, {u"2", Words(u"ParityEven")}},
        Stored(Connection, u"Parity", u"0"));
    stopbits.Fill({{u"0", u"1"}, {u"1", u"1.5"}, {u"2", u"2"}},
                  Stored(Connection, u"Stopbits", u"0"));
    fields.checkRts.SetChecked(StoredYes(Connection, u"RTS"));

    fields.checkServiceCentre.SetChecked(StoredYes(Sms, u"ServiceCenterUseNotDefault"));
    fields.textServiceCentre.SetText(Stored(Sms, u"ServiceCenter"));
    fields.checkFlash.SetChecked(StoredYes(Sms, u"Flash"));
    fields.checkStatusReport.SetChecked(StoredYes(Sms, u"StatusReport"));

    std::vector<Item> spans{{u"0", Words(u"ValidityNetwork")}};
    const auto addSpan = [&](int minutes, int unit, TextView name) {
        spans.push_back(
            {NumberText(minutes), ReplaceAll(Words(name), u"%d", NumberText(minutes / unit))});
    };
    for (const int minutes : {5, 30}) addSpan(minutes, 1, u"ValidityMinutes");
    for (const int hours : {2, 6, 12, 24}) addSpan(hours * 60, 60, u"ValidityHours");
    for (const int days : {2, 7, 28}) addSpan(days * 24 * 60, 24 * 60, u"ValidityDays");
    const Text span = Stored(Sms, u"Validity", u"0");
    validity.Fill(std::move(spans), span.starts_with(u'-') ? Text(u"0") : span, AllDigits(span));

    longTexts.Fill({{u"", Words(u"LongJoined")},
                    {u"16", Words(u"LongJoined16")},
                    {u"No", Words(u"LongSeparate")}},
                   StoredYes(Sms, u"DoNotContactLong") ? u"No"
                   : StoredYes(Sms, u"Reference16")    ? u"16"
                                                       : u"");
}

void FormSettings::LoadGateway() {
    fields.textAddress.SetText(Stored(Sender, u"Address"));
    method.Fill({{u"0", u"GET"}, {u"1", u"POST"}}, StoredYes(Sender, u"Post") ? u"1" : u"0");
    fields.textUser.SetText(Stored(Sender, u"User"));
    password = secrets.Read(secret::Password);
    fields.textPassword.SetText(password);
    fields.textExpected.SetText(Stored(Sender, u"Expected"));
}

std::vector<FormSettings::Setting> FormSettings::Entered() const {
    return {{Sender, u"Gateway", YesOrNo(fields.optionGateway)},
            {Connection, u"ComPort", port.Value()},
            {Connection, u"Baudrate", baudrate.Value()},
            {Connection, u"Parity", parity.Value()},
            {Connection, u"Stopbits", stopbits.Value()},
            {Connection, u"RTS", YesOrNo(fields.checkRts)},
            {Sms, u"ServiceCenterUseNotDefault", YesOrNo(fields.checkServiceCentre)},
            {Sms, u"ServiceCenter", Trimmed(fields.textServiceCentre.GetText())},
            {Sms, u"Flash", YesOrNo(fields.checkFlash)},
            {Sms, u"StatusReport", YesOrNo(fields.checkStatusReport)},
            {Sms, u"Validity", validity.Value()},
            {Sms, u"DoNotContactLong", longTexts.Value() == u"No" ? u"1" : u"0"},
            {Sms, u"Reference16", longTexts.Value() == u"16" ? u"1" : u"0"},
            {Sender, u"Address", Trimmed(fields.textAddress.GetText())},
            {Sender, u"Post", method.Value()},
            {Sender, u"User", fields.textUser.GetText()},
            {Sender, u"Expected", fields.textExpected.GetText()},
            {Sms, u"StoreSentSMS", YesOrNo(fields.checkStoreSent)},
            {Sms, u"MaxSentSMS", Trimmed(fields.textMaxSent.GetText())}};
}

void FormSettings::ShowCarrier() {
    view.ShowGateway(fields.optionGateway.Checked());
}

void FormSettings::EnableFields() {
    fields.textServiceCentre.SetEnabled(fields.checkServiceCentre.Checked());
    fields.textMaxSent.SetEnabled(fields.checkStoreSent.Checked());
}

// What an administrator has fixed is grey, with a word why.
void FormSettings::ShowFixed() {
    struct Field {
        TextView key;
        Control* controls[2];
    };
    bool any = false;
    for (const Field& field : {Field{u"Gateway", {&fields.optionModem, &fields.optionGateway}},
                               Field{u"Address", {&fields.textAddress, &fields.buttonKannel}},
                               Field{u"User", {&fields.textUser, nullptr}}}) {
        const bool fixed = inifilesLite.IsFixed(Sender, field.key);
        any = any || fixed;
        for (Control* control : field.controls) {
            if (control) control->SetEnabled(!fixed);
        }
    }
    fields.labelFixed.SetVisible(any);
    fields.labelFixed.SetCaption(any ? Words(u"LabelFixed") : Text());
}

bool FormSettings::Complain(TextView name, Control& field, TextView what) {
    view.Tell(ReplaceAll(Words(name), u"%d", what));
    field.SetFocus();
    return false;
}

bool FormSettings::RightModem() {
    for (const SettingChoice* choice : {&baudrate, &parity, &stopbits, &validity}) {
        if (!choice->Good()) return Complain(u"BadChoice", choice->Box(), choice->Value());
    }
    const Text centre = WithoutSeparators(fields.textServiceCentre.GetText());
    const bool number = CanBeDialled(centre) && centre.find_first_of(u"*#") == Text::npos;
    if (fields.checkServiceCentre.Checked() && !number) {
        return Complain(u"BadServiceCentre", fields.textServiceCentre);
    }
    return true;
}

// Of the fields that are to be seen.
bool FormSettings::Right() {
    if (fields.optionGateway.Checked()) {
        const Text address = Trimmed(fields.textAddress.GetText());
        const bool web =
            StartsWithFolded(address, u"http://") || StartsWithFolded(address, u"https://");
        const Text all = address + inifilesLite.GetIniSetting(Sender, u"Body");
        if (!web || HostOf(address).empty() || !Contains(all, u"{to}") ||
            !Contains(all, u"{text}")) {
            return Complain(u"BadAddress", fields.textAddress);
        }
    } else if (!RightModem()) {
        return false;
    }
    const Text most = Trimmed(fields.textMaxSent.GetText());
    if (fields.checkStoreSent.Checked() && (!AllDigits(most) || most.size() > MostDigits)) {
        return Complain(u"BadMaxSent", fields.textMaxSent);
    }
    return true;
}

bool FormSettings::Apply() {
    if (!Right()) return false;
    bool written = true;
    {
        const SettingsBatch batch{inifilesLite};
        const std::vector<Setting> entered = Entered();
        for (std::size_t number = 0; number < entered.size(); ++number) {
            const auto& [section, key, value] = entered[number];
            if (value == shown[number].value) continue;
            written = inifilesLite.SetIniSetting(section, key, value) && written;
        }
        const Text typed = fields.textPassword.GetText();
        if (typed != password) written = secrets.Write(secret::Password, typed) && written;
    }
    if (!written || !inifilesLite.Flush()) {
        view.Tell(Words(u"NotWritten"));
        return false;
    }
    shown = Entered();
    password = fields.textPassword.GetText();
    work.applied();
    return true;
}

// The host that is typed already stays.
void FormSettings::ButtonKannel_Click() {
    const Text host = HostOf(fields.textAddress.GetText());
    fields.textAddress.SetText(KannelSettings(host.empty() ? UsualKannel : host, {}, {}).address);
    method.Box().SetSelectedIndex(0);
    fields.textUser.SetFocus();
}

void FormSettings::ButtonTest_Click() {
    if (!Apply()) return;
    testing = work.sendTest(fields.textTestNumber.GetText(), Words(u"TestText"));
    if (!testing) Complain(u"BadTestNumber", fields.textTestNumber);
    ShowTestState();
}

void FormSettings::ShowTestState() {
    const Text state = testing ? work.testState() : Text();
    if (fields.labelTestState.Caption() != state) fields.labelTestState.SetCaption(state);
}

void FormSettings::ButtonOK_Click() {
    if (Apply()) view.Unload();
}

}  // namespace tellwick::sender
