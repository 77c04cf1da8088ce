// TerminalAttributes: the electrical attributes of a component terminal: whether it is a
// conservative (physical) terminal or a signal-like one, its nature, its signal direction and a
// free description. A plain value record.
#pragma once

#include "AString.h"

// The terminal domains live with the other shared codes; until they are part of the build the
// same values are declared here.
#if __has_include("MerrowEnums.h")
#include "MerrowEnums.h"
#else
namespace merrowenum
{
// What a terminal connects to: a conservative (physical) node, or a signal, quantity or
// generic value.
enum TerminalDomain : int
{
    kConservative = 0,
    kSignal = 1,
    kQuantity = 2,
    kGeneric = 3
};
} // namespace merrowenum
#endif

#include <cstdint>

struct TerminalAttributes
{
    // The identifier of "no nature".
    static constexpr std::int32_t kNoNature = -1;
    // The direction a terminal starts with (in and out).
    static constexpr std::int32_t kDefaultDirection = 2;

    // A merrowenum::TerminalDomain code.
    std::int32_t mDomain = merrowenum::kConservative;
    // For a conservative terminal the identifier of its nature in the design's nature manager;
    // for the other domains the data type code of the value it carries.
    std::int32_t mNature = kNoNature;
    // Signal direction (0 in, 1 out, 2 in and out); meaningful only when mDomain is not
    // conservative.
    std::int32_t mDirection = kDefaultDirection;
    AString mDescription;

    // All four fields equal.
    friend bool operator==(const TerminalAttributes&, const TerminalAttributes&) = default;
};
