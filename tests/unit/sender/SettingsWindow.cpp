// The sender's settings as its user changes them.
#include <doctest.h>

#include "delivery/SenderSettings.h"
#include "forms/FormSettings.h"
#include "platform/MemoryForms.h"
#include "unit/SettingsModules.h"
#include "unit/sender/MemorySecrets.h"

using namespace tellwick;
using namespace tellwick::sender;
using namespace tellwick::test;

namespace {

struct MemorySettingsView : MemoryFormView<FormSettingsView> {
    FormSettingsFields Fields() override {
        return {modem,  gateway,  port,   baudrate, parity, stopbits, rts,    ownCentre,
                centre, flash,    report, validity, longs,  address,  method, kannel,
                user,   password, answer, store,    most,   number,   state,  fixed};
    }
    void ShowGateway(bool shown) override { gatewayShown = shown; }
    std::vector<Text> Ports() override { return {u"COM1", u"COM10"}; }
    void Tell(TextView text) override { told.emplace_back(text); }
    void SetEvents(FormSettingsEvents&) override {}

    MemoryCheckBox &modem = Own(u"modem"), &gateway = Own(u"gateway"), &rts = Own(u"rts"),
                   &ownCentre = Own(u"ownCentre"), &flash = Own(u"flash"), &report = Own(u"report"),
                   &store = Own(u"store");
    MemoryListBox &port = Own(u"port"), &baudrate = Own(u"baudrate"), &parity = Own(u"parity"),
                  &stopbits = Own(u"stopbits"), &validity = Own(u"validity"),
                  &longs = Own(u"longs"), &method = Own(u"method");
    MemoryTextBox &centre = Own(u"centre"), &address = Own(u"address"), &user = Own(u"user"),
                  &password = Own(u"password"), &answer = Own(u"answer"), &most = Own(u"most"),
                  &number = Own(u"number");
    MemoryControl &kannel = Own(u"kannel"), &state = Own(u"state"), &fixed = Own(u"fixed");
    bool gatewayShown = false;
    std::vector<Text> told;
};

struct Desk : SettingsModules {
    explicit Desk(std::string_view settings) {
        inifilesLite.GetIniFile();
        SetFile(inifilesLite.CurrentFile(), settings);
        form.Show();
    }
    SenderSettings Kept() { return SenderSettings::Read(inifilesLite); }
    std::string Settings() { return File(inifilesLite.CurrentFile()); }

    MemorySettingsView view;
    MemorySecrets secrets;
    int applied = 0;
    std::vector<Text> sent;
    FormSettings form{view,
                      inifilesLite,
                      language,
                      secrets,
                      {[this] { ++applied; },
                       [this](TextView number, TextView) {
                           if (number.empty()) return false;
                           sent.emplace_back(number);
                           return true;
                       },
                       [] { return Text(u"sent"); }}};
};

}  // namespace

TEST_CASE("what is chosen is kept where the sender reads it, and used at once; the rest stays") {
    Desk desk("[Settings]\r\nComPort=COM7\r\nBaudrate=300\r\nOther=1\r\n");
    MemorySettingsView& view = desk.view;
    CHECK_FALSE(view.gatewayShown);
    // What is not among the usual ones, or not there now, can be kept.
    CHECK(view.port.items == std::vector<Text>{u"", u"COM1", u"COM10", u"COM7"});
    CHECK(view.port.selected == 3);
    desk.form.ButtonOK_Click();
    CHECK(view.told.empty());
    CHECK(desk.Settings() == "[Settings]\r\nComPort=COM7\r\nBaudrate=300\r\nOther=1\r\n");

    desk.form.Show();
    view.port.ChooseItem(u"COM10");
    view.baudrate.ChooseItem(u"115200");
    view.validity.ChooseItem(u"2 days");
    view.longs.ChooseItem(u"several SMS");
    view.rts.checked = view.report.checked = view.ownCentre.checked = true;
    view.centre.SetText(u"+49 (171) 076-0000");
    view.most.SetText(u"20");
    desk.form.ButtonOK_Click();
    CHECK_FALSE(view.Loaded());
    CHECK(desk.applied == 2);
    const SenderSettings kept = desk.Kept();
    CHECK(kept.serial == SerialSettings{u"COM10", 115200, 0, 0, true});
    CHECK(kept.submit.validityMinutes == 2 * 24 * 60);
    CHECK(kept.submit.concatenation == Concatenation::None);
    CHECK(kept.submit.serviceCentre == u"+491710760000");
    CHECK(kept.submit.statusReport);
    CHECK(kept.sent.most == 20);

    desk.form.Show();
    view.gateway.checked = true;
    view.modem.checked = false;
    desk.form.OptionCarrier_Click();
    CHECK(view.gatewayShown);
    view.address.SetText(u"sms.example.com:8080");
    desk.form.ButtonKannel_Click();
    view.user.SetText(u"anna");
    view.password.SetText(u"geheim");
    desk.form.ButtonOK_Click();
    CHECK(desk.Kept().gateway);
    CHECK(desk.Kept().gatewaySettings.address ==
          KannelSettings(u"sms.example.com:8080", {}, {}).address);
    CHECK(desk.secrets.kept[u"Password"] == u"geheim");
    CHECK(desk.Settings().find("geheim") == std::string::npos);
}

