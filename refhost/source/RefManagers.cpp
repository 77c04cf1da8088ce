#include "RefManagers.h"

#include "RefButtonPropClient.h"
#include "RefNatureMgr.h"
#include "RefProject.h"

namespace refhost
{
// RefDefCreationMgr ---------------------------------------------------------------------------

void* RefDefCreationMgr::QueryInterface(int id)
{
    switch (id)
    {
    case IDefCreationMgr::kInterfaceId:
        return static_cast<IDefCreationMgr*>(this);
    case ICircuitDefCreationMgr::kInterfaceId:
        return static_cast<ICircuitDefCreationMgr*>(this);
    default:
        return nullptr;
    }
}

IDefinitionMgr* RefDefCreationMgr::GetDefinitionMgr() const
{
    return &mDefinitionMgr;
}

ICircuitDefinitionMgr* RefDefCreationMgr::GetCircuitDefinitionMgr() const
{
    return &mDefinitionMgr;
}

// RefCircuitLibraryMgr ------------------------------------------------------------------------

void* RefCircuitLibraryMgr::QueryInterface(int id)
{
    return id == kInterfaceId ? static_cast<ICircuitLibraryMgr*>(this) : nullptr;
}

ICircuitDefinitionMgr* RefCircuitLibraryMgr::GetCircuitDefinitionMgr() const
{
    return &mDefinitionMgr;
}

// RefDefinitionMgr ----------------------------------------------------------------------------

RefDefinitionMgr::RefDefinitionMgr(RefDesignMgr& designMgr)
    : mDesignMgr(designMgr), mCreationMgr(new RefDefCreationMgr(*this)),
      mLibraryMgr(new RefCircuitLibraryMgr(*this))
{
}

RefDefinitionMgr::~RefDefinitionMgr() = default;

void* RefDefinitionMgr::QueryInterface(int id)
{
    switch (id)
    {
    case IDefinitionMgr::kInterfaceId:
        return static_cast<IDefinitionMgr*>(this);
    case ICircuitDefinitionMgr::kInterfaceId:
        return static_cast<ICircuitDefinitionMgr*>(this);
    default:
        return nullptr;
    }
}

IDesignMgr* RefDefinitionMgr::GetDesignMgr() const
{
    return &mDesignMgr;
}

IDefCreationMgr* RefDefinitionMgr::GetDefCreationMgr() const
{
    return mCreationMgr.get();
}

ICircuitMgr* RefDefinitionMgr::GetCircuitMgr() const
{
    return mCircuitMgrLinked ? &mDesignMgr.GetRefCircuitMgr() : nullptr;
}

IDefinitionMgr* RefDefinitionMgr::GetDefinitionMgr() const
{
    return const_cast<RefDefinitionMgr*>(this);
}

ICircuitDefCreationMgr* RefDefinitionMgr::GetCircuitDefCreationMgr() const
{
    return mCreationMgr.get();
}

ICircuitLibraryMgr* RefDefinitionMgr::GetCircuitLibraryMgr() const
{
    return mLibraryMgr.get();
}

// RefCircuitMgr -------------------------------------------------------------------------------

void* RefCircuitMgr::QueryInterface(int id)
{
    if (id == ICircuitMgr::kInterfaceId)
    {
        return static_cast<ICircuitMgr*>(this);
    }
    return id == IPropClientFactory::kInterfaceId ? static_cast<IPropClientFactory*>(this)
                                                  : nullptr;
}

IButtonPropClient* RefCircuitMgr::GetButtonPropClient(int clientID) const
{
    return mDesignMgr.FindButtonPropClient(clientID);
}

IDesignMgr* RefCircuitMgr::GetDesignMgr() const
{
    return &mDesignMgr;
}

ICircuitDefinitionMgr* RefCircuitMgr::GetCircuitDefinitionMgr() const
{
    return &mDesignMgr.GetRefDefinitionMgr();
}

INatureMgr* RefCircuitMgr::GetNatureMgr() const
{
    return mDesignMgr.IsNatureMgrAvailable() ? &mDesignMgr.GetRefNatureMgr() : nullptr;
}

bool RefCircuitMgr::PostUserMessage(const Message& message) const
{
    ++mPostedMessageCount;
    return ICircuitMgr::PostUserMessage(message);
}

// RefDesignMgr --------------------------------------------------------------------------------

RefDesignMgr::RefDesignMgr(RefProject& project)
    : mProject(project), mNatureMgr(new RefNatureMgr), mDefinitionMgr(new RefDefinitionMgr(*this)),
      mCircuitMgr(new RefCircuitMgr(*this))
{
}

RefDesignMgr::~RefDesignMgr() = default;

RefButtonPropClient& RefDesignMgr::AddButtonPropClient(int clientID, int dialogKind)
{
    auto& client = mButtonClients[clientID];
    client = std::make_unique<RefButtonPropClient>(dialogKind);
    return *client;
}

RefButtonPropClient* RefDesignMgr::FindButtonPropClient(int clientID) const
{
    const auto found = mButtonClients.find(clientID);
    return found == mButtonClients.end() ? nullptr : found->second.get();
}

void* RefDesignMgr::QueryInterface(int id)
{
    switch (id)
    {
    case IDesignMgr::kInterfaceId:
        return static_cast<IDesignMgr*>(this);
    case ICircuitMgr::kInterfaceId:
        return mCircuitMgrAvailable ? static_cast<ICircuitMgr*>(mCircuitMgr.get()) : nullptr;
    default:
        return nullptr;
    }
}

IProject* RefDesignMgr::GetProject() const
{
    return mProjectOpen ? &mProject : nullptr;
}

bool RefDesignMgr::GetProjectDirectory(AString& directory) const
{
    if (!mProjectOpen)
    {
        return false;
    }
    directory = mProject.GetDirectory();
    return true;
}

IDefinitionMgr* RefDesignMgr::GetDefinitionMgr() const
{
    return mDefinitionMgr.get();
}
} // namespace refhost
