// Stored paths with library variables, and path tidying. Project files store a path below one
// of the four library roots as its variable, a back slash and the rest
// ("$SYSLIB\Parvane Elements\x.lib"), so that a project survives a move to another machine.
// These functions convert between stored and full paths, tidy and normalise paths, and offer
// the small file-system helpers of the component editors. Paths are Windows-style texts; the
// conversions are pure text operations, the roots come from GetLibraryDirectory. Nothing
// throws: a path that cannot be converted comes back unchanged.
#pragma once

#include "AString.h"
#include "CurrentCircuitEnvironment.h"
#include "QuillonExport.h"

#include <cstddef>
#include <vector>

class IDesignMgr;

// Whether `c` separates folders: back slash or forward slash, nothing else.
QLN_API bool IsPathSeparator(wchar_t c);

// Splits a stored path into its variable and the rest: true with `loc` the variable's root
// and `rest` the text after it and its separators (as written). False, `rest` empty, when
// the path does not start with a variable followed by a separator or the end. The variables
// are tried in root order ignoring case and the first that starts the path is taken, so when
// the character after it is no separator the result is false but `loc` keeps that root:
// look at the result, not at `loc`.
//   "$syslib\a.lib"            => true, kSysLib, "a.lib"
//   "$PROJECTDIR//sub/f.ckt"   => true, kProjectDir, "sub/f.ckt"
//   "$USERLIB"                 => true, kUserLib, ""
//   "$USERLIBX"                => false, kUserLib
//   "$SYS", "C:\x"             => false, kNoLibLocation
QLN_API bool ParseFilePathVariables(const AString& path, AString& rest, LibraryLocation& loc);

// The full path: the root of `loc` without trailing separators, a back slash and `rest` (the
// root alone when `rest` is empty); `rest` is not changed. A `loc` that names no root gives
// `rest`. kProjectDir needs `dmgr`: without it, the assertion "Need DesignMgr to get Project
// path" and the empty text. A root that is not known (empty, no project open) gives the empty
// text too, never a path from the top of the drive.
//   ("x.lib", kSysLib) with the system library "C:\Lib\" => "C:\Lib\x.lib"
QLN_API AString CreateFullFilePath(const AString& rest, LibraryLocation loc,
                                   const IDesignMgr* dmgr);

// The stored path: the variable of `loc`, a back slash and `rest` (the variable alone when
// `rest` is empty). A `loc` that names no root gives `rest`.
//   ("a\b.lib", kUserLib) => "$USERLIB\a\b.lib";  ("", kProjectDir) => "$PROJECTDIR"
QLN_API AString CreateFilePathWithVariables(const AString& rest, LibraryLocation loc);

// Splits a full path (one pair of enclosing double quotes is dropped) into a root and the
// rest after it and its separators, trying the roots in order and ignoring case and the kind
// of separator. A library root matches only a whole folder name followed by a separator, so
// the root itself and a longer sibling ("C:\LibExtra") do not match; the project directory
// matches as a plain prefix, a longer sibling included ("C:\PROJ" matches "C:\PROJECTS\x").
// A root that is unknown (empty) matches nothing. A path that starts with "$" is parsed as a
// stored path instead. No match: false with `loc` kNoLibLocation (`rest` untouched), and
// without `dmgr` the assertion "Converting path without setting IDesignMgr, won't convert
// $projectdir". An empty path gives false and touches nothing.
//   with the system library "C:\Lib": "c:/lib/Parvane Elements/x.lib"
//                                       => true, kSysLib, "Parvane Elements/x.lib"
QLN_API bool ParseFilePathWithoutVariables(const AString& fullPath, AString& rest,
                                           LibraryLocation& loc, const IDesignMgr* dmgr);

// A stored path made full (ParseFilePathVariables, then CreateFullFilePath); any other text,
// and a stored path whose root cannot be resolved (after CreateFullFilePath's assertion when
// `dmgr` is missing), unchanged.
//   "$PROJECTDIR\sub\f.ckt" with the project in "D:\P" => "D:\P\sub\f.ckt"
QLN_API AString ConvertFilePathVariablesToFullPath(const AString& path, const IDesignMgr* dmgr);

