// The variables of the reference host and how values find them: project variables (names
// beginning with "$", held by the project) and design variables (held by each design, which
// also sees its project's). While a RefApplication lives, the framework's host scope is the
// active design of the current application (RefApplication::SetActiveDesign), and instance
// references ("R1.R") resolve through the current application's instance-parameter factory
// on the instances of the active design: nothing resolves until a factory is set.
#pragma once

#include "AString.h"
#include "RefHostExport.h"

class PropList;
class VariableProp;

namespace refhost
{
// Adds a variable property called `name` holding the value of `text` to `list`; null, list
// unchanged, when the name is no variable name, the list (or its parent scope) has a variable
// of that name already, or the text is no value (its problem is posted).
REFHOST_API VariableProp* AddVariableTo(PropList& list, const AString& name, const AString& text);

// Installs the reference host's variable scope and instance resolver into the framework
// (done by the first RefApplication; later calls only count), and puts back what was there
// when the count falls to zero.
REFHOST_API void AcquireValueHooks();
REFHOST_API void ReleaseValueHooks();
} // namespace refhost
