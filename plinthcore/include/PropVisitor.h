// PropVisitor and ConstPropVisitor: operations over properties, one visit operation per
// framework property class; a property's Accept calls the one for its class. Every operation
// does nothing unless a visitor overrides it, so a visitor names only the classes it handles.
#pragma once

#include "PlinthExport.h"

class ButtonProp;
class MenuProp;
class NumberProp;
class TextProp;
class ValueProp;
class VariableProp;

class PLINTH_API PropVisitor
{
public:
    virtual ~PropVisitor();

    virtual void VisitValueProp(ValueProp& prop);
    virtual void VisitVariableProp(VariableProp& prop);
    virtual void VisitMenuProp(MenuProp& prop);
    virtual void VisitTextProp(TextProp& prop);
    virtual void VisitButtonProp(ButtonProp& prop);
    virtual void VisitNumberProp(NumberProp& prop);

protected:
    PropVisitor() = default;
    PropVisitor(const PropVisitor&) = default;
    PropVisitor& operator=(const PropVisitor&) = default;
};

class PLINTH_API ConstPropVisitor
{
public:
    virtual ~ConstPropVisitor();

    virtual void VisitValueProp(const ValueProp& prop);
    virtual void VisitVariableProp(const VariableProp& prop);
    virtual void VisitMenuProp(const MenuProp& prop);
    virtual void VisitTextProp(const TextProp& prop);
    virtual void VisitButtonProp(const ButtonProp& prop);
    virtual void VisitNumberProp(const NumberProp& prop);

protected:
    ConstPropVisitor() = default;
    ConstPropVisitor(const ConstPropVisitor&) = default;
    ConstPropVisitor& operator=(const ConstPropVisitor&) = default;
};
