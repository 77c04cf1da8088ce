// PropAttributes: the circuit attributes that every generic, signal, quantity and menu property
// carries beside the framework's property state: the data type of its quantity, its direction
// on a pin, when it is calculated, whether it has and shows a pin, whether it is displayed,
// swept and output by default. An abstract base: each property class supplies its terminal
// domain, its unit type and the type codes it accepts. Also here: the words of the codes in
// project files and scripts, the unit and the composite-value check of a data type, and the
// lookup of an output node inside a model terminal.
#pragma once

#include "AString.h"
#include "Block.h"
#include "DataTypeInfo.h"
#include "MerrowEnums.h"
#include "QuillonExport.h"
#include "TerminalData.h"
#include "Units.h"

#include <set>
#include <vector>

class IModelCompiler;
class IPropClientFactory;
class OptiVariable;

class QLN_API PropAttributes
{
public:
    virtual merrowenum::TerminalDomain GetDomain() const = 0;
    virtual Units::UnitType GetUnitType() const = 0;
    // Stores `type` as the data type's code when the property takes it; false otherwise.
    virtual bool SetType(int type) = 0;
    virtual ~PropAttributes();

    // Reads the form Write writes. The data type is read when the block's first item is a
    // sub-block; then the direction word, which must be there (else io::kReadFailed and nothing
    // more is read) and is taken as it is ("DontCare" reads as 3); then, each only when
    // present, the calculation word, has pin, show pin, default output, the text, display and
    // sweep. The bools go through one buffer cleared once, so a missing sweep value takes the
    // last bool read. Sweep is kept only for direction In.
    //   block { Info { ... } "In" "BeforeAnalogSolver" true false false "" true true }
    virtual io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* factory);
    // Appends, in order: a sub-block "Info" with the data type (WriteDataTypeInfo), the
    // direction word, the calculation word, has pin, show pin, default output, the text,
    // display, sweep. The inst SDB flag is not written. Returns true.
    virtual bool Write(io::CBlock_func& block) const;

    // The data type's code, and whether it is real (0) or time (14).
    int GetType() const { return mDataTypeInfo.mType; }
    bool IsRealType() const;
    merrowstruct::DataTypeInfo GetDataTypeInfo() const { return mDataTypeInfo; }
    void SetDataTypeInfo(const merrowstruct::DataTypeInfo& dti) { mDataTypeInfo = dti; }

    int GetDirection() const { return mDirection; }
    // Stores In (0), Out (1) or InOut (2); any other value fails the assertion
    // "(dir >= merrowenum::kDirectionIn) && (dir <= merrowenum::kDirectionInOut)" and is not
    // stored.
    void SetDirection(int dir);
    merrowenum::CalculationSequence GetCalculationSequence() const { return mCalculationSequence; }
    void SetCalculationSequence(merrowenum::CalculationSequence sequence)
    {
        mCalculationSequence = sequence;
    }

    bool GetHasPin() const { return mHasPin; }
    void SetHasPin(bool hasPin) { mHasPin = hasPin; }
    bool GetShowPin() const { return mShowPin; }
    void SetShowPin(bool showPin) { mShowPin = showPin; }
    bool GetDisplay() const { return mDisplay; }
    void SetDisplay(bool display) { mDisplay = display; }
    bool GetSweep() const { return mSweep; }
    void SetSweep(bool sweep) { mSweep = sweep; }
    bool GetDefaultSimOutput() const { return mDefaultSimOutput; }
    void SetDefaultSimOutput(bool output) { mDefaultSimOutput = output; }
    // Copied with the attributes, never stored in the block form.
    bool GetInstSDB() const { return mInstSDB; }
    void SetInstSDB(bool instSDB) { mInstSDB = instSDB; }
    const AString& GetTextFromScriptArgInfo() const { return mTextFromScriptArgInfo; }

    // SetType(type), then SetDirection(dir); true when the type was taken and the direction
    // stored is `dir` (so a direction out of 0 to 2 gives false).
    bool Initialize(int type, int dir);
    // Copies every field of `other` (inst SDB and the text included) unless it is this.
    void CopyAttributes(const PropAttributes& other);
    // GetTypeForTermAttrsFromInfo of the own data type.
    int GetTypeForTermAttrs() const;

    // The word of type codes 0 to 10 and 14: "Real", "Boolean", "Bit", "Char", "Integer",
    // "Array", "File", "String", "Record", "Enum", "Std_Logic", "Time". Any other code fails
    // the assertion "((type >= merrowenum::kMinSignalType) && (type <= merrowenum::kMaxSignalType))
    // || (type == merrowenum::kTIMEType)" and gives "Unknown type".
    static AString GetPropDataTypeString(int type);
    // The code of a type word, ignoring case, searching the 15 words in code order; codes 11
    // to 13 have the empty word. No match asserts "0" and gives 0.
    //   "time" => 14;   "" => 11;   "Vector" => 0 (after the assertion)
    static int GetPropStringType(const AString& text);
    // "In", "Out", "InOut", "DontCare" for 0 to 3; any other code asserts "0" and gives
    // "InOut".
    static AString GetPropDirString(int dir);
    // The code of a direction word, ignoring case; no match asserts "0" and gives 2.
    //   "inout" => 2;   "DONTCARE" => 3;   "Both" => 2 (after the assertion)
    static int GetPropStringDir(const AString& text);
    // "BeforeAnalogSolver", "BeforeStateGraph", "AfterStateGraph", "DontCareWhen" for 0 to
    // 3; the empty text for any other value.
    static AString GetCalcWhenString(merrowenum::CalculationSequence sequence);
    // The sequence of a calculation word, ignoring case; no match asserts "0" and gives 3.
    static merrowenum::CalculationSequence GetCalcWhenType(const AString& text);
    // The four calculation words.
    static std::set<AString> GetCalcWhenStrings();
    // The type code of terminal attributes for a data type: its own code unless it is an
    // array with elements, whose element type decides: real and time 12, bit 13, char 7,
    // std_logic 11, integer the array's own code; enumerations by the element's type name,
    // ignoring case: std_ulogic and std_logic 11, BIT 13, CHARACTER 7, others (BOOLEAN
    // included) the array's own code. An array without elements other than a string asserts
    // "Bad array property - no subelements!!"; elements of another type (Boolean, array,
    // file, string, record, ...) assert "Bad array property - subelement type not
    // supported!!"; both give the array's own code.
    static int GetTypeForTermAttrsFromInfo(const merrowstruct::DataTypeInfo& dti);

