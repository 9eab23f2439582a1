// What the sender makes of the settings that it shares with the add-in.
#include <doctest.h>

#include "delivery/SenderSettings.h"
#include "unit/SettingsModules.h"

using namespace tellwick;
using namespace tellwick::sender;

TEST_CASE("without settings the modem sends as it is; with them as they say, changed ones too") {
    test::SettingsModules host;
    host.inifilesLite.GetIniFile();
    SenderSettings settings = SenderSettings::Read(host.inifilesLite);
    CHECK_FALSE(settings.gateway);
    CHECK(settings.submit.serviceCentre.empty());
    CHECK(settings.submit.concatenation == Concatenation::Reference8);
    CHECK(settings.sent.store);
    CHECK(settings.sent.most == 999);
    host.SetFile(host.inifilesLite.CurrentFile(),
                 "[Settings]\r\nRTS=-1\r\n[SMS]\r\n"
                 "ServiceCenterUseNotDefault=1\r\nServiceCenter=+49 (171) 076-0000\r\n"
                 "MaxSentSMS=-5\r\nStoreSentSMS=0\r\nDoNotContactLong=1\r\nValidity=-1\r\n"
                 "[Sender]\r\nGateway=1\r\n");
    settings = SenderSettings::Read(host.inifilesLite);
    CHECK(settings.gateway);
    CHECK(settings.serial.rts);
    CHECK(settings.submit.serviceCentre == u"+491710760000");
    CHECK(settings.submit.concatenation == Concatenation::None);
    CHECK(settings.submit.validityMinutes == 0);
    CHECK_FALSE(settings.sent.store);
}
