// The sender: everything of it but its window.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "carrier/Gateway.h"
#include "delivery/Delivery.h"
#include "delivery/Inbox.h"
#include "spool/QueueReader.h"
#include "windows/ModemLine.h"
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

    // Takes nothing more, and hands over nothing more.
    void Rest() { delivery->SetOn(false); }
    bool UnderWay() const { return delivery && delivery->UnderWay(); }

    // To the add-ins: the window to tell of what is new; null while there is none.
    void Publish(HWND window);

    void DevicesChanged() { modemLine.DevicesChanged(); }

    // Why nothing is sent although it is switched on; empty when it is.
    Reason Away() const { return usesGateway ? gateway.Away() : modem.Away(); }

    Spool& TheSpool() { return *spool; }
    Language& Texts() { return modules.language; }

    void ReportException() noexcept { modules.debug.TraceException(); }

private:
    bool Arrived(const ReceivedPart& part, std::string_view unit) override;
    void Reported(const StatusReport& report) override;

    void ApplySettings();
    void UseCarrier(bool viaGateway);
    void WatchPin();

    SenderModules modules;
    RegistryQueueValues queueValues;
    Secrets secrets{modules.inifilesLite};
    WindowsHttpRequests requests;
    Gateway gateway;
    Modem modem;
    ModemLine modemLine;
    std::optional<Inbox> inbox;
    bool inboxOpen = false;
    std::optional<Spool> spool;
    std::optional<QueueReader> queueReader;
    std::optional<Delivery> delivery;
    bool usesGateway = false;
    std::unique_ptr<Timer> pinTimer;  // while a modem is used
    Text triedPin;                    // taken out of the settings until the SIM has accepted it
};

}  // namespace tellwick::sender