protected:
    PropAttributes();
    PropAttributes(const PropAttributes& other);
    PropAttributes& operator=(const PropAttributes& other);

    void SetTextFromScriptArgInfo(const AString& text) { mTextFromScriptArgInfo = text; }

private:
    merrowstruct::DataTypeInfo mDataTypeInfo;
    int mDirection = merrowenum::kDirectionIn;
    bool mHasPin = false;
    bool mShowPin = false;
    bool mDisplay = false;
    bool mSweep = false;
    bool mDefaultSimOutput = false;
    bool mInstSDB = false;
    merrowenum::CalculationSequence mCalculationSequence = merrowenum::kBeforeAnalogSolver;
    AString mTextFromScriptArgInfo;
};

// The unit of a data type as the model compiler knows it: asks it about the declared type
// name (as type and as base type) and the first physical type, in any library ("0"), for no
// component in particular. Units::kNoUnit (90) when it knows none, or without a compiler.
QLN_API Units::FullUnitType GetFutFromDti(IModelCompiler* compiler,
                                          const merrowstruct::DataTypeInfo& dti);

// Checks a composite value text against an array (its indices count the elements) or a record
// (its members do) and appends the normalised text to `normalized` (when given): "{", the
// elements joined by ",", "}". The elements are the text inside the outer braces (one "{" and
// one "}" dropped where present), split at commas outside parentheses and braces; missing or
// empty ones become "_Empty", extra ones are dropped. A real or time element must be a valid
// value text (Value::IsValidText), else the result is false and "_Empty" stands in; other
// scalars are taken as written; array and record elements are checked in turn. An array
// without its element type takes real elements. Another type copies `strValue` into
// `normalized` and gives false; an empty text fails the assertion "!strValue.empty()" and
// gives false.
//   array of 3 reals: {1,2}      => true,  {1,2,_Empty}
//                     {1,2*,3}   => false, {1,_Empty,3}
//                     {f(1,2),3} => true,  {f(1,2),3,_Empty}
//   record { a: real, b: array of 2 reals }: {1,{2,3}} => true, {1,{2,3}}
QLN_API bool ValidateComposite(const merrowstruct::DataTypeInfo& dti, const AString& strValue,
                               AString* normalized);

// Whether a sweep may be offered for a property's variable: never for an output, a variable
// that cannot take part in experiments (OptiVariable::CanTakePartInExperiment) or a type that
// is not real; for an in-out the property's sweep flag; otherwise (an input) when the variable
// is included in none of the parametric, optimisation, tuning and statistical experiments
// (id::Experiment 2, 3, 4, 6).
QLN_API bool EnableSweep(const PropAttributes& attrs, const OptiVariable& var);

// Whether an input's variable must be swept: it can take part in experiments and is included
// in a parametric, optimisation, tuning or statistical one (id::Experiment 2, 3, 4, 6).
// Always false for any other direction.
QLN_API bool IsSweepRequired(const PropAttributes& attrs, const OptiVariable& var);

// Resolves an output `path` inside the model terminal named `terminalName` (ignoring case).
// The path is split at ".", "[", "]", "<" and ">" by the VHDL token scanner; each further token
// walks one step: into the record member named by the current token (case-sensitive when the
// first token is an extended identifier, else ignoring case; when there is no such member the
// type stays and the walk goes on with the next token), or into the array element whose
// index, as decimal text, is the current token (no such index changes nothing). After a
// scalar only one token may follow, and it is not used. The last token taken names the
// quantity, which picks the unit from the nature code reached (the codes below 0):
//   -1 "V" 68 else 666;   -2 "MV" 816;   -3 and -10 "P" 192 else 520;   -4 "S" 37 else 138;
//   -5 "V" 138 else 200;  -6 "PHI" 52 else 148;   -7 "OMEGA" 148 else 216;
//   -8 "luminous_intensity" 448;   -9 "T" 79
// where a code without "else" leaves `unit` alone when the name differs, as do other codes.
// On success `dti` holds the type reached, with its code set to 0, and the result is true.
// False for an unknown terminal (`dti` and `unit` untouched), for a path that goes on past a
// scalar (assertion "(i + 1) == td.Count()") and for one that ends on an array or record
// (assertion "0"); those two leave in `dti` the type where the walk stopped. An array that does
// not have exactly one element type asserts "dti.mSubElements.size() == 1".
//   terminal p of nature -1, path "v"           => true, unit 68
//   terminal b, record { x: nature -4 }, "x.s"  => true, unit 37
//   terminal a, array of nature -1, "[3].i"     => true, unit 666 (index 3 exists)
QLN_API bool
GetModelNodeInfoForOutputFromTerminals(const AString& terminalName, const AString& path,
                                       const std::vector<merrowstruct::TerminalData>& terminals,
                                       merrowstruct::DataTypeInfo& dti, Units::FullUnitType& unit);
