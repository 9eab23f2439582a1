#include "compose/SmsSettings.h"

#include "settings/Debug.h"
#include "settings/InifilesLite.h"

namespace tellwick {

void SmsSettings::GetSettings(const Services& services) {
    Procedure procedure{services.debug, u"GetSettings"};
    InifilesLite& ini = services.inifilesLite;
    comPort = ini.GetIniSetting(u"Settings", u"ComPort");
    baudrate = ini.GetIniSettingNum(u"Settings", u"Baudrate");
    parity = ini.GetIniSettingNum(u"Settings", u"Parity");
    stopbits = ini.GetIniSettingNum(u"Settings", u"Stopbits");
    protocol = ini.GetIniSettingNum(u"Settings", u"Protocol");
    rts = ini.GetIniSettingBool(u"Settings", u"RTS");

    serviceCenterUseNotDefault = ini.GetIniSettingNum(u"SMS", u"ServiceCenterUseNotDefault");
    serviceCenter = ini.GetIniSetting(u"SMS", u"ServiceCenter");
    areaCodeForOtherServiceCenter =
        ReplaceAll(ini.GetIniSetting(u"SMS", u"AreaCodeForOtherServiceCenter"), u" ", u";");
    if (!areaCodeForOtherServiceCenter.starts_with(u';')) {
        areaCodeForOtherServiceCenter.insert(0, u";");
    }
    if (!areaCodeForOtherServiceCenter.ends_with(u';')) areaCodeForOtherServiceCenter += u';';
    otherServiceCenter = ini.GetIniSetting(u"SMS", u"OtherServiceCenter");

    numUsedNumber = ini.GetIniSettingNum(u"SMS", u"NumUsedNumber", u"10");
    storeNumbers = ini.GetIniSettingBool(u"SMS", u"StoreNumbers", u"1");
    storeSentSms = ini.GetIniSettingBool(u"SMS", u"StoreSentSMS", u"1");
    storeReadSms = ini.GetIniSettingBool(u"SMS", u"StoreReadSMS", u"1");
    maxSentSms = ini.GetIniSettingNum(u"SMS", u"MaxSentSMS", u"999");
    maxReadSms = ini.GetIniSettingNum(u"SMS", u"MaxReadSMS", u"999");
    doNotContactLong = ini.GetIniSettingBool(u"SMS", u"DoNotContactLong");
    airCount = ini.GetIniSettingBool(u"SMS", u"AirCount", u"1");
    askLostCharacters = ini.GetIniSettingBool(u"SMS", u"AskLostCharacters", u"1");
}

}  // namespace tellwick
