// INatureMgr: the natures of a project's designs: the physical domains (electrical, thermal,
// ...) that conservative terminals belong to. A nature has a numeric identifier, stored with
// terminals, and a full name "discipline(library.nature)", stored in project files.
#pragma once

#include "AString.h"
#include "IInterfaceQueriable.h"

#include <vector>

// One nature as the nature manager knows it.
struct NatureRecord
{
    int mId = -1;
    AString mDiscipline; // the discipline it belongs to, e.g. "Electrical"
    AString mLibrary;    // the model library that declares it, e.g. "IEEE"
    AString mNature;     // its declared name, e.g. "electrical"
    // The names it is known by. The first is the full name "discipline(library.nature)", the
    // form that project files store and ResolveNature reads back.
    std::vector<AString> mNames;
};

class PLINTH_API INatureMgr : public virtual IInterfaceQueriable
{
public:
    static constexpr int kInterfaceId = kINatureMgrId;

    // The nature with identifier `id`; null when there is none.
    virtual const NatureRecord* GetNature(int id) const = 0;
    // The identifier of the nature named by the three parts of "discipline(library.nature)",
    // compared ignoring case: on success writes it into `id` and returns true; otherwise
    // returns false and leaves `id` alone.
    //   ("electrical", "ieee", "ELECTRICAL", id) => true, id of the electrical nature
    virtual bool ResolveNature(const AString& discipline, const AString& library,
                               const AString& nature, int& id) const = 0;
};
