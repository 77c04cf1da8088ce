// IProject: one open project of the host: a folder holding the designs, component definitions
// and settings that belong together. Its directory is the root that "$PROJECTDIR" stands for.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

class PLINTH_API IProject : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIProjectId;

    // The project's name as the user sees it.
    virtual AString GetName() const = 0;
    // The project's directory, as the host stores it (no separator added or removed).
    virtual AString GetDirectory() const = 0;
    // The identifier of the project's enumeration column, under which enumeration literals
    // are registered (EnumColumn::RegisterEnumStringMappings).
    virtual int GetEnumColumnID() const = 0;
};
