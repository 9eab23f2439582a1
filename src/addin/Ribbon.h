// The add-in's part of Office's ribbon: what it consists of, and what Office calls it for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/Object.h"

namespace tellwick {

class Bitmaps;
class Debug;
class FormSmsSend;
class LanguageTexts;
class RecipientLookup;
class SmsForward;
class SmsReminder;
class SmsReply;

class Ribbon {
public:
    Ribbon(PendingError& errors, Debug& debug, LanguageTexts& language, Bitmaps& bitmaps,
           RecipientLookup& recipientLookup, SmsReply& smsReply, SmsForward& smsForward,
           SmsReminder& smsReminder, FormSmsSend& formSmsSend);

    // The XML for a kind of window ("Microsoft.Outlook.Explorer"), in the namespace that the major
    // version of Outlook knows; empty for a kind that the add-in has nothing for. Of a connection
    // without a window Office hands nothing over to be held: its end may come without a word.
    enum class Connection { Live, WithoutWindow };
    Text GetCustomUI(TextView ribbonId, std::int32_t outlookVersion, Connection connection);

    // Whether the XML for explorers has been asked for: they then have no use for command bars.
    bool InExplorers() const { return inExplorers; }

    // The names that the XML calls by.
    static std::span<const TextView> CallbackNames();

    // Runs a callback, by its index in the names, with the ribbon or control that Office hands
    // over. Gives what the callback returns, empty for an action and for whatever failed.
    Value Call(std::size_t callback, const ObjectPtr& argument);

    // Has the pictures asked for anew when the active window has another resolution than the one
    // that they were made for.
    void FollowResolution();

    // The connection has ended: lets Office's ribbons go.
    void Release();

private:
    struct Callback;
    static std::span<const Callback> Callbacks();

    Value Ribbon_onLoad(const ObjectPtr& ribbon);
    Value Ribbon_getGroupLabel(const ObjectPtr& control);
    Value Ribbon_getLabel(const ObjectPtr& control);
    Value Ribbon_getSupertip(const ObjectPtr& control);
    Value Ribbon_getLargeImage(const ObjectPtr& control);
    Value Ribbon_getSmallImage(const ObjectPtr& control);
    Value RibbonSMSNew_Click(const ObjectPtr& control);
    Value RibbonSMSReply_Click(const ObjectPtr& control);
    Value RibbonSMSForward_Click(const ObjectPtr& control);
    Value RibbonSMSReminder_Click(const ObjectPtr& control);
    Value RibbonSMSContact_Click(const ObjectPtr& control);

    ObjectPtr ContextOf(const ObjectPtr& control);
    ObjectPtr ItemOf(const ObjectPtr& control);
    Text TagOf(const ObjectPtr& control);
    Value Image(std::int32_t size);

    bool inExplorers = false;
    std::vector<ObjectPtr> ribbons;      // one for each kind of window that is loaded
    std::int32_t pictureResolution = 0;  // dots per inch; 0 before the first picture

    PendingError& errors;
    Debug& debug;
    LanguageTexts& language;
    Bitmaps& bitmaps;
    RecipientLookup& recipientLookup;
    SmsReply& smsReply;
    SmsForward& smsForward;
    SmsReminder& smsReminder;
    FormSmsSend& formSmsSend;
};

}  // namespace tellwick
