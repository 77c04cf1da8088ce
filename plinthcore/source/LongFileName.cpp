#include "LongFileName.h"

#include "FileUtilities.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace
{
// Position just past the last separator of `text` (0 when there is none).
std::size_t NameStart(const AString& text)
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

bool ListingOrder(const LongFileName& a, const LongFileName& b)
{
    const AString nameA = a.NameWithExt();
    const AString nameB = b.NameWithExt();
    const int noCase = AString::CompareNoCase(nameA, nameB);
    return noCase != 0 ? noCase < 0 : nameA < nameB;
}
} // namespace

// The entries of one search, read when it starts.
struct LongFileName::Search
{
    std::vector<LongFileName> entries;
    std::size_t next = 0;
};

LongFileName::LongFileName() = default;

LongFileName::LongFileName(const AString& path) : mPath(path) {}

LongFileName::LongFileName(const LongFileName& other)
    : mPath(other.mPath), mIsFound(other.mIsFound), mIsFoundDirectory(other.mIsFoundDirectory)
{
}

LongFileName::LongFileName(LongFileName&& other) noexcept = default;

LongFileName& LongFileName::operator=(const LongFileName& other)
{
    if (this != &other)
    {
        mPath = other.mPath;
        mIsFound = other.mIsFound;
        mIsFoundDirectory = other.mIsFoundDirectory;
        mSearch.reset();
    }
    return *this;
}

LongFileName& LongFileName::operator=(LongFileName&& other) noexcept = default;

LongFileName::~LongFileName() = default;

AString LongFileName::DirPath() const
{
    return mPath.Left(NameStart(mPath));
}

AString LongFileName::NameWithExt() const
{
    return mPath.Mid(NameStart(mPath));
}

AString LongFileName::NameWOExt() const
{
    AString base;
    AString ext;
    CFileUtilities::SplitName(NameWithExt(), base, ext);
    return base;
}

AString LongFileName::Ext() const
{
    AString base;
    AString ext;
    CFileUtilities::SplitName(NameWithExt(), base, ext);
    return ext;
}

void LongFileName::MakeItDirectory()
{
    if (!mPath.empty() && !CFileUtilities::IsSeparator(mPath.back()))
    {
        mPath += L'\\';
    }
}

bool LongFileName::Exists() const
{
    if (mPath.empty())
    {
        return false;
    }
    std::error_code ec;
    return fs::exists(CFileUtilities::ToFileSystemPath(mPath), ec);
}

bool LongFileName::IsExistingDirectory() const
{
    if (mPath.empty())
    {
        return false;
    }
    std::error_code ec;
    return fs::is_directory(CFileUtilities::ToFileSystemPath(mPath), ec);
}

bool LongFileName::IsDirectory() const
{
    return mIsFound ? mIsFoundDirectory : IsExistingDirectory();
}

bool LongFileName::CreateDirectories() const
{
    // Trailing separators are dropped first: some library versions report an error for
    // "a/b/" even after creating it.
    std::size_t length = mPath.size();
    while (length > 1 && CFileUtilities::IsSeparator(mPath[length - 1]))
    {
        --length;
    }
    if (length == 0)
    {
        return false;
    }
    const fs::path folder = CFileUtilities::ToFileSystemPath(mPath.Left(length));
    std::error_code ec;
    fs::create_directories(folder, ec);
    return fs::is_directory(folder, ec);
}

bool LongFileName::FindFirst(LongFileName& found)
{
    mSearch = std::make_unique<Search>();
    const AString dirPart = DirPath();
    const AString pattern = NameWithExt();
    if (pattern.empty())
    {
        return false;
    }

    const fs::path folder =
        dirPart.empty() ? fs::path(".") : CFileUtilities::ToFileSystemPath(dirPart);
    std::error_code ec;
    fs::directory_iterator it(folder, fs::directory_options::skip_permission_denied, ec);
    // A read error part way through ends the listing with what was read so far.
    for (const fs::directory_iterator end; !ec && it != end; it.increment(ec))
    {
        const AString name = CFileUtilities::FromFileSystemPath(it->path().filename());
        if (!CFileUtilities::MatchFileName(name, pattern))
        {
            continue;
        }
        // A name holding a back slash (legal on this platform) cannot be told from a folder
        // separator later; it is reported as it is.
        LongFileName entry(dirPart + name);
        entry.mIsFound = true;
        std::error_code typeError;
        entry.mIsFoundDirectory = it->is_directory(typeError);
        mSearch->entries.push_back(std::move(entry));
    }
    std::sort(mSearch->entries.begin(), mSearch->entries.end(), ListingOrder);
    return FindNext(found);
}

bool LongFileName::FindNext(LongFileName& found)
{
    if (!mSearch || mSearch->next >= mSearch->entries.size())
    {
        return false;
    }
    found = mSearch->entries[mSearch->next++];
    return true;
}

void LongFileName::FindClose()
{
    mSearch.reset();
}
