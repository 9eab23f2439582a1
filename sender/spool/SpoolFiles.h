// The spool's files: a folder for each state, in it a file for each SMS, named by its id.
//
//   Spool\waiting   to be sent, at once or later       Spool\sent      the carrier has it
//   Spool\sending   handed over, and no answer yet     Spool\failed    with the reason
//   Spool\taken     the origins that stay known
//
// A file is whole from the moment it has its name, and goes from one folder to the next by being
// renamed. Functions that fail change nothing that counts, and can be called again.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "spool/SpooledSms.h"

namespace tellwick::sender {

// What is unsure lies where it was when it was being sent.
enum class State { Waiting, Sending, Unsure, Sent, Failed };

class SpoolFiles {
public:
    // The settings folder ends in "\".
    SpoolFiles(FileSystem& fileSystem, TextView settingsFolder);

    // False when one of the folders is missing and cannot be made.
    bool MakeFolders();

    // In order; empty optional when the folder cannot be read.
    std::optional<std::vector<Text>> Ids(State state);

    // In the place of what was there; false when it cannot be written.
    bool Write(State state, const Text& id, const SpooledSms& sms);
    // Empty when the file cannot be read. A damaged one comes with the reason, its text being what
    // the file holds.
    std::optional<SpooledSms> Read(State state, const Text& id);
    bool Move(const Text& id, State from, State to);
    bool Delete(State state, const Text& id);

    // The bytes of a text that is too long, in a file of its own beside that of its failed SMS.
    static Text WholeTextName(const Text& id);
    bool WriteWholeText(const Text& id, std::string_view contents);
    void DeleteWholeText(const Text& id);

    // Origins that stay known although nothing of them may be left. False when that cannot be
    // written; empty optional when they cannot be read.
    bool Remember(TextView origin);
    void Forget(TextView origin);
    std::optional<std::vector<Text>> Remembered();

private:
    Text Folder(State state) const;
    Text Path(State state, const Text& id) const;
    bool MakeFolder(const Text& folder);
    std::optional<std::vector<Text>> Names(const Text& folder);
    bool Put(const Text& path, std::string_view contents);

    FileSystem& fileSystem;
    Text root;
};

}  // namespace tellwick::sender
