#include "QLNParvaneUtils.h"

#include "Assert.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

using merrowstruct::DataTypeInfo;
using merrowstruct::DataTypeLeaf;

namespace
{

bool IsOlderArrayCode(std::int32_t type)
{
    return type == merrowenum::kLOGICVECTORType || type == merrowenum::kREALVECTORType ||
           type == merrowenum::kBITVECTORType;
}

// Reads up to as many unnamed values as `list` has items, stopping at the first that is
// missing or of another kind (a failed read does not move on, so nothing later would read).
template <typename T> void ReadList(const io::CBlock_func& list, std::vector<T>& values)
{
    list.ResetReadPosition();
    for (std::size_t left = list.GetItemCount(); left > 0; --left)
    {
        T value{};
        if (!list.ReadValue(value))
        {
            return;
        }
        values.push_back(std::move(value));
    }
}

template <typename T>
void WriteList(io::CBlock_func& block, std::wstring_view name, const std::vector<T>& values)
{
    if (values.empty())
    {
        return;
    }
    io::CBlock_func& list = block.AddBlock(name);
    for (const T& value : values)
    {
        list.AddValue(value);
    }
}

enum class ElementName
{
    kIndex,         // base[index]
    kUnconstrained, // base[-1]
    kBad
};

// Reads an element name of the older array form from its last character back: closing
// brackets ("]", "<", ">") are skipped, other characters gather as the index text, and the
// last "[" ends the base. A character other than a bracket before any closing bracket, no
// "[" at all, or an index text that is neither unsigned nor -1 make the name bad.
ElementName ScanElementName(const AString& name, AString& base, std::uint32_t& index)
{
    bool bracket = false;
    std::wstring reversedDigits;
    for (std::size_t pos = name.size(); pos-- > 0;)
    {
        const wchar_t c = name[pos];
        if (c == L']' || c == L'<' || c == L'>')
        {
            bracket = true;
            continue;
        }
        if (c != L'[')
        {
            reversedDigits.push_back(c);
            if (!bracket)
            {
                return ElementName::kBad;
            }
            continue;
        }
        base = name.Left(pos);
        const AString digits(reversedDigits.rbegin(), reversedDigits.rend());
        unsigned value = 0;
        int signedValue = 0;
        if (digits.IsNumber(value, 10))
        {
            index = value;
            return ElementName::kIndex;
        }
        if (digits.IsNumber(signedValue, 10) && signedValue == -1)
        {
            return ElementName::kUnconstrained;
        }
        return ElementName::kBad;
    }
    return ElementName::kBad;
}

// Converts the older array form, in which each element was a sub-element named like "d[3]",
// into one element type and the list of indices. Names that do not fit leave a record of the
// sub-elements.
void ConvertOlderArrayForm(DataTypeInfo& dti)
{
    AString baseName;
    DataTypeInfo elementType;
    bool allOk = true;
    bool unconstrained = false;
    for (std::size_t i = 0; i < dti.mSubElements.size(); ++i)
    {
        AString base;
        std::uint32_t index = 0;
        bool good = false;
        switch (ScanElementName(dti.mSubElements[i].mName, base, index))
        {
        case ElementName::kIndex:
            if (baseName.empty() || baseName.CompareNoCase(base) == 0)
            {
                if (baseName.empty())
                {
                    baseName = base;
                }
                dti.mIndices.push_back(index);
                good = true;
            }
            break;
        case ElementName::kUnconstrained:
            unconstrained = true;
            good = true;
            break;
        case ElementName::kBad:
            break;
        }
        if (i == 0)
        {
            elementType = dti.mSubElements[0];
        }
        if (!good)
        {
            PLINTH_ASSERT(0);
            dti.mType = merrowenum::kRecordType;
            dti.mIndices.clear();
            allOk = false;
            break;
        }
        if (unconstrained)
        {
            break;
        }
    }
    if (allOk)
    {
        dti.mSubElements.assign(1, std::move(elementType));
    }
    if (unconstrained)
    {
        dti.mIsUnconstrained = true;
        dti.mIndices.clear();
    }
}

} // namespace

