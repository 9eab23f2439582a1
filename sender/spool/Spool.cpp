#include "spool/Spool.h"

#include <algorithm>
#include <utility>

#include "spool/Times.h"

namespace tellwick::sender {

namespace {

constexpr double LongestPause = 15.0 / (24 * 60);  // days
constexpr double PauseAfterFailure = 1.0 / (24 * 60);
constexpr std::size_t OldestAtOnce = 1000;

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

}  // namespace

Spool::Spool(FileSystem& fileSystem, Clock& clock, TextView settingsFolder,
             std::size_t mostInFolder)
    : files(fileSystem, settingsFolder, mostInFolder), clock(clock) {}

bool Spool::Open() {
    waiting.clear();
    unsure.clear();
    if (!files.MakeFolders()) return false;
    const std::optional<std::vector<Text>> toSend = files.FindWaiting();
    const std::optional<std::vector<Text>> handedOver = files.Ids(State::Sending);
    if (!toSend || !handedOver) return false;
    for (const Text& id : *toSend) waiting.emplace(id, 0);
    for (const Text& id : *handedOver) Recover(id);
    return true;
}

void Spool::Recover(const Text& id) {
    std::optional<SpooledSms> sms = files.Read(State::Sending, id);
    if (sms && sms->result != Result::Unknown && sms->result != Result::Unsure) {
        Finish(id, std::move(*sms));
        return;
    }
    unsure.insert(id);
    if (!sms || sms->result == Result::Unsure) return;
    sms->result = Result::Unsure;
    sms->reason = {Text(reason::Interrupted), {}};
    files.Write(State::Sending, id, *sms);
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

Text Spool::Add(const SpooledSms& sms, TextView origin, std::size_t number, NewFile how) {
    const State state = sms.result == Result::Failed ? State::Failed : State::Waiting;
    const Text id = NewId(origin, number);
    if (!files.Add(state, id, sms, how)) return {};
    if (state == State::Waiting) waiting.emplace(id, 0);
    Tell(id, state);
    return id;
}

Text Spool::AddFailed(SpooledSms sms, TextView origin, std::string_view wholeText) {
    const Text id = NewId(origin, 1);
    sms.wholeText = SpoolFiles::WholeTextName(id);
    if (!files.WriteWholeText(id, wholeText)) return {};
    if (!files.Add(State::Failed, id, sms)) {
        files.DeleteWholeText(id);
        return {};
    }
    Tell(id, State::Failed);
    return id;
}

std::optional<std::map<Text, Text>> Spool::Keys() {
    std::map<Text, Text> keys;
    for (const State state : {State::Waiting, State::Sending, State::Unsure}) {
        for (const Text& id : Ids(state)) keys.emplace(KeyOf(id), id);
    }
    for (const State state : {State::Sent, State::Failed}) {
        const std::optional<std::vector<Text>> ids = files.Ids(state);
        if (!ids) return {};
        for (const Text& id : *ids) keys.emplace(KeyOf(id), id);
    }
    return keys;
}

std::optional<bool> Spool::IsWhole(const Text& id) {
    return waiting.contains(id) ? files.IsWhole(State::Waiting, id) : true;
}

void Spool::Release(TextView origin) {
    held.erase(Text(origin));
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
    std::optional<SpooledSms> sms = files.Read(State::Waiting, id);
    if (!sms) return {};
    if (sms->reason.name == reason::Damaged) {
        if (!inPart && Move(id, State::Waiting, State::Failed)) Tell(id, State::Failed);
        return {};
    }
    if (sms->result != Result::Unknown) {
        // Or the next start would take the answer of the last try for that of this one.
        sms->result = Result::Unknown;
        if (!files.Write(State::Waiting, id, *sms)) return {};
    }
    if (!Move(id, State::Waiting, State::Sending)) return {};
    inFlight = id;
    Tell(id, State::Sending);
    return sms;
}

bool Spool::Update(State state, const Text& id, const SpooledSms& sms) {
    const bool written = files.Write(state, id, sms);
    if (written) Tell(id, state);
    return written;
}

bool Spool::Record(const Text& id, const SpooledSms& sms) {
    return files.Write(State::Sending, id, sms);
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
    const bool written = files.Write(State::Sending, id, sms);
    // The folder alone says enough of one that was sent.
    if (!written && sms.result != Result::Sent) return false;
    State to = State::Unsure;
    switch (sms.result) {
        case Result::Sent:
            to = State::Sent;
            if (MostOf(limits) == 0) {
                if (!files.Delete(State::Sending, id)) return false;
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
    if (!files.Move(id, from, to)) return false;
    waiting.erase(id);
    unsure.erase(id);
    if (to == State::Waiting) waiting.emplace(id, 0);
    if (to == State::Sent && sentCount) ++*sentCount;
    return true;
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
            return files.Ids(state).value_or(ids);
    }
}

bool Spool::SendAgain(State state, const Text& id) {
    std::optional<SpooledSms> sms = files.Read(state, id);
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
    if (!files.Write(state, id, *sms) || !Move(id, state, State::Waiting)) return false;
    Tell(id, State::Waiting);
    return true;
}

bool Spool::Delete(State state, const Text& id) {
    if (state == State::Sending) return false;
    const auto sms = state == State::Failed ? files.Read(state, id) : std::nullopt;
    if (!files.Delete(state, id)) return false;
    // The name is taken from our own folder, whatever the file says.
    if (sms && sms->wholeText == SpoolFiles::WholeTextName(id)) files.DeleteWholeText(id);
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
            std::optional<std::vector<Text>> ids = files.Ids(State::Sent);
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
