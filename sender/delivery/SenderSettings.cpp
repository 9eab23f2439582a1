#include "delivery/SenderSettings.h"

#include <algorithm>

#include "settings/InifilesLite.h"

namespace tellwick::sender {

namespace {

constexpr std::int16_t LookAtFile = 1;
constexpr TextView Connection = u"Settings";
constexpr TextView Sms = u"SMS";
constexpr TextView Sender = u"Sender";

}  // namespace

SenderSettings SenderSettings::Read(InifilesLite& inifilesLite) {
    const auto text = [&](TextView section, TextView key) {
        return inifilesLite.GetIniSetting(section, key);
    };
    const auto number = [&](TextView section, TextView key, TextView otherwise = {}) {
        return inifilesLite.GetIniSettingNum(section, key, otherwise);
    };
    const auto yes = [&](TextView section, TextView key, TextView otherwise = {}) {
        return inifilesLite.GetIniSettingBool(section, key, otherwise);
    };
    SenderSettings settings;
    settings.gateway = inifilesLite.GetIniSettingBool(Sender, u"Gateway", {}, LookAtFile);
    settings.serial = {text(Connection, u"ComPort"), number(Connection, u"Baudrate"),
                       number(Connection, u"Parity"), number(Connection, u"Stopbits"),
                       yes(Connection, u"RTS")};

    SubmitOptions& submit = settings.submit;
    if (yes(Sms, u"ServiceCenterUseNotDefault")) {
        for (const char16_t unit : text(Sms, u"ServiceCenter")) {
            if (IsDigit(unit) || (unit == u'+' && submit.serviceCentre.empty())) {
                submit.serviceCentre += unit;
            }
        }
    }
    submit.flash = yes(Sms, u"Flash");
    submit.statusReport = yes(Sms, u"StatusReport");
    submit.validityMinutes = std::max(0, number(Sms, u"Validity"));
    if (yes(Sms, u"DoNotContactLong")) {
        submit.concatenation = Concatenation::None;
    } else if (yes(Sms, u"Reference16")) {
        submit.concatenation = Concatenation::Reference16;
    }
    settings.sent = {yes(Sms, u"StoreSentSMS", u"1"), number(Sms, u"MaxSentSMS", u"999")};
    settings.read = {yes(Sms, u"StoreReadSMS", u"1"), number(Sms, u"MaxReadSMS", u"999")};

    GatewaySettings& gateway = settings.gatewaySettings;
    gateway.address = text(Sender, u"Address");
    gateway.post = yes(Sender, u"Post");
    gateway.body = text(Sender, u"Body");
    gateway.user = text(Sender, u"User");
    gateway.utf8 = yes(Sender, u"Utf8", u"1");
    gateway.expected = text(Sender, u"Expected");
    return settings;
}

}  // namespace tellwick::sender
