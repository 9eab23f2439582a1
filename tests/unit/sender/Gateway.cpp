// SMS as HTTP requests, and what the answers say of them.
#include <doctest.h>

#include "carrier/Gateway.h"
#include "unit/SettingsModules.h"

using namespace tellwick;
using namespace tellwick::sender;

namespace {

using Kind = Outcome::Kind;

struct Desk : HttpRequests, CarrierListener {
    Desk() { gateway.SetListener(this); }
    void Send(const HttpRequest& request, Done newDone) override {
        requests.push_back(request);
        done = std::move(newDone);
    }
    void PartSent(std::int32_t) override {}
    void Answered(const Outcome& outcome) override { outcomes.push_back(outcome); }
    void ReadinessChanged() override {}

    test::MemoryPlatform platform;
    Gateway gateway{*this, platform.timers, platform.locale};
    std::vector<HttpRequest> requests;
    std::vector<Outcome> outcomes;
    Done done;
};

}  // namespace

TEST_CASE("what is put into an address is encoded, in one pass, and the rest left as it is") {
    test::MemoryLocale locale;
    const OutgoingSms schoen{u"+49171", u"Schön & {to} 5%\r\n", 0, 0};
    const OutgoingSms cyrillic{u"0171", u"ж", 0, 0};
    GatewaySettings settings = KannelSettings(u"localhost:13013", u"me", u"p&=");
    CHECK(RequestFor(settings, schoen, locale).address ==
          "http://localhost:13013/cgi-bin/sendsms?username=me&password=p%26%3D&to=%2B49171"
          "&text=Sch%C3%B6n%20%26%20%7Bto%7D%205%25%0D%0A&charset=UTF-8&coding=0");
    CHECK(RequestFor(settings, cyrillic, locale)
              .address.ends_with("&text=%D0%B6&charset=UTF-8&coding=2"));
    settings.address = u"https://x/{other}/{to}?a={text}&{user";
    settings.post = true;
    settings.utf8 = false;
    const HttpRequest post = RequestFor(settings, schoen, locale);
    CHECK(post.post);
    CHECK(post.address == "https://x/{other}/%2B49171");
    CHECK(post.body == "a=Sch%F6n%20%26%20%7Bto%7D%205%25%0D%0A&{user");
    settings.body = u"m={text}";
    CHECK(RequestFor(settings, cyrillic, locale).body == "m=%3F");
}

TEST_CASE("what an answer says of an SMS") {
    struct Case {
        HttpAnswer::Kind how;
        int status;
        std::string body;
        Kind kind;
        bool away = false;
    };
    using How = HttpAnswer::Kind;
    for (const Case& c : {Case{How::Answered, 202, "0: Accepted for delivery", Kind::Sent},
                          {How::Answered, 200, "ERR 105", Kind::Permanent},
                          {How::Answered, 400, "bad number", Kind::Permanent},
                          {How::Answered, 403, "Authorization failed", Kind::Transient, true},
                          {How::Answered, 404, "", Kind::Transient, true},
                          {How::Answered, 302, "", Kind::Transient, true},
                          {How::Answered, 429, "", Kind::Transient},
                          {How::Answered, 503, "", Kind::Transient},
                          {How::Answered, 504, "", Kind::Unsure},
                          {How::NotSent, 0, "", Kind::Transient, true},
                          {How::NotTrusted, 0, "", Kind::Transient, true},
                          {How::Broken, 0, "", Kind::Unsure}}) {
        CAPTURE(c.status);
        Desk desk;
        CHECK(desk.gateway.Away().name == reason::NoAddress);
        GatewaySettings settings = KannelSettings(u"host", u"", u"");
        settings.expected = u"Accepted";
        desk.gateway.SetSettings(settings);
        desk.gateway.HandOver({u"0171", u"x", 0, 0});
        CHECK_FALSE(desk.gateway.Ready());
        desk.done({c.how, c.status, c.body, u"problem"});
        REQUIRE(desk.outcomes.size() == 1);
        CHECK(desk.outcomes[0].kind == c.kind);
        CHECK(desk.outcomes[0].away == c.away);
        CHECK(desk.gateway.Ready() == !c.away);
        // An absence ends by itself.
        desk.platform.clock.milliseconds += 5000;
        desk.platform.timers.RunDue();
        CHECK(desk.gateway.Ready());
    }
}
