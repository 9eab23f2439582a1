// What typing costs: numbers, matches and the counting of the text.
#include "Composing.h"

#include "Measures.h"
#include "air/AirCount.h"
#include "platform/TestProgram.h"

#ifdef TELLWICK_LIBPHONENUMBER
#include <phonenumbers/phonenumberutil.h>
#endif

#include <cstdio>

namespace tellwick::bench {

namespace {

void MeasureNumbers(test::TestProgram& test) {
    const Text number = u"+49 (171) 234-56 78 ";
    std::size_t length = 0;
    Report("ConvertPhoneNumber, 20 characters",
           Nanoseconds(100000,
                       [&] { length += test.program.prefixes.ConvertPhoneNumber(number).size(); }),
           "ns", 150);
#ifdef TELLWICK_LIBPHONENUMBER
    Report("  the same number through libphonenumber",
           Nanoseconds(
               100000,
               [&] {
                   std::string normalised = "+49 (171) 234-56 78 ";
                   i18n::phonenumbers::PhoneNumberUtil::GetInstance()->NormalizeDiallableCharsOnly(
                       &normalised);
                   length += normalised.size();
               }),
           "ns", 0);
#else
    std::puts("  libphonenumber is not here: not measured");
#endif
    if (length == 0) std::puts("no number was converted");
}

// Texts that need 7 bits, the extension table, and 16 bits.
void MeasureAirCount() {
    std::size_t parts = 0;
    for (const TextView piece : {u"x", u"x\u20AC", u"\u0436\xD83D\xDE00"}) {
        Text text;
        while (text.size() < 0x10000) text += piece;
        const TextView form = TextView(text).substr(0, 800);
        Report("air count, 800 characters",
               Nanoseconds(2000, [&] { parts += CountOnAir(form).parts.size(); }) / 1000, "us", 10);
        Report("air count, 64 K characters",
               Nanoseconds(50, [&] { parts += CountOnAir(text).parts.size(); }) / 1e6, "ms", 1);
    }
    if (parts == 0) std::puts("nothing was counted");
}

}  // namespace

void MeasureComposing() {
    test::TestProgram test;
    test.program.formSmsSend.Open({});
    test.view.Message().SetText(Text(800, u'x'));
    Report("Message_Change at 800 characters",
           Nanoseconds(2000, [&] { test.program.messageText.Message_Change(); }) / 1000, "us", 20);
    MeasureAirCount();
    MeasureNumbers(test);
    std::vector<Text> templates;
    templates.reserve(100);
    for (int i = 0; i < 100; ++i) templates.push_back(u"Baustein " + NumberText(i * 37 % 100));
    Report("SortList, 100 templates",
           Nanoseconds(20,
                       [&] {
                           std::vector<Text> list = templates;
                           SortList(test.program.debug, list, -1);
                       }) /
               1000,
           "us", 0);
}

}  // namespace tellwick::bench
