// What is proposed for each country, against libphonenumber.
#ifdef TELLWICK_LIBPHONENUMBER
#include <doctest.h>

#include <phonenumbers/phonenumberutil.h>

#include <cstdio>
#include <set>

#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"
#include "platform/TestProgram.h"

using namespace tellwick;
using namespace tellwick::test;
using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

namespace {

// What the form takes for a contact of a user who has followed the proposal for the country.
Text NumberTaken(TextView country, TextView mobile) {
    TestProgram test;
    standin::OutlookModel outlook(test.platform.errors, 16);
    outlook.AddItem(outlook::ContactClass,
                    {{u"FullName", u"Eva"}, {u"MobileTelephoneNumber", mobile}});
    test.platform.locale.country = country;
    test.program.formOptions.SetFirstPrefixes({});
    test.program.addresses.SetApplication(outlook.Application());
    test.program.formSmsSend.Open({});
    test.view.TextTo().SetText(u"Eva");
    test.program.recipientField.TextTo_KeyDown(key::Down, 0);
    test.program.formSmsSend.Form_KeyDown(key::Enter, key::Control);
    return test.view.TextTo().GetText();
}

Text Wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

}  // namespace

TEST_CASE(
    "with the proposal for a country its mobile numbers are national and right, or unchanged") {
    const PhoneNumberUtil& numbers = *PhoneNumberUtil::GetInstance();
    std::set<std::string> regions;
    numbers.GetSupportedRegions(&regions);
    int national = 0, unchanged = 0;
    for (const std::string& region : regions) {
        CAPTURE(region);
        PhoneNumber number;
        if (!numbers.GetExampleNumberForType(region, PhoneNumberUtil::MOBILE, &number)) {
            REQUIRE(numbers.GetExampleNumber(region, &number));
        }
        std::string international, digits, significant;
        numbers.Format(number, PhoneNumberUtil::E164, &international);
        numbers.Format(number, PhoneNumberUtil::NATIONAL, &digits);
        numbers.NormalizeDigitsOnly(&digits);
        numbers.GetNationalSignificantNumber(number, &significant);
        // A 0 of the number's own is no national form.
        const bool hasNational = digits == "0" + significant;
        CHECK(NumberTaken(Wide(region), Wide(international)) ==
              Wide(hasNational ? digits : international));
        ++(hasNational ? national : unchanged);
    }
    std::printf("%d regions: %d with national numbers, %d with international ones\n",
                national + unchanged, national, unchanged);
    CHECK(national > 0);
    CHECK(unchanged > 0);
}
#endif
