// The product environment a design belongs to, and the library roots that stored paths are
// relative to: the process-wide "current environment" guard, the environment of a
// system-library path, the directory of a library root and the help folder of an environment.
#pragma once

#include "AString.h"
#include "CircuitEnvironment.h"
#include "QuillonExport.h"

#include <cstdint>

class IDesign;
class IDesignMgr;

// The root a library path is relative to; also the index of its path variable. Any value
// outside 0..3 means no root.
enum LibraryLocation : std::int32_t
{
    kNoLibLocation = -1, // no root: what the path parsers write when nothing matched
    kSysLib = 0,         // "$SYSLIB": the application's system library directory
    kUserLib = 1,        // "$USERLIB": the application's user library directory
    kPersonalLib = 2,    // "$PERSONALLIB": the user's personal library directory
    kProjectDir = 3      // "$PROJECTDIR": the directory of the open project
};

// Makes a design's environment the current one of the whole process while it lives. Guards
// do not nest: a second one made while one lives raises the assertion "mIsSet == false",
// takes over the environment, and the first one's end clears the state for both. Main thread
// only; there is exactly one state per process.
class QLN_API CurrentCircuitEnvironment
{
public:
    // The environment of the design being worked on; kEnvNone while no guard lives.
    static CircuitEnvironment mCurrentEnvironment;
    // Whether a guard lives.
    static bool mIsSet;

    explicit CurrentCircuitEnvironment(const IDesign& design);
    // Back to "not set", environment kEnvNone.
    ~CurrentCircuitEnvironment();
    // A copy would end the guard a second time.
    CurrentCircuitEnvironment(const CurrentCircuitEnvironment&) = delete;
    // Does nothing: a guard has no state of its own.
    CurrentCircuitEnvironment& operator=(const CurrentCircuitEnvironment&);

    // While a guard lives, writes the current environment into `env` and returns true;
    // otherwise returns false and leaves `env` alone.
    static bool GetCurrentCircuitEnvironment(CircuitEnvironment& env);
};

namespace qln
{
// The environment whose element library a system-library path lies in. `path` is the part of
// a stored path after its variable. Only `location` kSysLib is classified; a path shorter
// than 13 characters, or with no file below the library folder, gives kEnvNone. The first
// folder is compared with the library labels ignoring case; "/", "\" and "," separate.
//   (kSysLib, "Parvane Elements/x.lib")    => kEnvParvane
//   (kSysLib, "calder elements\sub\f")     => kEnvCalder
//   (kSysLib, "Parvane Elements")          => kEnvNone (no file inside)
//   (kUserLib, "Parvane Elements/x.lib")   => kEnvNone (not the system library)
QLN_API CircuitEnvironment GetCircuitEnvironmentFromFilePath(LibraryLocation location,
                                                             const AString& path);
} // namespace qln

// The directory a library root stands for, with back slashes and no trailing separator; empty
// when it is unknown (no application, no project open, `dmgr` null for kProjectDir) or
// `location` names no root. The library roots come from the application object, the project
// directory from `dmgr`.
//   system library reported as "C:/Lib//" => "C:\Lib"
QLN_API AString GetLibraryDirectory(LibraryLocation location, const IDesignMgr* dmgr);

namespace merrowutility
{
// The folder below the help root that holds the component help of `env`: it begins with "/"
// and has none at the end. Environments without a folder of their own share "/Circuit".
//   kEnvParvane => "/Pellwick";  kEnvCalder => "/Calder";  kEnvNone => "/Circuit"
QLN_API AString GetCompHelpSubDir(CircuitEnvironment env);
} // namespace merrowutility
