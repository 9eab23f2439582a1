// Every row of the stand-in's table of documented behaviours, in every version.
#include <doctest.h>

#include <map>
#include <string>

#include "platform/TestHost.h"

using namespace tellwick;
using namespace tellwick::test;
using standin::Documented;

namespace {

// Whether an Outlook does it, played through from outside. What is not usual is switched on.
using Proof = bool (*)(standin::OutlookModel& outlook);

bool FailsForDefault(standin::OutlookModel& outlook) {
    const auto mail = outlook.AddItem(outlook::MailClass, {{u"Subject", u"Hello"}});
    return AsText(mail->Handle()->Get(DefaultMember)).empty() && outlook.errors;
}

const std::map<Documented, Proof>& Proofs() {
    static const std::map<Documented, Proof> proofs{
        {Documented::NoDefaultMember, &FailsForDefault},
    };
    return proofs;
}

}  // namespace

TEST_CASE("the host does what is documented of it, in the versions that it holds for") {
    for (const standin::DocumentedRow& row : standin::DocumentedRows()) {
        if (row.shown != standin::DocumentedRow::InModel) continue;
        const auto proof = Proofs().find(row.behaviour);
        CAPTURE(std::string(row.name.begin(), row.name.end()));
        REQUIRE(proof != Proofs().end());
        for (const std::int32_t version : {9, 10, 11, 12, 14, 16}) {
            CAPTURE(version);
            PendingError errors;
            standin::OutlookModel outlook(errors, version);
            if (!row.usual) outlook.Switch(row.behaviour, true);
            CHECK(proof->second(outlook) == (version >= row.first && version <= row.last));
        }
    }
}
