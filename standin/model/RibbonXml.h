// The XML in which an add-in describes its part of the ribbon, read and checked as Office does.
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "platform/Text.h"

namespace tellwick::standin {

struct RibbonButton {
    Text id;
    Text tag;
    bool large = false;
    std::map<Text, Text> callbacks;  // by attribute: "onAction", "getLabel", …
};

// A group on one of the window's tabs, or, without an id, the entries of a context menu.
struct RibbonGroup {
    Text place;   // Office's name of the tab or menu
    Text behind;  // Office's group that it stands behind; empty: it stands at the end
    Text id;
    Text getLabel;
    std::vector<RibbonButton> buttons;
};

struct RibbonXml {
    Text onLoad;
    std::vector<RibbonGroup> groups;
    Text error;  // what is wrong, as Office words it; Office then takes nothing of the whole
};

// `hasCallback` tells whether the add-in object answers for a name.
RibbonXml ReadRibbonXml(TextView xml, TextView ribbonId, std::int32_t outlookVersion,
                        const std::function<bool(TextView name)>& hasCallback);

}  // namespace tellwick::standin
