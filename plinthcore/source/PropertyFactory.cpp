#include "PropertyFactory.h"

#include "ButtonProp.h"
#include "MenuProp.h"
#include "MessageManager.h"
#include "NumberProp.h"
#include "TextProp.h"
#include "Value.h"
#include "ValueBase.h"
#include "ValueProp.h"
#include "Variable.h"
#include "VariableProp.h"

Property* PropertyFactory::CreateProperty(int type, const AString& name, const AString& value,
                                          PropFlags flags) const
{
    MessageQueueRestorer quiet;
    switch (type)
    {
    case kMenuPropType:
        return new MenuProp(name, flags, value, 0);
    case kValuePropType:
    case kVariablePropType:
    {
        ValueBase* base = Value::CreateValueBase(value, Units::kNoUnit);
        if (base == nullptr)
        {
            return nullptr;
        }
        if (type == kValuePropType)
        {
            return new ValueProp(name, Value(base), flags);
        }
        return new VariableProp(new Variable(name, base), flags);
    }
    case kTextPropType:
        return new TextProp(name, value, flags);
    case kNumberPropType:
    {
        AString trimmed = value;
        if (trimmed.Trim().empty())
        {
            return new NumberProp(name, 0.0, false, Units::kNoUnit, flags);
        }
        double number = 0.0;
        Units::FullUnitType unit = Units::kNoUnit;
        if (!Units::TextToFloat(value, number, unit))
        {
            return nullptr;
        }
        return new NumberProp(name, number, true, unit, flags);
    }
    case kButtonPropType:
    case kActionButtonPropType:
    {
        auto* button = new ButtonProp(name, flags);
        button->SetLabel(value);
        return button;
    }
    default:
        return nullptr;
    }
}

Property* PropertyFactory::CreateProperty(int type) const
{
    switch (type)
    {
    case kMenuPropType:
        return new MenuProp();
    case kValuePropType:
        return new ValueProp();
    case kVariablePropType:
        return new VariableProp();
    case kTextPropType:
        return new TextProp();
    case kNumberPropType:
        return new NumberProp();
    case kButtonPropType:
    case kActionButtonPropType:
        return ButtonProp::CreateButtonProp();
    default:
        return nullptr;
    }
}

bool PropertyFactory::DoesPropTypeSupportPhysicalTypeSelection(int type) const
{
    return type == kValuePropType || type == kVariablePropType;
}
