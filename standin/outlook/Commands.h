// The commands that drive the stand-in Outlook: one a line, UTF-8, words separated by blanks, a
// word with blanks in "double quotes" (\" \\ \n \r \t inside them). Each is answered by one line,
// "ok", with a result behind it if there is one, or "error" and what is wrong. Lists stand in one
// line, their entries separated by " | ".
//
// Windows and items have numbers that never change: explorers, inspectors and items count from 1
// each, in the order in which they came to be. Captions are given without "&".
//
// windows
//   open-explorer                    answers the explorer's number
//   close-explorer N, activate N     N: an explorer's number
//   explorers, inspectors            numbers and titles of the open ones
//   open-inspector ITEM              answers the inspector's number
//   close-inspector N, activate-inspector N
//   window N, inspector-window N     answers the window's handle, decimal
// items
//   items                            numbers, kinds and titles
//   add-mail FIELD=VALUE..., add-contact FIELD=VALUE..., add-appointment ..., add-list ...
//                                    answers the item's number; names that are no field of the
//                                    item become user properties ("true", "false" as truth); an
//                                    appointment's "Days" from today, at ten, and its "Attendee"s
//   long-mail KILOBYTES              adds a mail whose long body names nobody; answers its number
//   many-contacts COUNT FOLDERS      adds contacts in so many folders below the default one
//   slow-store NAME MILLISECONDS [pump]
//                                    what every call into the store takes from now on; 0 ends that.
//                                    "pump": messages run meanwhile, as while another process works
//   array-contacts                   takes these out of tables through COM; answers milliseconds
//   set ITEM FIELD=VALUE...          changes fields and user properties of an item
//   select N ITEM...                 selects in explorer N; without items nothing is selected
//   select-conversation N ITEM...    selects in explorer N the line of a conversation of these
//   mails folder N inbox|calendar|contacts reply ITEM, reply-selected N, reply-inspector N
//                                    presses Reply on the item, the one selected in explorer N or
//                                    the last of the conversation that is,
//                                    that of inspector N; answers "opened" when Outlook's own
//                                    reply did, or "cancelled"
// toolbars of explorer N
//   bars N                           the bars
//   toolbar N [BAR]                  the controls of a bar, of "Standard" unless another is named
//   menu N                           the entries of the "New" drop-down
//   click N CAPTION [BAR]            clicks a button of a bar
//   click-menu N CAPTION             chooses an entry of the "New" drop-down
//   ribbon N, ribbon-inspector N     the add-ins' buttons on the ribbon of a window
//   context-menu N                   their entries in the context menu of what is selected
//   click-ribbon N LABEL, click-ribbon-inspector N LABEL, click-context N LABEL
//   ribbon-errors                    what was wrong with the XML and the callbacks of add-ins
//   time COMMAND...                  another command; milliseconds until the message queue is empty
//                                    again ("queued" and those until the add-in had queued an SMS),
//                                    "handler" and those of the longest event handler, behind them
//                                    the title of the window that is active then
//   type TEXT                        presses the keys of its characters one by one; "median" and
//                                    "worst" milliseconds of a key until the message queue is empty
//   fill TEXT...                     puts texts into the edit fields of an add-in's window, in
//                                    their order
//   push CAPTION                     clicks a button of an add-in's window
//   where N CAPTION                  the button's rectangle on the screen: left top right bottom
//   where-item N ITEM                likewise of an item's line in the list
// add-ins
//   load-addin                       connects the registered add-ins; answers how many
//   connect [PROGID], disconnect [PROGID]
//                                    as the user does in the add-ins dialog; the first one unless
//                                    named
//   references                       COM objects that are held now: class, references, sinks
//   end-addins                       OnBeginShutdown and OnDisconnection, as at Outlook's end, but
//                                    with the windows still there
//   can-unload                       what DllCanUnloadNow says: "yes" or "no"
//   unload                           frees unused libraries; answers "unloaded" or "loaded"
//   fail CLASS.MEMBER NUMBER         every use fails with that error number, decimal; with the
//                                    HRESULT when it is 0x8...; 0 ends that
//   starve COUNT one|all COMMAND...  another command, in which the add-in's next allocation but so
//                                    many fails, or all from there on; message boxes are answered
//                                    with No or OK. Answers how many have failed. For a library
//                                    that was built for it
// the rest
//   close-forms                      closes every window of an add-in by its frame
//   shrink-forms                     makes those that have sizing frames as small as they let
//                                    themselves be made
//   controls                         the visible ones of the active one: class, left top right
//                                    bottom, the width that the caption needs, the caption;
//                                    of a status bar its first part
//   resolution DPI                   tells every window of an add-in that its monitor has another
//                                    resolution now, as a host that follows monitors does
//   times                            milliseconds spent in OnConnection and in the shutdown
//   memory                           private bytes before and after the connection, and now
//   longest-tick                     milliseconds of the longest message of a timer since the last
//                                    such command
//   pump                             runs what waits in the message queue
//   wait MILLISECONDS                runs the message loop that long
//   until-file PATH                  runs it until the file is there, a minute at most; answers
//                                    milliseconds
//   start [no-window] [late]         starts Outlook, in a process that stays; windows are numbered
//                                    anew
//   quit, shutdown                   ends Outlook as its user does, and prints the end's report
//   help                             this list
//
// A command is taken from the message loop, also from that of a dialog that an add-in has opened
// meanwhile; "wait" and "pump" hold back the commands behind them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "outlook/ComObjects.h"
#include "outlook/Numbers.h"
#include "outlook/Session.h"

