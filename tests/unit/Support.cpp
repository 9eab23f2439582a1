// The support file: what is in it, what is not, and that the user sees all of it.
#include <doctest.h>

#include "platform/TestHost.h"
#include "platform/Utf8.h"
#include "settings/BlankedTrace.h"

using namespace tellwick;
using namespace tellwick::test;

namespace {

const Text Archive = u"C:\\Users\\Berger\\Desktop\\Tellwick-Support.zip";

// The files of an archive that stores them, by their directory; what is asked for is checked.
std::map<std::string, std::string> Unpacked(const std::string& bytes) {
    const auto number = [&](std::size_t at, int count) {
        std::size_t value = 0;
        for (int i = count - 1; i >= 0; --i) value = value << 8 | std::uint8_t(bytes.at(at + i));
        return value;
    };
    std::map<std::string, std::string> files;
    const std::size_t end = bytes.size() - 22;
    REQUIRE(bytes.substr(end, 4) == "PK\5\6");
    std::size_t entry = number(end + 16, 4);
    for (std::size_t left = number(end + 10, 2); left > 0; --left) {
        REQUIRE(bytes.substr(entry, 4) == "PK\1\2");
        const std::size_t name = number(entry + 28, 2);
        const std::size_t file = number(entry + 42, 4);
        REQUIRE(bytes.substr(file, 4) == "PK\3\4");
        files[bytes.substr(entry + 46, name)] =
            bytes.substr(file + 30 + number(file + 26, 2), number(entry + 24, 4));
        entry += 46 + name;
    }
    CHECK(entry == end);
    return files;
}

}  // namespace

TEST_CASE("the support file shows what helps, and no number or text that was typed") {
    Host host(16);
    host.outlook.AddAddIn(u"Other.Connect");
    host.SetRegistry(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                     u"Desktop", u"C:\\Users\\Berger\\Desktop");
    host.platform.fileSystem.folders[u"C:\\Users\\Berger\\Desktop"] = true;
    host.SetRegistry(AddInKey, u"DebugMode", u"17");
    host.SetRegistry(AddInKey, u"Active", u"1");
    host.Connect();
    const std::vector<Text> secrets = {u"0171 2345678",   u"1712345678",   u"Geheimnis",
                                       u"Morgenrot",      u"Sonderwunsch", u"Schrift-Geheim",
                                       u"secret.example", u"Zugang"};
    host.SetSetting(u"Texte", u"Text0", secrets[3]);
    host.SetSetting(u"Editor", u"Font", secrets[5]);
    host.SetSetting(u"Sender", u"Address", u"https://" + secrets[6] + u"/{to}");
    host.SetSetting(u"Sender", u"User", secrets[7]);
    host.SetSetting(u"SMS", u"ServiceCenter", secrets[1]);
    // A setting that should be a small number, with what another program has put there.
    host.SetSetting(u"SMS", u"NumUsedNumber", secrets[1]);
    host.platform.registry.WriteNumber(Hive::LocalMachine, PolicyKey, u"KeepContacts", 0);
    host.outlook.ClickButton(Host::Button(host.first));
    host.view.TextTo().SetText(secrets[0]);
    host.view.Message().SetText(secrets[2]);
    host.program.addresses.ApplySettings();
    {
        Procedure failing{host.program.debug, u"Failing"};
        host.program.errors.Note(1004, u"Cannot open " + secrets[4] + u" of 0171 2345678");
    }
    host.program.errors.Note(-2147352567, secrets[4]);
    host.program.debug.DebugTrace(u"Failing", 7);
    host.program.errors.Clear();
    host.program.debug.DebugTrace(secrets[2] + u" an " + secrets[0], trace::FreeText);
    host.program.submission.ButtonSend_Click_(false, false, {}, {});
    host.program.formSmsSend.Open({});

    host.program.formOptions.Show();
    host.program.formOptions.ButtonSupport_Click();
    REQUIRE(host.supportView.Loaded());
    const Text shown = host.supportView.TextContents().GetText();
    host.platform.dialogs.shown.clear();
    host.program.formSupport.ButtonSave_Click();
    CHECK_FALSE(host.supportView.Loaded());
    REQUIRE(host.platform.dialogs.shown.size() == 1);
    CHECK(Contains(host.platform.dialogs.shown.back().text, Archive));
    std::map<std::string, std::string> files =
        Unpacked(host.platform.fileSystem.files[Archive].contents);
    REQUIRE(files.size() == 2);
    const std::string about = files["support.txt"];
    const std::string& trace = files["trace.txt"];
    // What is saved is what was shown.
    const Text saved = FromUtf8(about) + u"\r\n[trace.txt]\r\n" + FromUtf8(trace);
    CHECK(shown == saved);

    for (const char* line :
         {"Outlook: 16.0", "Add-in: TellwickOutlookAddIn.Connect", "Add-in: Other.Connect (off)",
          "Missing function: user32.dll GetDpiForWindow", "SMS/NumUsedNumber: ?\r\n",
          "SMS/NumberCache: 0\r\n", "Fixed: KeepContacts\r\n"}) {
        CAPTURE(line);
        CHECK(about.find(line) != std::string::npos);
    }
    for (const char* line : {"<ButtonSend_Click>_\r\n",
                             "1004:xxxxxx xxxx xxxxxxxxxxxx xx 0000 "
                             "0000000\r\n",
                             "-2147352567:xxxxxxxxxxxx\r\n", "Failing7\r\n"}) {
        CAPTURE(line);
        CHECK(trace.find(line) != std::string::npos);
    }
    const Text lower = LowerCase(saved);
    for (const Text& secret : secrets) {
        CAPTURE(secret);
        CHECK(lower.find(LowerCase(secret)) == Text::npos);
    }
    // Nor any part of a path that names the user.
    CHECK(lower.find(u"berger") == Text::npos);

    // What cannot be written stays to be seen.
    host.program.formOptions.ButtonSupport_Click();
    host.platform.fileSystem.folders.erase(u"C:\\Users\\Berger\\Desktop");
    host.platform.fileSystem.files.erase(Archive);
    host.program.formSupport.ButtonSave_Click();
    CHECK(host.supportView.Loaded());
    host.program.formOptions.Unload();
    CHECK_FALSE(host.supportView.Loaded());
    host.Disconnect();
}

TEST_CASE("of a trace only names of procedures, errors' numbers and times stay") {
    struct Case {
        const char* line;
        const char* blanked;
    };
    for (const Case& c : {
             Case{"  <GetIniFile>_", "  <GetIniFile>_"},
             {"</GetIniFile>", "</GetIniFile>"},
             {"45001.25: <GetList>_", "45001.25: <GetList>_"},
             {" 53:File not found", " 53:xxxx xxx xxxxx"},
             {"<Hello you>_", "<xxxxx xxx>_"},
             {"Hello7", "xxxxx0"},
             {"01712345678:x", "00000000000:x"},
             {"01712345.678: x", "00000000.000: x"},
             {"0: C:\\Users\\M\xFCller", "0: x:\\xxxxx\\xxxxxx"},
             {"", ""},
         }) {
        CAPTURE(c.line);
        CHECK(BlankedTrace(std::string(c.line) + "\r\n") == std::string(c.blanked) + "\r\n");
    }
    CHECK(BlankedTrace("<A>_\r\nA12\r\nA1234\r\nno end") == "<A>_\r\nA12\r\nx0000\r\nxx xxx");
    // Of a long one the last whole lines.
    CHECK(BlankedTrace("<First>_\r\n<Second>_\r\n", 13) == "<Second>_\r\n");
}
