// Runs the text path functions on arbitrary text and checks what must hold for any input: no
// crash, the shapes that tidying, normalising and slash conversion promise, and the round trip
// stored -> full -> stored for a path below one of the configured roots. The first byte picks
// a root and one of two ways the host may report its roots; the rest is the text (UTF-8).
#include "Assert.h"
#include "QLNFileUtility.h"
#include "RefApplication.h"
#include "RefManagers.h"
#include "RefProject.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace
{
constexpr std::size_t kMaxText = 400;

// The reference host with four roots, none a prefix of another, reported either plainly or
// with forward slashes and trailing separators.
struct Host
{
    refhost::RefApplication application;
    refhost::RefProject& project =
        application.AddProject(AString(L"fuzz"), AString(LR"(D:\Work\Proj)"));

    Host()
    {
        // Assertions are expected (no design manager); they must not flood the output.
        SetLogAssertFailures(false);
        Plain();
    }
    void Plain()
    {
        application.SetSysLibDirectory(AString(LR"(C:\Lib\Sys)"));
        application.SetUserLibDirectory(AString(LR"(C:\Lib\User)"));
        application.SetPersonalLibDirectory(AString(LR"(\\srv\home\me)"));
        project.SetDirectory(AString(LR"(D:\Work\Proj)"));
    }
    void Untidy()
    {
        application.SetSysLibDirectory(AString(L"c:/lib/sys//"));
        application.SetUserLibDirectory(AString(LR"(C:/Lib\User\)"));
        application.SetPersonalLibDirectory(AString(L"//srv/home/me/"));
        project.SetDirectory(AString(L"d:/work/proj/"));
    }
};

Host& TheHost()
{
    static Host host;
    return host;
}

[[noreturn]] void Fail(const char* what, const AString& input, const AString& output)
{
    std::fprintf(stderr, "%s\ninput:  %s\noutput: %s\n", what, input.ToUTF8().c_str(),
                 output.ToUTF8().c_str());
    std::abort();
}

void CheckTidy(const AString& text)
{
    const AString tidy = TidyFilePath(text);
    if (tidy.find(L'/') != AString::npos || tidy.size() > text.size() + 1)
    {
        Fail("tidy path keeps a slash or grew", text, tidy);
    }
    // A run of back slashes followed by another character is single, except a leading run,
    // which is double.
    for (std::size_t i = 0; i < tidy.size();)
    {
        if (tidy[i] != L'\\')
        {
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < tidy.size() && tidy[end] == L'\\')
        {
            ++end;
        }
        if (end < tidy.size() && end - i != (i == 0 ? 2u : 1u))
        {
            Fail("tidy path has a doubled separator", text, tidy);
        }
        i = end;
    }
}

void CheckNormalize(const AString& text)
{
    const AString normal = NormalizeFilePath(text);
    AString slashed(text);
    std::replace(slashed.begin(), slashed.end(), L'/', L'\\');
    if (normal.find(L'/') != AString::npos || normal.size() > text.size())
    {
        Fail("normalised path keeps a slash or grew", text, normal);
    }
    if (slashed.find(L"\\..") == AString::npos && normal != slashed)
    {
        Fail("normalised path changed without a parent step", text, normal);
    }
}

void CheckForwardSlashes(const AString& text)
{
    AString forward(text);
    ConvertBackSlashesToForwardSlashes(forward);
    if (forward.find(L'\\') != AString::npos || forward.find(L"//") != AString::npos)
    {
        Fail("forward-slashed path keeps a back slash or a double slash", text, forward);
    }
    auto withoutSeparators = [](AString path)
    {
        path.erase(std::remove_if(path.begin(), path.end(), IsPathSeparator), path.end());
        return path;
    };
    if (withoutSeparators(forward) != withoutSeparators(text))
    {
        Fail("forward-slashed path lost characters", text, forward);
    }
}

void CheckParse(const AString& text)
{
    AString rest;
    LibraryLocation loc = kNoLibLocation;
    const bool parsed = ParseFilePathVariables(text, rest, loc);
    if (parsed && (loc < kSysLib || loc > kProjectDir || !text.ends_with(rest) ||
                   (!rest.empty() && IsPathSeparator(rest.front()))))
    {
        Fail("stored path parsed into an impossible rest", text, rest);
    }
    if (!parsed && !rest.empty())
    {
        Fail("failed parse left a rest", text, rest);
    }
}

// Every conversion, with and without a design manager: only that they return.
void RunConversions(const AString& text, IDesignMgr* dmgr)
{
    for (IDesignMgr* manager : {dmgr, static_cast<IDesignMgr*>(nullptr)})
    {
        AString rest;
        LibraryLocation loc = kNoLibLocation;
        ParseFilePathWithoutVariables(text, rest, loc, manager);
        for (int l = -1; l <= 4; ++l)
        {
            CreateFullFilePath(text, static_cast<LibraryLocation>(l), manager);
            CreateFilePathWithVariables(text, static_cast<LibraryLocation>(l));
        }
        ConvertFilePathVariablesToFullPath(text, manager);
        const AString stored = ConvertFullPathToPathVariables(text, manager);
        if (stored != text && stored.front() != L'$')
        {
            Fail("a converted path does not start with a variable", text, stored);
        }
        merrowutility::ConvertPathToVariables(manager, text);
        AString dir;
        AString base;
        merrowutility::GetDirectoryAndBaseFileNameFromPath(text, dir, base);
    }
}

void CheckRoundTrip(const AString& text, LibraryLocation loc, IDesignMgr* dmgr)
{
    // The rest of a stored path has no leading separator; a library root alone does not
    // convert back (the root needs a separator after it), so its rest is not empty.
    const std::size_t start = text.find_first_not_of(L"\\/");
    const AString rest = start == AString::npos ? AString() : text.Mid(start);
    if (rest.empty() && loc != kProjectDir)
    {
        return;
    }
    const AString stored = CreateFilePathWithVariables(rest, loc);
    const AString full = ConvertFilePathVariablesToFullPath(stored, dmgr);
    const AString back = ConvertFullPathToPathVariables(full, dmgr);
    if (back != stored)
    {
        Fail("stored -> full -> stored changed the path", stored, back);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
    {
        return 0;
    }
    Host& host = TheHost();
    const std::uint8_t control = data[0];
    if ((control & 4) != 0)
    {
        host.Untidy();
    }
    else
    {
        host.Plain();
    }
    AString text =
        AString::FromUTF8(std::string_view(reinterpret_cast<const char*>(data + 1), size - 1));
    text.resize(std::min(text.size(), kMaxText));

    IDesignMgr* dmgr = &host.project.GetDesignMgr();
    CheckParse(text);
    CheckTidy(text);
    CheckNormalize(text);
    CheckForwardSlashes(text);
    RunConversions(text, dmgr);
    CheckRoundTrip(text, static_cast<LibraryLocation>(control & 3), dmgr);
    return 0;
}
