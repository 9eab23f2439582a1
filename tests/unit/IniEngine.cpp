// The INI file engine: what it finds, what it changes, and when it goes to the disk.
#include <doctest.h>

#include "SettingsModules.h"

using namespace tellwick;
using namespace tellwick::test;
using namespace std::string_literals;

namespace {

constexpr TextView File1 = u"C:\\Data\\one.ini";
constexpr TextView File2 = u"C:\\Data\\new\\deep\\two.ini";

struct Engine : SettingsModules {
    Text Read(TextView section, TextView key, TextView file = File1) {
        return iniFile.ReadFromIniFile(file, section, key, u"default");
    }
};

}  // namespace

// What is found in all kinds of files is compared with the plainest search by the fuzz target
// "ini".
TEST_CASE("names are found in any letter case, what is not there is the default") {
    Engine engine;
    CHECK(engine.Read(u"S", u"k") == u"default");
    CHECK(engine.Read(u"S", u"k", u"") == u"default");
    CHECK(engine.Read(u"S", u"k", u"C:\\Data") == u"default");
    engine.SetFile(File1, "[\xC4rger]\r\n\xD6l=gr\xFCn \x80\r\n");
    CHECK(engine.Read(u"ärger", u"öL") == u"grün €");
}

TEST_CASE("writing changes no byte it does not concern") {
    struct Case {
        std::string before;
        TextView section, key, value;
        bool keepEmpty;
        std::string after;
    };
    const Case cases[] = {
        {"", u"S", u"k", u"1", false, "[S]\r\nk=1\r\n"},
        {"\r\n\r\n", u"S", u"k", u"1", false, "[S]\r\nk=1\r\n"},
        {"[A]\r\na=1\r\n\r\n\r\n", u"S", u"k", u"1", false, "[A]\r\na=1\r\n[S]\r\nk=1\r\n"},
        {"[A]\r\na=1", u"S", u"k", u"1", false, "[A]\r\na=1\r\n[S]\r\nk=1\r\n"},
        {"[A]\r\na=1\r\n", u"S", u"k", u"", false, "[A]\r\na=1\r\n"},
        {"[A]\r\na=1\r\n", u"S", u"k", u"", true, "[A]\r\na=1\r\n[S]\r\nk=\r\n"},
        {"[S]\r\na=1\r\n", u"S", u"k", u"", false, "[S]\r\na=1\r\n"},
        {"[S]\r\na=1\r\n", u"S", u"k", u"", true, "[S]\r\na=1\r\nk=\r\n"},
        {"[s]\r\nK=1\r\nb=2\r\n", u"S", u"k", u"9", false, "[s]\r\nK=9\r\nb=2\r\n"},
        {"[S]\r\nk=1\r\nb=2\r\n", u"S", u"k", u"", false, "[S]\r\nb=2\r\n"},
        {"[S]\r\nk=1\r\nb=2\r\n", u"S", u"k", u"", true, "[S]\r\nk=\r\nb=2\r\n"},
        {"[S]\r\na=1\r\nk=1", u"S", u"k", u"", false, "[S]\r\na=1"},
        {"[S]\r\na=1\r\nk=1", u"S", u"k", u"2", false, "[S]\r\na=1\r\nk=2"},
        {"[S]\r\na=1\r\n\r\n\r\n", u"S", u"k", u"1", false, "[S]\r\na=1\r\nk=1\r\n"},
        {"[S]\r\na=1\r\n\r\n\r\n[T]\r\n", u"S", u"k", u"1", false,
         "[S]\r\na=1\r\nk=1\r\n\r\n\r\n[T]\r\n"},
        {"[S]\r\n[T]\r\nk=1\r\n", u"S", u"k", u"2", false, "[S]\r\nk=2\r\n[T]\r\nk=1\r\n"},
        {"\r\n[S]", u"S", u"k", u"1", false, "\r\n[S]\r\nk=1\r\n"},
        {"[]\r\n", u"", u"k", u"1", false, "[]\r\n\r\nk=1\r\n"},
        {"[S]\nk=1\n", u"S", u"k", u"2", false, "[S]\nk=1\n\r\nk=2\r\n"},
        {"\xEF\xBB\xBF;\0\x81\xFF\r\n[S]\r\n\x8D=\x90\r\n[T]"s, u"S", u"k", u"ß", false,
         "\xEF\xBB\xBF;\0\x81\xFF\r\n[S]\r\n\x8D=\x90\r\nk=\xDF\r\n[T]"s},
    };
    for (const Case& c : cases) {
        CAPTURE(c.before);
        Engine engine;
        engine.SetFile(File1, c.before);
        CHECK(engine.iniFile.WriteToIniFile(File1, c.section, c.key, c.value, true, c.keepEmpty));
        CHECK(engine.File(File1) == c.after);
        // What is remembered of the sections describes the changed text.
        CHECK(engine.Read(c.section, c.key) ==
              (c.value.empty() && !c.keepEmpty ? TextView(u"default") : c.value));
    }
    Engine engine;
    // Codes below the blank at a section's end go with the blank lines.
    engine.SetFile(File1, "[S]\r\na=1\t\r\n[T]");
    CHECK(engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"2"));
    CHECK(engine.File(File1) == "[S]\r\na=1\r\nk=2\t\r\n[T]");
    const Text big(65536, u'v');
    CHECK(engine.iniFile.WriteToIniFile(File1, u"T", u"big", big));
    CHECK((engine.Read(u"T", u"big") == big));
}