bool WriteDataTypeInfo(io::CBlock_func& block, const DataTypeInfo& dti)
{
    block.AddValue(dti.mName);
    std::int32_t type = dti.mType;
    if (IsOlderArrayCode(type))
    {
        PLINTH_ASSERT(dti.mType == merrowenum::kARRAYType);
        type = merrowenum::kARRAYType;
    }
    block.AddValue(type);
    block.AddValue(dti.mTypeName);
    WriteList(block, L"PhyTypes", dti.mPhyTypes);
    WriteList(block, L"PkgNames", dti.mPkgNames);
    if (!dti.mEnumItems.empty())
    {
        io::CBlock_func& items = block.AddBlock(L"EnumItems");
        for (const auto& [value, literal] : dti.mEnumItems)
        {
            items.AddBlock(literal).AddValue(value);
        }
    }
    if (!dti.mSubElements.empty())
    {
        io::CBlock_func& elements = block.AddBlock(L"SubElements");
        for (const DataTypeInfo& element : dti.mSubElements)
        {
            io::CBlock_func& info = elements.AddBlock(L"Info");
            // A block the tree refused (too deep) is a sink that takes nothing: going on
            // into it would only walk the rest of the type for nothing.
            if (info.GetDepth() == block.GetDepth() + 2)
            {
                WriteDataTypeInfo(info, element);
            }
        }
    }
    WriteList(block, L"Indices", dti.mIndices);
    block.AddNamedValue(L"IsUnconstrained", dti.mIsUnconstrained);
    if (dti.mIsBusPort)
    {
        block.AddNamedValue(L"IsBusPort", true);
    }
    return true;
}

bool ReadDataTypeInfo(io::CBlock_func& block, DataTypeInfo& dti)
{
    // Set by every optional query, as the framework's presence manipulator does.
    bool found = false;

    block.ResetReadPosition();
    block.ReadValue(dti.mName);
    block.ReadValue(dti.mType);
    if (IsOlderArrayCode(dti.mType))
    {
        dti.mType = merrowenum::kARRAYType;
    }
    block.ReadValue(dti.mTypeName);

    io::CBlock_func* list = block.FindBlock(L"PhyTypes");
    found = list != nullptr;
    if (found)
    {
        ReadList(*list, dti.mPhyTypes);
    }
    list = block.FindBlock(L"PkgNames");
    found = list != nullptr;
    if (found)
    {
        ReadList(*list, dti.mPkgNames);
    }

    io::CBlock_func* items = block.FindBlock(L"EnumItems");
    found = items != nullptr;
    if (found)
    {
        for (const io::CBlock_item item : items->Items())
        {
            const io::CBlock_func* literal = item.GetBlock();
            if (literal == nullptr)
            {
                continue;
            }
            literal->ResetReadPosition();
            std::int32_t value = 0;
            found = literal->ReadValue(value);
            PLINTH_ASSERT(found);
            if (found)
            {
                dti.mEnumItems[value] = literal->GetName();
            }
        }
    }

    io::CBlock_func* elements = block.FindBlock(L"SubElements");
    found = elements != nullptr;
    if (found)
    {
        for (const io::CBlock_item item : elements->Items())
        {
            if (io::CBlock_func* info = item.GetBlock())
            {
                DataTypeInfo element;
                if (ReadDataTypeInfo(*info, element))
                {
                    dti.mSubElements.push_back(std::move(element));
                }
            }
        }
    }

    list = block.FindBlock(L"Indices");
    found = list != nullptr;
    if (found)
    {
        ReadList(*list, dti.mIndices);
    }

    found = block.GetNamedValue(L"IsUnconstrained", dti.mIsUnconstrained);
    if (!found)
    {
        // Older files carry the key misspelt.
        found = block.GetNamedValue(L"InUnconstrained", dti.mIsUnconstrained);
    }
    if (!found && parvaneutils::IsDataTypeInfoAnArray(dti))
    {
        ConvertOlderArrayForm(dti);
    }

    found = block.GetNamedValue(L"IsBusPort", dti.mIsBusPort);

    if (dti.mType != merrowenum::kARRAYType && dti.mType != merrowenum::kRecordType)
    {
        return true;
    }
    return PLINTH_ASSERT(!dti.mSubElements.empty());
}

