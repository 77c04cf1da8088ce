#include "QLNFileUtility.h"

#include "Assert.h"
#include "FileUtilities.h"
#include "I18n.h"
#include "LongFileName.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace
{
// The path variables, indexed by LibraryLocation; also the order in which roots are tried.
constexpr std::array<std::wstring_view, 4> kPathVariables = {L"$SYSLIB", L"$USERLIB",
                                                             L"$PERSONALLIB", L"$PROJECTDIR"};

bool IsRoot(LibraryLocation loc)
{
    return loc >= kSysLib && loc <= kProjectDir;
}

// Whether `text` begins with `prefix`, ignoring case.
bool StartsWithNoCase(std::wstring_view text, std::wstring_view prefix)
{
    return text.size() >= prefix.size() &&
           AString::EqualNoCase(text.substr(0, prefix.size()), prefix);
}

// Position of the first occurrence of `needle` (not empty) in `text`, ignoring case.
std::size_t FindNoCase(std::wstring_view text, std::wstring_view needle)
{
    for (std::size_t at = 0; at + needle.size() <= text.size(); ++at)
    {
        if (AString::EqualNoCase(text.substr(at, needle.size()), needle))
        {
            return at;
        }
    }
    return std::wstring_view::npos;
}

std::size_t SkipSeparators(std::wstring_view text, std::size_t from)
{
    while (from < text.size() && IsPathSeparator(text[from]))
    {
        ++from;
    }
    return from;
}

// The upper-cased host form of a root directory, as the full-path parsers compare it.
AString UpperRoot(const AString& directory)
{
    return LongFileName(directory).FilePath().ToUpper();
}
} // namespace

bool IsPathSeparator(wchar_t c)
{
    return c == L'\\' || c == L'/';
}

bool ParseFilePathVariables(const AString& input, AString& rest, LibraryLocation& loc)
{
    // `rest` may be the input itself.
    const AString aliasCopy = &input == &rest ? input : AString();
    const AString& path = &input == &rest ? aliasCopy : input;
    rest.clear();
    loc = kNoLibLocation;
    if (path.size() < 6 || path.front() != L'$')
    {
        return false;
    }
    std::size_t length = 0;
    for (std::size_t i = 0; i < kPathVariables.size(); ++i)
    {
        if (StartsWithNoCase(path, kPathVariables[i]))
        {
            loc = static_cast<LibraryLocation>(i);
            length = kPathVariables[i].size();
            break;
        }
    }
    if (loc == kNoLibLocation)
    {
        return false;
    }
    if (path.size() == length)
    {
        return true;
    }
    // "$USERLIBX" names no variable, but `loc` keeps the root found: callers go by the result.
    if (!IsPathSeparator(path[length]))
    {
        return false;
    }
    rest = path.Mid(SkipSeparators(path, length));
    return true;
}

AString CreateFullFilePath(const AString& rest, LibraryLocation loc, const IDesignMgr* dmgr)
{
    if (!IsRoot(loc))
    {
        return rest;
    }
    if (loc == kProjectDir && dmgr == nullptr)
    {
        PLINTH_ASSERT(!"Need DesignMgr to get Project path");
        return AString();
    }
    // Already without trailing separators. An unknown root gives no path at all rather than
    // one that would start at the top of the drive.
    const AString root = GetLibraryDirectory(loc, dmgr);
    if (root.empty())
    {
        return AString();
    }
    return rest.empty() ? root : AString(root + L'\\' + rest);
}

AString CreateFilePathWithVariables(const AString& rest, LibraryLocation loc)
{
    if (!IsRoot(loc))
    {
        return rest;
    }
    AString stored(kPathVariables[static_cast<std::size_t>(loc)]);
    if (!rest.empty())
    {
        stored += L'\\';
        stored += rest;
    }
    return stored;
}

