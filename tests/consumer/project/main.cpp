// Calls the installed libraries: exits 0 when both answer as documented.
#include "AString.h"
#include "QuillonVersion.h"

#include <cstdio>
#include <cstring>
#include <vector>

int main()
{
    const char* version = GetQuillonVersion();
    if (version == nullptr || std::strcmp(version, QLN_EXPECTED_VERSION) != 0)
    {
        std::fprintf(stderr, "GetQuillonVersion() = %s, expected %s\n",
                     version ? version : "(null)", QLN_EXPECTED_VERSION);
        return 1;
    }

    const AString name(L"Data[7]");
    std::vector<AString> captures;
    if (name.CompareNoCase(L"DATA[7]") != 0 || !name.Match(L"*[*]", captures, true) ||
        captures != std::vector<AString>{L"Data", L"7"} || name.ToUTF8() != "Data[7]")
    {
        std::fprintf(stderr, "AString answered wrongly for %s\n", name.ToUTF8().c_str());
        return 1;
    }
    std::printf("Quillon %s\n", version);
    return 0;
}
