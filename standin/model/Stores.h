// What Outlook 2007 and later tell of stores, of the navigation pane, and of properties without a
// name of their own.
#pragma once

#include "model/Items.h"

namespace tellwick::standin {

class Store : public ModelObject {
public:
    Store(OutlookModel& outlook, std::shared_ptr<Folder> root)
        : ModelObject(outlook), root(std::move(root)) {}
    TextView ClassName() const override { return u"Store"; }
    const MemberTable& Table() const override;

    const std::shared_ptr<Folder> root;
};

class Stores : public ModelObject {
public:
    explicit Stores(OutlookModel& outlook);
    TextView ClassName() const override { return u"Stores"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<Store>> all;
};

class PropertyAccessor : public ModelObject {
public:
    explicit PropertyAccessor(std::shared_ptr<Folder> folder)
        : ModelObject(folder->outlook), folder(std::move(folder)) {}
    TextView ClassName() const override { return u"PropertyAccessor"; }
    const MemberTable& Table() const override;
    std::shared_ptr<Folder> Within() override { return folder; }

    const std::shared_ptr<Folder> folder;
};

// A line of the navigation pane: a folder of the user's, or of somebody who shares it.
class NavigationFolder : public ModelObject {
public:
    NavigationFolder(OutlookModel& outlook, Text name, std::shared_ptr<Folder> folder)
        : ModelObject(outlook), name(std::move(name)), folder(std::move(folder)) {}
    TextView ClassName() const override { return u"NavigationFolder"; }
    const MemberTable& Table() const override;

    const Text name;
    const std::shared_ptr<Folder> folder;
};

class NavigationFolders : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"NavigationFolders"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<NavigationFolder>> all;
};

class NavigationGroup : public ModelObject {
public:
    NavigationGroup(OutlookModel& outlook, Text name, std::int32_t type)
        : ModelObject(outlook),
          name(std::move(name)),
          type(type),
          folders(std::make_shared<NavigationFolders>(outlook)) {}
    TextView ClassName() const override { return u"NavigationGroup"; }
    const MemberTable& Table() const override;

    // As GroupType.
    static constexpr std::int32_t Mine = 1;
    static constexpr std::int32_t OfPeople = 2;

    const Text name;
    const std::int32_t type;
    const std::shared_ptr<NavigationFolders> folders;
};

class NavigationGroups : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"NavigationGroups"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<NavigationGroup>> all;
};

// The part of the pane that shows contacts; the others are not played.
class ContactsModule : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"ContactsModule"; }
    const MemberTable& Table() const override;
};

class NavigationModules : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"NavigationModules"; }
    const MemberTable& Table() const override;
};

class NavigationPane : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"NavigationPane"; }
    const MemberTable& Table() const override;
};

}  // namespace tellwick::standin
