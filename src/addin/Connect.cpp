#include "addin/Connect.h"

#include <utility>

#include "addin/OutlookAddIn.h"
#include "addin/Program.h"
#include "platform/Outlook.h"
#include "platform/Product.h"

namespace tellwick {

namespace {
constexpr std::int32_t FirstWithExplorerRibbon = 14;  // Outlook 2010
}

Connect::Connect(Program& program) : program(program) {}

OutlookAddIn& Connect::AddIn() {
    if (!outlookAddIn) outlookAddIn = program.CreateOutlookAddIn();
    return *outlookAddIn;
}

void Connect::AddinInstance_OnConnection(const ObjectPtr& application,
                                         [[maybe_unused]] std::int32_t connectMode,
                                         const ObjectPtr& addInInstance) {
    program.debug.Guarded([&] { Start(application, addInInstance); });
}

void Connect::Start(const ObjectPtr& application, const ObjectPtr& addInInstance) {
    PendingError& errors = program.errors;
    errors.Clear();
    const outlook::Application outlookApplication(errors, application);
    // A count that cannot be read is no reason to stay away.
    const std::int32_t explorers = outlookApplication.Explorers().Count();
    const std::int32_t inspectors = outlookApplication.Inspectors().Count();
    withoutWindow = !errors && explorers == 0 && inspectors == 0;
    if (withoutWindow) {
        // The ribbon of a window that comes later is all that there will be.
        program.processValues.outlookVersion = outlookApplication.MajorVersion();
        return;
    }

    program.processValues.applicationTitle = ComponentTitle;
    const Text progId = AsText(Get(errors, addInInstance, u"ProgId"));
    program.inifilesLite.GetIniFile();
    program.firstUse.SetUp();
    AddIn().Initialise(application, progId);
    program.debug.DebugInit(false, false);
}

Text Connect::GetCustomUI(TextView ribbonId) {
    Text xml;
    program.debug.Guarded([&] {
        // Held here: Outlook may disconnect from within.
        if (const std::shared_ptr<OutlookAddIn> addIn = outlookAddIn) {
            xml = addIn->GetCustomUI(ribbonId);
        } else if (withoutWindow &&
                   program.processValues.outlookVersion >= FirstWithExplorerRibbon) {
            program.inifilesLite.GetIniFile();
            xml = program.ribbon.GetCustomUI(ribbonId, program.processValues.outlookVersion,
                                             Ribbon::Connection::WithoutWindow);
        }
    });
    return xml;
}

void Connect::AddinInstance_OnStartupComplete() {
    program.debug.Guarded([this] {
        if (const std::shared_ptr<OutlookAddIn> addIn = outlookAddIn) addIn->CompleteStartup();
    });
}

void Connect::AddinInstance_OnBeginShutdown() {
    ReleaseAddIn();
}

void Connect::AddinInstance_OnDisconnection([[maybe_unused]] std::int32_t removeMode) {
    ReleaseAddIn();
    // The release has written the same already; the repetition is intended.
    program.debug.Guarded(
        [this] { program.regEdit.WriteValue(Hive::CurrentUser, RootKey, u"OlAddInActive", u""); });
}

void Connect::ReleaseAddIn() {
    withoutWindow = false;
    program.debug.Guarded([this] {
        AddIn();
        // Held here: what is released may call back.
        const std::shared_ptr<OutlookAddIn> addIn = std::exchange(outlookAddIn, nullptr);
        addIn->Release(nullptr);
    });
}

}  // namespace tellwick
