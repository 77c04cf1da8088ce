// CFileUtilities: file-name text helpers and folder searches shared by the host's modules.
// Paths are written with back slashes in this system and both "/" and "\" separate folders;
// a back slash becomes "/" only at the file system (ToFileSystemPath). Nothing here throws:
// missing, unreadable or looping folders simply find nothing.
#pragma once

#include "AString.h"
#include "LongFileName.h"
#include "PlinthExport.h"

#include <cstddef>
#include <filesystem>
#include <vector>

class PLINTH_API CFileUtilities
{
public:
    // What a search reports: files (every entry that is not a folder), folders, or both.
    enum FindKind
    {
        kFindFiles,
        kFindFolders,
        kFindBoth
    };
    // RecursiveFind levels value that means no limit.
    static constexpr int kAllLevels = -1;

    // Text helpers ----------------------------------------------------------------------

    // Whether `c` separates folders: back slash or forward slash.
    static bool IsSeparator(wchar_t c) noexcept { return c == L'\\' || c == L'/'; }

    // Turns every "/" into "\" in place.
    //   "C:/lib/x.lib" => "C:\lib\x.lib";  "a//b" => "a\\b"
    static void SetToBackSlashes(AString& path);

    // Splits a path at its last separator. `folder` is the text before it without trailing
    // separators (a leading separator alone is kept as the root); `name` is the text after it.
    //   "C:\lib\x.lib" => "C:\lib", "x.lib"     "x.lib" => "", "x.lib"
    //   "C:\lib\"      => "C:\lib", ""          "\x"    => "\", "x"
    //   "a//b"         => "a", "b"
    static void SplitPath(const AString& path, AString& folder, AString& name);

    // Splits a file name at the dot of its last extension, with the rule of LongFileName::Ext:
    // `ext` comes without its dot, and a dot that starts the name starts no extension. Only the
    // part after the last separator is searched for the dot.
    //   "a.b.lib" => "a.b", "lib"    "Makefile" => "Makefile", ""    ".profile" => ".profile", ""
    //   "a."      => "a", ""         "d.x\f"    => "d.x\f", ""
    static void SplitName(const AString& name, AString& base, AString& ext);

    // Joins a folder and a name with a back slash unless the folder is empty or already ends
    // in a separator.
    //   "C:\lib", "a.lib" => "C:\lib\a.lib";  "C:/lib/", "a" => "C:/lib/a";  "", "a" => "a"
    static AString JoinPath(const AString& folder, const AString& name);

    // Whether a file name matches a wildcard pattern, ignoring case: "*" matches any run of
    // characters, "?" exactly one, everything else itself. As on the host's own platform, a
    // pattern ending in ".*" also matches names without that last extension.
    //   "a.s2p", "*.S*P" => true;  "a.tsx", "*.ts" => false;  "README", "*.*" => true
    static bool MatchFileName(const AString& name, const AString& pattern);

    // The file-system form of a path (back slashes become "/", UTF-8), and back. Names that
    // are not UTF-8 on disk come back with U+FFFD in place of the bad bytes.
    static std::filesystem::path ToFileSystemPath(const AString& path);
    static AString FromFileSystemPath(const std::filesystem::path& path);

    // Searches --------------------------------------------------------------------------
    // Both append to `results` (never clearing it) and return its total size. A pattern with
    // a folder part ("sub\*.lib") searches that folder below `folder`. Entries come in the
    // order of LongFileName::FindFirst, each with `folder` joined to its name as FilePath.

    // Searches `folder` and, when `levels` allows, its sub-folders for entries whose names
    // match `pattern` and that are of the kind `what`. Levels: 1 reads `folder` only, 2 also
    // its sub-folders, and so on; kAllLevels (any negative value) has no limit; 0 finds
    // nothing. Depth first: a folder's entries follow it directly. Links to folders are
    // followed, except into a folder that the search is already inside, so a link loop ends.
    // Unreadable folders are skipped.
    static std::size_t RecursiveFind(const AString& folder, const AString& pattern,
                                     std::vector<LongFileName>& results, int levels, FindKind what);

    // The files (not folders) of `folder` whose names match `pattern`.
    //   SimpleFindWithWildCard("C:\lib\Acme", "*.s*p", parts)
    static std::size_t SimpleFindWithWildCard(const AString& folder, const AString& pattern,
                                              std::vector<LongFileName>& results);
};
