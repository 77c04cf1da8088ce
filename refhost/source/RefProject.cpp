#include "RefProject.h"

#include "Assert.h"
#include "RefComponent.h"
#include "RefDesign.h"
#include "RefManagers.h"
#include "RefVariables.h"
#include "Variable.h"

namespace refhost
{
namespace
{
template <class T>
T* FindByName(const std::vector<std::unique_ptr<T>>& objects, const AString& name)
{
    for (const auto& object : objects)
    {
        if (AString::EqualNoCase(object->GetName(), name))
        {
            return object.get();
        }
    }
    return nullptr;
}

int NextEnumColumnID()
{
    static int next = 0;
    return ++next;
}
} // namespace

RefProject::RefProject(RefApplication& application, const AString& name, const AString& directory)
    : mApplication(application), mName(name), mDirectory(directory),
      mDesignMgr(new RefDesignMgr(*this)), mEnumColumnID(NextEnumColumnID())
{
}

VariableProp* RefProject::AddVariable(const AString& name, const AString& text)
{
    AString prefixed = name;
    if (!Variable::CreateNameWithPrefix(prefixed, Variable::kProjectPrefix))
    {
        return nullptr;
    }
    return AddVariableTo(mVariables, prefixed, text);
}

RefProject::~RefProject() = default;

void* RefProject::QueryInterface(int id)
{
    switch (id)
    {
    case IProject::kInterfaceId:
        return static_cast<IProject*>(this);
    case IComponentOwner::kInterfaceId:
        return static_cast<IComponentOwner*>(this);
    default:
        return nullptr;
    }
}

RefDesign& RefProject::AddDesign(const AString& name, CircuitEnvironment environment)
{
    mDesigns.push_back(std::unique_ptr<RefDesign>(new RefDesign(*this, name, environment)));
    return *mDesigns.back();
}

RefDesign* RefProject::GetDesign(std::size_t index) const
{
    return index < mDesigns.size() ? mDesigns[index].get() : nullptr;
}

RefDesign* RefProject::FindDesign(const AString& name) const
{
    return FindByName(mDesigns, name);
}

RefComponent* RefProject::AddComponent(const AString& name, RefDesign* design)
{
    if (!PLINTH_ASSERT(design == nullptr || &design->GetProject() == this))
    {
        return nullptr;
    }
    mComponents.push_back(std::unique_ptr<RefComponent>(new RefComponent(*this, name, design)));
    return mComponents.back().get();
}

RefComponent* RefProject::GetComponent(std::size_t index) const
{
    return index < mComponents.size() ? mComponents[index].get() : nullptr;
}

RefComponent* RefProject::FindComponent(const AString& name) const
{
    return FindByName(mComponents, name);
}
} // namespace refhost
