// IPropServer: an object whose properties editors show and change (a component instance, a
// component definition, a design): it serves its property lists and is told of changes.
#pragma once

#include "PlinthExport.h"
#include "PropChange.h"

class PropList;
class Property;

class PLINTH_API IPropServer
{
public:
    virtual ~IPropServer() = default;

    // How many property lists it serves, and each of them (null past the end).
    virtual int GetPropListCount() const = 0;
    virtual PropList* GetServedPropList(int index) const = 0;
    // Called after `prop`, one of its properties, changed as `change` says.
    virtual void PropChanged(const Property& prop, const PropChange& change) = 0;

protected:
    IPropServer() = default;
    IPropServer(const IPropServer&) = default;
    IPropServer& operator=(const IPropServer&) = default;
};