namespace tellwick::standin {

class Commands {
public:
    Commands(OutlookModel& outlook, ComObjects& objects, AddInLoader& loader, Desk& desk,
             Dispatcher& dispatcher, Session& session);

    // Runs one command and prints its answer. Empty lines and lines that begin with # have none.
    void Run(std::string_view line);

private:
    using Words = std::vector<Text>;
    // Throws std::runtime_error with what is wrong.
    using Action = Text (Commands::*)(const Words&);

    Text OpenExplorer(const Words&);
    Text CloseExplorer(const Words&);
    Text Activate(const Words&);
    Text Explorers(const Words&);
    Text Inspectors(const Words&);
    Text OpenInspector(const Words&);
    Text CloseInspector(const Words&);
    Text ActivateInspector(const Words&);
    Text ExplorerHandle(const Words&);
    Text InspectorHandle(const Words&);
    Text ListItems(const Words&);
    Text Starve(const Words&);
    Text AddMail(const Words&);
    Text AddContact(const Words&);
    Text AddAppointment(const Words&);
    Text AddList(const Words&);
    Text SetItem(const Words&);
    Text ManyContacts(const Words&);
    Text LongMail(const Words&);
    Text SlowStore(const Words&);
    Text ArrayContacts(const Words&);
    Text UntilFile(const Words&);
    Text TypeKeys(const Words&);
    Text Select(const Words&);
    Text SelectConversation(const Words&);
    Text SwitchFolder(const Words&);
    Text Reply(const Words&);
    Text ReplySelected(const Words&);
    Text ReplyInspector(const Words&);
    Text Bars(const Words&);
    Text Toolbar(const Words&);
    Text Menu(const Words&);
    Text Click(const Words&);
    Text Ribbon(const Words&);
    Text InspectorRibbon(const Words&);
    Text ContextMenu(const Words&);
    Text ClickRibbon(const Words&);
    Text ClickInspectorRibbon(const Words&);
    Text ClickContextMenu(const Words&);
    Text RibbonErrors(const Words&);
    Text Time(const Words&);
    Text Fill(const Words&);
    Text Push(const Words&);
    Text ClickMenu(const Words&);
    Text Where(const Words&);
    Text WhereItem(const Words&);
    Text LoadAddIn(const Words&);
    Text Connect(const Words&);
    Text Disconnect(const Words&);
    Text References(const Words&);
    Text EndAddIns(const Words&);
    Text CanUnload(const Words&);
    Text Unload(const Words&);
    Text Fail(const Words&);
    Text CloseForms(const Words&);
    Text ShrinkForms(const Words&);
    Text Controls(const Words&);
    Text Resolution(const Words&);
    Text Times(const Words&);
    Text Memory(const Words&);
    Text LongestTick(const Words&);
    Text Pump(const Words&);
    Text Wait(const Words&);
    Text Start(const Words&);
    Text Quit(const Words&);
    Text Help(const Words&);

    struct Command;
    static const std::map<Text, Command>& Table();

    Text Perform(const Words& words);
    Text AddItem(std::int32_t itemClass, const Words& words);
    Text ReplyTo(const std::shared_ptr<Item>& item);
    void Number();
    std::shared_ptr<Explorer> ExplorerAt(const Words& words, std::size_t index = 0);
    std::shared_ptr<Inspector> InspectorAt(const Words& words);
    std::shared_ptr<Item> ItemAt(const Text& word);
    std::shared_ptr<ComAddIn> AddInAt(const Words& words) const;
    // Explorers that wait to be shown are shown first.
    Frame& FrameOf(const std::shared_ptr<Window>& window);

    OutlookModel& outlook;
    ComObjects& objects;
    AddInLoader& loader;
    Desk& desk;
    Dispatcher& dispatcher;
    Session& session;
    Numbers<Explorer> explorers;
    Numbers<Inspector> inspectors;
    Numbers<Item> items;
};

}  // namespace tellwick::standin