bool ParseFilePathWithoutVariables(const AString& fullPath, AString& rest, LibraryLocation& loc,
                                   const IDesignMgr* dmgr)
{
    if (fullPath.empty())
    {
        return false;
    }
    const AString p = i18n::RemoveDoubleQuotes(fullPath);
    if (!p.empty() && p.front() == L'$')
    {
        return ParseFilePathVariables(p, rest, loc);
    }

    // Library roots end in a separator, so they match whole folder names only; the project
    // root does not, so it also matches a longer sibling folder. Unknown roots stay empty and
    // match nothing.
    std::array<AString, 4> prefixes;
    for (const LibraryLocation library : {kSysLib, kUserLib, kPersonalLib})
    {
        const AString directory = GetLibraryDirectory(library, dmgr);
        if (!directory.empty())
        {
            prefixes[library] = AString::Formatted(L"%s/", UpperRoot(directory));
        }
    }
    prefixes[kProjectDir] = dmgr == nullptr ? AString(kPathVariables[kProjectDir])
                                            : UpperRoot(GetLibraryDirectory(kProjectDir, dmgr));

    AString u = p.ToUpper();
    CFileUtilities::SetToBackSlashes(u);
    for (std::size_t i = 0; i < prefixes.size(); ++i)
    {
        AString prefix = prefixes[i];
        CFileUtilities::SetToBackSlashes(prefix);
        if (!prefix.empty() && StartsWithNoCase(u, prefix))
        {
            loc = static_cast<LibraryLocation>(i);
            rest = p.Mid(SkipSeparators(p, prefix.size()));
            return true;
        }
    }
    if (dmgr == nullptr)
    {
        PLINTH_ASSERT(!"Converting path without setting IDesignMgr, won't convert $projectdir");
    }
    loc = kNoLibLocation;
    return false;
}

AString ConvertFilePathVariablesToFullPath(const AString& path, const IDesignMgr* dmgr)
{
    AString rest;
    LibraryLocation loc = kNoLibLocation;
    if (!ParseFilePathVariables(path, rest, loc))
    {
        return path;
    }
    // A root that cannot be resolved leaves the path as it was.
    AString full = CreateFullFilePath(rest, loc, dmgr);
    return full.empty() ? path : full;
}

AString ConvertFullPathToPathVariables(const AString& path, const IDesignMgr* dmgr)
{
    AString rest;
    LibraryLocation loc = kNoLibLocation;
    if (!ParseFilePathWithoutVariables(path, rest, loc, dmgr))
    {
        return path;
    }
    return CreateFilePathWithVariables(rest, loc);
}

AString TidyFilePath(const AString& path)
{
    if (path.empty())
    {
        return path;
    }
    AString tidy;
    tidy.reserve(path.size() + 1);
    std::size_t run = 0; // back slashes just written
    for (wchar_t c : path)
    {
        if (c == L'/')
        {
            c = L'\\';
        }
        if (c == L'\\')
        {
            tidy.push_back(c);
            ++run;
            continue;
        }
        if (run >= 2)
        {
            tidy.erase(tidy.size() - run + 1);
        }
        run = 0;
        tidy.push_back(c);
    }
    // A trailing run is never folded and loses one character only.
    if (!tidy.empty() && tidy.back() == L'\\')
    {
        tidy.pop_back();
    }
    if (!tidy.empty() && tidy.front() == L'\\')
    {
        tidy.insert(tidy.begin(), L'\\');
    }
    return tidy;
}

AString NormalizeFilePath(const AString& path)
{
    if (path.empty())
    {
        return path;
    }
    AString normal(path);
    CFileUtilities::SetToBackSlashes(normal);
    // Every step shortens the text by three characters at least, so this ends.
    for (;;)
    {
        const std::size_t dots = normal.find(L"\\..");
        if (dots == AString::npos)
        {
            break;
        }
        const std::size_t folder = normal.rfind(L'\\', dots == 0 ? AString::npos : dots - 1);
        if (dots == 0 || folder == AString::npos)
        {
            break;
        }
        normal.erase(folder, dots + 3 - folder);
    }
    return normal;
}

void ConvertBackSlashesToForwardSlashes(AString& path)
{
    AString forward;
    forward.reserve(path.size());
    bool inRun = false;
    for (const wchar_t c : path)
    {
        if (IsPathSeparator(c))
        {
            if (!inRun)
            {
                forward.push_back(L'/');
            }
            inRun = true;
        }
        else
        {
            forward.push_back(c);
            inRun = false;
        }
    }
    path = std::move(forward);
}

