// What the network says later of SMS that were sent: which of them a report is about.
//
// A report names the recipient and a number that the network gave the part, of which there are 256:
// the newest SMS that fits is the one.
#pragma once

#include <deque>
#include <vector>

#include "carrier/PduReader.h"
#include "spool/Spool.h"

namespace tellwick::sender {

class SentReports {
public:
    explicit SentReports(Spool& spool) : spool(spool) {}

    // One was sent just now.
    void Sent(const Text& id, const SpooledSms& sms);

    // Notes the report with its SMS. One that fits none is passed over.
    void Reported(const StatusReport& report);

    // Notes it with this one, if it fits.
    static bool Note(const StatusReport& report, SpooledSms& sms);

private:
    struct Row {
        Text id;
        Text recipient;
        std::vector<std::int32_t> references;
    };

    void Load();

    Spool& spool;
    bool loaded = false;
    std::deque<Row> rows;  // those sent last, the newest one first
};

}  // namespace tellwick::sender
