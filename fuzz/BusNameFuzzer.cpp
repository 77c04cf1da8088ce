// Net-name services on arbitrary text: no crash, no hang, and the relations between them.
// Input: one byte choosing the circuit environment (even: 0, odd: 1), then the name in UTF-8.
#include "Assert.h"
#include "BusNameParsing.h"
#include "RefApplication.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace
{
void Check(bool condition, const char* what, const AString& name)
{
    if (!condition)
    {
        std::fprintf(stderr, "BusNameFuzzer: %s fails for \"%s\"\n", what, name.ToUTF8().c_str());
        std::abort();
    }
}

bool SameNoCase(const std::vector<AString>& a, const std::vector<AString>& b)
{
    if (a.size() != b.size())
    {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i)
    {
        if (a[i].CompareNoCase(b[i]) != 0)
        {
            return false;
        }
    }
    return true;
}

// Members that compose back into a name losslessly: square bus members with a base and one
// plain index ("base[7]", as canonical expansion writes them), or names without any bracket.
// (In environment 0 a whole name can be one "simple" member that merely looks like a bus,
// and a bus without a base, "[5:1]", is a simple name.)
bool Recomposable(const std::vector<AString>& members)
{
    for (const AString& member : members)
    {
        if (member.find_first_of(L"[]<>") == AString::npos)
        {
            continue;
        }
        AString base;
        AString index;
        if (!IsBusMember(member, base, index) || base.empty() || index.size() < 3 ||
            index.front() != L'[' || index.find_first_not_of(L"0123456789", 1) != index.size() - 1)
        {
            return false;
        }
    }
    return true;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static refhost::RefApplication application;
    static const bool quiet = []
    {
        SetIgnoreAllAsserts(true);
        SetLogAssertFailures(false);
        return true;
    }();
    (void)quiet;
    if (size == 0 || size > 2048)
    {
        return 0;
    }
    application.SetCircuitEnvironment(data[0] % 2 == 0 ? kEnvBrennaCircuit : kEnvParvane);
    const AString name =
        AString::FromUTF8(std::string_view(reinterpret_cast<const char*>(data + 1), size - 1));

    const int count = GetSignalCount(name);
    // Large buses are legal but slow to expand many times; the count covers them.
    if (count > 20000)
    {
        return 0;
    }
    std::vector<AString> signals;
    const int expanded = name.empty() ? 0 : GetAllSignals(name, signals);
    if (!name.empty())
    {
        Check(count == expanded, "GetSignalCount == GetAllSignals", name);
    }
    std::vector<AString> canonical;
    const int canonicalCount = name.empty() ? 0 : GetAllSignalsCanonical(name, canonical);
    Check(canonicalCount == expanded, "canonical expansion counts the same", name);

    const int unique = GetUniqueSignalCount(name);
    Check(unique <= count, "GetUniqueSignalCount <= GetSignalCount", name);

    // In environment 0 a list whose first bracket is "[" is one simple name unless the whole
    // text ends like a bus member, so composing is only reversible in the other environments.
    if (data[0] % 2 == 1 && canonicalCount > 0 && Recomposable(canonical))
    {
        const AString composed = CreateNetName(canonical);
        std::vector<AString> again;
        if (!composed.empty())
        {
            GetAllSignalsCanonical(composed, again);
        }
        Check(SameNoCase(canonical, again), "CreateNetName expands back to its members", name);
    }

    Check(NetNameCompare(name, name) == 0, "NetNameCompare(x, x) == 0", name);
    if (!name.empty())
    {
        Check(IsFirstSubsetOfSecond(name, name) == (unique > 0), "x is a subset of itself", name);
    }

    const int wire = IsGoodWireName(name);
    Check(wire == 0 || wire == 15 || wire == 16 || wire == 21, "IsGoodWireName codes", name);
    const int instance = IsGoodInstanceName(name);
    Check(instance == 0 || instance == 308 || instance == 309 || instance == 310,
          "IsGoodInstanceName codes", name);
    Check(IsGoodSimpleWireName(name) == IsGoodBusBaseName(name), "simple and base checks agree",
          name);

    AString base;
    AString index;
    if (IsBusMember(name, base, index))
    {
        Check(base + index == name, "IsBusMember splits the name", name);
        AString multiBase;
        AString multiIndex;
        Check(IsMultiBusMember(name, multiBase, multiIndex), "a bus member is a multi-bus member",
              name);
        AString first = name;
        AString second = name;
        Check(MergeAnyBusNames(first, second) && second.empty(), "a bus merges with itself", name);
    }
    if (expanded > 0)
    {
        Check(GetSignalIndex(name, signals.front()) == 0, "the first member is at index 0", name);
    }
    return 0;
}
