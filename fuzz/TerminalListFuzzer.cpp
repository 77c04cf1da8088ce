// Terminal lists read from arbitrary block text: no crash, no leak, the name-set invariant
// after every operation, and what is written reads back into an equal manager (in memory and
// through the block text).
// Input: block text in UTF-8 whose "Terminal" items make the list (the first byte, when it is
// a digit, first sets the circuit environment: 0 or 1).
#include "Assert.h"
#include "BlockReader.h"
#include "BlockWriter.h"
#include "RefApplication.h"
#include "RefComponent.h"
#include "RefManagers.h"
#include "RefNatureMgr.h"
#include "RefProject.h"
#include "TerminalManager.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace
{
struct Host
{
    Host()
    {
        SetIgnoreAllAsserts(true);
        SetLogAssertFailures(false);
        // One nature beyond the standard ones, with a second name.
        project.GetDesignMgr().GetRefNatureMgr().AddNature(5, AString(L"Optical"), AString(L"LIB"),
                                                           AString(L"light"), {AString(L"light")});
    }
    refhost::RefApplication application;
    refhost::RefProject& project = application.AddProject(AString(L"fuzz"), AString(L"/tmp/fuzz"));
    refhost::RefComponent* component = project.AddComponent(AString(L"U1"));
};

void Check(bool condition, const char* what)
{
    if (!condition)
    {
        std::fprintf(stderr, "TerminalListFuzzer: %s\n", what);
        std::abort();
    }
}

void CheckSets(const TerminalManager& terms, const char* after)
{
    if (!terms.NameSetsHold())
    {
        std::fprintf(stderr, "TerminalListFuzzer: the name sets do not hold after %s\n", after);
        std::abort();
    }
}

// Writes `terms`, reads the block back (and its text) and checks that both give equal lists.
void CheckRoundTrip(const TerminalManager& terms, IComponent& comp)
{
    io::CBlock_func written(L"Component");
    Check(terms.Write(written), "a list does not write");
    TerminalManager read;
    Check(read.Read(written, comp) == io::kNoError, "a written list does not read");
    CheckSets(read, "reading a written list");
    Check(read == terms, "a written list reads back different");

    io::CBlock_func fromText;
    Check(io::ReadBlockText(io::WriteBlockText(written), fromText), "written text does not read");
    TerminalManager again;
    Check(again.Read(fromText, comp) == io::kNoError, "a list from written text does not read");
    Check(again == terms, "a list from written text reads back different");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Host host;
    if (size > 16384)
    {
        return 0;
    }
    std::string_view text(reinterpret_cast<const char*>(data), size);
    if (!text.empty() && (text.front() == '0' || text.front() == '1'))
    {
        host.application.SetCircuitEnvironment(text.front() == '0' ? kEnvBrennaCircuit
                                                                   : kEnvParvane);
        text.remove_prefix(1);
    }
    io::CBlock_func block;
    io::BlockReadLimits limits;
    limits.maxDepth = 16;
    if (!io::ReadBlockText(text, block, nullptr, limits))
    {
        return 0;
    }
    IComponent& comp = *host.component;
    TerminalManager terms;
    terms.Read(block, comp); // a failed read keeps the terminals read before it
    CheckSets(terms, "Read");
    CheckRoundTrip(terms, comp);

    // Edits keep the invariant, and their results still write and read back equal.
    const std::size_t count = terms.GetTerminalCount();
    if (count > 0)
    {
        const Terminal* first = terms.GetTerminal(0);
        const AString sch = first->GetSchPinName();
        const AString lay = first->GetLayPinName();
        // An unnamed terminal answers with its equivalence number, which a file may set to any
        // value; a named one with its position.
        Check(terms.GetTerminalIndex(first) ==
                  (sch.empty() && lay.empty() ? first->GetEquivNumber() : 0),
              "index");
        const IComponent::AddTerminalReturn again = terms.AddTerminal(
            &comp, sch, lay, first->GetGate(), false, TerminalAttributes(), nullptr);
        Check((sch.empty() && lay.empty()) || again != IComponent::kTerminalAdded,
              "a name in use was added again");
        CheckSets(terms, "AddTerminal");
        Check(sch.empty() || terms.GetTerminalFromSchPinName(sch, first->GetGate()) != nullptr,
              "a terminal is not found by its own name");
        terms.RemoveTerminal(0u);
        CheckSets(terms, "RemoveTerminal");
    }
    terms.AddRefTerminals(&comp, kRefPinPerPin);
    CheckSets(terms, "AddRefTerminals");
    terms.RemoveRefTerminals(kRefPinPerPin);
    CheckSets(terms, "RemoveRefTerminals");
    terms.SetNumberOfTerminals(static_cast<int>(count % 7), comp);
    CheckSets(terms, "SetNumberOfTerminals");
    std::vector<TerminalInfo> info;
    terms.GetTerminalInformation(info);
    for (TerminalInfo& entry : info)
    {
        entry.mPinName += L"_x";
    }
    terms.SetTerminalData(info);
    CheckSets(terms, "SetTerminalData");
    CheckRoundTrip(terms, comp);

    // A model whose terminals are the list's own pins with their natures as types.
    std::vector<merrowstruct::TerminalData> model;
    for (std::size_t i = 0; i < terms.GetTerminalCount(); ++i)
    {
        const Terminal& term = *terms.GetTerminal(i);
        merrowstruct::TerminalData port;
        port.mName = term.GetSchPinName();
        port.mDataTypeInfo.mType = term.GetTerminalAttrs().mNature;
        model.push_back(std::move(port));
    }
    std::vector<merrowstruct::ModelConflict> conflicts;
    Check(!terms.MatchModelTerminalAttributes(model, conflicts, false) || !conflicts.empty(),
          "a conflict was found but none recorded");
    terms.AdjustTerminals(&comp, model, nullptr);
    CheckSets(terms, "AdjustTerminals");
    CheckRoundTrip(terms, comp);
    return 0;
}
