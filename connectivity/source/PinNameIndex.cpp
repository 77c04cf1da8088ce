#include "PinNameIndex.h"

#include "BusNameParsing.h"
#include "ICircuitEnvironment.h"
#include "IMerrowApplication.h"

#include <algorithm>

namespace qln::connectivity
{
void PinNameIndex::Clear()
{
    mEmpty.clear();
    mTexts.clear();
    mMembers.clear();
    mEnvironment = CurrentEnvironment();
}

void PinNameIndex::Add(const AString& name, int position)
{
    if (name.empty())
    {
        mEmpty.push_back(position);
        return;
    }
    mTexts[name].push_back(position);
    // As the second argument of a bus-like query every non-empty name is compared by its
    // members, whatever it looks like.
    std::vector<AString> members;
    GetAllSignalsCanonical(name, members);
    mMembers[std::move(members)].push_back(position);
}

const std::vector<int>* PinNameIndex::Find(const AString& query) const
{
    if (query.empty())
    {
        return mEmpty.empty() ? nullptr : &mEmpty;
    }
    if (!IsBusLike(query))
    {
        const auto found = mTexts.find(query);
        return found != mTexts.end() ? &found->second : nullptr;
    }
    std::vector<AString> members;
    GetAllSignalsCanonical(query, members);
    const auto found = mMembers.find(members);
    return found != mMembers.end() ? &found->second : nullptr;
}

int PinNameIndex::CurrentEnvironment()
{
    const ICircuitEnvironment* environment =
        InterfaceQuery<ICircuitEnvironment>(GetIMerrowApplication());
    return environment != nullptr ? environment->GetCircuitEnvironment() : kEnvNone;
}

bool PinNameIndex::IsBusLike(const AString& name)
{
    // The whole-text patterns "*[*]" and "*<*>": a closing bracket at the end and the opening
    // one somewhere before it.
    const auto fits = [&name](wchar_t open, wchar_t close)
    { return name.size() >= 2 && name.back() == close && name.find(open) < name.size() - 1; };
    return fits(L'[', L']') || fits(L'<', L'>');
}

bool PinNameIndex::MembersLess::operator()(const std::vector<AString>& a,
                                           const std::vector<AString>& b) const
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        AString::NoCaseLess());
}
} // namespace qln::connectivity
