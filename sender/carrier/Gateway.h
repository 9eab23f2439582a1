// An SMS gateway that takes SMS as HTTP requests.
#pragma once

#include <memory>
#include <string>

#include "carrier/Carrier.h"
#include "carrier/HttpRequests.h"
#include "platform/Locale.h"
#include "platform/Timer.h"

namespace tellwick::sender {

// How a gateway wants to be spoken to. In address and body stand placeholders, for what is put in
// percent-encoded: {to} {text} {user} {password}, and for Kannel {coding}, 0 for a text in the GSM
// alphabet and 2 for any other.
struct GatewaySettings {
    Text address;  // "https://sms.example.com/send?to={to}&text={text}"
    bool post = false;
    // Of a post: empty for what stands behind the "?" of the address.
    Text body;
    Text user, password;
    // Of the text: UTF-8, or bytes of the code page of this system.
    bool utf8 = true;
    // In the answer to an SMS that was taken; empty: the status alone counts.
    Text expected;
};

// Kannel's sendsms as it is set up by default, on a host ("sms.example.com:13013").
GatewaySettings KannelSettings(TextView host, TextView user, TextView password);

// The request for an SMS, or none where the settings name no address.
HttpRequest RequestFor(const GatewaySettings& settings, const OutgoingSms& sms, Locale& locale);

// What an answer says of an SMS: taken with a status from 200 to 299 and the expected text; to be
// tried again where the gateway says so; away where no SMS would be taken, as with a wrong
// password.
Outcome JudgeAnswer(const GatewaySettings& settings, const HttpAnswer& answer);

class Gateway : public Carrier {
public:
    Gateway(HttpRequests& requests, Timers& timers, Locale& locale);

    void SetSettings(GatewaySettings newSettings);

    void SetListener(CarrierListener* newListener) override { listener = newListener; }
    bool Ready() const override { return !busy && away.name.empty(); }
    Reason Away() const override { return away; }
    void HandOver(const OutgoingSms& sms) override;

private:
    void Answered(const HttpAnswer& answer);
    void SetAway(const Reason& reason);

    HttpRequests& requests;
    Locale& locale;
    std::unique_ptr<Timer> timer;  // to come back
    CarrierListener* listener = nullptr;
    GatewaySettings settings;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);  // an answer may come later
    bool busy = false;
    Reason away;
    std::uint32_t pause = 0;  // milliseconds, until it is tried again
};

}  // namespace tellwick::sender
