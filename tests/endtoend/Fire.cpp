// Queue and settings while several programs write them and some of these are killed. Short in a
// normal run; TELLWICK_SOAK, a number of seconds, makes them long.
#include <doctest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "endtoend/Child.h"
#include "endtoend/Desktop.h"
#include "endtoend/Machine.h"
#include "endtoend/Printing.h"

using namespace tellwick::endtoend;
namespace fs = std::filesystem;

namespace {

const int Soak = std::getenv("TELLWICK_SOAK") ? std::atoi(std::getenv("TELLWICK_SOAK")) : 0;

std::mt19937 random(GetTickCount());
DWORD UpTo(DWORD most) {
    return std::uniform_int_distribution<DWORD>(0, most)(random);
}

std::wstring FireCommand(const std::wstring& arguments) {
    return L"\"" + BuildFolder() + L"fire.exe\" " + arguments;
}

// Number and file of every entry that waits.
std::map<std::string, std::string> Waiting() {
    std::map<std::string, std::string> waiting;
    HKEY key;
    REQUIRE(!RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\Omberline\\Tellwick\\SMSQueue", 0,
                           KEY_READ, &key));
    for (DWORD index = 0;; ++index) {
        char name[64], path[MAX_PATH];
        DWORD length = sizeof name, size = sizeof path;
        if (RegEnumValueA(key, index, name, &length, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(path), &size))
            break;
        if (std::string(name) != "cOut") waiting[name] = path;
    }
    RegCloseKey(key);
    return waiting;
}

}  // namespace

TEST_CASE("two writers and a sender that is killed again and again lose no SMS") {
    Machine machine;
    const int count = Soak ? 10000 : 500;
    const DWORD first = 1048000;  // so that the numbers begin again at 0 on the way
    WriteText(QueueKey, L"cOut", std::to_wstring(first));
    const auto behindFirst = [](DWORD number) { return (number - first) % 0x100000; };
    int kills = 0, pointsNowhere = 0;
    {
        const std::wstring number = std::to_wstring(count);
        const Child writers[] = {Child(FireCommand(L"queue 0171 " + number)),
                                 Child(FireCommand(L"queue 0172 " + number))};
        const auto writing = [&] { return !writers[0].Ends(0) || !writers[1].Ends(0); };
        while (writing()) {
            Child sender(L"\"" + machine.ProgramFolder() + L"Tellwick.exe\" nocheck");
            WaitUntil([] { return FindWindowW(L"TellwickSender", nullptr) != nullptr; });
            const DWORD life = UpTo(Soak ? 2000 : 400);
            for (const DWORD start = GetTickCount(); GetTickCount() - start < life;) {
                const std::wstring last = *ReadText(QueueKey, L"cOut");
                if (ReadText(QueueKey, last)) continue;
                // Then it is taken already, as is all before it that does not wait.
                const DWORD given = behindFirst(std::stoul(last));
                std::size_t there = 0;
                for (const auto& [name, path] : Waiting())
                    there += behindFirst(std::stoul(name)) <= given;
                pointsNowhere += there + machine.Taken().size() < given;
            }
            sender.Kill();
            ++kills;
        }
        for (const Child& writer : writers) CHECK(writer.ExitCode() == 0);
    }
    CHECK(pointsNowhere == 0);

    const std::vector<std::string> taken = machine.Taken();
    std::set<std::string> all(taken.begin(), taken.end());
    const std::size_t repeated = taken.size() - all.size();
    const auto waiting = Waiting();
    for (const auto& [name, path] : waiting)
        all.insert(ReadBytes(std::wstring(path.begin(), path.end())));
    std::size_t there = 0;
    for (int number = 1; number <= count; ++number)
        for (const char* recipient : {"0171\t", "0172\t"})
            there += all.count(recipient + std::to_string(number));
    MESSAGE("of " << 2 * count << " SMS, " << kills << " kills of the sender, " << taken.size()
                  << " taken, " << waiting.size() << " waiting");
    CHECK(repeated == 0);
    CHECK(there == std::size_t(2 * count));
    CHECK(all.size() == std::size_t(2 * count));
    CHECK(kills >= 1);
}

