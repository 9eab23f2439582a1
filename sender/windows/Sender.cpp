#include "windows/Sender.h"

#include "platform/Product.h"

namespace tellwick::sender {

namespace {

constexpr TextView WindowValue = u"hWnd";
constexpr TextView SwitchValue = u"On";
constexpr std::uint32_t BetweenLooksAtPin = 3000;  // milliseconds

}  // namespace

Sender::Sender(const MainThread& mainThread)
    : requests(mainThread),
      gateway(requests, modules.timers, modules.locale),
      modem(modules.timers, *this),
      modemLine(modem, modules.timers, mainThread),
      pinTimer(modules.timers.Create()) {}

bool Sender::Start() {
    modules.inifilesLite.GetIniFile();
    const Text folder = modules.inifilesLite.SettingsFolder();
    if (folder.empty()) return false;
    inbox.emplace(modules.fileSystem, modules.clock, folder);
    inboxOpen = inbox->Open();
    spool.emplace(modules.fileSystem, modules.clock, folder);
    queueReader.emplace(modules.registry, queueValues, modules.fileSystem, modules.locale,
                        modules.clock, modules.prefixes, *spool);
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

void Sender::Publish(HWND window) {
    const auto handle = std::int64_t(reinterpret_cast<std::uintptr_t>(window));
    modules.regEdit.WriteValue(Hive::CurrentUser, RootKey, WindowValue, NumberText(handle));
}

void Sender::Look() {
    ApplySettings();
    if (delivery->On() != On()) delivery->SetOn(!delivery->On());
    delivery->Look();
}

void Sender::ApplySettings() {
    // What is under way is carried to its end as it began.
    if (UnderWay()) return;
    SenderSettings settings = SenderSettings::Read(modules.inifilesLite);
    settings.gatewaySettings.password = secrets.Read(secret::Password);
    spool->SetLimits(settings.sent);
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
    if (viaGateway) {
        pinTimer->Stop();
    } else {
        pinTimer->Start(BetweenLooksAtPin, [this] { WatchPin(); });
    }
}

// The third wrong PIN locks the SIM: one that has not proved right is in no store from which the
// next start would try it again.
void Sender::WatchPin() {
    const Reason away = modem.Away();
    if (!triedPin.empty()) {
        if (away.name.empty()) secrets.Write(secret::Pin, triedPin);
        if (away.name.empty() || away.name == reason::WrongPin) triedPin.clear();
    } else if (away.name == reason::NeedsPin || away.name == reason::WrongPin) {
        Text pin = secrets.Read(secret::Pin);
        if (pin.empty() || !secrets.Write(secret::Pin, {})) return;
        triedPin = std::move(pin);
        modem.SetPin(triedPin);
    }
}

bool Sender::Arrived(const ReceivedPart& part, std::string_view unit) {
    inboxOpen = inboxOpen || inbox->Open();
    return inboxOpen && inbox->Keep(part, unit);
}

// The spool keeps the network's references, and nothing is shown of reports yet.
void Sender::Reported(const StatusReport&) {}

}  // namespace tellwick::sender
