// PropertyFactory: the framework's property factory: makes the framework's property classes
// by their type codes (PropType). From a name and a value text:
//   kMenuPropType      the text is the comma-separated choices, the first one current
//   kValuePropType,
//   kVariablePropType  the text must be a value text (Value::IsValidText)
//   kTextPropType      any text
//   kNumberPropType    a number, its unit taken from the text; "" makes it unset
//   kButtonPropType,
//   kActionButtonPropType  the text is the label
// Messages raised while trying are dropped.
#pragma once

#include "IPropertyFactory.h"
#include "PlinthExport.h"

class PLINTH_API PropertyFactory : public IPropertyFactory
{
public:
    Property* CreateProperty(int type, const AString& name, const AString& value,
                             PropFlags flags) const override;
    Property* CreateProperty(int type) const override;
    // True for value and variable properties.
    bool DoesPropTypeSupportPhysicalTypeSelection(int type) const override;
};
