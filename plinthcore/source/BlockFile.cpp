#include "BlockFile.h"

#include "AtomicFile.h"
#include "BlockWriter.h"
#include "FileUtilities.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace io
{
namespace
{
bool Fail(BlockTextError* error, const std::string& reason)
{
    if (error != nullptr)
    {
        error->line = 0;
        error->column = 0;
        error->reason = AString::FromUTF8(reason);
    }
    return false;
}

// The whole file, up to `limit` bytes.
bool ReadBytes(const AString& path, std::size_t limit, std::string& bytes, BlockTextError* error)
{
    const std::filesystem::path file = CFileUtilities::ToFileSystemPath(path);
    struct Closer
    {
        void operator()(std::FILE* f) const { std::fclose(f); }
    };
    const std::unique_ptr<std::FILE, Closer> in(std::fopen(file.c_str(), "rb"));
    if (!in)
    {
        return Fail(error, std::string("cannot open the file: ") + std::strerror(errno));
    }
    bytes.clear();
    char buffer[1 << 16];
    while (true)
    {
        const std::size_t got = std::fread(buffer, 1, sizeof(buffer), in.get());
        if (got != 0)
        {
            if (bytes.size() + got > limit)
            {
                return Fail(error, "the file is longer than the limit of " + std::to_string(limit) +
                                       " bytes");
            }
            bytes.append(buffer, got);
        }
        if (got < sizeof(buffer))
        {
            if (std::ferror(in.get()) != 0)
            {
                return Fail(error, std::string("cannot read the file: ") + std::strerror(errno));
            }
            return true;
        }
    }
}
} // namespace

bool ReadBlockFile(const AString& path, CBlock_func& root, BlockTextError* error,
                   const BlockReadLimits& limits)
{
    std::string bytes;
    if (!ReadBytes(path, std::min(limits.maxInputBytes, kMaxBlockInputBytes), bytes, error))
    {
        return false;
    }
    return ReadBlockText(bytes, root, error, limits);
}

bool WriteBlockFile(const AString& path, const CBlock& root, AString* error)
{
    if (root.HasError())
    {
        if (error != nullptr)
        {
            *error = L"the tree lost items while it was built: " + root.GetError();
        }
        return false;
    }
    return WriteFileAtomically(path, WriteBlockText(root), error);
}

bool CheckBlockFile(const AString& path, BlockTextError* error)
{
    CBlock_func root;
    return ReadBlockFile(path, root, error);
}

bool FormatBlockFile(const AString& path, std::string& text, BlockTextError* error)
{
    CBlock_func root;
    if (!ReadBlockFile(path, root, error))
    {
        return false;
    }
    text = WriteBlockText(root);
    return true;
}

bool ReformatBlockFile(const AString& path, bool* changed, BlockTextError* error)
{
    if (changed != nullptr)
    {
        *changed = false;
    }
    std::string original;
    if (!ReadBytes(path, kMaxBlockInputBytes, original, error))
    {
        return false;
    }
    CBlock_func root;
    if (!ReadBlockText(original, root, error))
    {
        return false;
    }
    const std::string text = WriteBlockText(root);
    if (text == original)
    {
        return true;
    }
    AString why;
    if (!WriteFileAtomically(path, text, &why))
    {
        if (error != nullptr)
        {
            error->line = 0;
            error->column = 0;
            error->reason = why;
        }
        return false;
    }
    if (changed != nullptr)
    {
        *changed = true;
    }
    return true;
}

bool GetBlockFileStats(const AString& path, BlockStats& stats, BlockTextError* error)
{
    CBlock_func root;
    if (!ReadBlockFile(path, root, error))
    {
        return false;
    }
    stats = GetBlockStats(root);
    return true;
}

} // namespace io
