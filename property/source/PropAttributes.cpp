#include "PropAttributes.h"

#include "Assert.h"
#include "IModelCompiler.h"
#include "OptiVariable.h"
#include "QLNParvaneUtils.h"
#include "VHDLTokenData.h"
#include "Value.h"
#include "VariableAttributes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <utility>

using merrowstruct::DataTypeInfo;

namespace
{

// The words of the type codes, indexed by code; 11 to 13 have none.
constexpr std::array<const wchar_t*, 15> kTypeWords = {
    L"Real",   L"Boolean", L"Bit",       L"Char", L"Integer", L"Array", L"File", L"String",
    L"Record", L"Enum",    L"Std_Logic", L"",     L"",        L"",      L"Time"};

// The words of the directions, indexed by code; only 0 to 2 can be set.
constexpr std::array<const wchar_t*, 4> kDirectionWords = {L"In", L"Out", L"InOut", L"DontCare"};

constexpr std::array<const wchar_t*, 4> kCalcWhenWords = {
    L"BeforeAnalogSolver", L"BeforeStateGraph", L"AfterStateGraph", L"DontCareWhen"};

// The index of the first word equal to `text` ignoring case, or -1.
template <std::size_t N>
int FindWord(const std::array<const wchar_t*, N>& words, const AString& text)
{
    for (std::size_t i = 0; i < N; ++i)
    {
        if (AString::EqualNoCase(words[i], text))
        {
            return static_cast<int>(i);
        }
    }
    return -1;
}

} // namespace

PropAttributes::PropAttributes() = default;

PropAttributes::PropAttributes(const PropAttributes& other) : PropAttributes()
{
    *this = other;
}

PropAttributes& PropAttributes::operator=(const PropAttributes& other)
{
    if (this != &other)
    {
        CopyAttributes(other);
    }
    return *this;
}

PropAttributes::~PropAttributes() = default;

bool PropAttributes::IsRealType() const
{
    return GetType() == merrowenum::kREALType || GetType() == merrowenum::kTIMEType;
}

void PropAttributes::SetDirection(int dir)
{
    if (PLINTH_ASSERT((dir >= merrowenum::kDirectionIn) && (dir <= merrowenum::kDirectionInOut)))
    {
        mDirection = dir;
    }
}

bool PropAttributes::Initialize(int type, int dir)
{
    const bool typeTaken = SetType(type);
    SetDirection(dir);
    return typeTaken && mDirection == dir;
}

void PropAttributes::CopyAttributes(const PropAttributes& other)
{
    if (&other == this)
    {
        return;
    }
    mTextFromScriptArgInfo = other.mTextFromScriptArgInfo;
    mDataTypeInfo = other.mDataTypeInfo;
    mDirection = other.mDirection;
    mHasPin = other.mHasPin;
    mShowPin = other.mShowPin;
    mDisplay = other.mDisplay;
    mSweep = other.mSweep;
    mDefaultSimOutput = other.mDefaultSimOutput;
    mCalculationSequence = other.mCalculationSequence;
    mInstSDB = other.mInstSDB;
}

int PropAttributes::GetTypeForTermAttrs() const
{
    return GetTypeForTermAttrsFromInfo(mDataTypeInfo);
}

io::ReadError PropAttributes::Read(const io::CBlock_func& block, IPropClientFactory* /*factory*/)
{
    block.ResetReadPosition();
    if (io::CBlock_func* info = block.GetItem(0).GetBlock())
    {
        DataTypeInfo dti;
        ReadDataTypeInfo(*info, dti);
        mDataTypeInfo = std::move(dti);
    }
    // Positional reads step over sub-blocks, so the values that follow are found alike
    // whether the data type came first or not.
    AString word;
    if (!block.ReadValue(word))
    {
        return io::kReadFailed;
    }
    mDirection = GetPropStringDir(word);

    if (block.ReadValue(word))
    {
        mCalculationSequence = GetCalcWhenType(word);
    }
    bool value = false; // one buffer for every bool, cleared only here
    if (block.ReadValue(value))
    {
        mHasPin = value;
    }
    if (block.ReadValue(value))
    {
        mShowPin = value;
    }
    if (block.ReadValue(value))
    {
        mDefaultSimOutput = value;
    }
    if (block.ReadValue(word))
    {
        mTextFromScriptArgInfo = word;
    }
    if (block.ReadValue(value))
    {
        mDisplay = value;
    }
    block.ReadValue(value);
    // Sweeping is an input's business: any other direction reads as not swept.
    mSweep = value && mDirection == merrowenum::kDirectionIn;
    return io::kNoError;
}

