// IInterfaceQueriable: the base of every host interface. An object offers an interface in one of
// two ways: it implements it (a run-time cast finds it), or its query operation hands out the
// interface, possibly on a companion object that serves it on the object's behalf. Every host
// interface derives from this base virtually, so an object that implements several interfaces
// has exactly one query operation.
#pragma once

#include "InterfaceId.h"
#include "PlinthExport.h"

class PLINTH_API IInterfaceQueriable
{
public:
    virtual ~IInterfaceQueriable() = default;

    // Numbered query: the interface whose identifier (InterfaceId.h) is `id`, as a pointer to
    // exactly that interface type converted to void*; null when the object does not offer it.
    //   editor->QueryInterface(kICircuitId) => static_cast<ICircuit*>(circuit) as void*
    //   editor->QueryInterface(12345)       => nullptr
    virtual void* QueryInterface(int id) = 0;

    // Typed query: the numbered query for T (by T::kInterfaceId), as a T*.
    template <class T> T* Query() { return static_cast<T*>(QueryInterface(T::kInterfaceId)); }
    // The query operation does not change the object, so a const object can be asked too.
    template <class T> const T* Query() const
    {
        return const_cast<IInterfaceQueriable*>(this)->Query<T>();
    }
};

// Interface query: `source` cast at run time to T; when the object does not implement T, its
// typed query for T; null when that answers null too, or when `source` is null.
//   InterfaceQuery<ICircuitDefinitionMgr>(definitionMgr) => the manager itself (by cast)
//   InterfaceQuery<ICircuitMgr>(designMgr)             => its companion (by query)
template <class T> T* InterfaceQuery(IInterfaceQueriable* source)
{
    if (source == nullptr)
    {
        return nullptr;
    }
    if (T* direct = dynamic_cast<T*>(source))
    {
        return direct;
    }
    return source->Query<T>();
}

template <class T> const T* InterfaceQuery(const IInterfaceQueriable* source)
{
    return InterfaceQuery<T>(const_cast<IInterfaceQueriable*>(source));
}
