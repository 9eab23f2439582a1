#include "spool/QueueReader.h"

#include <algorithm>

#include "air/AirCount.h"
#include "recipients/Prefixes.h"
#include "recipients/RecipientList.h"
#include "spool/Recipients.h"

namespace tellwick::sender {

namespace {

constexpr std::uint32_t EntryNumbers = 0x100000;  // after 0xFFFFF comes 0
constexpr TextView Counter = u"cOut";             // the add-in's; never written here
constexpr int MostLooks = 3;
constexpr double BetweenLooks = 1000;  // milliseconds

// More bytes are no SMS: 255 parts of the most that a code page needs for them are fewer.
constexpr std::size_t MostBytes = 262'144;
constexpr std::size_t ShownOfWholeText = 1000;

constexpr std::size_t LongestName = 40;

bool IsNumber(TextView name) {
    return !name.empty() && name.size() <= 7 && std::all_of(name.begin(), name.end(), IsDigit);
}

// "sms1A2B.01DA5F3C22B07C00": the name of the file, and its time.
Text OriginOf(TextView path, std::uint64_t modified) {
    Text origin;
    for (const char16_t unit : path.substr(path.find_last_of(u"\\/:") + 1).substr(0, LongestName)) {
        const char16_t lower = LowerCase(unit);
        origin += IsDigit(lower) || (lower >= u'a' && lower <= u'z') ? lower : u'.';
    }
    return origin.append(u".")
        .append(HexText(std::uint32_t(modified >> 32)))
        .append(u".")
        .append(HexText(std::uint32_t(modified)));
}

}  // namespace

QueueReader::QueueReader(QueueValues& queueValues, FileSystem& fileSystem, Locale& locale,
                         Clock& clock, Prefixes& prefixes, Spool& spool)
    : queueValues(queueValues),
      fileSystem(fileSystem),
      locale(locale),
      clock(clock),
      prefixes(prefixes),
      spool(spool) {}

std::optional<std::vector<QueueReader::Entry>> QueueReader::Entries() {
    std::optional<std::vector<Text>> names = queueValues.Names();
    if (!names) return {};
    std::vector<Entry> entries;
    for (Text& name : *names) {
        const std::int64_t number = LeadingNumber(name);
        if (IsNumber(name) && number < EntryNumbers) {
            entries.push_back({std::uint32_t(number), std::move(name)});
        }
    }
    // The counter names the newest one: the oldest one possible is the next behind it.
    const auto last = std::uint32_t(LeadingNumber(queueValues.Read(Counter).value_or(Text())));
    const auto age = [last](const Entry& entry) {
        return (entry.number - last - 1) % EntryNumbers;
    };
    std::sort(entries.begin(), entries.end(), [&](const Entry& left, const Entry& right) {
        return std::pair(age(left), left.name) < std::pair(age(right), right.name);
    });
    return entries;
}

bool QueueReader::KnowFormerOnes() {
    if (knowsFormerOnes) return true;
    // To read them all takes long where there are many; no entry has been there that they could
    // have.
    std::optional<std::map<Text, Text>> keys =
        pending.empty() ? std::map<Text, Text>() : spool.Keys();
    const std::optional<std::vector<Text>> remembered = spool.Remembered();
    if (!keys || !remembered) return false;
    former = std::move(*keys);
    for (const Text& origin : *remembered) progress[origin] = {{}, true, true};
    return knowsFormerOnes = true;
}

QueueReader::Look QueueReader::Take(std::size_t most) {
    std::erase_if(leftFiles, [this](const Text& path) {
        return fileSystem.Delete(path) || !fileSystem.Exists(path);
    });
    const bool goesOn = !pending.empty() || !accepted.empty();
    if (!goesOn) {
        std::optional<std::vector<Entry>> entries = Entries();
        if (!entries) return Look::Again;
        pending.assign(entries->begin(), entries->end());
        lookAgain = false;
    }
    if (!KnowFormerOnes()) return Look::Again;
    for (; !pending.empty(); pending.pop_front()) {
        if (most == 0) return Look::More;
        if (TakeEntry(pending.front())) {
            --most;
        } else {
            lookAgain = true;
        }
    }
    for (; !accepted.empty(); accepted.pop_front()) {
        if (most == 0) return Look::More;
        --most;
        if (!Remove(accepted.front())) lookAgain = true;
    }
    lookedThrough = true;
    if (lookAgain || !leftFiles.empty()) return Look::Again;
    // Others may have come since the names were read.
    if (goesOn) return Look::More;
    // What was in the queue at the start is taken; what is remembered of it no longer is.
    former.clear();
    spool.NoneIsInPart();
    for (const auto& [origin, state] : progress) {
        spool.Release(origin);
        if (state.remembered) spool.Forget(origin);
    }
    progress.clear();
    misses.clear();
    return Look::Done;
}

bool QueueReader::TakeEntry(const Entry& entry) {
    const Text path = queueValues.Read(entry.name).value_or(Text());
    const std::uint64_t modified = fileSystem.ModifiedTime(path);
    const Text origin = OriginOf(path, modified);
    const auto known = progress.find(origin);
    if (modified == 0 || known == progress.end() || !known->second.complete) {
        const std::optional<std::string> contents =
            modified == 0 ? std::optional<std::string>() : fileSystem.Read(path);
        // An empty one is a file that could not be written, or not yet.
        if (!contents || contents->empty()) return TakeMissing(entry, path);
        misses.erase(entry.name);
        spool.Hold(origin);
        if (!Accept(origin, *contents)) return false;
        progress[origin].complete = true;
    }
    accepted.push_back({entry.name, path, origin});
    return true;
}

bool QueueReader::TakeMissing(const Entry& entry, const Text& path) {
    Miss& miss = misses[entry.name];
    const double now = clock.Milliseconds();
    if (miss.looks > 0 && now - miss.last < BetweenLooks) return false;
    miss.last = now;
    if (++miss.looks < MostLooks) return false;
    const Text origin = OriginOf(path, 0);
    // Not looked for among former ones: temporary files get the same names again.
    bool& told = progress[origin].complete;
    told = told || !spool.Add(Refused({}, {}, reason::NoFile, path), origin).empty();
    // What cannot be read is not ours to delete.
    if (!told || !queueValues.Delete(entry.name)) return false;
    progress.erase(origin);
    misses.erase(entry.name);
    return true;
}

bool QueueReader::Accept(const Text& origin, std::string_view contents) {
    Progress& state = progress[origin];
    if (contents.size() > MostBytes) {
        if (state.accepted.contains(1) || former.contains(Spool::Key(origin, 1))) return true;
        const Text shown = locale.FromAnsi(contents.substr(0, ShownOfWholeText));
        const std::size_t tab = shown.find(Tab);
        SpooledSms sms = tab == Text::npos ? Refused({}, shown, reason::NoTab)
                                           : Refused(shown.substr(0, tab), shown.substr(tab + 1),
                                                     reason::TooLong);
        if (spool.AddFailed(std::move(sms), origin, contents).empty()) return false;
        state.accepted.insert(1);
        return true;
    }
    const Text whole = locale.FromAnsi(contents);
    const std::size_t tab = whole.find(Tab);
    if (tab == Text::npos) return AcceptOne(origin, state, 1, Refused({}, whole, reason::NoTab));
    const Text text = whole.substr(tab + 1);
    const std::vector<Text> recipients = RecipientsIn(TextView(whole).substr(0, tab));
    if (recipients.empty()) {
        return AcceptOne(origin, state, 1, Refused({}, text, reason::NoRecipients));
    }
    const bool tooLong = CountOnAir(text).parts.size() > MostParts;
    bool accepted = true;
    for (std::size_t number = 1; number <= recipients.size(); ++number) {
        const Text& recipient = recipients[number - 1];
        SpooledSms sms;
        sms.recipient = prefixes.ConvertPhoneNumber(recipient);
        sms.text = text;
        sms.accepted = clock.Now();
        if (!CanBeDialled(sms.recipient)) {
            sms = Refused(recipient, text, reason::NoNumber);
        } else if (tooLong) {
            sms = Refused(recipient, text, reason::TooLong);
        }
        accepted = AcceptOne(origin, state, number, sms) && accepted;
    }
    return accepted;
}

bool QueueReader::AcceptOne(const Text& origin, Progress& state, std::size_t number,
                            const SpooledSms& sms) {
    if (state.accepted.contains(number)) return true;
    bool isThere = false;
    if (const auto known = former.find(Spool::Key(origin, number)); known != former.end()) {
        const std::optional<bool> whole = spool.IsWhole(known->second);
        if (!whole || (!*whole && !spool.Delete(State::Waiting, known->second))) return false;
        isThere = *whole;
        if (!isThere) former.erase(known);
    }
    // It stands in the queue until it is whole.
    if (!isThere && spool.Add(sms, origin, number, NewFile::InPlace).empty()) return false;
    state.accepted.insert(number);
    return true;
}

bool QueueReader::Remove(const Accepted& taken) {
    if (!queueValues.Delete(taken.name)) {
        // It will be seen again, in this run or the next.
        bool& remembered = progress[taken.origin].remembered;
        remembered = remembered || spool.Remember(taken.origin);
        if (remembered) spool.Release(taken.origin);
        return false;
    }
    spool.Release(taken.origin);
    if (!fileSystem.Delete(taken.path)) leftFiles.push_back(taken.path);
    return true;
}

SpooledSms QueueReader::Refused(TextView recipient, TextView text, TextView why, TextView detail) {
    SpooledSms sms;
    sms.recipient = recipient;
    sms.text = text;
    sms.accepted = sms.finished = clock.Now();
    sms.result = Result::Failed;
    sms.reason = {Text(why), Text(detail)};
    return sms;
}

}  // namespace tellwick::sender
