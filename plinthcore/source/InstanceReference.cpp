#include "InstanceReference.h"

#include <utility>

namespace
{
InstanceReferenceResolver& Installed()
{
    static InstanceReferenceResolver resolver;
    return resolver;
}
} // namespace

InstanceReferenceResolver InstanceReference::SetResolver(InstanceReferenceResolver resolver)
{
    InstanceReferenceResolver previous = std::move(Installed());
    Installed() = std::move(resolver);
    return previous;
}

bool InstanceReference::HasResolver()
{
    return static_cast<bool>(Installed());
}

ValueBase* InstanceReference::Resolve(const AString& instance, const AString& parameter) noexcept
{
    try
    {
        return Installed() ? Installed()(instance, parameter) : nullptr;
    }
    catch (...)
    {
        return nullptr;
    }
}

InstanceReferenceResolverGuard::InstanceReferenceResolverGuard(InstanceReferenceResolver resolver)
    : mPrevious(InstanceReference::SetResolver(std::move(resolver)))
{
}

InstanceReferenceResolverGuard::~InstanceReferenceResolverGuard()
{
    InstanceReference::SetResolver(std::move(mPrevious));
}