// A full path below a root made stored (ParseFilePathWithoutVariables, then
// CreateFilePathWithVariables); any other text unchanged.
//   "c:/lib/Parvane Elements/x.lib" with the system library "C:\Lib"
//                                       => "$SYSLIB\Parvane Elements/x.lib"
QLN_API AString ConvertFullPathToPathVariables(const AString& path, const IDesignMgr* dmgr);

// Back slashes only, and a run of separators inside the path becomes one. A trailing
// separator loses one character only, and a path that then starts with a back slash gets one
// more in front, so that a network path keeps its double lead (and a single lead is doubled).
//   "a//b\\\\c/" => "a\b\c";  "\\\\srv\\x" => "\\srv\x";  "\x" => "\\x";  "a\\\" => "a\\"
QLN_API AString TidyFilePath(const AString& path);

// Back slashes only, and each "\.." folds away the folder before it. The match is on those
// three characters, not on a whole folder name, and "." steps stay.
//   "a/b/../c" => "a\c";  "..\c" => "..\c";  "a\b\..c" => "ac";  "a\.\b" => "a\.\b"
QLN_API AString NormalizeFilePath(const AString& path);

// Rewrites `path` in place with forward slashes: each run of separators of either kind
// becomes one "/".
//   "a\\\\b\" => "a/b/";  "\\srv\x" => "/srv/x"
QLN_API void ConvertBackSlashesToForwardSlashes(AString& path);

namespace merrowutility
{
// Whether the file exists; `path` may be stored. `fullPath`, when given, receives the full
// path with back slashes (also when the file is missing). Without `dmgr`: the assertion
// "dmgr != 0" and false.
QLN_API bool VerifyFileExistence(const IDesignMgr* dmgr, const AString& path,
                                 AString* fullPath = nullptr);

// Makes sure the folder of a file exists, creating it with every missing parent: true when it
// exists afterwards. `path` may be stored. `dirPart`, when given, receives `path` as written
// (variable kept) without the file name; `fileName` the file name with its extension. A path
// without a folder part names no folder and gives false. Without `dmgr`: the assertion
// "dmgr != 0" and false, outputs untouched.
//   ("$PROJECTDIR\out\r.csv") => creates "<project>\out", dirPart "$PROJECTDIR\out\",
//                                fileName "r.csv"
QLN_API bool VerifyDirectoryInFilePathExistence(const IDesignMgr* dmgr, const AString& path,
                                                AString* dirPart = nullptr,
                                                AString* fileName = nullptr);

// The folder of a path (back slashes, ending in "\" unless empty) and its file name without
// the last extension.
//   "C:/lib/x.b.lib" => "C:\lib\", "x.b";  "x.lib" => "", "x";  "C:\lib\" => "C:\lib\", ""
QLN_API void GetDirectoryAndBaseFileNameFromPath(const AString& path, AString& dir,
                                                 AString& baseName);

// Replaces the first root found anywhere in the text (not only at its start, in root order,
// ignoring case and the kind of separator) by its variable; the rest of the text stays as
// written. Without `dmgr` the project root cannot be found: the assertion "Converting path
// without setting IDesignMgr, won't convert $projectdir" first. No root found: unchanged.
//   "-model D:\P\m.lib" with the project in "D:\P" => "-model $PROJECTDIR\m.lib"
QLN_API AString ConvertPathToVariables(IDesignMgr* dmgr, const AString& path);

// Appends the names (with extension) of the files in `folder` to `names`: every file, or only
// those whose extension is `ext` ignoring case. Returns the size of `names`. A missing folder
// adds nothing; an empty one is the current folder.
QLN_API std::size_t GetFilesInFolder(const AString& folder, std::vector<AString>& names,
                                     const AString& ext = AString());

// Appends the names of the sub-folders of `folder` to `names` (never "." or ".."). Returns the
// size of `names`. A missing folder adds nothing; an empty one is the current folder.
QLN_API std::size_t GetFoldersInFolder(const AString& folder, std::vector<AString>& names);
} // namespace merrowutility
