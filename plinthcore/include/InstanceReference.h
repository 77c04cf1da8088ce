// Instance references: a value text may name a parameter of a component instance as
// instance-dot-parameter ("R1.R"). The framework does not know instances; it hands each such
// reference to the resolver that the host installs, which answers a new value object standing
// for that parameter (owned by the caller), or null when it cannot.
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <functional>

class ValueBase;

using InstanceReferenceResolver =
    std::function<ValueBase*(const AString& instance, const AString& parameter)>;

class PLINTH_API InstanceReference
{
public:
    InstanceReference() = delete;

    // Installs `resolver` (an empty one removes it) and returns the one installed before.
    static InstanceReferenceResolver SetResolver(InstanceReferenceResolver resolver);
    static bool HasResolver();
    // The resolver's answer for `instance` and `parameter`; null without a resolver, and when
    // the resolver fails or throws.
    static ValueBase* Resolve(const AString& instance, const AString& parameter) noexcept;
};

// Installs a resolver for its lifetime and puts the previous one back afterwards.
class PLINTH_API InstanceReferenceResolverGuard
{
public:
    explicit InstanceReferenceResolverGuard(InstanceReferenceResolver resolver);
    ~InstanceReferenceResolverGuard();
    InstanceReferenceResolverGuard(const InstanceReferenceResolverGuard&) = delete;
    InstanceReferenceResolverGuard& operator=(const InstanceReferenceResolverGuard&) = delete;

private:
    InstanceReferenceResolver mPrevious;
};
