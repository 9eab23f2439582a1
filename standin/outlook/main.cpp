// The stand-in Outlook as a program.
//
//   OutlookStandIn [--version 9|10|11|12|14|16] [--no-window] [--commands] [--script FILE] [--late]
//                  [--fail Class.Member=number]... [--no-redemption] [--no-events] [--empty]
//                  [--ansi-loop] [--stay] [--language NAME] [--switch NAME[=off]]...
//
//   --version        plays Outlook 2000, 2002, 2003 (the default), 2007, 2010
//                    or 2016; from 2010 on with a ribbon, in 2007 in the windows of items only
//   --no-window      starts without a window, as for another program
//   --commands       takes commands from the standard input (see Commands.h); its end quits
//   --script FILE    takes commands from a file; Outlook stays open behind its end
//   --late           connects no add-in until the command load-addin
//   --fail           the member fails with that error from the start
//   --no-redemption  "Redemption.SafeMailItem" is missing, as it is from Outlook 2007 on
//   --no-events      the application object has no events
//   --ansi-loop      takes its messages by the system's ANSI functions, as old Outlooks do
//   --empty          starts without the sample items
//   --stay           the process is there before Outlook starts, by the command start, and after
//                    its end, for another start
//   --language       what its windows speak, as the file in `lang` is named; scripts and commands
//                    name things in English all the same
//   --switch         switches a documented behaviour on, or off: see model/Documented.cpp
//
// Ends when its last window closes, by Exit, Application.Quit or a command. Then it prints what
// the add-ins left behind, one line each, "end" in front:
//
//   end referenced CLASS COUNT       a COM object still held
//   end advised CLASS COUNT          an event handler never unadvised
//   end context WHAT                 the add-in had changed the thread's DPI context
//   end library loaded               the add-in's library did not unload
//   end library unloaded
//   end OnConnection MILLISECONDS
//   end shutdown MILLISECONDS
//
// The exit code is 0 when nothing was left, 1 when something was, 2 for a wrong option.
// From Outlook 2010 on add-ins hear Quit, but neither OnBeginShutdown nor OnDisconnection.

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlwapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "outlook/AddInLoader.h"
#include "outlook/ComObjects.h"
#include "outlook/CommandInput.h"
#include "outlook/CommandText.h"
#include "outlook/Desk.h"
#include "outlook/Dispatcher.h"
#include "outlook/DpiContexts.h"
#include "outlook/Face.h"
#include "outlook/Registration.h"
#include "outlook/SampleItems.h"
#include "outlook/Surroundings.h"
#include "platform/OutlookEvents.h"

