#include "compose/SmsQueue.h"

#include "platform/Locks.h"
#include "platform/Product.h"
#include "settings/Files.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr std::int64_t EntryNumbers = 0x100000;  // after 0xFFFFF comes 0
constexpr TextView Counter = u"cOut";

}  // namespace

SmsQueue::SmsQueue(RegEdit& regEdit, Files& files, FileSystem& fileSystem, Locks& locks)
    : regEdit(regEdit), files(files), fileSystem(fileSystem), locks(locks) {}

void SmsQueue::AddEntry(TextView recipient, TextView message) {
    Text path = fileSystem.CreateTempFile(fileSystem.TempFolder(), u"sms");
    if (path.empty()) files.ReportFailure(path);
    files.WriteFileConents(path, Text(recipient).append(1, Tab).append(message), false, 0, true);

    // A second Outlook of this user would read the same counter and overwrite the entry.
    const std::unique_ptr<Lock> lock = locks.Take(u"Queue");
    const Text key = Text(RootKey).append(u"\\SMSQueue");
    // Deliberate: "The counter comes back slowly".
    std::int64_t number =
        LeadingNumber32(regEdit.ReadValue(Hive::CurrentUser, key, Counter)) + std::int64_t(1);
    if (number >= EntryNumbers) number -= EntryNumbers;
    // The entry before the counter: who reads the counter finds the entry there.
    regEdit.WriteValue(Hive::CurrentUser, key, NumberText(number), path);
    regEdit.WriteValue(Hive::CurrentUser, key, Counter, NumberText(number));
}

}  // namespace tellwick
