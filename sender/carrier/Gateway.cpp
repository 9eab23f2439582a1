#include "carrier/Gateway.h"

#include <algorithm>

#include "air/AirCount.h"
#include "platform/Utf8.h"

namespace tellwick::sender {

namespace {

constexpr std::uint32_t FirstPause = 5'000;  // milliseconds
constexpr std::uint32_t LongestPause = 300'000;
constexpr std::size_t ShownOfAnswer = 200;

std::string PercentEncoded(std::string_view bytes) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    constexpr std::string_view Plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    std::string encoded;
    for (const char byte : bytes) {
        if (Plain.find(byte) != std::string_view::npos) {
            encoded += byte;
        } else {
            encoded += {'%', Digits[(byte >> 4) & 0xF], Digits[byte & 0xF]};
        }
    }
    return encoded;
}

// In one pass: what is put in is not looked at again.
std::string Filled(std::string_view pattern, const GatewaySettings& settings,
                   const OutgoingSms& sms, Locale& locale) {
    const auto bytes = [&](TextView text) {
        return PercentEncoded(settings.utf8 ? ToUtf8(text) : locale.ToAnsi(text));
    };
    std::string filled;
    while (!pattern.empty()) {
        const std::size_t length = pattern.starts_with('{') ? pattern.find('}') + 1 : 0;
        const std::string_view name = pattern.substr(0, length);
        if (name == "{to}") {
            filled += bytes(sms.recipient);
        } else if (name == "{text}") {
            filled += bytes(sms.text);
        } else if (name == "{user}") {
            filled += bytes(settings.user);
        } else if (name == "{password}") {
            filled += bytes(settings.password);
        } else if (name == "{coding}") {
            filled += CountOnAir(sms.text).encoding == AirEncoding::Gsm7 ? "0" : "2";
        } else {
            filled += pattern[0];
            pattern.remove_prefix(1);
            continue;
        }
        pattern.remove_prefix(length);
    }
    return filled;
}

}  // namespace

GatewaySettings KannelSettings(TextView host, TextView user, TextView password) {
    GatewaySettings settings;
    settings.address = Text(u"http://")
                           .append(host)
                           .append(
                               u"/cgi-bin/sendsms?username={user}&password={password}&to={to}"
                               u"&text={text}&charset=UTF-8&coding={coding}");
    settings.user = user;
    settings.password = password;
    return settings;
}

HttpRequest RequestFor(const GatewaySettings& settings, const OutgoingSms& sms, Locale& locale) {
    HttpRequest request;
    request.post = settings.post;
    std::string address = ToUtf8(settings.address);
    std::string body = ToUtf8(settings.body);
    const std::size_t query = address.find('?');
    if (settings.post && body.empty() && query != std::string::npos) {
        body = address.substr(query + 1);
        address.resize(query);
    }
    request.address = Filled(address, settings, sms, locale);
    if (settings.post) request.body = Filled(body, settings, sms, locale);
    return request;
}

Outcome JudgeAnswer(const GatewaySettings& settings, const HttpAnswer& answer) {
    using Kind = Outcome::Kind;
    if (answer.kind == HttpAnswer::Kind::NotSent) {
        return {Kind::Transient, {Text(reason::NoConnection), answer.problem}, true};
    }
    if (answer.kind == HttpAnswer::Kind::NotTrusted) {
        return {Kind::Transient, {Text(reason::NotTrusted), answer.problem}, true};
    }
    if (answer.kind == HttpAnswer::Kind::Broken) {
        return {Kind::Unsure, {Text(reason::Broken), answer.problem}, false};
    }
    const Text body = FromUtf8(answer.body);
    const Text status = NumberText(answer.status);
    const Reason why{Text(reason::Gateway),
                     Trimmed(status + u" " + OneLine(TextView(body).substr(0, ShownOfAnswer)))};
    switch (answer.status) {
        case 401:
        case 403:
        case 407:
            return {Kind::Transient, {Text(reason::NotAllowed), status}, true};
        case 404:
        case 405:
            // The address is wrong, not the SMS.
            return {Kind::Transient, why, true};
        case 408:
        case 425:
        case 429:
            return {Kind::Transient, why, false};
        case 502:
        case 504:
            // Something between us and the gateway lost its answer.
            return {Kind::Unsure, why, false};
        default:
            break;
    }
    // Where it points to is not followed.
    if (answer.status >= 300 && answer.status < 400) return {Kind::Transient, why, true};
    if (answer.status >= 500) return {Kind::Transient, why, false};
    const bool taken = answer.status >= 200 && answer.status < 300 &&
                       (settings.expected.empty() || Contains(body, settings.expected));
    return taken ? Outcome{} : Outcome{Kind::Permanent, why, false};
}

Gateway::Gateway(HttpRequests& requests, Timers& timers, Locale& locale)
    : requests(requests),
      locale(locale),
      timer(timers.Create()),
      away{Text(reason::NoAddress), {}} {}

void Gateway::SetSettings(GatewaySettings newSettings) {
    settings = std::move(newSettings);
    pause = 0;
    timer->Stop();
    SetAway({settings.address.empty() ? Text(reason::NoAddress) : Text(), {}});
}

void Gateway::SetAway(const Reason& reason) {
    if (away == reason) return;
    away = reason;
    if (listener) listener->ReadinessChanged();
}

void Gateway::HandOver(const OutgoingSms& sms) {
    busy = true;
    requests.Send(RequestFor(settings, sms, locale),
                  [this, there = std::weak_ptr<bool>(alive)](const HttpAnswer& answer) {
                      if (there.lock()) Answered(answer);
                  });
}

void Gateway::Answered(const HttpAnswer& answer) {
    const Outcome outcome = JudgeAnswer(settings, answer);
    busy = false;
    if (outcome.away) {
        away = outcome.reason;
        pause = std::clamp(pause * 2, FirstPause, LongestPause);
        timer->Start(pause, [this] {
            timer->Stop();
            SetAway({});
        });
    } else {
        pause = 0;
    }
    if (!listener) return;
    if (outcome.kind == Outcome::Kind::Sent) listener->PartSent(-1);
    listener->Answered(outcome);
    if (outcome.away) listener->ReadinessChanged();
}

}  // namespace tellwick::sender
