// IPropertyFactory: makes properties by their type code (Property::GetPropType), empty for
// reading or from a name and a value text; null for a code it does not make. Property lists
// are read through one.
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "PropFlag.h"

class Property;

class PLINTH_API IPropertyFactory
{
public:
    virtual ~IPropertyFactory() = default;

    // A new property (owned by the caller) of `type` called `name` holding `value`; null for
    // an unknown type or a value the property refuses.
    virtual Property* CreateProperty(int type, const AString& name, const AString& value,
                                     PropFlags flags) const = 0;
    // A new, empty property of `type`, ready to be read; null for an unknown type.
    virtual Property* CreateProperty(int type) const = 0;
    // Whether properties of `type` let the user choose the physical type (the unit kind) of
    // their value.
    virtual bool DoesPropTypeSupportPhysicalTypeSelection(int type) const = 0;

protected:
    IPropertyFactory() = default;
    IPropertyFactory(const IPropertyFactory&) = default;
    IPropertyFactory& operator=(const IPropertyFactory&) = default;
};
