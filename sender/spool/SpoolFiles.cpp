#include "spool/SpoolFiles.h"

#include <algorithm>

#include "platform/Utf8.h"

namespace tellwick::sender {

namespace {

constexpr TextView Ending = u".sms";
constexpr TextView BeingWritten = u"being-written.tmp";
constexpr TextView WholeTextEnding = u".txt";
constexpr TextView TakenFolder = u"taken\\";

// Tells a person what the folder is, and us that an empty list of its files is no failure.
constexpr TextView ReadMe = u"readme.txt";
constexpr std::string_view ReadMeText =
    "SMS of Tellwick, one a file. While Tellwick runs, leave them to it.\r\n";

Text SubfolderName(std::uint32_t number) {
    const Text digits = NumberText(std::int64_t(number));
    return Text(5 - std::min<std::size_t>(5, digits.size()), u'0') + digits;
}

bool IsId(TextView id) {
    return std::count(id.begin(), id.end(), u'-') == 3;
}

}  // namespace

SpoolFiles::SpoolFiles(FileSystem& fileSystem, TextView settingsFolder, std::size_t mostInFolder)
    : fileSystem(fileSystem), root(Text(settingsFolder) + u"Spool\\"), mostInFolder(mostInFolder) {}

Text SpoolFiles::Folder(State state) const {
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

Text SpoolFiles::Path(State state, const Text& id) const {
    const Text folder = state == State::Waiting ? Subfolder(SubfolderOf(id)) : Folder(state);
    return folder + id + Text(Ending);
}

Text SpoolFiles::Subfolder(std::uint32_t number) const {
    const Text folder = Folder(State::Waiting);
    return number == 0 ? folder : folder + SubfolderName(number) + u"\\";
}

std::uint32_t SpoolFiles::SubfolderOf(const Text& id) const {
    const auto found = inSubfolder.find(id);
    return found == inSubfolder.end() ? 0 : found->second;
}

std::uint32_t SpoolFiles::SubfolderWithRoom() {
    if (inWaiting < mostInFolder) return 0;
    std::uint32_t number = 1;
    if (!subfolders.empty()) {
        const auto& [last, count] = *subfolders.rbegin();
        if (count < mostInFolder) return last;
        number = last + 1;
    }
    // A full folder is better than none.
    if (!MakeFolder(Subfolder(number))) return 0;
    subfolders[number] = 0;
    return number;
}

void SpoolFiles::Placed(const Text& id, std::uint32_t subfolder) {
    if (subfolder == 0) {
        ++inWaiting;
    } else {
        inSubfolder[id] = subfolder;
        ++subfolders[subfolder];
    }
}

void SpoolFiles::Left(const Text& id) {
    const std::uint32_t number = SubfolderOf(id);
    if (number == 0) {
        --inWaiting;
    } else {
        inSubfolder.erase(id);
        if (--subfolders[number] == 0) DeleteSubfolder(number);
    }
}

void SpoolFiles::DeleteSubfolder(std::uint32_t number) {
    subfolders.erase(number);
    const Text folder = Subfolder(number);
    fileSystem.Delete(folder + Text(ReadMe));
    fileSystem.DeleteFolder(folder);
}

bool SpoolFiles::MakeFolders() {
    if (!fileSystem.FolderExists(root)) fileSystem.CreateFolder(root);
    for (const State state : {State::Waiting, State::Sending, State::Sent, State::Failed}) {
        if (!MakeFolder(Folder(state))) return false;
    }
    return MakeFolder(root + Text(TakenFolder));
}

bool SpoolFiles::MakeFolder(const Text& folder) {
    const Text path = folder + Text(ReadMe);
    if (fileSystem.Exists(path)) return true;
    if (!fileSystem.FolderExists(folder)) fileSystem.CreateFolder(folder);
    return fileSystem.Write(path, ReadMeText, WriteMode::Replace);
}

std::optional<std::vector<Text>> SpoolFiles::Names(const Text& folder) {
    std::vector<Text> names = fileSystem.FileNames(folder, {});
    if (names.empty()) return {};
    std::erase(names, ReadMe);
    return names;
}

std::optional<std::vector<Text>> SpoolFiles::FindWaiting() {
    subfolders.clear();
    inSubfolder.clear();
    inWaiting = 0;
    const std::optional<std::vector<Text>> names = fileSystem.FolderNames(Subfolder(0));
    if (!names) return {};
    std::vector<std::uint32_t> numbers{0};
    for (const Text& name : *names) {
        const auto number = std::uint32_t(LeadingNumber(name));
        if (number > 0 && name == SubfolderName(number)) numbers.push_back(number);
    }
    std::vector<Text> all;
    for (const std::uint32_t number : numbers) {
        // The program may have ended while it made or deleted this one.
        if (!MakeFolder(Subfolder(number))) return {};
        const std::optional<std::vector<Text>> ids = IdsIn(Subfolder(number));
        if (!ids) return {};
        for (const Text& id : *ids) Placed(id, number);
        all.insert(all.end(), ids->begin(), ids->end());
        if (number != 0 && ids->empty()) DeleteSubfolder(number);
    }
    return all;
}

std::optional<std::vector<Text>> SpoolFiles::Ids(State state) {
    return IdsIn(Folder(state));
}

std::optional<std::vector<Text>> SpoolFiles::IdsIn(const Text& folder) {
    std::optional<std::vector<Text>> names = Names(folder);
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

bool SpoolFiles::Add(State state, const Text& id, const SpooledSms& sms, NewFile how) {
    if (state != State::Waiting) return Write(state, id, sms);
    const std::uint32_t subfolder = SubfolderWithRoom();
    const Text path = Subfolder(subfolder) + id + Text(Ending);
    const std::string file = ToFile(sms);
    if (!(how == NewFile::InPlace ? PutInPlace(path, file) : Put(path, file))) return false;
    Placed(id, subfolder);
    return true;
}

bool SpoolFiles::Write(State state, const Text& id, const SpooledSms& sms) {
    return Put(Path(state, id), ToFile(sms));
}

bool SpoolFiles::Put(const Text& path, std::string_view contents) {
    // In the small folder: where there are many files a new name takes longer.
    const Text aside = root + Text(BeingWritten);
    if (fileSystem.Write(aside, contents, WriteMode::Replace) && fileSystem.Rename(aside, path)) {
        return true;
    }
    fileSystem.Delete(aside);
    return false;
}

bool SpoolFiles::PutInPlace(const Text& path, std::string_view contents) {
    // There is one at most, and what it was to be is not taken from the queue before it has gone.
    if (!part.empty() && !fileSystem.Delete(part) && fileSystem.Exists(part)) return false;
    part.clear();
    if (fileSystem.Write(path, contents, WriteMode::Replace)) return true;
    if (!fileSystem.Delete(path) && fileSystem.Exists(path)) part = path;
    return false;
}

std::optional<bool> SpoolFiles::IsWhole(State state, const Text& id) {
    const std::optional<std::string> file = fileSystem.Read(Path(state, id));
    if (!file) return {};
    return FromFile(*file).has_value();
}

std::optional<SpooledSms> SpoolFiles::Read(State state, const Text& id) {
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

bool SpoolFiles::Move(const Text& id, State from, State to) {
    const std::uint32_t subfolder = to == State::Waiting ? SubfolderWithRoom() : 0;
    const Text folder = to == State::Waiting ? Subfolder(subfolder) : Folder(to);
    if (!fileSystem.Rename(Path(from, id), folder + id + Text(Ending))) return false;
    if (from == State::Waiting) Left(id);
    if (to == State::Waiting) Placed(id, subfolder);
    return true;
}

bool SpoolFiles::Delete(State state, const Text& id) {
    if (!fileSystem.Delete(Path(state, id))) return false;
    if (state == State::Waiting) Left(id);
    return true;
}

Text SpoolFiles::WholeTextName(const Text& id) {
    return id + Text(WholeTextEnding);
}

bool SpoolFiles::WriteWholeText(const Text& id, std::string_view contents) {
    return Put(Folder(State::Failed) + WholeTextName(id), contents);
}

void SpoolFiles::DeleteWholeText(const Text& id) {
    fileSystem.Delete(Folder(State::Failed) + WholeTextName(id));
}

bool SpoolFiles::Remember(TextView origin) {
    return fileSystem.Write(root + Text(TakenFolder).append(origin), "1", WriteMode::Replace);
}

void SpoolFiles::Forget(TextView origin) {
    fileSystem.Delete(root + Text(TakenFolder).append(origin));
}

std::optional<std::vector<Text>> SpoolFiles::Remembered() {
    return Names(root + Text(TakenFolder));
}

}  // namespace tellwick::sender
