#include "PropVisitor.h"

PropVisitor::~PropVisitor() = default;
void PropVisitor::VisitValueProp(ValueProp& /*prop*/) {}
void PropVisitor::VisitVariableProp(VariableProp& /*prop*/) {}
void PropVisitor::VisitMenuProp(MenuProp& /*prop*/) {}
void PropVisitor::VisitTextProp(TextProp& /*prop*/) {}
void PropVisitor::VisitButtonProp(ButtonProp& /*prop*/) {}
void PropVisitor::VisitNumberProp(NumberProp& /*prop*/) {}

ConstPropVisitor::~ConstPropVisitor() = default;
void ConstPropVisitor::VisitValueProp(const ValueProp& /*prop*/) {}
void ConstPropVisitor::VisitVariableProp(const VariableProp& /*prop*/) {}
void ConstPropVisitor::VisitMenuProp(const MenuProp& /*prop*/) {}
void ConstPropVisitor::VisitTextProp(const TextProp& /*prop*/) {}
void ConstPropVisitor::VisitButtonProp(const ButtonProp& /*prop*/) {}
void ConstPropVisitor::VisitNumberProp(const NumberProp& /*prop*/) {}
