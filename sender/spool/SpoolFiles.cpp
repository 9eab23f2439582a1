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

bool IsId(TextView id) {
    return std::count(id.begin(), id.end(), u'-') == 3;
}

}  // namespace

SpoolFiles::SpoolFiles(FileSystem& fileSystem, TextView settingsFolder)
    : fileSystem(fileSystem), root(Text(settingsFolder) + u"Spool\\") {}

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
    return Folder(state).append(id).append(Ending);
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

std::optional<std::vector<Text>> SpoolFiles::Ids(State state) {
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
    return fileSystem.Rename(Path(from, id), Path(to, id));
}

bool SpoolFiles::Delete(State state, const Text& id) {
    return fileSystem.Delete(Path(state, id));
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
