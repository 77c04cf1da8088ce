#include "RefApplication.h"

#include "IAppBase.h"
#include "ICircuitEnvironment.h"
#include "INetworkDataExplorer.h"
#include "RefModelCompiler.h"
#include "RefProject.h"
#include "RefVariables.h"

#include <algorithm>
#include <cstdlib>

namespace refhost
{
namespace
{
// The application's environment service: answers what the application is set to.
class RefCircuitEnvironment final : public ICircuitEnvironment
{
public:
    explicit RefCircuitEnvironment(const RefApplication& application) : mApplication(application) {}
    void* QueryInterface(int id) override
    {
        return id == kInterfaceId ? static_cast<ICircuitEnvironment*>(this) : nullptr;
    }
    CircuitEnvironment GetCircuitEnvironment() const override
    {
        return mApplication.GetCircuitEnvironment();
    }

private:
    const RefApplication& mApplication;
};

class RefNetworkDataExplorer final : public INetworkDataExplorer
{
public:
    void* QueryInterface(int id) override
    {
        return id == kInterfaceId ? static_cast<INetworkDataExplorer*>(this) : nullptr;
    }
};

class RefAppBase final : public IAppBase
{
public:
    explicit RefAppBase(const RefApplication& application) : mApplication(application) {}
    void* QueryInterface(int id) override
    {
        return id == kInterfaceId ? static_cast<IAppBase*>(this) : nullptr;
    }
    INetworkDataExplorer* GetNetworkDataExplorer() const override
    {
        return mApplication.HasNetworkDataExplorer() ? mExplorer.get() : nullptr;
    }

private:
    const RefApplication& mApplication;
    std::unique_ptr<RefNetworkDataExplorer> mExplorer = std::make_unique<RefNetworkDataExplorer>();
};

AString ReadVariable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? AString::FromUTF8(value) : AString();
}

// The reference applications alive, in creation order, so that one ending out of order can
// mend the chain of previously installed applications.
std::vector<RefApplication*>& LiveApplications()
{
    static std::vector<RefApplication*> live;
    return live;
}
} // namespace

RefApplication::RefApplication()
    : mSysLibDirectory(ReadVariable(kSysLibVariable)),
      mUserLibDirectory(ReadVariable(kUserLibVariable)),
      mPersonalLibDirectory(ReadVariable(kPersonalLibVariable)),
      mEnvironmentService(std::make_unique<RefCircuitEnvironment>(*this)),
      mAppBase(std::make_unique<RefAppBase>(*this)),
      mModelCompiler(std::make_unique<RefModelCompiler>())
{
    mPrevious = SetIMerrowApplication(this);
    LiveApplications().push_back(this);
    AcquireValueHooks();
}

RefApplication::~RefApplication()
{
    mProjects.clear();
    std::vector<RefApplication*>& live = LiveApplications();
    live.erase(std::remove(live.begin(), live.end(), this), live.end());
    // An application installed over this one that still lives must later put back what this
    // one replaced, not this one.
    for (RefApplication* other : live)
    {
        if (other->mPrevious == this)
        {
            other->mPrevious = mPrevious;
        }
    }
    if (GetIMerrowApplication() == this)
    {
        SetIMerrowApplication(mPrevious);
    }
    ReleaseValueHooks();
}

void* RefApplication::QueryInterface(int id)
{
    switch (id)
    {
    case IMerrowApplication::kInterfaceId:
        return static_cast<IMerrowApplication*>(this);
    case ICircuitEnvironment::kInterfaceId:
        return mEnvironmentService.get();
    case IAppBase::kInterfaceId:
        return mHasAppBase ? mAppBase.get() : nullptr;
    default:
        return nullptr;
    }
}

void RefApplication::GetSysLibDirectory(AString& directory) const
{
    directory = mSysLibDirectory;
}

void RefApplication::GetUserLibDirectory(AString& directory) const
{
    directory = mUserLibDirectory;
}

void RefApplication::GetPersonalLibDirectory(AString& directory) const
{
    directory = mPersonalLibDirectory;
}

RefProject& RefApplication::AddProject(const AString& name, const AString& directory)
{
    mProjects.push_back(std::unique_ptr<RefProject>(new RefProject(*this, name, directory)));
    return *mProjects.back();
}

bool RefApplication::CloseProject(const RefProject* project)
{
    auto found = std::find_if(mProjects.begin(), mProjects.end(),
                              [project](const auto& owned) { return owned.get() == project; });
    if (project == nullptr || found == mProjects.end())
    {
        return false;
    }
    mProjects.erase(found);
    return true;
}

RefProject* RefApplication::GetProject(std::size_t index) const
{
    return index < mProjects.size() ? mProjects[index].get() : nullptr;
}

RefProject* RefApplication::FindProject(const AString& name) const
{
    for (const auto& project : mProjects)
    {
        if (AString::EqualNoCase(project->GetName(), name))
        {
            return project.get();
        }
    }
    return nullptr;
}
} // namespace refhost
