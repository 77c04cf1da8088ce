// PinNameIndex: the positions of a list of names, searchable by PortNameCompare in logarithmic
// time. A query q finds the names n with PortNameCompare(q, n) == 0, which is exactly: for an
// empty q the empty names; for a q that does not look like a bus ("*[*]" or "*<*>") the
// non-empty names equal to it ignoring case; for a bus-like q the non-empty names whose
// canonical member lists equal its own ignoring case. Member lists depend on the circuit
// environment (brackets that are not index lists are part of a simple name in environment 0),
// so an index remembers the environment it was built in.
#pragma once

#include "AString.h"

#include <map>
#include <vector>

namespace qln::connectivity
{
class PinNameIndex
{
public:
    // Forgets every name and takes the current environment.
    void Clear();
    // Adds `name` at `position`; positions must be added in ascending order.
    void Add(const AString& name, int position);
    // The positions of the names that `query` equals, ascending; null when there are none.
    const std::vector<int>* Find(const AString& query) const;
    // The first of those positions for which `accept(position)` holds, or -1.
    template <typename Accept> int FindFirst(const AString& query, Accept accept) const
    {
        if (const std::vector<int>* positions = Find(query))
        {
            for (const int position : *positions)
            {
                if (accept(position))
                {
                    return position;
                }
            }
        }
        return -1;
    }
    // The environment the index was built in.
    int GetEnvironment() const { return mEnvironment; }

    // The circuit environment that name expansion uses now.
    static int CurrentEnvironment();
    // Whether `name` is compared member by member when it is the first argument.
    static bool IsBusLike(const AString& name);

private:
    // Member lists ordered member by member ignoring case, shorter first on a common prefix.
    struct MembersLess
    {
        bool operator()(const std::vector<AString>& a, const std::vector<AString>& b) const;
    };

    std::vector<int> mEmpty;
    std::map<AString, std::vector<int>, AString::NoCaseLess> mTexts;
    std::map<std::vector<AString>, std::vector<int>, MembersLess> mMembers;
    int mEnvironment = -1;
};
} // namespace qln::connectivity
