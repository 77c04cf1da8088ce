// Value texts on arbitrary input: no crash, no hang, and the relations between the syntax
// check, the value objects and their texts. Input: one byte choosing the default unit, then
// the text in UTF-8. Expressions are evaluated in a scope with a few variables (one of them
// circular) and instance references resolve to shared numbers, so that holding and letting go
// of them runs too.
#include "Assert.h"
#include "Expression.h"
#include "FloatValue.h"
#include "InstanceReference.h"
#include "MessageManager.h"
#include "StringValue.h"
#include "Value.h"
#include "ValueBase.h"
#include "Variable.h"
#include "VariableScope.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

namespace
{
void Check(bool condition, const char* what, const AString& text)
{
    if (!condition)
    {
        std::fprintf(stderr, "ValueTextFuzzer: %s fails for \"%s\"\n", what, text.ToUTF8().c_str());
        std::abort();
    }
}

class FuzzScope : public IVariableScope
{
public:
    FuzzScope()
    {
        Add(L"R1", L"10k");
        Add(L"$vdd", L"3.3V");
        Add(L"a", L"b+1");
        Add(L"b", L"a*2");
        Add(L"t", L"\"text\"");
        Add(L"w", L"R1*2u");
    }
    const Variable* FindVariable(std::wstring_view name) const override
    {
        const auto found = mVariables.find(name);
        return found == mVariables.end() ? nullptr : &found->second;
    }

private:
    void Add(const wchar_t* name, const wchar_t* text)
    {
        mVariables.emplace(AString(name), Variable(name, Value(AString(text), Units::kNoUnit)));
    }
    std::map<AString, Variable, AString::NoCaseLess> mVariables;
};

// What the host's resolver answers: a number that shows itself as the reference, as the
// parameter-value objects do.
class ReferenceValue : public FloatValue
{
public:
    explicit ReferenceValue(AString text) : FloatValue(2.0), mText(std::move(text)) {}
    ReferenceValue(const ReferenceValue& other)
        : IReceiver(other), FloatValue(other), mText(other.mText)
    {
    }
    AString GetValueText() const override { return mText; }
    ValueBase* CloneValueBase() const override { return new ReferenceValue(*this); }
    bool IsEqual(const ValueBase& other) const override
    {
        const auto* reference = dynamic_cast<const ReferenceValue*>(&other);
        return reference != nullptr && reference->mText.CompareNoCase(mText) == 0;
    }
    bool IsConstant() const override { return false; }

private:
    AString mText;
};

constexpr Units::FullUnitType kUnits[] = {Units::kNoUnit, Units::kOhm, Units::kFarad, Units::kVolt,
                                          Units::kDegreeCelsius};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool quiet = []
    {
        SetIgnoreAllAsserts(true);
        SetLogAssertFailures(false);
        return true;
    }();
    (void)quiet;
    static FuzzScope scope;
    static InstanceReferenceResolverGuard resolver(
        [](const AString& instance, const AString& parameter) -> ValueBase* {
            return instance.size() % 2 == 0 ? new ReferenceValue(instance + L"." + parameter)
                                            : nullptr;
        });
    if (size == 0 || size > 4096)
    {
        return 0;
    }
    const Units::FullUnitType unit = kUnits[data[0] % std::size(kUnits)];
    const AString text =
        AString::FromUTF8(std::string_view(reinterpret_cast<const char*>(data + 1), size - 1));

    MessageQueueRestorer dropMessages;
    VariableScopeGuard variables(&scope);
    ValueError error;
    const bool valid = Value::CheckText(text, error);
    Check(valid == Value::IsValidText(text), "CheckText and IsValidText agree", text);
    Check(valid != error.IsError(), "an invalid text has an error", text);
    Check(valid || error.GetPosition() <= text.size(), "the error lies in the text", text);

    ValueError created;
    Value value(Value::CreateValueBase(text, unit, created));
    Check(valid == !value.IsEmpty(), "IsValidText accepts exactly what CreateValueBase makes",
          text);
    if (value.IsEmpty())
    {
        Check(created.GetKind() == error.GetKind(), "both report the same problem", text);
        return 0;
    }
    ValueBase& base = *value.GetValueBase();
    (void)base.GetValue();
    (void)base.GetUnits();
    (void)base.IsConstant();

    // The value's text reads back as an equal value.
    const AString shown = base.GetValueText();
    Check(Value::IsValidText(shown), "the value text is a value text", text);
    std::unique_ptr<ValueBase> again(Value::CreateValueBase(shown, unit));
    Check(again != nullptr && again->IsEqual(base), "the value text reads back equal", text);

    if (auto* expression = dynamic_cast<Expression*>(&base))
    {
        // The re-spelled text means the same.
        const AString regenerated = expression->GetRegeneratedText();
        std::unique_ptr<ValueBase> respelled(Value::CreateValueBase(regenerated, unit));
        Check(respelled != nullptr, "the re-spelled text is valid", text);
        Check(respelled->IsEqual(base) || dynamic_cast<Expression*>(respelled.get()) == nullptr,
              "the re-spelled text reads back equal", text);
        double first = 0.0;
        double second = 0.0;
        ValueError firstError;
        ValueError secondError;
        const bool evaluated = expression->Evaluate(first, firstError);
        const bool evaluatedAgain = EvaluateValueBase(*respelled, text, second, secondError);
        Check(evaluated == evaluatedAgain, "the re-spelled text evaluates alike", text);
        Check(!evaluated || first == second || (first != first && second != second),
              "the re-spelled text has the same value", text);
        std::unique_ptr<ValueBase> copy(expression->CloneValueBase());
        Check(copy->IsEqual(base), "a copy is equal", text);
    }
    return 0;
}