namespace tellwick::standin {

namespace {

constexpr TextView ApplicationProgId = u"Outlook.Application";
constexpr TextView ApplicationClass = u"{0006F03A-0000-0000-C000-000000000046}";
constexpr TextView SafeMailItemProgId = u"Redemption.SafeMailItem";
constexpr TextView SafeMailItemClass = u"{9C1F6B64-2E8D-4B0C-8E57-7D3A0F6C21B8}";
constexpr TextView SafeDistListProgId = u"Redemption.SafeDistList";
constexpr TextView SafeAppointmentProgId = u"Redemption.SafeAppointmentItem";
constexpr TextView SafeAppointmentClass = u"{4F0B7C15-93A2-4D6E-B0C8-52E1D7A9F346}";
constexpr TextView SafeDistListClass = u"{9C1F6B64-2E8D-4B0C-8E57-7D3A0F6C21B9}";
constexpr DWORD OthersToLetGo = 2000;  // milliseconds

struct Options {
    std::int32_t version = 11;
    bool window = true;
    bool commands = false;
    Text script;
    bool late = false;
    struct Failure {
        Text className;
        Text member;
        std::int32_t error;
    };
    std::vector<Failure> failures;
    bool redemption = true;
    bool events = true;
    bool samples = true;
    bool ansiLoop = false;
    bool stay = false;
    Text language;
    std::vector<std::pair<Documented, bool>> switches;
};

std::optional<Options> ReadOptions() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    Options options;
    bool valid = words != nullptr;
    for (int index = 1; index < count && valid; ++index) {
        const Text word = FromWide(words[index]);
        const Text value = index + 1 < count ? FromWide(words[index + 1]) : Text();
        if (word == u"--version") {
            options.version = LeadingNumber32(value);
            const std::int32_t version = options.version;
            constexpr std::int32_t Versions[] = {9, 10, 11, 12, 14, 16};
            valid =
                std::find(std::begin(Versions), std::end(Versions), version) != std::end(Versions);
            ++index;
        } else if (word == u"--script") {
            options.script = value;
            valid = !value.empty();
            ++index;
        } else if (word == u"--language") {
            options.language = value;
            valid = OutlookTexts().Speak(value);
            ++index;
        } else if (word == u"--fail") {
            const std::size_t dot = value.find(u'.');
            const std::size_t equals = value.find(u'=');
            valid = dot != Text::npos && equals != Text::npos && dot < equals;
            if (valid) {
                const wchar_t* number = words[index + 1] + equals + 1;
                options.failures.push_back({value.substr(0, dot),
                                            value.substr(dot + 1, equals - dot - 1),
                                            std::int32_t(std::wcstoul(number, nullptr, 0))});
            }
            ++index;
        } else if (word == u"--switch") {
            const std::size_t equals = value.find(u'=');
            const auto rows = DocumentedRows();
            const auto row =
                std::ranges::find(rows, TextView(value).substr(0, equals), &DocumentedRow::name);
            valid = row != rows.end() && (equals == Text::npos || value.substr(equals) == u"=off");
            if (valid) options.switches.emplace_back(row->behaviour, equals == Text::npos);
            ++index;
        } else if (word == u"--no-window") {
            options.window = false;
        } else if (word == u"--commands") {
            options.commands = true;
        } else if (word == u"--late") {
            options.late = true;
        } else if (word == u"--no-redemption") {
            options.redemption = false;
        } else if (word == u"--no-events") {
            options.events = false;
        } else if (word == u"--ansi-loop") {
            options.ansiLoop = true;
        } else if (word == u"--stay") {
            options.stay = true;
        } else if (word == u"--empty") {
            options.samples = false;
        } else {
            valid = false;
        }
    }
    LocalFree(words);
    return valid ? std::optional<Options>(options) : std::nullopt;
}

// Whether the user has asked to be shown what is wrong with add-ins' ribbons.
bool ReportsAddInErrors(std::int32_t version) {
    const Text key =
        u"Software\\Microsoft\\Office\\" + NumberText(version) + u".0\\Common\\General";
    DWORD reports = 0;
    DWORD size = sizeof reports;
    return SHGetValueW(HKEY_CURRENT_USER, Wide(key), L"ReportAddinCustomUIErrors", nullptr,
                       &reports, &size) == ERROR_SUCCESS &&
           reports != 0;
}

void RunMessageLoop(const Desk& desk, bool ansi) {
    const auto next = ansi ? GetMessageA : GetMessageW;
    MSG message;
    while (next(&message, nullptr, 0, 0) > 0) {
        if (desk.Translate(message)) continue;
        TranslateMessage(&message);
        desk.Dispatch(message, ansi);
    }
}

// What was posted before the end still runs, as while Outlook takes its windows down.
void RunRest() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PrintTime(TextView what, double milliseconds) {
    char number[32];
    std::snprintf(number, sizeof number, "%.2f", milliseconds);
    const std::string digits(number);
    PrintLine(u"end " + Text(what) + u" " + Text(digits.begin(), digits.end()));
}

// True when the add-ins left nothing behind.
bool Report(const ComObjects& objects, const OutlookModel& outlook, AddInLoader& loader) {
    const auto referenced = objects.Alive();
    const auto advised = outlook.LiveSubscriptions();
    for (const ComObjects::Living& living : referenced) {
        PrintLine(u"end referenced " + living.className + u" " +
                  NumberText(std::int64_t(living.references)));
    }
    std::map<Text, int> sources;
    for (const Text& source : advised) ++sources[source];
    for (const auto& [source, count] : sources) {
        PrintLine(u"end advised " + source + u" " + NumberText(count));
    }
    for (const Text& what : ContextFaults()) PrintLine(u"end context " + what);
    bool unloaded = true;
    if (loader.Loaded()) {
        unloaded = loader.UnloadLibraries();
        PrintLine(unloaded ? u"end library unloaded" : u"end library loaded");
        PrintTime(u"OnConnection", loader.connectionTime);
        PrintTime(u"shutdown", loader.shutdownTime);
    }
    return referenced.empty() && advised.empty() && ContextFaults().empty() && unloaded;
}

int Run(const Options& options) {
    PendingError errors;
    OutlookModel outlook(errors, options.version);
    for (const auto& [behaviour, on] : options.switches) outlook.Switch(behaviour, on);
    if (options.version >= RowOf(Documented::SystemDpiCalls).first)
        FollowMonitors(outlook.Does(Documented::SystemDpiCalls));
    if (outlook.Does(Documented::ForeignUser)) BecomeForeignUser();
    if (outlook.Does(Documented::UnreadableProcess)) LockProcesses(L"Tellwick.exe");
    std::optional<ClipboardViewer> viewer;
    if (outlook.Does(Documented::BusyClipboard)) viewer.emplace();
    ComObjects objects(outlook);
    AddInLoader loader(outlook, objects);
    Dispatcher dispatcher;
    Desk desk(outlook, dispatcher, options.language);
    Session session(outlook, loader, desk, dispatcher, options.stay);
    Commands commands(outlook, objects, loader, desk, dispatcher, session);

    // What the user can rename is in the user's language in the object model, too.
    OutlookTexts say;
    say.Speak(options.language);
    const auto& root = outlook.stores[0];
    root->name = say(root->name);
    for (const auto& folder : root->folders->all) folder->name = say(folder->name);

    outlook.applicationHasEvents = options.events;
    outlook.pasteFace = [&] {
        const bool taken = GetClipboardOwner() || !outlook.Does(Documented::OwnedClipboard);
        return taken ? PasteBitmap() : 0;
    };
    if (ReportsAddInErrors(options.version)) {
        outlook.ribbons.showError = [](const Text& what) {
            MessageBoxW(nullptr, Wide(what), L"Microsoft Outlook", MB_OK | MB_ICONERROR);
        };
    }
    for (const auto& failure : options.failures) {
        outlook.FailMember(failure.className, failure.member, failure.error);
    }
    SYSTEMTIME now;
    GetLocalTime(&now);
    SystemTimeToVariantTime(&now, &outlook.now);
    outlook.pass = [](double milliseconds) { Sleep(DWORD(milliseconds)); };
    outlook.readDate = [](TextView text) -> std::optional<double> {
        double date = 0;
        if (FAILED(VarDateFromStr(const_cast<wchar_t*>(Wide(Text(text))), LOCALE_USER_DEFAULT, 0,
                                  &date)))
            return {};
        return date;
    };
    if (options.samples) AddSampleItems(outlook);

    {
        const auto application = [&] { return objects.Wrap(outlook.Application()); };
        const ComPtr<IDispatch> running = application();
        const RegisteredClass applicationClass(ApplicationProgId, ApplicationClass, true,
                                               application);
        const bool late = outlook.Does(Documented::RunningAfterFocus);
        const RunningObject runningObject(ApplicationClass, running,
                                          late ? RunningObject::FocusLost : RunningObject::Start);
        const auto safeItem = [&](std::int32_t itemClass) {
            return [&, itemClass] { return objects.Wrap(outlook.CreateSafeItem(itemClass)); };
        };
        std::optional<RegisteredClass> safeMailItem, safeDistList, safeAppointment;
        if (options.redemption && !outlook.Does(Documented::NoRedemption)) {
            safeMailItem.emplace(SafeMailItemProgId, SafeMailItemClass, false,
                                 safeItem(tellwick::outlook::MailClass));
            safeDistList.emplace(SafeDistListProgId, SafeDistListClass, false,
                                 safeItem(tellwick::outlook::DistributionListClass));
            safeAppointment.emplace(SafeAppointmentProgId, SafeAppointmentClass, false,
                                    safeItem(tellwick::outlook::AppointmentClass));
        } else {
            ForgetClass(SafeMailItemProgId, SafeMailItemClass);
            ForgetClass(SafeDistListProgId, SafeDistListClass);
            ForgetClass(SafeAppointmentProgId, SafeAppointmentClass);
        }

        if (!options.stay) session.Start(options.window, options.late);

        HANDLE script = INVALID_HANDLE_VALUE;
        if (!options.script.empty()) {
            script = CreateFileW(Wide(options.script), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                 OPEN_EXISTING, 0, nullptr);
            if (script == INVALID_HANDLE_VALUE) {
                PrintLine(u"error the script cannot be read");
            } else {
                ReadCommands(script, dispatcher, commands, [] {});
            }
        }
        if (options.commands) {
            ReadCommands(GetStdHandle(STD_INPUT_HANDLE), dispatcher, commands,
                         [&] { session.RequestExit(); });
        }
        RunMessageLoop(desk, options.ansiLoop);
        RunRest();
        loader.Abandon();
    }
    RunRest();
    // Another program may be about to let go of what it got.
    const DWORD start = GetTickCount();
    while (!objects.Alive().empty() && GetTickCount() - start < OthersToLetGo) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        RunRest();
    }
    const bool clean = Report(objects, outlook, loader);
    objects.Disconnect();
    return clean ? 0 : 1;
}

}  // namespace

}  // namespace tellwick::standin

int main() {
    using namespace tellwick::standin;
    _setmode(_fileno(stdout), _O_BINARY);
    const auto options = ReadOptions();
    if (!options) {
        PrintLine(u"error wrong option");
        return 2;
    }
    if (FAILED(OleInitialize(nullptr))) return 2;
    int code = 2;
    try {
        code = Run(*options);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    OleUninitialize();
    return code;
}