namespace merrowutility
{
bool VerifyFileExistence(const IDesignMgr* dmgr, const AString& path, AString* fullPath)
{
    if (!PLINTH_ASSERT(dmgr != 0))
    {
        return false;
    }
    AString full = ConvertFilePathVariablesToFullPath(path, dmgr);
    CFileUtilities::SetToBackSlashes(full);
    if (fullPath != nullptr)
    {
        *fullPath = full;
    }
    return LongFileName(full).Exists();
}

bool VerifyDirectoryInFilePathExistence(const IDesignMgr* dmgr, const AString& path,
                                        AString* dirPart, AString* fileName)
{
    if (!PLINTH_ASSERT(dmgr != 0))
    {
        return false;
    }
    AString full = ConvertFilePathVariablesToFullPath(path, dmgr);
    CFileUtilities::SetToBackSlashes(full);
    const LongFileName file(full);
    const AString name = file.NameWithExt();
    const LongFileName folder(file.DirPath());
    if (dirPart != nullptr)
    {
        *dirPart = path.Left(path.size() - std::min(name.size(), path.size()));
    }
    if (fileName != nullptr)
    {
        *fileName = name;
    }
    return folder.IsExistingDirectory() || folder.CreateDirectories();
}

void GetDirectoryAndBaseFileNameFromPath(const AString& path, AString& dir, AString& baseName)
{
    AString copy(path);
    CFileUtilities::SetToBackSlashes(copy);
    AString folder;
    AString name;
    CFileUtilities::SplitPath(copy, folder, name);
    if (!folder.empty() && folder.back() != L'\\')
    {
        folder += L'\\';
    }
    AString base;
    AString ext;
    CFileUtilities::SplitName(name, base, ext);
    dir = std::move(folder);
    baseName = std::move(base);
}

AString ConvertPathToVariables(IDesignMgr* dmgr, const AString& path)
{
    if (dmgr == nullptr)
    {
        PLINTH_ASSERT(!"Converting path without setting IDesignMgr, won't convert $projectdir");
    }
    AString u = path.ToUpper();
    CFileUtilities::SetToBackSlashes(u);
    for (std::size_t i = 0; i < kPathVariables.size(); ++i)
    {
        const LibraryLocation loc = static_cast<LibraryLocation>(i);
        AString prefix = loc == kProjectDir && dmgr == nullptr
                             ? AString(kPathVariables[kProjectDir])
                             : UpperRoot(GetLibraryDirectory(loc, dmgr));
        CFileUtilities::SetToBackSlashes(prefix);
        while (!prefix.empty() && prefix.back() == L'\\')
        {
            prefix.pop_back();
        }
        if (prefix.empty())
        {
            continue; // an unknown root is found nowhere
        }
        const std::size_t at = FindNoCase(u, prefix);
        if (at != std::wstring_view::npos)
        {
            AString converted(path);
            converted.replace(at, prefix.size(), kPathVariables[i]);
            return converted;
        }
    }
    return path;
}

std::size_t GetFilesInFolder(const AString& folder, std::vector<AString>& names, const AString& ext)
{
    LongFileName directory(folder);
    directory.MakeItDirectory();
    AString pattern = directory.FilePath() + L"*";
    if (!ext.empty())
    {
        pattern += L'.';
        pattern += ext;
    }
    LongFileName search(pattern);
    LongFileName found;
    for (bool more = search.FindFirst(found); more; more = search.FindNext(found))
    {
        if (found.IsExistingDirectory())
        {
            continue;
        }
        // The search pattern alone would also let "x.s2px" through on some file systems.
        if (!ext.empty() && !AString::EqualNoCase(found.Ext(), ext))
        {
            continue;
        }
        names.push_back(found.NameWithExt());
    }
    search.FindClose();
    return names.size();
}

std::size_t GetFoldersInFolder(const AString& folder, std::vector<AString>& names)
{
    // The folder is made a folder name first, as for files: "C:\lib" lists the sub-folders
    // of "C:\lib", not the entries of "C:\" whose names begin with "lib".
    LongFileName directory(folder);
    directory.MakeItDirectory();
    LongFileName search(directory.FilePath() + L"*");
    LongFileName found;
    for (bool more = search.FindFirst(found); more; more = search.FindNext(found))
    {
        const AString name = found.NameWithExt();
        if (!found.IsExistingDirectory() || name == L"." || name == L"..")
        {
            continue;
        }
        names.push_back(name);
    }
    search.FindClose();
    return names.size();
}
} // namespace merrowutility
