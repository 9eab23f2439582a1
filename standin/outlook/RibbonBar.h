// A window's ribbon on the screen: a tab of Outlook's with the add-ins' groups among its own, and a
// tab "Add-Ins" for what stands on command bars.
#pragma once

#include <memory>

#include "model/OutlookModel.h"
#include "outlook/Bar.h"
#include "outlook/Face.h"

namespace tellwick::standin {

class RibbonBar : public Bar {
public:
    // Does what Outlook's own control of that caption does.
    using RunBuiltIn = std::function<void(const Text& caption)>;

    RibbonBar(const Look& look, HWND parent, std::shared_ptr<Window> model, RunBuiltIn runBuiltIn);

protected:
    int Place() override;
    void Paint(HDC context, const RECT& client) override;
    void PaintButton(HDC context, std::size_t index, State state) override;

private:
    struct Item {
        Text caption;
        Text tip;
        Face face;
        std::function<void()> click;
    };
    struct Group {
        Text name;  // Office's, for those of its own
        Text caption;
        std::vector<Item> items;
        RECT place{};
    };
    void CollectOwn();
    void CollectAddIns();
    void CollectCommandBars();
    Group OwnGroup(TextView name, TextView caption, const std::vector<Text>& buttons) const;
    void PlaceTabs(const std::vector<Text>& captions, int height);
    void PlaceGroup(Group& group, int& left, int top, int bottom);
    int ItemWidth(const Item& item) const;

    std::shared_ptr<Window> model;
    RunBuiltIn runBuiltIn;
    std::vector<Group> groups;       // of the tab that is shown
    std::vector<const Face*> faces;  // of the buttons behind the tabs, in their order
    std::size_t tabs = 0;            // the first buttons are the tabs
    std::size_t shown = 0;
};

}  // namespace tellwick::standin