TEST_CASE("one file is held, and written when it must be") {
    Engine engine;
    engine.SetFile(File1, "[S]\r\nk=1\r\n");
    CHECK(engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"2", false));
    CHECK(engine.File(File1) == "[S]\r\nk=1\r\n");
    CHECK(engine.Read(u"S", u"k") == u"2");
    const int reads = engine.disk.reads;
    CHECK(engine.Read(u"T", u"k", File2) == u"default");
    CHECK(engine.File(File1) == "[S]\r\nk=2\r\n");
    CHECK(engine.iniFile.WriteToIniFile(File2, u"T", u"k", u"3"));
    CHECK(engine.File(File2) == "[T]\r\nk=3\r\n");
    CHECK(engine.disk.reads == reads);

    // A file that cannot be written keeps its change in memory until a later flush.
    engine.disk.files[Text(File1)].readOnly = true;
    CHECK_FALSE(engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"4"));
    CHECK(engine.Read(u"S", u"k") == u"4");
    CHECK_FALSE(engine.iniFile.Flush());
    engine.disk.files[Text(File1)].readOnly = false;
    // Nor does it get lost when another file is held meanwhile.
    CHECK(engine.Read(u"T", u"k", File2) == u"3");
    CHECK(engine.Read(u"S", u"k") == u"4");
    CHECK(engine.iniFile.Flush());
    CHECK(engine.File(File1) == "[S]\r\nk=4\r\n");
    CHECK_FALSE(engine.iniFile.WriteToIniFile(u"C:\\Data", u"S", u"k", u"1"));
    CHECK_FALSE(engine.iniFile.WriteToIniFile(u"", u"S", u"k", u"1"));
}

