#include "AtomicFile.h"

#include "FileUtilities.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#if defined(_WIN32)
#include <fstream>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace io
{
namespace
{
namespace fs = std::filesystem;

bool Fail(AString* error, const std::string& reason)
{
    if (error != nullptr)
    {
        *error = AString::FromUTF8(reason);
    }
    return false;
}

std::string Quoted(const fs::path& path)
{
    std::string text = "'";
    text += path.generic_string();
    text += "'";
    return text;
}

// The file to replace: `path` itself, or the file that a symbolic link names.
fs::path ResolveTarget(const fs::path& path)
{
    std::error_code ignored;
    fs::path target = path;
    for (int hops = 0; hops < 40 && fs::is_symlink(target, ignored); ++hops)
    {
        const fs::path link = fs::read_symlink(target, ignored);
        if (ignored)
        {
            break;
        }
        target = link.is_absolute() ? link : target.parent_path() / link;
    }
    return target;
}

// A file name no other save uses at the same time.
std::string TemporaryName(const fs::path& target, unsigned attempt)
{
    static unsigned counter = 0;
    const auto ticks = static_cast<unsigned long long>(
        std::chrono::steady_clock::now().time_since_epoch().count());
#if defined(_WIN32)
    const unsigned long long process = 0;
#else
    const auto process = static_cast<unsigned long long>(::getpid());
#endif
    // Cut long names so that the temporary name stays within the usual 255-byte limit.
    std::string name = ".";
    name += target.filename().string().substr(0, 100);
    name += ".tmp";
    name += std::to_string(process);
    name += '-';
    name += std::to_string((ticks ^ (++counter * 2654435761ull)) % 1000000007ull);
    name += '-';
    name += std::to_string(attempt);
    return name;
}
} // namespace

#if defined(_WIN32)

// Without POSIX file descriptors: the temporary file is written and closed, then renamed
// (which replaces the target).
bool WriteFileAtomically(const AString& path, std::string_view bytes, AString* error)
{
    const fs::path target = ResolveTarget(CFileUtilities::ToFileSystemPath(path));
    if (target.filename().empty())
    {
        return Fail(error, "the path names no file");
    }
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const fs::path temporary = folder / TemporaryName(target, 0);
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out)
        {
            return Fail(error, "cannot create a temporary file in " + Quoted(folder));
        }
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.flush();
        if (!out)
        {
            out.close();
            std::error_code ignored;
            fs::remove(temporary, ignored);
            return Fail(error, "cannot write " + Quoted(temporary));
        }
    }
    std::error_code renamed;
    fs::rename(temporary, target, renamed);
    if (renamed)
    {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        return Fail(error, "cannot replace " + Quoted(target) + ": " + renamed.message());
    }
    return true;
}

#else

bool WriteFileAtomically(const AString& path, std::string_view bytes, AString* error)
{
    const fs::path target = ResolveTarget(CFileUtilities::ToFileSystemPath(path));
    if (target.empty() || !target.has_filename())
    {
        return Fail(error, "the path " + Quoted(target) + " names no file");
    }
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");

    struct stat existing = {};
    const bool replacing = ::stat(target.c_str(), &existing) == 0;
    if (replacing && S_ISDIR(existing.st_mode))
    {
        return Fail(error, "cannot save " + Quoted(target) + ": it is a folder");
    }

    // A new name for every attempt; O_EXCL makes sure no other file is overwritten.
    fs::path temporary;
    int fd = -1;
    for (unsigned attempt = 0; attempt < 100 && fd < 0; ++attempt)
    {
        temporary = folder / TemporaryName(target, attempt);
        fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST)
        {
            break;
        }
    }
    if (fd < 0)
    {
        return Fail(error, "cannot create a temporary file in " + Quoted(folder) + ": " +
                               std::strerror(errno));
    }

    // From here on a failure removes the temporary file and leaves the target alone.
    auto abandon = [&](const std::string& reason)
    {
        const int saved = errno;
        if (fd >= 0)
        {
            ::close(fd);
        }
        ::unlink(temporary.c_str());
        return Fail(error, reason + ": " + std::strerror(saved));
    };

    if (replacing && ::fchmod(fd, existing.st_mode & 07777) != 0)
    {
        return abandon("cannot give the new file the permissions of " + Quoted(target));
    }
    const char* data = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0)
    {
        const ::ssize_t written = ::write(fd, data, left);
        if (written < 0)
        {
            if (errno == EINTR)
            {
                continue;
            }
            return abandon("cannot write " + Quoted(temporary));
        }
        data += written;
        left -= static_cast<std::size_t>(written);
    }
    if (::fsync(fd) != 0)
    {
        return abandon("cannot flush " + Quoted(temporary) + " to the disk");
    }
    const int closing = fd;
    fd = -1;
    if (::close(closing) != 0)
    {
        return abandon("cannot close " + Quoted(temporary));
    }
    if (::rename(temporary.c_str(), target.c_str()) != 0)
    {
        return abandon("cannot replace " + Quoted(target));
    }
    // Make the rename itself durable; the new content is in place whatever this reports.
    const int folderFd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folderFd >= 0)
    {
        ::fsync(folderFd);
        ::close(folderFd);
    }
    return true;
}

#endif

} // namespace io