ECHDataTypes GetNodeDataType(const DataTypeInfo& dti)
{
    switch (dti.mType)
    {
    case merrowenum::kREALType:
    case merrowenum::kTIMEType:
        return kECHReal;
    case merrowenum::kBOOLEANType:
        return kECHBoolean;
    case merrowenum::kBITType:
        return kECHBit;
    case merrowenum::kCHARType:
        return kECHChar;
    case merrowenum::kINTEGERType:
        return kECHInteger;
    case merrowenum::kARRAYType:
    case merrowenum::kLOGICVECTORType:
    case merrowenum::kREALVECTORType:
    case merrowenum::kBITVECTORType:
        return kECHArray;
    case merrowenum::kSTRINGType:
        return kECHString;
    case merrowenum::kRecordType:
        return kECHRecord;
    case merrowenum::kENUMType:
        return kECHEnum;
    case merrowenum::kSTDLOGICType:
        return kECHStdLogic;
    default:
        PLINTH_ASSERT(!"unknown type - ??");
        return kECHReal;
    }
}

namespace parvaneutils
{

bool IsDataTypeInfoAnArray(const DataTypeInfo& dti)
{
    return dti.mType == merrowenum::kARRAYType || dti.mType == merrowenum::kSTRINGType ||
           IsOlderArrayCode(dti.mType);
}

bool IsDataTypeInfoASchematicBus(const DataTypeInfo& dti)
{
    return dti.mType == merrowenum::kRecordType && dti.mIsBusPort;
}

void GetDataTypeInfoLeafNames(const DataTypeInfo& dti, const AString& name,
                              std::vector<DataTypeLeaf>& leaves)
{
    if (dti.mType == merrowenum::kRecordType && !dti.mIsBusPort)
    {
        for (const DataTypeInfo& member : dti.mSubElements)
        {
            AString leafName = name;
            leafName += L'.';
            leafName += member.mName;
            // Only member records are walked: an array-typed member stays one leaf.
            if (member.mType == merrowenum::kRecordType)
            {
                GetDataTypeInfoLeafNames(member, leafName, leaves);
            }
            else
            {
                leaves.emplace_back(std::move(leafName), member);
            }
        }
        return;
    }
    if (IsDataTypeInfoASchematicBus(dti))
    {
        PLINTH_ASSERT(!dti.mSubElements.empty());
        const std::size_t count = std::min(dti.mSubElements.size(), dti.mIndices.size());
        for (std::size_t i = 0; i < count; ++i)
        {
            const DataTypeInfo& member = dti.mSubElements[i];
            if (!member.mSubElements.empty())
            {
                PLINTH_ASSERT(!"Composite elements are not supported in bus-ports");
                continue;
            }
            leaves.emplace_back(AString::Formatted(L"%s[%u]", member.mName, dti.mIndices[i]),
                                member);
        }
        return;
    }
    if (dti.mType == merrowenum::kSTRINGType || !IsDataTypeInfoAnArray(dti))
    {
        leaves.emplace_back(name, dti);
        return;
    }

    PLINTH_ASSERT(!dti.mSubElements.empty());
    const DataTypeInfo none;
    const DataTypeInfo& element = dti.mSubElements.empty() ? none : dti.mSubElements.front();
    const bool compound =
        IsDataTypeInfoAnArray(element) || element.mType == merrowenum::kRecordType;
    for (const std::uint32_t index : dti.mIndices)
    {
        AString leafName = AString::Formatted(L"%s[%u]", name, index);
        if (compound)
        {
            GetDataTypeInfoLeafNames(element, leafName, leaves);
        }
        else
        {
            leaves.emplace_back(std::move(leafName), element);
        }
    }
}

} // namespace parvaneutils
