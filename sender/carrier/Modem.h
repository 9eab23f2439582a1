// A GSM modem on a serial line, in PDU mode: sends, and hands on what arrives.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "carrier/AtDialogue.h"
#include "carrier/BytePort.h"
#include "carrier/Carrier.h"
#include "carrier/PduReader.h"
#include "carrier/PduWriter.h"
#include "platform/Timer.h"

namespace tellwick::sender {

class ModemListener {
public:
    virtual ~ModemListener() = default;

    // An SMS, or a part of one, that arrived or lay on the SIM; its unit in hexadecimal digits.
    // True when it is durable here: then it is deleted there.
    virtual bool Arrived(const ReceivedPart& part, std::string_view unit) = 0;

    // What became of an SMS that was sent.
    virtual void Reported(const StatusReport& report) = 0;
};

class Modem : public Carrier {
public:
    // The listener outlives this.
    Modem(Timers& timers, ModemListener& modemListener);

    // How the next SMS is sent.
    void SetOptions(const SubmitOptions& newOptions) { options = newOptions; }

    // The line is open, or open again; what the modem says on it goes to Received. It outlives this
    // or Unplugged.
    void Plugged(BytePort& newPort);
    void Unplugged();
    void Received(std::string_view bytes) { dialogue.Received(bytes); }

    // The SIM's PIN, asked for while Away says NeedsPin or WrongPin, which it then says no more
    // until it was tried. Each is tried once only: the third wrong one locks the SIM. False for
    // what no PIN can be.
    bool SetPin(TextView newPin);
    // The last one that was right; empty when there is none.
    Text AcceptedPin() const { return {goodPin.begin(), goodPin.end()}; }

    // 0 to 31, 99 for unknown, as AT+CSQ has it.
    std::int32_t SignalStrength() const { return signalStrength; }

    void SetListener(CarrierListener* newListener) override { listener = newListener; }
    bool Ready() const override {
        return ready && units.empty() && stored.empty() && toDelete.empty() && !dialogue.Busy();
    }
    Reason Away() const override { return away; }
    void HandOver(const OutgoingSms& sms) override;

private:
    // A step of the start: its command, and what of its answer lets the next one come.
    struct Step {
        std::string command;
        std::uint32_t milliseconds;
        bool (Modem::*accepts)(const AtAnswer&);
    };
    struct Stored {
        std::string memory;  // "SM"; empty: the one that is in use
        std::int32_t index = 0;
    };

    static constexpr const char* NetworkCommand = "AT+CREG?";

    void Start(std::uint32_t milliseconds);
    void NextStep();
    void GoAway(const Reason& reason, std::uint32_t startAgain);
    void BecomeReady();
    void Idle();

    bool Any(const AtAnswer& answer);
    bool AcceptsOk(const AtAnswer& answer);
    bool AcceptsPin(const AtAnswer& answer);
    bool AcceptsNetwork(const AtAnswer& answer);
    bool AcceptsSignal(const AtAnswer& answer);
    bool AcceptsStored(const AtAnswer& answer);

    void SendPart();
    void PartAnswered(const AtAnswer& answer);
    void Answer(const Outcome& outcome);

    void Unasked(std::string_view line, std::string_view unit);
    bool TakeUnit(std::string_view unit);
    void ReadStored();
    void DeleteStored();
    void Proceed();

    AtDialogue dialogue;
    ModemListener& modemListener;
    std::unique_ptr<Timer> timer;  // to start again, or to look after the network
    CarrierListener* listener = nullptr;
    SubmitOptions options;

    bool plugged = false;
    bool ready = false;
    Reason away;
    std::size_t step = 0;
    std::string pin;      // to be tried
    std::string goodPin;  // the last one that was right, for a modem that comes back
    std::int32_t signalStrength = 99;

    std::vector<Pdu> units;  // of the SMS under way; empty: there is none
    std::size_t part = 0;    // the one under way

    std::deque<Stored> stored;  // to be read
    std::deque<Stored> toDelete;
    std::string memory;  // in use, once it was chosen
};

}  // namespace tellwick::sender
