// The spool's files: a folder for each state, in it a file for each SMS, named by its id.
//
//   Spool\waiting   to be sent, at once or later       Spool\sent      the carrier has it
//   Spool\sending   handed over, and no answer yet     Spool\failed    with the reason
//   Spool\taken     the origins that stay known
//
// Where many files lie, a new name takes long. So `waiting` has a limited number of files, and what
// is more lies in folders of its own, "00001" and so on, which go when they are empty. In which one
// a file lies says nothing: the order is that of the ids.
//
// A file is whole from the moment it has its name, but one that is written in place; it goes from
// one folder to the next by being renamed. Functions that fail change nothing that counts, and can
// be called again.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Text.h"
#include "spool/SpooledSms.h"

namespace tellwick::sender {

// How a new file is made. InPlace takes half the time; the end of the program can leave a part of
// the file, which is known as such.
enum class NewFile { Aside, InPlace };

// What is unsure lies where it was when it was being sent.
enum class State { Waiting, Sending, Unsure, Sent, Failed };

class SpoolFiles {
public:
    // The settings folder ends in "\".
    SpoolFiles(FileSystem& fileSystem, TextView settingsFolder, std::size_t mostInFolder);

    // False when one of the folders is missing and cannot be made.
    bool MakeFolders();

    // Looks up what is waiting, and where. Empty optional when that cannot be read: nothing of it
    // may be named to the functions below then.
    std::optional<std::vector<Text>> FindWaiting();
    // In order; empty optional when the folder cannot be read. Not for what is waiting.
    std::optional<std::vector<Text>> Ids(State state);

    // False when it cannot be written.
    bool Add(State state, const Text& id, const SpooledSms& sms, NewFile how = NewFile::Aside);
    // Whether all of it is there. Empty optional when it cannot be read.
    std::optional<bool> IsWhole(State state, const Text& id);
    // In the place of what is there.
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
    // Of what is waiting: 0 is `waiting` itself.
    Text Subfolder(std::uint32_t number) const;
    std::uint32_t SubfolderOf(const Text& id) const;
    std::uint32_t SubfolderWithRoom();
    void Placed(const Text& id, std::uint32_t subfolder);
    void Left(const Text& id);
    void DeleteSubfolder(std::uint32_t number);
    bool MakeFolder(const Text& folder);
    std::optional<std::vector<Text>> Names(const Text& folder);
    std::optional<std::vector<Text>> IdsIn(const Text& folder);
    bool Put(const Text& path, std::string_view contents);
    bool PutInPlace(const Text& path, std::string_view contents);

    FileSystem& fileSystem;
    Text root;
    std::size_t mostInFolder;

    // How many are waiting in each subfolder, and which; all others are in `waiting` itself.
    std::map<std::uint32_t, std::size_t> subfolders;
    std::map<Text, std::uint32_t> inSubfolder;
    std::size_t inWaiting = 0;
    Text part;  // of a file that could not be written, nor be deleted yet
};

}  // namespace tellwick::sender
