// Fuzz target of the composite value check. Any text (UTF-8, invalid sequences replaced) is
// checked against a few nested types: never a crash; the normalised text is braced; the check
// gives the same answer twice; and a text without brackets of its own normalises to a text
// that normalises to itself.
#include "Assert.h"
#include "PropAttributes.h"
#include "QLNParvaneUtils.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

using merrowstruct::DataTypeInfo;

namespace
{
void Require(bool condition, const char* what)
{
    if (!condition)
    {
        std::fprintf(stderr, "composite check property broken: %s\n", what);
        std::abort();
    }
}

DataTypeInfo Scalar(std::int32_t type)
{
    DataTypeInfo dti;
    dti.mName = L"e";
    dti.mType = type;
    return dti;
}

DataTypeInfo Array(const DataTypeInfo& element, std::uint32_t count)
{
    DataTypeInfo dti = Scalar(merrowenum::kARRAYType);
    dti.mSubElements.push_back(element);
    for (std::uint32_t i = 0; i < count; ++i)
    {
        dti.mIndices.push_back(i);
    }
    return dti;
}

DataTypeInfo Record(std::vector<DataTypeInfo> members)
{
    DataTypeInfo dti = Scalar(merrowenum::kRecordType);
    dti.mSubElements = std::move(members);
    return dti;
}

const std::vector<DataTypeInfo>& Types()
{
    static const std::vector<DataTypeInfo> types = []
    {
        const DataTypeInfo real = Scalar(merrowenum::kREALType);
        const DataTypeInfo time = Scalar(merrowenum::kTIMEType);
        const DataTypeInfo bit = Scalar(merrowenum::kBITType);
        DataTypeInfo text = Array(Scalar(merrowenum::kCHARType), 3);
        text.mType = merrowenum::kSTRINGType;
        return std::vector<DataTypeInfo>{
            Array(real, 4),
            Array(Array(time, 2), 3),
            Record({real, Array(bit, 2), Record({time, text, Array(Record({real, real}), 2)})}),
            Array(Record({Array(real, 2), Scalar(merrowenum::kENUMType)}), 2),
        };
    }();
    return types;
}

bool HasBracketOrNull(std::wstring_view text)
{
    return text.find_first_of(std::wstring_view(L"{}()\0", 5)) != std::wstring_view::npos;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool quiet = []
    {
        SetLogAssertFailures(false);
        return true;
    }();
    (void)quiet;

    const AString text =
        AString::FromUTF8(std::string_view(reinterpret_cast<const char*>(data), size));
    // The outer braces may be given; anything else that nests is left out of the fixed point.
    std::wstring_view inside(text);
    if (!inside.empty() && inside.front() == L'{')
    {
        inside.remove_prefix(1);
    }
    if (!inside.empty() && inside.back() == L'}')
    {
        inside.remove_suffix(1);
    }
    const bool plain = !HasBracketOrNull(inside);

    for (const DataTypeInfo& dti : Types())
    {
        AString normalized;
        const bool valid = ValidateComposite(dti, text, &normalized);
        if (text.empty())
        {
            Require(!valid && normalized.empty(), "an empty text is not valid and adds nothing");
            continue;
        }
        Require(normalized.size() >= 2 && normalized.front() == L'{' && normalized.back() == L'}',
                "the normalised text is braced");
        AString again;
        Require(ValidateComposite(dti, text, &again) == valid && again == normalized,
                "the same answer twice");
        Require(ValidateComposite(dti, text, nullptr) == valid, "the same answer without text");
        if (plain)
        {
            AString twice;
            ValidateComposite(dti, normalized, &twice);
            Require(twice == normalized, "a normalised text normalises to itself");
        }
    }
    return 0;
}
