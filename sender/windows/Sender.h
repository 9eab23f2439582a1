// The sender: everything of it but its window.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "carrier/Gateway.h"
#include "delivery/Delivery.h"
#include "delivery/PinKeeper.h"
#include "delivery/Reception.h"
#include "spool/QueueReader.h"
#include "windows/ModemLine.h"
#include "windows/OutlookThread.h"
#include "windows/RegistryQueueValues.h"
#include "windows/Secrets.h"
#include "windows/SenderModules.h"
#include "windows/WindowsHttpRequests.h"

namespace tellwick::sender {

class Sender : private ModemListener {
public:
    explicit Sender(const MainThread& mainThread);

    // Finds the settings and begins to work. False when their folder cannot be found or made.
    bool Start();

    // Looks at the switch, at the settings and at the queue.
    void Look();

    bool On();
    void SwitchOn(bool on);

    // The user has changed settings: they are used as soon as no SMS is with the carrier.
    void SettingsChanged();

    // Sends a text to a number, as it may be typed. The SMS' id; empty for what is no number.
    Text Send(TextView number, TextView text);

    // Takes nothing more, and hands over nothing more.
    void Rest();
    bool UnderWay() const { return delivery && delivery->UnderWay(); }

    // To the add-ins: the window to tell of what is new; null while there is none.
    void Publish(HWND window);

    void DevicesChanged() { modemLine.DevicesChanged(); }

    // Why nothing is sent although it is switched on; empty when it is.
    Reason Away() const { return usesGateway ? gateway.Away() : modem.Away(); }

    // The same in the user's language; also that it is switched off.
    Text WhyNothingIsSent();

    Spool& TheSpool() { return *spool; }
    Language& Texts() { return modules.language; }
    InifilesLite& Settings() { return modules.inifilesLite; }
    SecretStore& TheSecrets() { return secrets; }
    PinKeeper& Pin() { return pinKeeper; }

    void ReportException() noexcept { modules.debug.TraceException(); }

private:
    bool Arrived(const ReceivedPart& part, std::string_view unit) override;
    void Reported(const StatusReport& report) override;

    void ApplySettings();
    void UseCarrier(bool viaGateway);

    SenderModules modules;
    RegistryQueueValues queueValues;
    Secrets secrets{modules.inifilesLite};
    WindowsHttpRequests requests;
    Gateway gateway;
    Modem modem;
    ModemLine modemLine;
    PinKeeper pinKeeper;
    OutlookThread outlookInbox;
    std::optional<Reception> reception;
    std::optional<Spool> spool;
    std::optional<QueueReader> queueReader;
    std::optional<Delivery> delivery;
    bool usesGateway = false;
    std::unique_ptr<Timer> changeTimer;  // while settings wait to be used
    bool changing = false;
};

}  // namespace tellwick::sender
