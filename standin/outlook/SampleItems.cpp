#include "outlook/SampleItems.h"

#include <cmath>

#include "platform/OutlookEvents.h"

namespace tellwick::standin {

void AddSampleItems(OutlookModel& outlook) {
    using namespace tellwick::outlook;
    outlook.AddItem(MailClass, {{u"SenderName", u"Anna Berger"},
                                {u"SentOnBehalfOfName", u"Anna Berger"},
                                {u"Subject", u"Minutes of Tuesday's meeting"},
                                {u"Body",
                                 u"Hello,\r\n\r\nthe minutes are in the team folder."
                                 u"\r\n\r\nAnna"}});
    outlook
        .AddItem(MailClass, {{u"SentOnBehalfOfName", u"+491701234567"},
                             {u"Subject", u"SMS from +491701234567"},
                             {u"Body", u" Komme um 5 an. Gr\u00FC\u00DFe, J\u00F6rg "}})
        ->SetUserProperty(u"IsSMS", true);
    outlook.AddItem(MailClass, {{u"SenderName", u"Travel Desk"},
                                {u"SentOnBehalfOfName", u"Travel Desk"},
                                {u"Subject", u"Your ticket"},
                                {u"Body", u"Please find your ticket at the counter."}});
    outlook
        .AddItem(MailClass, {{u"SentOnBehalfOfName", u"+436641112223"},
                             {u"Subject", u"SMS from +436641112223"},
                             {u"Body", u"Your parcel is here."}})
        ->SetUserProperty(u"IsSMS", true);

    outlook.AddItem(ContactClass, {{u"FullName", u"Anna Berger"},
                                   {u"MobileTelephoneNumber", u"0171 / 2345678"},
                                   {u"BusinessTelephoneNumber", u"+49 (30) 123456"}});
    outlook.AddItem(ContactClass, {{u"FullName", u"J\u00F6rg M\u00FCller"},
                                   {u"MobileTelephoneNumber", u"+491701234567"},
                                   {u"HomeTelephoneNumber", u"+49 (89) 654321"}});
    outlook.AddItem(ContactClass, {{u"FullName", u"\u00C7a\u011Fla \u00D6zt\u00FCrk"},
                                   {u"HomeTelephoneNumber", u"0664 1112223"}});
    outlook.AddItem(ContactClass, {{u"FullName", u"Without Number"}});
    outlook.AddItem(DistributionListClass, {{u"DLName", u"Team"}});
    const auto dentist = outlook.AddItem(
        AppointmentClass, {{u"Subject", u"Dentist"}, {u"Location", u"Main Street 5"}});
    constexpr double Ten = 10.0 / 24;
    dentist->appointment->start = std::floor(outlook.now) + 1 + Ten;
    dentist->appointment->attendees = {{u"Anna Berger", Required, {}}};
}

}  // namespace tellwick::standin
