// IMerrowCommand: an edit that the host runs as one undoable step. Properties that the edit
// updates report to it (Property::NotifyUpdate), so that it can refresh and undo them.
#pragma once

#include "AString.h"
#include "PlinthExport.h"
#include "PropFlag.h"

class IPropServer;
class Property;

class PLINTH_API IMerrowCommand
{
public:
    virtual ~IMerrowCommand() = default;

    // The edit's name as the undo list shows it.
    virtual AString GetCommandName() const = 0;
    // `prop`, a property of `server` (may be null), was updated by the edit; `flags` are the
    // property flags the update concerned.
    virtual void PropertyUpdated(const Property& prop, const IPropServer* server,
                                 const PropFlags& flags) = 0;

protected:
    IMerrowCommand() = default;
    IMerrowCommand(const IMerrowCommand&) = default;
    IMerrowCommand& operator=(const IMerrowCommand&) = default;
};
