// IModelCompiler: the host's compiler of simulation models (VHDL-AMS and similar), asked about
// the types that model ports and quantities are declared with.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"
#include "Units.h"

class IComponent;

class PLINTH_API IModelCompiler : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kIModelCompilerId;

    // The unit of a declared type. `component` is the component whose model declares the type
    // (null: none in particular); `libraryName` the library to search ("0" or empty: every
    // library). The physical type `physicalTypeName` is consulted first when not empty, then
    // `typeName`, then `baseTypeName`. On success writes the unit's name and code and returns
    // true; otherwise returns false and leaves both outputs alone. The unit is a unit of the
    // framework's table (Units::kNoUnit, 90, for none).
    //   ("0", "voltage", "voltage", "") => true, unitName "V", unit Units::kVolt (68)
    virtual bool GetUnitOfType(const IComponent* component, const AString& libraryName,
                               const AString& typeName, const AString& baseTypeName,
                               const AString& physicalTypeName, AString& unitName,
                               Units::FullUnitType& unit) = 0;
};
