// Outlook's and Office's event interfaces and the dispatch identifiers of their events.
#pragma once

#include <cstdint>

#include "platform/Object.h"

namespace tellwick::outlook {

inline constexpr EventInterface ApplicationEvents{u"ApplicationEvents",
                                                  u"{0006304E-0000-0000-C000-000000000046}"};
inline constexpr EventInterface ExplorersEvents{u"ExplorersEvents",
                                                u"{00063078-0000-0000-C000-000000000046}"};
inline constexpr EventInterface ExplorerEvents{u"ExplorerEvents",
                                               u"{0006304F-0000-0000-C000-000000000046}"};
inline constexpr EventInterface InspectorsEvents{u"InspectorsEvents",
                                                 u"{00063079-0000-0000-C000-000000000046}"};
inline constexpr EventInterface InspectorEvents{u"InspectorEvents",
                                                u"{0006307D-0000-0000-C000-000000000046}"};
inline constexpr EventInterface ItemEvents{u"ItemEvents",
                                           u"{0006303A-0000-0000-C000-000000000046}"};
inline constexpr EventInterface CommandBarButtonEvents{u"_CommandBarButtonEvents",
                                                       u"{000C0351-0000-0000-C000-000000000046}"};

namespace event {
inline constexpr std::int32_t ApplicationQuit = 0xF007;
inline constexpr std::int32_t NewExplorer = 0xF001;
inline constexpr std::int32_t ExplorerActivate = 0xF001;
inline constexpr std::int32_t ExplorerFolderSwitch = 0xF002;
inline constexpr std::int32_t ExplorerViewSwitch = 0xF004;
inline constexpr std::int32_t ExplorerDeactivate = 0xF006;
inline constexpr std::int32_t ExplorerSelectionChange = 0xF007;
inline constexpr std::int32_t ExplorerClose = 0xF008;
inline constexpr std::int32_t NewInspector = 0xF001;
inline constexpr std::int32_t InspectorActivate = 0xF001;
inline constexpr std::int32_t InspectorDeactivate = 0xF006;
inline constexpr std::int32_t InspectorClose = 0xF008;
inline constexpr std::int32_t ItemOpen = 0xF003;
inline constexpr std::int32_t ItemClose = 0xF004;
inline constexpr std::int32_t ItemReply = 0xF466;
inline constexpr std::int32_t ButtonClick = 1;
}  // namespace event

// Values of the Class property of items.
inline constexpr std::int32_t AppointmentClass = 26;
inline constexpr std::int32_t ContactClass = 40;
inline constexpr std::int32_t MailClass = 43;
inline constexpr std::int32_t PostClass = 45;
inline constexpr std::int32_t DistributionListClass = 69;

// What folders hold (DefaultItemType).
inline constexpr std::int32_t ContactItemType = 2;

// Default folders.
inline constexpr std::int32_t DeletedFolder = 3;
inline constexpr std::int32_t InboxFolder = 6;
inline constexpr std::int32_t ContactsFolder = 10;
inline constexpr std::int32_t DraftsFolder = 16;
inline constexpr std::int32_t PublicFoldersFolder = 18;

}  // namespace tellwick::outlook
