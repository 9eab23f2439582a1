#include "windows/Sender.h"

#include "platform/Product.h"
#include "spool/Recipients.h"
#include "spool/SenderTexts.h"

namespace tellwick::sender {

namespace {

constexpr TextView WindowValue = u"hWnd";
constexpr TextView SwitchValue = u"On";
constexpr std::uint32_t BetweenLooksAtCarrier = 50;  // milliseconds

}  // namespace

Sender::Sender(const MainThread& mainThread)
    : requests(mainThread),
      gateway(requests, modules.timers, modules.locale),
      modem(modules.timers, *this),
      modemLine(modem, modules.timers, mainThread),
      pinKeeper(modem, secrets, modules.timers),
      outlookInbox(mainThread),
      changeTimer(modules.timers.Create()) {}

bool Sender::Start() {
    modules.inifilesLite.GetIniFile();
    const Text folder = modules.inifilesLite.SettingsFolder();
    if (folder.empty()) return false;
    reception.emplace(modules.fileSystem, modules.clock, folder, outlookInbox, modules.timers);
    spool.emplace(modules.fileSystem, modules.clock, folder);
    queueReader.emplace(queueValues, modules.fileSystem, modules.locale, modules.clock,
                        modules.prefixes, *spool);
    const bool neverSwitched =
        modules.regEdit.ReadValue(Hive::CurrentUser, RootKey, SwitchValue).empty();
    if (neverSwitched) SwitchOn(true);
    Look();
    return true;
}

bool Sender::On() {
    return LeadingNumber(modules.regEdit.ReadValue(Hive::CurrentUser, RootKey, SwitchValue)) != 0;
}

void Sender::SwitchOn(bool on) {
    modules.regEdit.WriteValue(Hive::CurrentUser, RootKey, SwitchValue, on ? u"1" : u"0");
    if (delivery) Look();
}

Text Sender::WhyNothingIsSent() {
    return On() ? InWords(Away(), Texts()) : SenderText(Texts(), u"IsOff");
}

void Sender::Publish(HWND window) {
    const auto handle = std::int64_t(reinterpret_cast<std::uintptr_t>(window));
    modules.regEdit.WriteValue(Hive::CurrentUser, RootKey, WindowValue, NumberText(handle));
}

void Sender::Look() {
    ApplySettings();
    const bool on = On() && !changing;
    if (delivery->On() != on) delivery->SetOn(on);
    delivery->Look();
}

void Sender::SettingsChanged() {
    changing = UnderWay();
    if (changing) {
        // The next one would be handed over before anyone could look.
        delivery->SetOn(false);
        changeTimer->Start(BetweenLooksAtCarrier, [this] { SettingsChanged(); });
        return;
    }
    changeTimer->Stop();
    Look();
}

void Sender::Rest() {
    changeTimer->Stop();
    delivery->SetOn(false);
}

Text Sender::Send(TextView number, TextView text) {
    SpooledSms sms;
    sms.recipient = modules.prefixes.ConvertPhoneNumber(number);
    sms.text = text;
    sms.accepted = modules.clock.Now();
    if (!CanBeDialled(sms.recipient)) return {};
    Text id = spool->Add(sms, u"test");
    Look();
    return id;
}

void Sender::ApplySettings() {
    // What is under way is carried to its end as it began.
    if (UnderWay()) return;
    SenderSettings settings = SenderSettings::Read(modules.inifilesLite);
    settings.gatewaySettings.password = secrets.Read(secret::Password);
    spool->SetLimits(settings.sent);
    reception->SetLimits(settings.read);
    modem.SetOptions(settings.submit);
    UseCarrier(settings.gateway);
    if (settings.gateway) {
        modemLine.SetSettings({});
        gateway.SetSettings(std::move(settings.gatewaySettings));
    } else {
        modemLine.SetSettings(settings.serial);
    }
}

void Sender::UseCarrier(bool viaGateway) {
    if (delivery && usesGateway == viaGateway) return;
    usesGateway = viaGateway;
    Carrier& carrier = viaGateway ? static_cast<Carrier&>(gateway) : modem;
    delivery.emplace(*queueReader, *spool, carrier, modules.clock, modules.timers);
    pinKeeper.Watch(!viaGateway);
}

bool Sender::Arrived(const ReceivedPart& part, std::string_view unit) {
    return reception->Arrived(part, unit);
}

void Sender::Reported(const StatusReport& report) {
    if (delivery) delivery->Reported(report);
}

}  // namespace tellwick::sender
