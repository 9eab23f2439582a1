#include "settings/SupportFile.h"

#include "platform/Outlook.h"
#include "platform/Product.h"
#include "platform/Utf8.h"
#include "settings/BlankedTrace.h"
#include "settings/Debug.h"
#include "settings/InifilesLite.h"
#include "settings/Policies.h"
#include "settings/RegEdit.h"
#include "settings/ZipFile.h"

namespace tellwick {

namespace {

constexpr TextView FileName = u"Tellwick-Support.zip";
constexpr std::int32_t MostAddIns = 100;
constexpr std::size_t LongestWord = 60;

// Only what is named here is passed on. Of most settings the number that the program makes of it is
// all there is; words are the names of things that every machine has.
struct Setting {
    TextView section, key;
    bool word = false;
};
constexpr Setting settings[] = {
    {u"Settings", u"Language", true},
    {u"Settings", u"Baudrate"},
    {u"Settings", u"Parity"},
    {u"Settings", u"Stopbits"},
    {u"Settings", u"Protocol"},
    {u"Settings", u"RTS"},
    {u"Settings", u"NoLanguageFileMessage"},
    {u"Editor", u"FontSize"},
    {u"Files", u"MaxSize"},
    {u"Debug", u"DebugMode"},
    {u"Debug", u"MaxSize"},
    {u"SMS", u"StoreNumbers"},
    {u"SMS", u"NumUsedNumber"},
    {u"SMS", u"NumberCache"},
    {u"SMS", u"AirCount"},
    {u"SMS", u"AskLostCharacters"},
    {u"SMS", u"DoNotContactLong"},
    {u"SMS", u"Reference16"},
    {u"SMS", u"ServiceCenterUseNotDefault"},
    {u"SMS", u"StoreSentSMS"},
    {u"SMS", u"MaxSentSMS"},
    {u"SMS", u"StoreReadSMS"},
    {u"SMS", u"MaxReadSMS"},
    {u"SMS", u"Flash"},
    {u"SMS", u"StatusReport"},
    {u"SMS", u"Validity"},
    {u"Sender", u"Gateway"},
    {u"Sender", u"Post"},
    {u"Sender", u"Utf8"},
    {u"Positions", u"SMSExpanded"},
};

Text Line(TextView name, TextView value) {
    return Text(name).append(u": ").append(value).append(LineBreak);
}

// The name of a program or of a language: letters, digits and few signs.
Text Word(TextView text) {
    Text word;
    for (const char16_t unit : text.substr(0, LongestWord)) {
        const bool letter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
        if (letter || IsDigit(unit) || unit == u'.' || unit == u'-' || unit == u'_') word += unit;
    }
    return word;
}

// A number of at most five digits: more would be a telephone number.
Text SmallNumber(TextView text) {
    const std::int64_t number = LeadingNumber(text);
    return number > -100'000 && number < 100'000 ? NumberText(number) : Text(u"?");
}

}  // namespace

SupportFile::SupportFile(PendingError& errors, Debug& debug, RegEdit& regEdit,
                         InifilesLite& inifilesLite, FileSystem& fileSystem, Programs& programs,
                         std::function<ObjectPtr()> application)
    : errors(errors),
      debug(debug),
      regEdit(regEdit),
      inifilesLite(inifilesLite),
      fileSystem(fileSystem),
      programs(programs),
      application(std::move(application)) {}

Text SupportFile::Gather() {
    about = Versions() + AddIns() + MissingFunctions() + Registration() + Settings();
    trace = BlankedTrace(fileSystem.Read(debug.State().traceFile).value_or(std::string()));
    errors.Clear();
    Text all = about;
    all.append(LineBreak).append(u"[trace.txt]").append(LineBreak);
    return all.append(trace.begin(), trace.end());
}

Text SupportFile::Versions() {
    const Text key = u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    Text windows;
    for (const auto* name : {u"CurrentVersion", u"CurrentMajorVersionNumber", u"CurrentBuild"}) {
        windows += Word(regEdit.ReadValue(Hive::LocalMachine, key, name)) + u" ";
    }
    const outlook::Application outlookApplication(errors, application());
    Text text = u"[support.txt]" + Text(LineBreak);
    text += Line(u"Tellwick for Outlook", TELLWICK_VERSION);
    text += Line(u"Bits", NumberText(8 * sizeof(void*)));
    text += Line(u"Windows", windows);
    return text + Line(u"Outlook", Word(outlookApplication.Version()));
}

Text SupportFile::AddIns() {
    Text text;
    const outlook::ComAddIns addIns = outlook::Application(errors, application()).ComAddIns();
    const std::int32_t count = std::min(addIns.Count(), MostAddIns);
    for (std::int32_t index = 1; index <= count; ++index) {
        const outlook::ComAddIn addIn = addIns.Item(index);
        text += Line(u"Add-in", Word(addIn.ProgId()) + (addIn.Connected() ? u"" : u" (off)"));
    }
    return text;
}

Text SupportFile::MissingFunctions() {
    Text text;
    for (const Text& name : programs.MissingFunctions()) text += Line(u"Missing function", name);
    return text;
}

Text SupportFile::Registration() {
    Text text;
    const Text addIn =
        u"Software\\Microsoft\\Office\\Outlook\\Addins\\" + Text(ProgrammaticIdentifier);
    for (const auto& [hive, name] : {std::pair(Hive::LocalMachine, u"Registered for the machine"),
                                     {Hive::CurrentUser, u"Registered for the user"}}) {
        const Text behaviour = regEdit.ReadValue(hive, addIn, u"LoadBehavior");
        if (!behaviour.empty()) text += Line(name, SmallNumber(behaviour));
    }
    return text;
}

Text SupportFile::Settings() {
    Text text = Line(u"Settings in", NumberText(inifilesLite.Places().saveIn));
    const bool profile = inifilesLite.CurrentFile() != inifilesLite.BaseFile();
    text += Line(u"Profile", profile ? u"yes" : u"no");
    for (const Setting& setting : settings) {
        const Text value = inifilesLite.GetIniSetting(setting.section, setting.key);
        if (value.empty()) continue;
        text += Line(Text(setting.section).append(u"/").append(setting.key),
                     setting.word ? Word(value) : SmallNumber(value));
    }
    for (const Policies::Known& policy : Policies::All()) {
        const Policies& policies = inifilesLite.Given();
        if (policies.Fixed(policy.section, policy.key)) text += Line(u"Fixed", policy.name);
        if (policies.Default(policy.section, policy.key)) text += Line(u"Default", policy.name);
    }
    return text;
}

bool SupportFile::Save(Text& path) {
    const Text desktop = regEdit.ReadExpandedValue(
        Hive::CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
        u"Desktop");
    path =
        (desktop.empty() ? inifilesLite.SettingsFolder() : WithBackslash(desktop)).append(FileName);
    ZipFile zip;
    zip.Add("support.txt", ToUtf8(about));
    zip.Add("trace.txt", trace);
    const bool written = fileSystem.Write(path, zip.Bytes(), WriteMode::Replace);
    errors.Clear();
    return written;
}

}  // namespace tellwick
