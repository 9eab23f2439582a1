// The application object, the session, and the add-ins that it knows.
#pragma once

#include "model/ModelObject.h"

namespace tellwick::standin {

class NameSpace : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"NameSpace"; }
    const MemberTable& Table() const override;
};

// An add-in as the host knows it.
class ComAddIn : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"COMAddIn"; }
    const MemberTable& Table() const override;

    Text progId;
    Text description;
    Text guid;  // of its class
    bool connected = false;
    ObjectPtr object;
};

class ComAddIns : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"COMAddIns"; }
    const MemberTable& Table() const override;

    std::vector<std::shared_ptr<ComAddIn>> all;
};

class ApplicationObject : public ModelObject {
public:
    using ModelObject::ModelObject;
    TextView ClassName() const override { return u"Application"; }
    const MemberTable& Table() const override;
    const EventInterface* Events() const override;
};

}  // namespace tellwick::standin
