// The ribbons of Outlook's windows: what add-ins have on them, and the calls that belong to that.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "model/ModelObject.h"
#include "model/RibbonXml.h"

namespace tellwick::standin {

class Explorer;
class Window;

// An add-in that has a part of the ribbon, as the host calls it.
class RibbonAddIn {
public:
    virtual ~RibbonAddIn() = default;
    virtual Text GetCustomUI(TextView ribbonId) = 0;
    virtual bool HasCallback(TextView name) = 0;
    // Notes an error when the add-in raises one.
    virtual Value Call(TextView callback, const ObjectPtr& argument) = 0;
};

// What a callback is handed for a control.
class RibbonControl : public ModelObject {
public:
    RibbonControl(OutlookModel& outlook, Text id, Text tag, std::shared_ptr<ModelObject> context)
        : ModelObject(outlook),
          id(std::move(id)),
          tag(std::move(tag)),
          context(std::move(context)) {}
    TextView ClassName() const override { return u"IRibbonControl"; }
    const MemberTable& Table() const override;

    const Text id;
    const Text tag;
    const std::shared_ptr<ModelObject> context;
};

// An add-in's part of the ribbon of one kind of window, as onLoad hands it over.
class RibbonUI : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"IRibbonUI"; }
    const MemberTable& Table() const override;

    // What callbacks have answered, by control and attribute, until it is invalidated.
    std::map<std::pair<Text, Text>, Value> answers;
};

class Ribbons {
public:
    // An add-in's button in a window's ribbon, or its entry in a context menu.
    struct Entry {
        Text place;   // Office's name of the tab or menu
        Text behind;  // Office's group that its group stands behind; empty: at the end
        Text group;   // the group's label
        Text label;
        Text screentip;   // bold
        Text supertip;    // below it
        ObjectPtr image;  // the add-in's own object
        bool large = false;
        std::function<void()> click;
    };

    explicit Ribbons(OutlookModel& outlook) : outlook(outlook) {}

    // The add-in is connected, and asked for the kinds of windows that are open.
    void Add(TextView name, const std::shared_ptr<RibbonAddIn>& addIn);
    // It is not connected any more.
    void Remove(const std::shared_ptr<RibbonAddIn>& addIn);
    // A window is to be shown: asks every add-in that has not been asked for its kind.
    void Open(const Window& window);

    // Whether windows of that kind have a ribbon in this version.
    bool Has(const Window& window) const;
    // What the add-ins have on the tab that the window shows.
    std::vector<Entry> Entries(const std::shared_ptr<Window>& window);
    // What they have in the context menu of the items that are selected.
    std::vector<Entry> MenuEntries(const std::shared_ptr<Explorer>& explorer);

    // What was wrong with XML and callbacks, with the add-in's name in front.
    std::vector<Text> errors;
    // Shows such an error; it may be missing.
    std::function<void(const Text&)> showError;

private:
    struct Part {
        Text ribbonId;
        RibbonXml xml;
        std::shared_ptr<RibbonUI> ui;
    };
    struct Known {
        Text name;
        std::shared_ptr<RibbonAddIn> addIn;
        std::set<Text> asked;
        std::vector<std::shared_ptr<Part>> parts;
    };
    void Ask(const std::shared_ptr<Known>& known, const Text& ribbonId);
    Value Call(const Known& known, const Text& callback, const ObjectPtr& argument);
    // The answer of a callback of a control, asked for once.
    Value Answer(const Known& known, Part& part, TextView attribute, const Text& callback,
                 const std::shared_ptr<RibbonControl>& control);
    std::vector<Entry> EntriesAt(TextView ribbonId, TextView place,
                                 const std::shared_ptr<ModelObject>& context);
    void Report(const Known& known, const Text& what);

    OutlookModel& outlook;
    std::vector<std::shared_ptr<Known>> all;
};

}  // namespace tellwick::standin
