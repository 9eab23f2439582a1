#include "recipients/AddressListBuilder.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "recipients/AddressBuckets.h"

namespace tellwick {

AddressList::Span AddressListBuilder::Store(TextView text) {
    constexpr std::size_t Longest = std::numeric_limits<std::uint16_t>::max();
    text = text.substr(0, Longest);
    const auto at = std::uint32_t(list.texts.size());
    list.texts.append(text);
    return {at, std::uint16_t(text.size())};
}

void AddressListBuilder::Reserve(std::size_t rows) {
    constexpr std::size_t UnitsEach = 48;
    list.rows.reserve(rows);
    list.texts.reserve(rows * UnitsEach);
    numbers.Reserve(rows);
}

void AddressListBuilder::BackTo(const Mark& mark) {
    list.rows.resize(mark.rows);
    list.texts.resize(mark.texts);
    std::erase_if(companies, [&](const auto& company) { return company.second.at >= mark.texts; });
}

void AddressListBuilder::Add(const AddressRow& row) {
    AddressList::StoredRow stored{};
    const AddressList::StoredRow* before = list.rows.empty() ? nullptr : &list.rows.back();
    if (before && before->item == row.item && list.At(before->name) == row.name &&
        list.At(before->fileAs) == row.fileAs) {
        stored = *before;
    } else {
        stored.name = Store(row.name);
        stored.fileAs = Store(row.fileAs);
        const auto [company, isNew] = companies.try_emplace(HashOf(row.company));
        if (isNew) company->second = Store(row.company);
        stored.company = company->second;
    }
    // Two people may share a number; a person's is offered once.
    folded.clear();
    for (const char16_t unit : row.name) folded += LowerCase(unit);
    stored.numberId = numbers.NumberOf(HashOf(folded.append(1, u'\0').append(row.number)));
    list.numberIds = numbers.Count();
    stored.number = Store(row.number);
    stored.item = row.item;
    stored.folder = row.folder;
    stored.kind = row.kind;
    list.rows.push_back(stored);
}

void AddressListBuilder::AddEntry(std::uint32_t row, bool byFileAs) {
    list.entries.emplace_back(row, byFileAs);
    step = Step::Index;
}

bool AddressListBuilder::DoSome(std::size_t most) {
    constexpr std::size_t Quick = 16;  // so much faster than the other steps
    switch (step) {
        case Step::Names:
            NumberNames(most);
            return true;
        case Step::Sort:
            if (!names.DoSome(most)) CountPlaces();
            return true;
        case Step::Place:
            PlaceEntries(Quick * most);
            return true;
        case Step::Index:
            Index(most);
            return true;
        case Step::Starts:
            if (!Scatter(starts, list.starts, list.startBuckets, Quick * most)) step = Step::Ends;
            return true;
        case Step::Ends:
            if (Scatter(ends, list.ends, list.endBuckets, Quick * most)) return true;
            companies.clear();
            step = Step::Trim;
            return true;
        case Step::Trim:
            numbers = {};
            list.rows.shrink_to_fit();
            step = Step::TrimTexts;
            return true;
        case Step::TrimTexts:
            return TrimTexts();
        case Step::Done:
            break;
    }
    return false;
}

// A name comes with each of a person's numbers, and people share names.
void AddressListBuilder::AddNamed(AddressList::Entry entry, TextView name) {
    const std::uint32_t number = names.NumberOf(name);
    if (number >= places.size()) places.push_back(0);
    ++places[number];
    named[std::size_t(list.rows[entry.row].kind)].push_back({entry, number});
}

void AddressListBuilder::NumberNames(std::size_t most) {
    if (next == 0) {
        names.Reserve(2 * list.rows.size());
        places.reserve(2 * list.rows.size());
    }
    const std::size_t end = std::min(list.rows.size(), next + most);
    for (; next < end; ++next) {
        const auto row = std::uint32_t(next);
        const AddressList::StoredRow& stored = list.rows[row];
        AddNamed({row, false}, list.At(stored.name));
        if (stored.fileAs.length > 0) AddNamed({row, true}, list.At(stored.fileAs));
    }
    if (next < list.rows.size()) return;
    next = 0;
    step = Step::Sort;
}

// Of how often each name comes, the places where those of each rank begin.
void AddressListBuilder::CountPlaces() {
    const std::vector<std::uint32_t>& ranks = names.Ranks();
    std::vector<std::uint32_t> starts(places.size());
    for (std::size_t name = 0; name < ranks.size(); ++name) starts[ranks[name]] += places[name];
    std::uint32_t sum = 0;
    for (std::uint32_t& start : starts) sum += std::exchange(start, sum);
    places.swap(starts);
    list.entries.assign(sum, AddressList::Entry(0, false));
    step = Step::Place;
}

// By name, then by kind of number, then as the rows stand.
void AddressListBuilder::PlaceEntries(std::size_t most) {
    std::vector<Named>& part = named[kind];
    const std::size_t end = std::min(part.size(), next + most);
    for (; next < end; ++next)
        list.entries[places[names.Ranks()[part[next].name]]++] = part[next].entry;
    if (next < part.size()) return;
    next = 0;
    std::vector<Named>().swap(part);
    if (++kind < named.size()) return;
    std::vector<std::uint32_t>().swap(places);
    names.Clear();
    step = Step::Index;
}

// They are the largest piece: moved in parts. False when all are.
bool AddressListBuilder::TrimTexts() {
    constexpr std::size_t Part = 200'000;
    if (next == 0) trimmed.reserve(list.texts.size());
    trimmed.append(list.texts, next, Part);
    next = trimmed.size();
    if (next < list.texts.size()) return true;
    list.texts.swap(trimmed);
    Text().swap(trimmed);
    step = Step::Done;
    return false;
}

// The buckets of an entry's start and of its word ends.
void AddressListBuilder::Index(std::size_t most) {
    constexpr std::size_t Most = BucketUnits + SignatureUnits;
    if (next == 0) {
        list.startBuckets.assign(BucketCount + 1, 0);
        list.endBuckets.assign(BucketCount + 1, 0);
        starts.reserve(list.entries.size());
        ends.reserve(3 * list.entries.size());
    }
    const std::size_t stop = std::min(list.entries.size(), next + most);
    for (; next < stop; ++next) {
        list.FetchAhead(next);
        folded.clear();
        for (const TextView part : {list.EntryName(next), AddressList::Separator,
                                    list.At(list.rows[list.entries[next].row].number)}) {
            for (const char16_t unit : part) folded += LowerCase(unit);
        }
        const auto entry = std::uint32_t(next);
        const std::size_t size = folded.size();
        const auto forward = [&](std::size_t at) { return at < size ? folded[at] : u' '; };
        starts.push_back({{entry, SignatureOf(Most, forward).first},
                          std::uint32_t(BucketRange(BucketUnits, forward).first)});
        ++list.startBuckets[starts.back().bucket];
        for (std::size_t at = 1; at < size; ++at) {
            const bool isEnd = (folded[at] == u' ' || folded[at] == u'(') && folded[at - 1] != u' ';
            if (!isEnd) continue;
            const auto back = [&](std::size_t of) { return of < at ? folded[at - 1 - of] : u' '; };
            ends.push_back({{entry, std::uint32_t(at), SignatureOf(Most, back).first},
                            std::uint32_t(BucketRange(BucketUnits, back).first)});
            ++list.endBuckets[ends.back().bucket];
        }
    }
    if (next < list.entries.size()) return;
    next = 0;
    step = Step::Starts;
}

// Puts some of what was found into its buckets. False when all of it is there.
template <class Type>
bool AddressListBuilder::Scatter(std::vector<Found<Type>>& found, std::vector<Type>& into,
                                 std::vector<std::uint32_t>& buckets, std::size_t most) {
    if (next == 0) {
        std::uint32_t sum = 0;
        for (std::uint32_t& count : buckets) sum += std::exchange(count, sum);
        into.resize(found.size());
    }
    const std::size_t stop = std::min(found.size(), next + most);
    for (; next < stop; ++next) into[buckets[found[next].bucket]++] = found[next].found;
    if (next < found.size()) return true;
    // Each start has moved on to its bucket's end, which is where the next one begins.
    std::rotate(buckets.begin(), buckets.end() - 1, buckets.end());
    buckets.front() = 0;
    buckets.back() = std::uint32_t(into.size());
    std::vector<Found<Type>>().swap(found);
    next = 0;
    return false;
}

}  // namespace tellwick