TEST_CASE("what cannot be used is shown and explained, and nothing is kept until it is put right") {
    constexpr std::string_view Broken =
        "[Settings]\r\nBaudrate=fast\r\nParity=9\r\n[SMS]\r\nMaxSentSMS=many\r\n"
        "ServiceCenterUseNotDefault=1\r\nServiceCenter=abc\r\n";
    Desk desk(Broken);
    MemorySettingsView& view = desk.view;
    view.flash.checked = true;
    // Of each field the complaint, and what puts it right.
    const auto refused = [&](const MemoryControl& field, const std::function<void()>& correct) {
        view.told.clear();
        desk.form.ButtonOK_Click();
        CHECK(view.told.size() == 1);
        CHECK(MemoryControl::focus == &field);
        CHECK(view.Loaded());
        CHECK(desk.Settings() == Broken);
        correct();
    };
    refused(view.baudrate, [&] { view.baudrate.ChooseItem(u"9600"); });
    refused(view.parity, [&] { view.parity.ChooseItem(u"none"); });
    CHECK(view.centre.text == u"abc");
    refused(view.centre, [&] { view.centre.SetText(u"+49171"); });
    CHECK(view.most.text == u"many");
    refused(view.most, [&] { view.most.SetText(u"100000"); });
    refused(view.most, [&] { view.store.checked = false; });
    view.gateway.checked = true;
    for (const TextView address :
         {u"", u"ftp://x/{to}{text}", u"http:///{to}{text}", u"https://x/{to}"}) {
        refused(view.address, [&] { view.address.SetText(address); });
    }
    refused(view.address, [&] { view.address.SetText(u"https://x/{to}?{text}"); });
    view.password.SetText(u"x");
    desk.secrets.works = false;
    view.told.clear();
    desk.form.ButtonOK_Click();
    CHECK(view.told == std::vector<Text>{u"The settings could not be saved."});
    CHECK(view.Loaded());
    CHECK(desk.applied == 0);
    desk.secrets.works = true;
    desk.form.ButtonOK_Click();
    CHECK_FALSE(view.Loaded());
    CHECK(desk.applied == 1);
}

TEST_CASE("the test SMS goes out with the settings as they are entered, to a number only") {
    Desk desk("[x]\r\n");
    desk.view.port.ChooseItem(u"COM1");
    desk.form.ButtonTest_Click();
    CHECK(desk.view.told.size() == 1);
    CHECK(MemoryControl::focus == &desk.view.number);
    desk.view.number.SetText(u"0171");
    desk.form.ButtonTest_Click();
    CHECK(desk.sent == std::vector<Text>{u"0171"});
    CHECK(desk.Kept().serial.port == u"COM1");
    CHECK(desk.view.state.caption == u"sent");
    CHECK(desk.view.Loaded());
}

TEST_CASE("a gateway that an administrator has fixed is used, and grey") {
    Desk desk("[Sender]\r\nGateway=0\r\nAddress=http://own/?{to}{text}\r\n");
    CHECK((desk.view.gateway.Enabled() && desk.view.kannel.Enabled() &&
           desk.view.fixed.Caption().empty()));
    desk.form.ButtonCancel_Click();
    const Text key(PolicyKey);
    desk.platform.registry.WriteNumber(Hive::LocalMachine, key, u"UseGateway", 1);
    desk.SetRegistry(key, u"GatewayAddress", u"http://company/?{to}{text}", Hive::LocalMachine);
    desk.form.Show();
    CHECK(desk.view.gateway.Checked());
    CHECK(desk.view.address.GetText() == u"http://company/?{to}{text}");
    for (const Control* control : std::initializer_list<const Control*>{
             &desk.view.modem, &desk.view.gateway, &desk.view.address, &desk.view.kannel}) {
        CHECK_FALSE(control->Enabled());
    }
    CHECK(desk.view.user.Enabled());
    CHECK_FALSE(desk.view.fixed.Caption().empty());
    CHECK(desk.Kept().gateway);
    CHECK(desk.Kept().gatewaySettings.address == u"http://company/?{to}{text}");
}
