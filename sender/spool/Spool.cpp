#include "spool/Spool.h"

#include <algorithm>
#include <utility>

#include "platform/Utf8.h"
#include "spool/Times.h"

namespace tellwick::sender {

namespace {

constexpr TextView Ending = u".sms";
constexpr TextView BeingWritten = u"being-written.tmp";
constexpr TextView WholeTextEnding = u".txt";
constexpr double LongestPause = 15.0 / (24 * 60);  // days
constexpr double PauseAfterFailure = 1.0 / (24 * 60);
constexpr std::size_t OldestAtOnce = 1000;

// Tells a person what the folder is, and us that an empty list of its files is no failure.
constexpr TextView ReadMe = u"readme.txt";
constexpr std::string_view ReadMeText =
    "SMS of Tellwick, one a file. While Tellwick runs, leave them to it.\r\n";

constexpr TextView TakenFolder = u"taken\\";

// "20261122-130700250-sms1A2B.01DA5F3C-00001": date, time, origin, number.
TextView OriginOf(TextView id) {
    const std::size_t start = std::min(id.find(u'-', id.find(u'-') + 1), id.size() - 1) + 1;
    return id.substr(start, id.rfind(u'-') - start);
}

TextView KeyOf(TextView id) {
    return id.substr(std::min(id.find(u'-', id.find(u'-') + 1), id.size() - 1) + 1);
}

std::size_t MostOf(const SentLimits& limits) {
    return limits.store ? std::size_t(std::max(limits.most, 0)) : 0;
}

bool IsId(TextView id) {
    return std::count(id.begin(), id.end(), u'-') == 3;
}

}  // namespace

Spool::Spool(FileSystem& fileSystem, Clock& clock, TextView settingsFolder)
    : fileSystem(fileSystem), clock(clock), root(Text(settingsFolder) + u"Spool\\") {}

Text Spool::Folder(State state) const {
    switch (state) {
        case State::Waiting:
            return root + u"waiting\\";
        case State::Sent:
            return root + u"sent\\";
        case State::Failed:
            return root + u"failed\\";
        default:
            return root + u"sending\\";
    }
}

Text Spool::Path(State state, const Text& id) const {
    return Folder(state).append(id).append(Ending);
}

bool Spool::MakeFolder(const Text& folder) {
    const Text path = folder + Text(ReadMe);
    if (fileSystem.Exists(path)) return true;
    if (!fileSystem.FolderExists(folder)) fileSystem.CreateFolder(folder);
    return fileSystem.Write(path, ReadMeText, WriteMode::Replace);
}

std::optional<std::vector<Text>> Spool::Names(const Text& folder) {
    std::vector<Text> names = fileSystem.FileNames(folder, {});
    if (names.empty()) return {};
    std::erase(names, ReadMe);
    return names;
}

std::optional<std::vector<Text>> Spool::ReadIds(State state) {
    std::optional<std::vector<Text>> names = Names(Folder(state));
    if (!names) return {};
    std::vector<Text> ids;
    for (Text& name : *names) {
        if (!name.ends_with(Ending)) continue;
        name.resize(name.size() - Ending.size());
        if (IsId(name)) ids.push_back(std::move(name));
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

bool Spool::Open() {
    waiting.clear();
    unsure.clear();
    if (!fileSystem.FolderExists(root)) fileSystem.CreateFolder(root);
    for (const State state : {State::Waiting, State::Sending, State::Sent, State::Failed}) {
        if (!MakeFolder(Folder(state))) return false;
    }
    if (!MakeFolder(root + Text(TakenFolder))) return false;
    const std::optional<std::vector<Text>> toSend = ReadIds(State::Waiting);
    const std::optional<std::vector<Text>> handedOver = ReadIds(State::Sending);
    if (!toSend || !handedOver) return false;
    for (const Text& id : *toSend) waiting.emplace(id, 0);
    for (const Text& id : *handedOver) Recover(id);
    return true;
}

void Spool::Recover(const Text& id) {
    std::optional<SpooledSms> sms = Load(State::Sending, id);
    if (sms && sms->result != Result::Unknown && sms->result != Result::Unsure) {
        Finish(id, std::move(*sms));
        return;
    }
    unsure.insert(id);
    if (!sms || sms->result == Result::Unsure) return;
    sms->result = Result::Unsure;
    sms->reason = {Text(reason::Interrupted), {}};
    Write(Path(State::Sending, id), *sms);
}

Text Spool::NewId(TextView origin, std::size_t number) {
    lastMoment = std::max(lastMoment + 1, MillisecondsOf(clock.Now()));
    Text id;
    for (const char unit : TimeStamp(FromMilliseconds(lastMoment))) {
        if (unit == ' ') id += u'-';
        if (unit >= '0' && unit <= '9') id += char16_t(unit);
    }
    return id.append(u"-").append(Key(origin, number));
}

Text Spool::Key(TextView origin, std::size_t number) {
    const Text digits = NumberText(std::int64_t(number));
    return Text(origin).append(u"-").append(5 - std::min<std::size_t>(5, digits.size()), u'0') +
           digits;
}

Text Spool::Add(const SpooledSms& sms, TextView origin, std::size_t number) {
    const State state = sms.result == Result::Failed ? State::Failed : State::Waiting;
    const Text id = NewId(origin, number);
    if (!Write(Path(state, id), sms)) return {};
    if (state == State::Waiting) waiting.emplace(id, 0);
    Tell(id, state);
    return id;
}

Text Spool::AddFailed(SpooledSms sms, TextView origin, std::string_view wholeText) {
    const Text id = NewId(origin, 1);
    sms.wholeText = id + Text(WholeTextEnding);
    const Text folder = Folder(State::Failed);
    if (!Put(folder + sms.wholeText, wholeText)) return {};
    if (!Write(Path(State::Failed, id), sms)) {
        fileSystem.Delete(folder + sms.wholeText);
        return {};
    }
    Tell(id, State::Failed);
    return id;
}

std::optional<std::set<Text>> Spool::Keys() {
    std::set<Text> keys;
    for (const State state : {State::Waiting, State::Sending, State::Sent, State::Failed}) {
        const std::optional<std::vector<Text>> ids = ReadIds(state);
        if (!ids) return {};
        for (const Text& id : *ids) keys.emplace(KeyOf(id));
    }
    return keys;
}

void Spool::Release(TextView origin) {
    held.erase(Text(origin));
}

bool Spool::Remember(TextView origin) {
    return fileSystem.Write(root + Text(TakenFolder).append(origin), "1", WriteMode::Replace);
}

void Spool::Forget(TextView origin) {
    fileSystem.Delete(root + Text(TakenFolder).append(origin));
}

std::optional<std::vector<Text>> Spool::Remembered() {
    return Names(root + Text(TakenFolder));
}

Text Spool::Next() const {
    const double now = clock.Now();
    for (const auto& [id, next] : waiting) {
        // No pause is that long: the clock was set back.
        const bool due = next <= now || next > now + 2 * LongestPause;
        if (due && (held.empty() || !held.contains(Text(OriginOf(id))))) return id;
    }
    return {};
}

std::optional<double> Spool::UntilNextTry() const {
    std::optional<double> least;
    const double now = clock.Now();
    for (const auto& [id, next] : waiting) {
        if (next > now && (!least || next - now < *least)) least = next - now;
    }
    return least;
}

std::optional<SpooledSms> Spool::Begin(const Text& id) {
    // Another one's turn, should a step fail.
    waiting[id] = clock.Now() + PauseAfterFailure;
    std::optional<SpooledSms> sms = Load(State::Waiting, id);
    if (!sms) return {};
    if (sms->reason.name == reason::Damaged) {
        if (Move(id, State::Waiting, State::Failed)) Tell(id, State::Failed);
        return {};
    }
    if (sms->result != Result::Unknown) {
        // Or the next start would take the answer of the last try for that of this one.
        sms->result = Result::Unknown;
        if (!Write(Path(State::Waiting, id), *sms)) return {};
    }
    if (!Move(id, State::Waiting, State::Sending)) return {};
    inFlight = id;
    Tell(id, State::Sending);
    return sms;
}

bool Spool::Update(State state, const Text& id, const SpooledSms& sms) {
    const bool written = Write(Path(state, id), sms);
    if (written) Tell(id, state);
    return written;
}

bool Spool::Record(const Text& id, const SpooledSms& sms) {
    return Write(Path(State::Sending, id), sms);
}

void Spool::Finish(const Text& id, SpooledSms sms) {
    if (inFlight == id) inFlight.clear();
    if (!TrySettle(id, sms)) unsettled.emplace(id, std::move(sms));
}

bool Spool::Settle() {
    for (const auto& [id, sms] : std::map<Text, SpooledSms>(unsettled)) {
        if (TrySettle(id, sms)) unsettled.erase(id);
    }
    return unsettled.empty();
}

bool Spool::TrySettle(const Text& id, const SpooledSms& sms) {
    const bool written = Write(Path(State::Sending, id), sms);
    // The folder alone says enough of one that was sent.
    if (!written && sms.result != Result::Sent) return false;
    State to = State::Unsure;
    switch (sms.result) {
        case Result::Sent:
            to = State::Sent;
            if (MostOf(limits) == 0) {
                if (!fileSystem.Delete(Path(State::Sending, id))) return false;
                Tell(id, {});
                return true;
            }
            break;
        case Result::TryAgain:
            to = State::Waiting;
            break;
        case Result::Failed:
            to = State::Failed;
            break;
        default:
            unsure.insert(id);
            Tell(id, to);
            return true;
    }
    if (!Move(id, State::Sending, to)) return false;
    if (to == State::Waiting) waiting[id] = sms.nextTry;
    Tell(id, to);
    if (to == State::Sent) TrimSent();
    return true;
}

bool Spool::Move(const Text& id, State from, State to) {
    if (!fileSystem.Rename(Path(from, id), Path(to, id))) return false;
    waiting.erase(id);
    unsure.erase(id);
    if (to == State::Waiting) waiting.emplace(id, 0);
    if (to == State::Sent && sentCount) ++*sentCount;
    return true;
}

bool Spool::Write(const Text& path, const SpooledSms& sms) {
    return Put(path, ToFile(sms));
}

bool Spool::Put(const Text& path, std::string_view contents) {
    // In the small folder: where there are many files a new name takes longer.
    const Text aside = root + Text(BeingWritten);
    if (fileSystem.Write(aside, contents, WriteMode::Replace) && fileSystem.Rename(aside, path)) {
        return true;
    }
    fileSystem.Delete(aside);
    return false;
}

std::vector<Text> Spool::Ids(State state) {
    std::vector<Text> ids;
    switch (state) {
        case State::Waiting:
            for (const auto& [id, next] : waiting) ids.push_back(id);
            return ids;
        case State::Sending:
            if (!inFlight.empty()) ids.push_back(inFlight);
            for (const auto& [id, sms] : unsettled) ids.push_back(id);
            return ids;
        case State::Unsure:
            return {unsure.begin(), unsure.end()};
        default:
            return ReadIds(state).value_or(ids);
    }
}

std::optional<SpooledSms> Spool::Load(State state, const Text& id) {
    const std::optional<std::string> file = fileSystem.Read(Path(state, id));
    if (!file) return {};
    if (std::optional<SpooledSms> sms = FromFile(*file)) {
        // Its file may have stayed that of an earlier try.
        if (state == State::Sent) sms->result = Result::Sent;
        if (state == State::Sent) sms->reason = {};
        return sms;
    }
    SpooledSms damaged;
    damaged.text = FromUtf8(*file);
    damaged.result =
        state == State::Sending || state == State::Unsure ? Result::Unsure : Result::Failed;
    damaged.reason = {Text(reason::Damaged), id + Text(Ending)};
    return damaged;
}

bool Spool::SendAgain(State state, const Text& id) {
    std::optional<SpooledSms> sms = Load(state, id);
    if (!sms || sms->reason.name == reason::Damaged || !sms->wholeText.empty()) return false;
    if (state == State::Sent) {
        SpooledSms copy;
        copy.recipient = sms->recipient;
        copy.text = sms->text;
        copy.accepted = clock.Now();
        return !Add(copy, u"again").empty();
    }
    if (state != State::Failed && state != State::Unsure) return false;
    sms->result = Result::TryAgain;
    sms->reason = {};
    sms->attempts = 0;
    sms->firstTried = sms->nextTry = sms->finished = 0;
    if (!Write(Path(state, id), *sms) || !Move(id, state, State::Waiting)) return false;
    Tell(id, State::Waiting);
    return true;
}

bool Spool::Delete(State state, const Text& id) {
    if (state == State::Sending) return false;
    const auto sms = state == State::Failed ? Load(state, id) : std::nullopt;
    if (!fileSystem.Delete(Path(state, id))) return false;
    // The name is taken from our own folder, whatever the file says.
    if (sms && sms->wholeText == id + Text(WholeTextEnding)) {
        fileSystem.Delete(Folder(state) + sms->wholeText);
    }
    waiting.erase(id);
    unsure.erase(id);
    if (state == State::Sent && sentCount && *sentCount > 0) --*sentCount;
    Tell(id, {});
    return true;
}

void Spool::SetLimits(const SentLimits& newLimits) {
    // Else the next one that is sent is early enough to count those that are kept.
    const bool fewer = MostOf(newLimits) < MostOf(limits);
    limits = newLimits;
    if (fewer) TrimSent();
}

void Spool::TrimSent() {
    const std::size_t most = MostOf(limits);
    while (!sentCount || *sentCount > most) {
        if (!sentCount || oldestSent.empty()) {
            std::optional<std::vector<Text>> ids = ReadIds(State::Sent);
            if (!ids) return;
            sentCount = ids->size();
            if (*sentCount <= most) return;
            ids->resize(std::min(*sentCount, OldestAtOnce));
            oldestSent.assign(ids->rbegin(), ids->rend());
        }
        const Text oldest = std::exchange(oldestSent.back(), {});
        oldestSent.pop_back();
        if (!Delete(State::Sent, oldest)) return;
    }
}

void Spool::Tell(const Text& id, std::optional<State> state) {
    if (listener) listener(id, state);
}

}  // namespace tellwick::sender
