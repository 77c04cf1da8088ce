// IVisitor<T>: an operation applied to objects of class T that a message reaches (see
// Msg::GetVisitor). IVisitorBase is the common base that a message carries.
#pragma once

#include "PlinthExport.h"

class PLINTH_API IVisitorBase
{
public:
    virtual ~IVisitorBase() = default;

protected:
    IVisitorBase() = default;
    IVisitorBase(const IVisitorBase&) = default;
    IVisitorBase& operator=(const IVisitorBase&) = default;
};

template <class T> class IVisitor : public virtual IVisitorBase
{
public:
    // Applies the operation to `object`.
    virtual void Visit(T& object) = 0;
};