bool PropAttributes::Write(io::CBlock_func& block) const
{
    // WriteDataTypeInfo always succeeds, so the sub-block is always kept.
    WriteDataTypeInfo(block.AddBlock(L"Info"), mDataTypeInfo);
    block.AddValue(GetPropDirString(mDirection));
    block.AddValue(GetCalcWhenString(mCalculationSequence));
    block.AddValue(mHasPin);
    block.AddValue(mShowPin);
    block.AddValue(mDefaultSimOutput);
    block.AddValue(mTextFromScriptArgInfo);
    block.AddValue(mDisplay);
    block.AddValue(mSweep);
    return true;
}

AString PropAttributes::GetPropDataTypeString(int type)
{
    if (!PLINTH_ASSERT(
            ((type >= merrowenum::kMinSignalType) && (type <= merrowenum::kMaxSignalType)) ||
            (type == merrowenum::kTIMEType)))
    {
        return AString(L"Unknown type");
    }
    return AString(kTypeWords[static_cast<std::size_t>(type)]);
}

int PropAttributes::GetPropStringType(const AString& text)
{
    const int type = FindWord(kTypeWords, text);
    if (type < 0)
    {
        PLINTH_ASSERT(0);
        return merrowenum::kREALType;
    }
    return type;
}

AString PropAttributes::GetPropDirString(int dir)
{
    if (dir < 0 || dir >= static_cast<int>(kDirectionWords.size()))
    {
        PLINTH_ASSERT(0);
        return AString(kDirectionWords[merrowenum::kDirectionInOut]);
    }
    return AString(kDirectionWords[static_cast<std::size_t>(dir)]);
}

int PropAttributes::GetPropStringDir(const AString& text)
{
    const int dir = FindWord(kDirectionWords, text);
    if (dir < 0)
    {
        PLINTH_ASSERT(0);
        return merrowenum::kDirectionInOut;
    }
    return dir;
}

AString PropAttributes::GetCalcWhenString(merrowenum::CalculationSequence sequence)
{
    const auto index = static_cast<std::size_t>(sequence);
    return index < kCalcWhenWords.size() ? AString(kCalcWhenWords[index]) : AString();
}

merrowenum::CalculationSequence PropAttributes::GetCalcWhenType(const AString& text)
{
    const int sequence = FindWord(kCalcWhenWords, text);
    if (sequence < 0)
    {
        PLINTH_ASSERT(0);
        return merrowenum::kDontCareWhen;
    }
    return static_cast<merrowenum::CalculationSequence>(sequence);
}

std::set<AString> PropAttributes::GetCalcWhenStrings()
{
    return std::set<AString>(std::begin(kCalcWhenWords), std::end(kCalcWhenWords));
}

int PropAttributes::GetTypeForTermAttrsFromInfo(const DataTypeInfo& dti)
{
    if (!parvaneutils::IsDataTypeInfoAnArray(dti))
    {
        return dti.mType;
    }
    if (dti.mSubElements.empty())
    {
        if (dti.mType != merrowenum::kSTRINGType)
        {
            PLINTH_ASSERT(!"Bad array property - no subelements!!");
        }
        return dti.mType;
    }
    const DataTypeInfo& element = dti.mSubElements.front();
    switch (element.mType)
    {
    case merrowenum::kREALType:
    case merrowenum::kTIMEType:
        return merrowenum::kREALVECTORType;
    case merrowenum::kBITType:
        return merrowenum::kBITVECTORType;
    case merrowenum::kCHARType:
        return merrowenum::kSTRINGType;
    case merrowenum::kINTEGERType:
        return dti.mType;
    case merrowenum::kSTDLOGICType:
        return merrowenum::kLOGICVECTORType;
    case merrowenum::kENUMType:
        if (element.mTypeName.CompareNoCase(L"std_ulogic") == 0 ||
            element.mTypeName.CompareNoCase(L"std_logic") == 0)
        {
            return merrowenum::kLOGICVECTORType;
        }
        if (element.mTypeName.CompareNoCase(L"BOOLEAN") == 0)
        {
            return dti.mType;
        }
        if (element.mTypeName.CompareNoCase(L"BIT") == 0)
        {
            return merrowenum::kBITVECTORType;
        }
        if (element.mTypeName.CompareNoCase(L"CHARACTER") == 0)
        {
            return merrowenum::kSTRINGType;
        }
        return dti.mType;
    default:
        PLINTH_ASSERT(!"Bad array property - subelement type not supported!!");
        return dti.mType;
    }
}

