#include "CurrentCircuitEnvironment.h"

#include "Assert.h"
#include "FileUtilities.h"
#include "IDesign.h"
#include "IDesignMgr.h"
#include "IMerrowApplication.h"
#include "QLNFileUtility.h"

#include <string_view>
#include <vector>

// Constant-initialised: loading the library sets them without running any code.
CircuitEnvironment CurrentCircuitEnvironment::mCurrentEnvironment = kEnvNone;
bool CurrentCircuitEnvironment::mIsSet = false;

CurrentCircuitEnvironment::CurrentCircuitEnvironment(const IDesign& design)
{
    PLINTH_ASSERT(mIsSet == false);
    mIsSet = true;
    mCurrentEnvironment = design.GetCircuitEnvironment();
}

CurrentCircuitEnvironment::~CurrentCircuitEnvironment()
{
    mIsSet = false;
    mCurrentEnvironment = kEnvNone;
}

CurrentCircuitEnvironment&
CurrentCircuitEnvironment::operator=(const CurrentCircuitEnvironment& /*other*/)
{
    return *this;
}

bool CurrentCircuitEnvironment::GetCurrentCircuitEnvironment(CircuitEnvironment& env)
{
    if (!mIsSet)
    {
        return false;
    }
    env = mCurrentEnvironment;
    return true;
}

namespace qln
{
CircuitEnvironment GetCircuitEnvironmentFromFilePath(LibraryLocation location, const AString& path)
{
    // The threshold applies to the whole path, before it is split.
    constexpr std::size_t kMinimumLength = 13;
    if (location != kSysLib || path.size() < kMinimumLength)
    {
        return kEnvNone;
    }
    std::vector<AString> tokens;
    path.TokenizeString(tokens, L"/,\\", false);
    if (tokens.size() <= 1)
    {
        return kEnvNone;
    }

    struct Label
    {
        std::wstring_view text;
        CircuitEnvironment env;
    };
    // First equal label wins; the order is the host's.
    static constexpr Label kLabels[] = {
        {L"Parvane Elements", kEnvParvane}, {L"Brenna Circuit Elements", kEnvBrennaCircuit},
        {L"Orrin Elements", kEnvOrrin},     {L"Halvard Circuit Elements", kEnvHalvardCircuit},
        {L"Calder Elements", kEnvCalder},
    };
    for (const Label& label : kLabels)
    {
        if (AString::EqualNoCase(tokens.front(), label.text))
        {
            return label.env;
        }
    }
    return kEnvNone;
}
} // namespace qln

AString GetLibraryDirectory(LibraryLocation location, const IDesignMgr* dmgr)
{
    AString directory;
    switch (location)
    {
    case kSysLib:
    case kUserLib:
    case kPersonalLib:
        if (const IMerrowApplication* application = GetIMerrowApplication())
        {
            if (location == kSysLib)
            {
                application->GetSysLibDirectory(directory);
            }
            else if (location == kUserLib)
            {
                application->GetUserLibDirectory(directory);
            }
            else
            {
                application->GetPersonalLibDirectory(directory);
            }
        }
        break;
    case kProjectDir:
        if (dmgr == nullptr || !dmgr->GetProjectDirectory(directory))
        {
            return AString();
        }
        break;
    default:
        return AString();
    }
    while (!directory.empty() && IsPathSeparator(directory.back()))
    {
        directory.pop_back();
    }
    CFileUtilities::SetToBackSlashes(directory);
    return directory;
}

namespace merrowutility
{
AString GetCompHelpSubDir(CircuitEnvironment env)
{
    switch (env)
    {
    case kEnvParvane:
        return AString(L"/Pellwick");
    case kEnvHalvardCircuit:
        return AString(L"/Halvard");
    case kEnvOrrin:
        return AString(L"/Orrin");
    case kEnvCalder:
        return AString(L"/Calder");
    default:
        return AString(L"/Circuit");
    }
}
} // namespace merrowutility