TEST_CASE("changes by another program") {
    Engine engine;
    engine.SetFile(File1, "[S]\r\nk=1\r\n");
    CHECK(engine.Read(u"S", u"k") == u"1");
    engine.SetFile(File1, "[S]\r\nk=2\r\nother=1\r\n");
    CHECK(engine.Read(u"S", u"k") == u"1");
    SUBCASE("seen by a read that looks") {
        CHECK(engine.iniFile.ReadFromIniFile(File1, u"S", u"k", {}, 1) == u"2");
    }
    SUBCASE("not looked for while changes are waiting to be written") {
        engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"3", false);
        engine.SetFile(File1, "[S]\r\nk=4\r\n");
        CHECK(engine.iniFile.ReadFromIniFile(File1, u"S", u"k", {}, 1) == u"3");
        CHECK(engine.iniFile.Flush());
        CHECK(engine.File(File1) == "[S]\r\nk=3\r\n");
    }
    SUBCASE("kept when they come at the last moment, and looked at under the lock") {
        int turns = 0;
        engine.disk.onSwap = [&] {
            CHECK(engine.platform.locks.held == std::vector<Text>{u"Settings"});
            if (++turns < 3) engine.SetFile(File1, "[S]\r\nother=" + std::to_string(turns));
        };
        engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"3", false);
        CHECK(engine.iniFile.WriteToIniFile(File1, u"S", u"new", u"1"));
        CHECK(engine.File(File1) == "[S]\r\nother=2\r\nk=3\r\nnew=1\r\n");
        CHECK(turns == 3);
        // Without end, the changes go on waiting.
        engine.disk.onSwap = [&] { engine.SetFile(File1, "[T]\r\n" + std::to_string(++turns)); };
        CHECK_FALSE(engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"4"));
        engine.disk.onSwap = nullptr;
        CHECK(engine.iniFile.Flush());
        CHECK(engine.File(File1) == "[T]\r\n" + std::to_string(turns) + "\r\n[S]\r\nk=4\r\n");
    }
    SUBCASE("seen by every read when that is switched on, even over unwritten changes") {
        engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"3", false);
        engine.SetFile(File1, "[S]\r\nk=4\r\n");
        engine.iniFile.checkFileTime = true;
        CHECK(engine.Read(u"S", u"k") == u"4");
        CHECK(engine.iniFile.Flush());
        CHECK(engine.File(File1) == "[S]\r\nk=4\r\n");
        // Its own writes are no such changes.
        engine.iniFile.WriteToIniFile(File1, u"S", u"k", u"5");
        const int reads = engine.disk.reads;
        CHECK(engine.Read(u"S", u"k") == u"5");
        CHECK(engine.disk.reads == reads);
    }
    SUBCASE("kept by a write") {
        engine.iniFile.WriteToIniFile(File1, u"S", u"new", u"1");
        CHECK(engine.File(File1) == "[S]\r\nk=2\r\nother=1\r\nnew=1\r\n");
    }
    SUBCASE("a file that cannot be read just now is not wiped by a write") {
        engine.disk.failReads = true;
        CHECK_FALSE(engine.iniFile.WriteToIniFile(File1, u"S", u"new", u"1"));
        CHECK(engine.Read(u"S", u"k") == u"default");
        CHECK(engine.File(File1) == "[S]\r\nk=2\r\nother=1\r\n");
        // The change waits until it can be.
        engine.disk.failReads = false;
        CHECK(engine.Read(u"S", u"new") == u"1");
        CHECK(engine.iniFile.Flush());
        CHECK(engine.File(File1) == "[S]\r\nk=2\r\nother=1\r\nnew=1\r\n");
    }
}

TEST_CASE("files at the size limit go through the system's functions") {
    using Case = std::tuple<TextView, std::size_t, bool>;
    for (const auto& [maxSize, size, big] :
         {Case{u"", 511999, false}, Case{u"", 512000, true}, Case{u"10239", 10240, false},
          Case{u"10240", 10239, false}, Case{u"10240", 10240, true}, Case{u"20000", 20000, true}}) {
        Engine engine;
        engine.SetFile(CurrentFile, "[S]\r\n");
        engine.SetFile(u"C:\\Data\\Tellwick\\settings.ini",
                       "[Files]\r\nMaxSize=" + std::string(maxSize.begin(), maxSize.end()));
        engine.inifilesLite.GetIniFile();
        std::string contents = "[S]\r\nk=held\r\n";
        contents.resize(size, 'x');
        engine.SetFile(File1, contents);
        CHECK(engine.Read(u"S", u"k") == (big ? u"from the system" : u"held"));
        CHECK(engine.iniFile.WriteToIniFile(File1, u"S", u"k", u""));
        CHECK(engine.disk.profileCalls ==
              (big ? std::vector<Text>{Text(File1) + u"|S|k", Text(File1) + u"|S|k=(removed)"}
                   : std::vector<Text>{}));
    }
}
