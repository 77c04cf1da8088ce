// TerminalAttributes: the electrical attributes of a component terminal: whether it is a
// conservative (physical) terminal or a signal-like one, its nature, its signal direction and a
// free description. A plain value record.
#pragma once

#include "AString.h"

#include "MerrowEnums.h"

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
