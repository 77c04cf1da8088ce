#include "FileUtilities.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace
{
// Position just past the last separator of `text` (0 when there is none).
std::size_t NameStart(std::wstring_view text)
{
    for (std::size_t i = text.size(); i > 0; --i)
    {
        if (CFileUtilities::IsSeparator(text[i - 1]))
        {
            return i;
        }
    }
    return 0;
}

// One recursive search: the name pattern, what to report, and the real (link-free) paths of
// the folders the search is inside, which it must not enter again.
struct FolderWalk
{
    AString pattern;
    CFileUtilities::FindKind what;
    std::vector<fs::path> inside;
    std::vector<LongFileName>& results;

    // Searches the folder `dirPart` (empty or ending in a separator) with `levels` levels
    // left, counting this one (negative: no limit).
    void Walk(const AString& dirPart, int levels)
    {
        LongFileName search(dirPart + L"*");
        LongFileName entry;
        for (bool ok = search.FindFirst(entry); ok; ok = search.FindNext(entry))
        {
            const bool isFolder = entry.IsDirectory();
            const bool wanted = what == CFileUtilities::kFindBoth ||
                                (what == CFileUtilities::kFindFolders) == isFolder;
            if (wanted && CFileUtilities::MatchFileName(entry.NameWithExt(), pattern))
            {
                results.push_back(entry);
            }
            if (isFolder && levels != 1)
            {
                Descend(entry, levels < 0 ? levels : levels - 1);
            }
        }
    }

    void Descend(const LongFileName& folder, int levels)
    {
        std::error_code ec;
        fs::path real = fs::canonical(CFileUtilities::ToFileSystemPath(folder.FilePath()), ec);
        if (ec || std::find(inside.begin(), inside.end(), real) != inside.end())
        {
            return;
        }
        inside.push_back(std::move(real));
        LongFileName subFolder(folder);
        subFolder.MakeItDirectory();
        Walk(subFolder.FilePath(), levels);
        inside.pop_back();
    }
};
} // namespace

void CFileUtilities::SetToBackSlashes(AString& path)
{
    std::replace(path.begin(), path.end(), L'/', L'\\');
}

void CFileUtilities::SplitPath(const AString& path, AString& folder, AString& name)
{
    const AString text(path); // the outputs may be the input
    const std::size_t nameStart = NameStart(text);
    std::size_t folderEnd = nameStart;
    while (folderEnd > 0 && IsSeparator(text[folderEnd - 1]))
    {
        --folderEnd;
    }
    // Nothing but separators before the name: the folder is the root.
    folder = folderEnd == 0 && nameStart > 0 ? text.Left(1) : text.Left(folderEnd);
    name = text.Mid(nameStart);
}

void CFileUtilities::SplitName(const AString& name, AString& base, AString& ext)
{
    const AString text(name); // the outputs may be the input
    const std::size_t nameStart = NameStart(text);
    const std::wstring_view fileName = std::wstring_view(text).substr(nameStart);
    const std::size_t dot = fileName.rfind(L'.');
    if (dot == std::wstring_view::npos || dot == 0 || fileName == L"..")
    {
        base = text;
        ext.clear();
        return;
    }
    base = text.Left(nameStart + dot);
    ext = text.Mid(nameStart + dot + 1);
}

AString CFileUtilities::JoinPath(const AString& folder, const AString& name)
{
    if (folder.empty() || IsSeparator(folder.back()))
    {
        return folder + name;
    }
    return folder + L'\\' + name;
}

bool CFileUtilities::MatchFileName(const AString& name, const AString& pattern)
{
    // The matcher takes a back slash as an escape; in a file-name pattern it is literal.
    AString literal;
    literal.reserve(pattern.size());
    for (const wchar_t c : pattern)
    {
        if (c == L'\\')
        {
            literal += L'\\';
        }
        literal += c;
    }
    if (AString::MatchText(name, literal, false, nullptr))
    {
        return true;
    }
    return literal.ends_with(L".*") &&
           AString::MatchText(name, std::wstring_view(literal).substr(0, literal.size() - 2), false,
                              nullptr);
}

fs::path CFileUtilities::ToFileSystemPath(const AString& path)
{
    const std::string utf8 = path.ToUTF8();
    std::u8string text(utf8.size(), u8'\0');
    std::transform(utf8.begin(), utf8.end(), text.begin(),
                   [](char c) { return c == '\\' ? u8'/' : static_cast<char8_t>(c); });
    return fs::path(std::move(text));
}

AString CFileUtilities::FromFileSystemPath(const fs::path& path)
{
    const std::u8string text = path.u8string();
    return AString::FromUTF8(
        std::string_view(reinterpret_cast<const char*>(text.data()), text.size()));
}

std::size_t CFileUtilities::RecursiveFind(const AString& folder, const AString& pattern,
                                          std::vector<LongFileName>& results, int levels,
                                          FindKind what)
{
    const LongFileName target(JoinPath(folder, pattern));
    FolderWalk walk{target.NameWithExt(), what, {}, results};
    if (levels == 0 || walk.pattern.empty())
    {
        return results.size();
    }
    const AString dirPart = target.DirPath();
    std::error_code ec;
    fs::path real = fs::canonical(dirPart.empty() ? fs::path(".") : ToFileSystemPath(dirPart), ec);
    if (!ec)
    {
        walk.inside.push_back(std::move(real));
    }
    walk.Walk(dirPart, levels);
    return results.size();
}

std::size_t CFileUtilities::SimpleFindWithWildCard(const AString& folder, const AString& pattern,
                                                   std::vector<LongFileName>& results)
{
    return RecursiveFind(folder, pattern, results, 1, kFindFiles);
}
