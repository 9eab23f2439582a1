// The whole program in a stand-in Outlook.
#pragma once

#include "addin/Connect.h"
#include "model/OutlookModel.h"
#include "platform/OutlookEvents.h"
#include "platform/TestProgram.h"

namespace tellwick::test {

// The add-in as Office calls it for the ribbon: callbacks by name.
struct HostRibbon : standin::RibbonAddIn {
    HostRibbon(tellwick::Connect& connect, Program& program) : connect(connect), program(program) {}
    Text GetCustomUI(TextView ribbonId) override {
        Text xml;
        around([&] { xml = connect.GetCustomUI(ribbonId); });
        return xml;
    }
    bool HasCallback(TextView name) override {
        return Index(name) < Ribbon::CallbackNames().size();
    }
    Value Call(TextView callback, const ObjectPtr& argument) override {
        Value value;
        around([&] { value = program.ribbon.Call(Index(callback), argument); });
        program.errors.Clear();  // what is pending inside the add-in is not raised
        return value;
    }
    static std::size_t Index(TextView name) {
        const auto names = Ribbon::CallbackNames();
        return std::size_t(std::find(names.begin(), names.end(), name) - names.begin());
    }
    tellwick::Connect& connect;
    Program& program;
    // Calls into the add-in.
    std::function<void(const std::function<void()>&)> around = [](const auto& call) { call(); };
};

// A program in an Outlook of some version, which has one window unless told otherwise.
struct Host : TestProgram {
    explicit Host(std::int32_t version = 11, bool window = true)
        : outlook(platform.errors, version) {
        outlook.pasteFace = [] { return std::uintptr_t(1); };
        if (window) first = outlook.CreateExplorer();
        platform.automation.running[u"Outlook.Application"] = outlook.RunningApplication();
    }
    ~Host() {
        CHECK(outlook.questions == 0);
        platform.automation.running.clear();
    }

    // With the ribbon the host asks for it, as a real one does that has it.
    void Connect(bool withRibbon = false) {
        connect.AddinInstance_OnConnection(outlook.Application(), 1, addIn->Handle());
        if (withRibbon) outlook.ribbons.Add(u"Tellwick", ribbon);
        if (first) outlook.Activate(first);
        outlook.startupComplete = true;
        connect.AddinInstance_OnStartupComplete();
    }
    // Puts the stand-in for the outside library in place, as on a machine that has it.
    void InstallRedemption() {
        platform.automation.factories[u"Redemption.SafeMailItem"] = [this] {
            return outlook.CreateSafeItem(outlook::MailClass);
        };
    }
    // A received message, as the sender application stores it.
    std::shared_ptr<standin::Item> AddSms(TextView sender, TextView body) {
        const auto sms =
            outlook.AddItem(outlook::MailClass, {{u"SentOnBehalfOfName", sender}, {u"Body", body}});
        sms->SetUserProperty(u"IsSMS", true);
        return sms;
    }
    bool Send(std::deque<Answer> answers = {}) {
        platform.dialogs.answers = std::move(answers);
        return program.submission.ButtonSend_Click_(false, true, {}, {});
    }
    // Every entry's file, "number<TAB>text".
    std::vector<std::string> Queued() {
        std::vector<std::string> all;
        for (int number = 1; !Registry(QueueKey, NumberText(number)).empty(); ++number) {
            all.push_back(platform.fileSystem.Read(Registry(QueueKey, NumberText(number)))
                              .value_or("(missing)"));
        }
        return all;
    }
    // Lets all work that goes on by itself come to its end.
    void Settle() {
        for (int rounds = 0; rounds < 1000 && platform.timers.Tick() != 0; ++rounds) {
        }
    }
    void Disconnect() {
        connect.AddinInstance_OnBeginShutdown();
        connect.AddinInstance_OnDisconnection(0);
        outlook.ribbons.Remove(ribbon);
    }
    static std::shared_ptr<standin::CommandBarButton> Button(
        const std::shared_ptr<standin::Explorer>& explorer, TextView bar = u"Standard") {
        const auto found = explorer->commandBars->Find(bar);
        return std::dynamic_pointer_cast<standin::CommandBarButton>(found->Find(u"New SMS"));
    }
    // The classes of Outlook's that something still refers to, but for the application that other
    // programs find running.
    Text Held() const {
        Text classes;
        for (const auto& held : outlook.StillReferenced()) {
            if (held.className != u"Application" || platform.automation.running.empty()) {
                classes += held.className + u" ";
            }
        }
        return classes;
    }
    std::vector<Text> Captions(TextView bar) {
        std::vector<Text> captions;
        for (const auto& control : first->commandBars->Find(bar)->Controls()->all) {
            captions.push_back(control->caption);
        }
        return captions;
    }
    int WritesOfActiveFlag() {
        return int(std::count(platform.registry.writes.begin(), platform.registry.writes.end(),
                              Text(RootKey) + u"\\OlAddInActive="));
    }

    standin::OutlookModel outlook;
    std::shared_ptr<standin::Explorer> first;
    std::shared_ptr<standin::ComAddIn> addIn = outlook.AddAddIn(ProgrammaticIdentifier);
    tellwick::Connect connect{program};
    std::shared_ptr<HostRibbon> ribbon = std::make_shared<HostRibbon>(connect, program);
};

}  // namespace tellwick::test
