#include "Property.h"

#include "IMerrowCommand.h"
#include "PropVisitor.h"
#include "PropertyBlockTesting.h"
#include "ScriptArgInfo.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace
{
// A host's own property class: a whole number, with nothing but the framework's defaults.
class CountProp : public Property
{
public:
    CountProp() = default;
    CountProp(const AString& name, int count) : Property(name, {}), mCount(count) {}
    int GetPropType() const override { return 40001; }
    AString PropertyValue() const override { return AString(std::to_wstring(mCount)); }
    using Property::ChangeValue;
    bool ChangeValue(const AString& text) override { return text.IsNumber(mCount); }
    Property* CloneProp() const override { return new CountProp(*this); }
    void Accept(PropVisitor&) override {}
    void Accept(ConstPropVisitor&) const override {}
    int mCount = 0;
};

class RecordingCommand : public IMerrowCommand
{
public:
    AString GetCommandName() const override { return L"Edit"; }
    void PropertyUpdated(const Property& prop, const IPropServer*, const PropFlags& flags) override
    {
        mUpdated.push_back(&prop);
        mFlags = flags;
    }
    std::vector<const Property*> mUpdated;
    PropFlags mFlags;
};
} // namespace

TEST(PropertyTest, DefaultChangesGoThroughTheText)
{
    CountProp prop(L"N", 1);
    EXPECT_TRUE(prop.ChangeValue(7.0));
    EXPECT_EQ(prop.mCount, 7);
    EXPECT_FALSE(prop.ChangeValue(7.5)); // "7.5" is no whole number
    EXPECT_TRUE(prop.ChangeValue(AComplex<double>(3, 0)));
    EXPECT_FALSE(prop.ChangeValue(AComplex<double>(3, 1)));
    EXPECT_EQ(prop.mCount, 3);
    CountProp other(L"M", 12);
    EXPECT_TRUE(prop.ChangeValue(other));
    EXPECT_EQ(prop.mCount, 12);
    EXPECT_FALSE(prop.HasUnits());
    EXPECT_FALSE(prop.SetPropertyName(L""));
    EXPECT_TRUE(prop.SetPropertyName(L"Count"));
    std::unique_ptr<Property> instance(prop.CopyToInstance());
    EXPECT_EQ(instance->PropertyValue(), L"12");
}

TEST(PropertyTest, MatchLevelsAndCopies)
{
    CountProp a(L"N", 1);
    CountProp b(L"n", 1);
    EXPECT_EQ(a.MatchProp(b), kPropExactMatch);
    b.SetFlag(kPropFlagReadOnly, true);
    EXPECT_EQ(a.MatchProp(b), kPropValueMatch);
    b.mCount = 2;
    EXPECT_EQ(a.MatchProp(b), kPropNameMatch);
    b.SetPropertyName(L"x");
    EXPECT_EQ(a.MatchProp(b), kPropTypeMatch);
    a.CopyProp(b);
    EXPECT_EQ(a.PropertyName(), L"x");
    EXPECT_TRUE(a.HasFlag(kPropFlagReadOnly));
    EXPECT_TRUE(a.ChangeProp(b, {kPropFlagHidden}));
    EXPECT_EQ(a.mCount, 2);
    EXPECT_EQ(a.GetFlags(), PropFlags{kPropFlagHidden});
}

TEST(PropertyTest, ScriptNameAndFlags)
{
    CountProp prop(L"N", 1);
    prop.SetFlag(kPropFlagDisplayed, true);
    ScriptArgInfo out;
    prop.GetScriptArguments(out, PropChange{PropChange::kValue});
    EXPECT_EQ(out.GetCount(), 0u);
    prop.GetScriptArguments(out, PropChange{PropChange::kAll});
    int bits = 0;
    ASSERT_TRUE(out.GetInt(L"Flags", bits));
    EXPECT_EQ(bits, 1 << kPropFlagDisplayed);

    struct Case
    {
        std::function<void(ScriptArgInfo&)> fill;
        bool ok;
        std::vector<PropChange::Kind> changes;
    };
    const Case cases[] = {
        {[](ScriptArgInfo& a) { a.SetString(L"Name", L"M"); }, true, {PropChange::kName}},
        {[](ScriptArgInfo& a) { a.SetString(L"Name", L"N"); }, true, {}},
        {[](ScriptArgInfo& a) { a.SetString(L"Name", L""); }, false, {}},
        {[](ScriptArgInfo& a) { a.SetInt(L"Name", 3); }, false, {}},
        {[](ScriptArgInfo& a) { a.SetInt(L"Flags", 1); }, true, {PropChange::kFlags}},
        {[](ScriptArgInfo& a) { a.SetString(L"Flags", L"1"); }, false, {}},
    };
    for (const Case& c : cases)
    {
        CountProp target(L"N", 1);
        ScriptArgInfo in;
        c.fill(in);
        PropChange change;
        EXPECT_EQ(target.AssignFromScriptArguments(in, change), c.ok);
        PropChange expected;
        for (PropChange::Kind kind : c.changes)
        {
            expected.Add(kind);
        }
        EXPECT_TRUE(change == expected);
    }
}

TEST(PropertyTest, UpdatesReportToTheCommand)
{
    CountProp prop(L"N", 1);
    RecordingCommand command;
    prop.NotifyUpdate(&command, nullptr, {kPropFlagDisplayed});
    prop.NotifyUpdate(nullptr, nullptr, {}); // no command: nothing to tell
    ASSERT_EQ(command.mUpdated.size(), 1u);
    EXPECT_EQ(command.mUpdated[0], &prop);
    EXPECT_EQ(command.mFlags, PropFlags{kPropFlagDisplayed});
}

TEST(PropertyTest, DefaultBlockFormsCarryTheValueText)
{
    CountProp prop(L"N", 42);
    prop.SetFlag(kPropFlagTunable, true);
    EXPECT_EQ(proptest::BlockText(prop), "Prop { \"N\" 256 \"42\" }\n");
    EXPECT_EQ(proptest::BlockText(prop, true), "Prop { \"N\" 40001 256 \"42\" }\n");
    CountProp fresh;
    proptest::ExpectRoundTrip(prop, fresh);
    CountProp neutral;
    proptest::ExpectNeutralRoundTrip(prop, neutral);
    CountProp target(L"T", 5);
    EXPECT_GT(proptest::ExpectDamageLeavesPropertyAlone(prop, target), 0);
    io::CBlock_func refused(L"Prop"); // a value the class refuses fails the read
    refused.AddValue(L"N");
    refused.AddValue(0);
    refused.AddValue(L"many");
    EXPECT_EQ(target.Read(refused, nullptr), io::kReadFailed);
    EXPECT_EQ(target.PropertyName(), L"T");
    EXPECT_EQ(target.mCount, 5);
}
