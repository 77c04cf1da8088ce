// Extensions that other editors of the host attach to component definitions and instances:
// a component or an instance carries at most one extension, and the kind of editor it comes
// from is found by a run-time cast from the general extension interface. The editors that use
// the kinds add their other operations.
#pragma once

#include "IInterfaceQueriable.h"

class ICompInst;
class IComponent;

// The extension of a component definition.
class PLINTH_API ICompExtension : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICompExtensionId;

    // The component the extension is attached to.
    virtual IComponent* GetComponent() const = 0;
};

// The extension of a component instance.
class PLINTH_API ICompInstExtension : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kICompInstExtensionId;

    // The instance the extension is attached to.
    virtual ICompInst* GetCompInst() const = 0;
};

// A component extension of the 3D editor.
class PLINTH_API I3DCompExtension : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kI3DCompExtensionId;
};

// A component-instance extension of the 3D editor.
class PLINTH_API I3DCompInstExtension : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kI3DCompInstExtensionId;
};

// A component extension of the Sable editor.
class PLINTH_API ISableCompExtension : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kISableCompExtensionId;
};

// A component-instance extension of the Sable editor.
class PLINTH_API ISableCompInstExtension : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kISableCompInstExtensionId;
};