Units::FullUnitType GetFutFromDti(IModelCompiler* compiler, const DataTypeInfo& dti)
{
    Units::FullUnitType unit = Units::kNoUnit;
    if (compiler == nullptr)
    {
        return unit;
    }
    const AString physicalType = dti.mPhyTypes.empty() ? AString() : dti.mPhyTypes.front();
    AString unitName;
    compiler->GetUnitOfType(nullptr, AString(L"0"), dti.mTypeName, dti.mTypeName, physicalType,
                            unitName, unit);
    return unit;
}

namespace
{

// What a composite value holds for an element that it leaves out.
const wchar_t* const kEmptyElement = L"_Empty";

// Whether the variable is set up for, and included in, experiments of `kind`.
bool IsIncluded(const OptiVariable& var, id::Experiment kind)
{
    const VariableAttributes* attributes = var.GetAttributes(kind);
    return attributes != nullptr && attributes->IsInclude();
}

// The kinds of experiment that sweep decisions look at.
static_assert(id::kParametric == 2 && id::kOptimization == 3 && id::kTuning == 4 &&
              id::kStatistical == 6);

} // namespace

bool ValidateComposite(const DataTypeInfo& dti, const AString& strValue, AString* normalized)
{
    if (!PLINTH_ASSERT(!strValue.empty()))
    {
        return false;
    }
    const bool isArray = parvaneutils::IsDataTypeInfoAnArray(dti);
    std::size_t count = 0;
    if (isArray)
    {
        count = dti.mIndices.size();
    }
    else if (dti.mType == merrowenum::kRecordType)
    {
        count = dti.mSubElements.size();
    }
    else
    {
        if (normalized != nullptr)
        {
            *normalized = strValue;
        }
        return false;
    }

    AString inner;
    std::vector<AString> captures;
    if (strValue.Match(L"{*}", captures, true))
    {
        inner = std::move(captures.front());
    }
    else
    {
        const std::size_t first = strValue.front() == L'{' ? 1 : 0;
        std::size_t last = strValue.size();
        if (last > first && strValue.back() == L'}')
        {
            --last;
        }
        inner = strValue.Mid(first, last - first);
    }

    // Commas inside parentheses and braces belong to the element's own text.
    static const std::map<wchar_t, wchar_t> kNesting = {{L'(', L')'}, {L'{', L'}'}};
    const VHDLTokenData tokens(inner, L",", 0, &kNesting);
    const DataTypeInfo none;
    const DataTypeInfo& arrayElement =
        !isArray || dti.mSubElements.empty() ? none : dti.mSubElements.front();

    bool result = true;
    AString joined;
    for (std::size_t i = 0; i < count; ++i)
    {
        AString token = static_cast<int>(i) < tokens.Count()
                            ? AString(tokens[static_cast<unsigned>(i)])
                            : AString();
        if (token.empty())
        {
            token = kEmptyElement;
        }
        const DataTypeInfo& element = isArray ? arrayElement : dti.mSubElements[i];
        if (i > 0)
        {
            joined += L',';
        }
        if (parvaneutils::IsDataTypeInfoAnArray(element) ||
            element.mType == merrowenum::kRecordType)
        {
            AString child;
            result = ValidateComposite(element, token, &child) && result;
            joined += child;
        }
        else if ((element.mType == merrowenum::kREALType ||
                  element.mType == merrowenum::kTIMEType) &&
                 token != kEmptyElement && !Value::IsValidText(token))
        {
            result = false;
            joined += kEmptyElement;
        }
        else
        {
            joined += token;
        }
    }
    if (normalized != nullptr)
    {
        *normalized += L'{';
        *normalized += joined;
        *normalized += L'}';
    }
    return result;
}

bool EnableSweep(const PropAttributes& attrs, const OptiVariable& var)
{
    if (attrs.GetDirection() == merrowenum::kDirectionOut || !var.CanTakePartInExperiment() ||
        !attrs.IsRealType())
    {
        return false;
    }
    if (attrs.GetDirection() == merrowenum::kDirectionInOut)
    {
        return attrs.GetSweep();
    }
    if (IsIncluded(var, id::kParametric) || IsIncluded(var, id::kOptimization) ||
        IsIncluded(var, id::kTuning))
    {
        return false;
    }
    return !IsIncluded(var, id::kStatistical);
}

bool IsSweepRequired(const PropAttributes& attrs, const OptiVariable& var)
{
    if (attrs.GetDirection() != merrowenum::kDirectionIn || !var.CanTakePartInExperiment())
    {
        return false;
    }
    return IsIncluded(var, id::kParametric) || IsIncluded(var, id::kOptimization) ||
           IsIncluded(var, id::kTuning) || IsIncluded(var, id::kStatistical);
}