TEST_CASE("settings that three programs change at once keep everybody's last value") {
    Machine machine;
    const std::wstring file = machine.ProgramFolder() + L"fire.ini";
    std::string contents = "[Sender]\r\n";
    for (int key = 0; key < 10; ++key) contents += "Key" + std::to_string(key) + "=\r\n";
    WriteBytes(file, contents);
    const std::wstring names[] = {L"One", L"Two", L"Sender"};
    const auto output = [&](const std::wstring& name) {
        return machine.ProgramFolder() + name + L".txt";
    };
    const int seconds = Soak ? Soak : 2;
    {
        std::vector<std::unique_ptr<Child>> writers;
        for (const std::wstring& name : names) {
            const std::wstring mode = name == L"Sender" ? L"sender-settings \"" : L"settings \"";
            writers.push_back(std::make_unique<Child>(
                FireCommand(mode + file + L"\" " + name + L" " + std::to_wstring(seconds)),
                output(name)));
        }
        for (const auto& writer : writers) CHECK(writer->Ends(DWORD(seconds + 20) * 1000));
    }
    for (const std::wstring& name : names) {
        CAPTURE(name);
        std::istringstream printed(ReadBytes(output(name)));
        int values = 0, changes = 0;
        for (std::string line; std::getline(printed, line); ++values) {
            while (line.ends_with('\r')) line.pop_back();
            const std::size_t equals = line.find('=');
            const std::wstring key(line.begin(), line.begin() + std::ptrdiff_t(equals));
            const std::wstring value(line.begin() + std::ptrdiff_t(equals) + 1, line.end());
            if (key == L"Key0")
                MESSAGE(std::string(name.begin(), name.end())
                        << " changed the file " << std::stoi(value) << " times");
            wchar_t found[32]{};
            GetPrivateProfileStringW(name.c_str(), key.c_str(), L"0", found, 32, file.c_str());
            if (key == L"lost") {
                // Only a program that takes no lock can write between the last look at the file and
                // its replacement, which is then taken back; one in a thousand looks may see that.
                CHECK(std::stoi(value) <= (name == L"Sender" ? changes / 1000 : 0));
                continue;
            }
            changes = std::max(changes, std::stoi(value));
            CHECK_MESSAGE(found == value, key);
            CHECK(value != L"0");
        }
        CHECK(values == 11);
    }
}

TEST_CASE(
    "a file is wholly old or wholly new, at whatever byte its writer dies or the disk is full") {
    Machine machine;
    const fs::path folder = machine.ProgramFolder() + L"fire";
    const std::wstring file = (folder / L"fire.ini").wstring();
    const std::string before = "[SMS]\r\nsender=anna\r\n";
    const std::string after = "[SMS]\r\nSENDER=ANNA\r\n";
    // The user's own, whatever they are.
    const std::array<std::wstring, 4> others = {file + L".new", file + L".old", file + L".1.new",
                                                file + L".1.old"};
    for (const wchar_t* mode : {L"swap \"", L"full-disk \""}) {
        int withOld = 0, withNew = 0;
        for (int step = 1;; ++step) {
            REQUIRE(step < 200);
            CAPTURE(step);
            fs::remove_all(folder);
            fs::create_directory(folder);
            WriteBytes(file, before);
            for (const std::wstring& other : others) WriteBytes(other, "mine");
            const Child writer(FireCommand(mode + file + L"\" " + std::to_wstring(step)));
            REQUIRE(writer.Ends(10000));
            const std::string contents = ReadBytes(file);
            for (const std::wstring& other : others) CHECK(ReadBytes(other) == "mine");
            const DWORD end = writer.ExitCode();
            const bool died = end == 1;
            REQUIRE((died || end == 0 || end >= 4));
            if (!died) {
                CHECK(contents == (end == 4 ? before : after));
                CHECK(std::distance(fs::directory_iterator(folder), {}) == 1 + others.size());
            }
            if (end == 0) break;
            REQUIRE_MESSAGE((contents == before || contents == after), contents);
            ++(contents == before ? withOld : withNew);
        }
        MESSAGE("old after " << withOld << " deaths or failures, new after " << withNew);
        CHECK(withOld > int(before.size()));
        CHECK(withNew > 0);
    }
}

TEST_CASE("a library of the system's is never taken from the current folder") {
    const Machine machine;
    REQUIRE(CopyFileW((BuildFolder() + L"TellwickOutlookAddIn.dll").c_str(),
                      (machine.ProgramFolder() + L"newer.dll").c_str(), FALSE));
    SetCurrentDirectoryW(machine.ProgramFolder().c_str());
    CHECK(Run(FireCommand(L"library psapi.dll EnumProcesses")));
    CHECK_FALSE(Run(FireCommand(L"library newer.dll DllCanUnloadNow")));
    SetCurrentDirectoryW(BuildFolder().c_str());
}
