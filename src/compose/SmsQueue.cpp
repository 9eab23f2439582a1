#include "compose/SmsQueue.h"

#include <utility>

#include "platform/Locks.h"
#include "platform/Product.h"
#include "settings/Files.h"
#include "settings/RegEdit.h"

namespace tellwick {

namespace {

constexpr std::int64_t EntryNumbers = 0x100000;  // after 0xFFFFF comes 0
constexpr TextView Counter = u"cOut";

Text KeyName() {
    return Text(RootKey).append(u"\\SMSQueue");
}

Text Contents(TextView recipient, TextView message) {
    return Text(recipient).append(1, Tab).append(message);
}

}  // namespace

// What a run has written so far: taken back unless the run comes to its end.
class SmsQueue::Unfinished {
public:
    explicit Unfinished(SmsQueue& queue) : queue(queue) {}
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    ~Unfinished() {
        // The entries first: none must name a file that is gone.
        for (const Text& number : numbers) {
            TakeBack([&] { queue.regEdit.DeleteValue(Hive::CurrentUser, KeyName(), number); });
        }
        for (const Text& path : paths) TakeBack([&] { queue.fileSystem.Delete(path); });
    }
    void Finish() {
        numbers.clear();
        paths.clear();
    }

    std::vector<Text> paths;
    std::vector<Text> numbers;

private:
    // Want of memory, which may be why the run is taken back, leaves one behind.
    template <class Action>
    static void TakeBack(const Action& action) {
        try {
            action();
        } catch (...) {  // NOLINT(bugprone-empty-catch)
        }
    }

    SmsQueue& queue;
};

SmsQueue::SmsQueue(RegEdit& regEdit, Files& files, FileSystem& fileSystem, Locks& locks)
    : regEdit(regEdit), files(files), fileSystem(fileSystem), locks(locks) {}

void SmsQueue::AddEntry(TextView recipient, TextView message) {
    Text path = fileSystem.CreateTempFile(fileSystem.TempFolder(), u"sms");
    if (path.empty()) files.ReportFailure(path);
    files.WriteFileConents(path, Contents(recipient, message), false, 0, true);

    // A second Outlook of this user would read the same counter and overwrite the entry.
    const std::unique_ptr<Lock> lock = locks.Take(u"Queue");
    Text number;
    Enter(path, number);
}

// Under the next number; false when the system refuses it. Where the counter cannot be read, the
// number goes on from the one `before`.
bool SmsQueue::Enter(TextView path, Text& number, TextView before) {
    const Text key = KeyName();
    const Text last = regEdit.ReadValue(Hive::CurrentUser, key, Counter);
    // Deliberate: "The counter comes back slowly".
    std::int64_t next = LeadingNumber32(last.empty() ? before : TextView(last)) + std::int64_t(1);
    if (next >= EntryNumbers) next -= EntryNumbers;
    number = NumberText(next);
    // The entry before the counter: who reads the counter finds the entry there.
    const bool entered = regEdit.WriteValue(Hive::CurrentUser, key, number, path);
    return regEdit.WriteValue(Hive::CurrentUser, key, Counter, number) && entered;
}

bool SmsQueue::AddEntries(const std::vector<QueueEntry>& entries,
                          const std::function<void(std::size_t)>& written) {
    const std::optional<Text> failed = TryEntries(entries, written);
    // All is taken back before the user reads of it.
    if (failed) files.ReportFailure(*failed);
    return !failed;
}

// The file that could not be written or entered, if one could not.
std::optional<Text> SmsQueue::TryEntries(const std::vector<QueueEntry>& entries,
                                         const std::function<void(std::size_t)>& written) {
    Unfinished run(*this);
    run.paths.reserve(entries.size());
    run.numbers.reserve(entries.size());
    const Text folder = fileSystem.TempFolder();
    for (const QueueEntry& entry : entries) {
        Text path = fileSystem.CreateTempFile(folder, u"sms");
        if (path.empty()) return path;
        Text& kept = run.paths.emplace_back(std::move(path));
        if (!files.WriteFileConents(kept, Contents(entry.recipient, entry.message), false, 0,
                                    false))
            return kept;
        written(run.paths.size());
    }
    const std::unique_ptr<Lock> lock = locks.Take(u"Queue");
    Text last;
    for (const Text& path : run.paths) {
        const bool entered = Enter(path, run.numbers.emplace_back(), last);
        if (!entered) return path;
        last = run.numbers.back();
    }
    run.Finish();
    return {};
}

}  // namespace tellwick