namespace
{

// The unit of the quantity `name` of a nature; the codes are the framework's units.
void ChooseUnit(std::int32_t nature, const AString& name, Units::FullUnitType& unit)
{
    const auto pick = [&name, &unit](const wchar_t* quantity, int equal, int otherwise)
    {
        if (name.CompareNoCase(quantity) == 0)
        {
            unit = static_cast<Units::FullUnitType>(equal);
        }
        else if (otherwise >= 0)
        {
            unit = static_cast<Units::FullUnitType>(otherwise);
        }
    };
    constexpr int kUnchanged = -1;
    switch (nature)
    {
    case -10:
    case -3:
        pick(L"P", 192, 520);
        break;
    case -9:
        pick(L"T", 79, kUnchanged);
        break;
    case -8:
        pick(L"luminous_intensity", 448, kUnchanged);
        break;
    case -7:
        pick(L"OMEGA", 148, 216);
        break;
    case -6:
        pick(L"PHI", 52, 148);
        break;
    case -5:
        pick(L"V", 138, 200);
        break;
    case -4:
        pick(L"S", 37, 138);
        break;
    case -2:
        pick(L"MV", 816, kUnchanged);
        break;
    case -1:
        pick(L"V", 68, 666);
        break;
    default:
        break;
    }
}

// The member of the record `dti` named `name`, or null.
const DataTypeInfo* FindMember(const DataTypeInfo& dti, const AString& name, bool caseSensitive)
{
    for (const DataTypeInfo& member : dti.mSubElements)
    {
        if (caseSensitive ? member.mName == name : member.mName.CompareNoCase(name) == 0)
        {
            return &member;
        }
    }
    return nullptr;
}

// The element type of the array `dti` when one of its indices, written as a decimal, is
// `name`; else null. An array without its element type gives `none`.
const DataTypeInfo* FindElement(const DataTypeInfo& dti, const AString& name,
                                const DataTypeInfo& none)
{
    PLINTH_ASSERT(dti.mSubElements.size() == 1);
    for (const std::uint32_t index : dti.mIndices)
    {
        if (AString::Formatted(L"%d", index) == name)
        {
            return dti.mSubElements.empty() ? &none : &dti.mSubElements.front();
        }
    }
    return nullptr;
}

} // namespace

bool GetModelNodeInfoForOutputFromTerminals(
    const AString& terminalName, const AString& path,
    const std::vector<merrowstruct::TerminalData>& terminals, DataTypeInfo& dti,
    Units::FullUnitType& unit)
{
    const merrowstruct::TerminalData* terminal = nullptr;
    for (const merrowstruct::TerminalData& candidate : terminals)
    {
        if (candidate.mName.CompareNoCase(terminalName) == 0)
        {
            terminal = &candidate;
            break;
        }
    }
    if (terminal == nullptr)
    {
        return false;
    }

    const VHDLTokenData td(path, L".[<>]", 1, nullptr);
    const bool caseSensitive = td.IsExtended(0);
    // The walk keeps a pointer into the terminal's type and copies only the type it ends on.
    const DataTypeInfo none;
    const DataTypeInfo* current = &terminal->mDataTypeInfo;
    AString name = td.Count() > 0 ? AString(td[0]) : AString();
    bool stoppedPastScalar = false;
    for (int i = 1; i < td.Count(); ++i)
    {
        const DataTypeInfo* next = nullptr;
        if (current->mType == merrowenum::kRecordType)
        {
            next = FindMember(*current, name, caseSensitive);
        }
        else if (parvaneutils::IsDataTypeInfoAnArray(*current))
        {
            next = FindElement(*current, name, none);
        }
        else if (!PLINTH_ASSERT((i + 1) == td.Count()))
        {
            stoppedPastScalar = true;
            break;
        }
        if (next != nullptr)
        {
            current = next;
            name = td[static_cast<unsigned>(i)];
        }
        else if (current->mType == merrowenum::kRecordType)
        {
            // A member that is not there does not stop the walk: the type stays and the next
            // token is looked for. An index that is not there changes nothing at all.
            name = td[static_cast<unsigned>(i)];
        }
    }
    dti = *current;
    if (stoppedPastScalar)
    {
        return false;
    }
    if (dti.mType == merrowenum::kARRAYType || dti.mType == merrowenum::kRecordType)
    {
        PLINTH_ASSERT(0);
        return false;
    }
    ChooseUnit(dti.mType, name, unit);
    dti.mType = merrowenum::kREALType;
    return true;
}
