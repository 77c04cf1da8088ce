#include "PropList.h"

#include "Assert.h"
#include "BlockWriter.h"
#include "FloatValue.h"
#include "MenuProp.h"
#include "Msg.h"
#include "NumberProp.h"
#include "PropertyBlockTesting.h"
#include "PropertyFactory.h"
#include "SingleVisitReceiver.h"
#include "TextProp.h"
#include "ValueProp.h"
#include "Variable.h"
#include "VariableProp.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

namespace
{
std::vector<AString> Names(const PropList& list)
{
    std::vector<AString> names;
    for (const Property* prop : list.GetProps())
    {
        names.push_back(prop->PropertyName());
    }
    return names;
}

// A number that notes every message delivered to it.
class ListeningValue : public FloatValue
{
public:
    explicit ListeningValue(double value) : FloatValue(value) {}
    void ReceiveMsg(Msg& msg) override
    {
        if (msg.MarkVisited(this))
        {
            ++mDelivered;
            msg.Forward(*this);
        }
    }
    int mDelivered = 0;
};

// A factory whose text properties refuse to exist when their text is "drop".
class DroppingFactory : public PropertyFactory
{
public:
    class DroppingText : public TextProp
    {
    public:
        io::ReadError Read(const io::CBlock_func& block, IPropClientFactory* clients) override
        {
            const io::ReadError error = TextProp::Read(block, clients);
            return error == io::kNoError && GetText() == L"drop" ? io::kDeleteObject : error;
        }
        Property* CloneProp() const override { return new DroppingText(*this); }
    };
    Property* CreateProperty(int type) const override
    {
        return type == kTextPropType ? new DroppingText : PropertyFactory::CreateProperty(type);
    }
    using PropertyFactory::CreateProperty;
};
} // namespace

TEST(PropListTest, OwnsOrdersAndFindsIgnoringCase)
{
    PropList list;
    auto* label = new TextProp(L"Label", L"R1", {});
    EXPECT_TRUE(list.AddProp(label));
    EXPECT_TRUE(list.AddProp(new TextProp(L"label", L"second", {})));
    EXPECT_TRUE(list.InsertProp(0, new NumberProp(L"N", 1, true, Units::kNoUnit, {})));
    EXPECT_TRUE(list.InsertProp(99, new MenuProp(L"M", {}, L"a,b", 0)));
    EXPECT_FALSE(list.AddProp(nullptr));
    EXPECT_EQ(Names(list), (std::vector<AString>{L"N", L"Label", L"label", L"M"}));
    EXPECT_EQ(list.FindProp(L"LABEL"), label); // the first of two
    EXPECT_EQ(list.FindPropIndex(L"m"), 3);
    EXPECT_EQ(list.FindProp(L"none"), nullptr);
    EXPECT_EQ(label->GetPropList(), &list);

    PropList other;
    {
        AssertCapture capture; // a property belongs to one list
        EXPECT_FALSE(other.AddProp(label));
        EXPECT_EQ(capture.Texts(), (std::vector<std::string>{"prop->GetPropList() == nullptr"}));
    }
    std::unique_ptr<Property> detached(list.DetachProp(label));
    EXPECT_EQ(detached->GetPropList(), nullptr);
    EXPECT_EQ(list.DetachProp(label), nullptr);
    EXPECT_TRUE(other.AddProp(detached.release()));
    EXPECT_TRUE(list.RemoveProp(L"LABEL"));
    EXPECT_FALSE(list.RemoveProp(L"LABEL"));
    EXPECT_EQ(Names(list), (std::vector<AString>{L"N", L"M"}));
    EXPECT_EQ(list.GetProp(2), nullptr);

    PropList copy(list); // deep
    ASSERT_EQ(copy.GetCount(), 2u);
    EXPECT_NE(copy.GetProp(0), list.GetProp(0));
    EXPECT_EQ(copy.GetProp(0)->GetPropList(), &copy);
    copy = other;
    EXPECT_EQ(Names(copy), (std::vector<AString>{L"Label"}));
    const PropList& same = copy;
    copy = same; // assigning a list to itself keeps it
    EXPECT_EQ(copy.GetCount(), 1u);
}

TEST(PropListTest, IsAVariableScopeWithAParent)
{
    PropList design;
    design.AddProp(new VariableProp(L"vdd", Value(5.0), {}));
    PropList params;
    params.SetParentScope(&design);
    params.AddProp(new TextProp(L"R", L"not a variable", {}));
    params.AddProp(new VariableProp(L"R", Value(L"1k", Units::kNoUnit), {}));
    auto* current = new ValueProp(L"I", {});
    current->ChangeValue(L"VDD/r");
    params.AddProp(current);
    ASSERT_NE(params.FindVariable(L"r"), nullptr);
    EXPECT_EQ(params.FindVariable(L"r")->GetName(), L"R");
    EXPECT_EQ(params.FindVariable(L"Vdd")->GetName(), L"vdd");
    EXPECT_EQ(params.FindVariable(L"I"), nullptr); // a value property has no variable
    EXPECT_DOUBLE_EQ(current->GetValue(), 0.005);

    design.SetParentScope(&params); // a loop ends the search
    EXPECT_EQ(params.FindVariable(L"nowhere"), nullptr);
}

TEST(PropListTest, MessagesReachEachSharedValueOnce)
{
    auto* shared = new ListeningValue(2.0);
    Value holder(shared);
    PropList list;
    list.AddProp(new ValueProp(L"a", holder, {}));
    list.AddProp(new ValueProp(L"b", holder, {}));
    auto* variable = new VariableProp(L"c", holder, {});
    list.AddProp(variable);
    list.AddProp(new TextProp(L"t", L"", {}));
    Msg msg(0x76616F68);
    list.SendMsg(msg);
    EXPECT_EQ(shared->mDelivered, 1);
    EXPECT_TRUE(msg.HasVisited(variable));
    EXPECT_EQ(msg.GetVisitedCount(), 5u); // the list, three properties, the value
}

TEST(PropListTest, BlockFormRoundTripsThroughTheFactory)
{
    PropList list;
    auto* r = new VariableProp(L"R", {}, Units::kOhm);
    r->ChangeValue(L"10k");
    list.AddProp(r);
    list.AddProp(new TextProp(L"Label", L"R1", {kPropFlagDisplayed}));
    list.AddProp(new MenuProp(L"Model", {}, L"Low,High", 1));
    list.AddProp(new NumberProp(L"Count", 3, true, Units::kNoUnit, {}));
    io::CBlock_func block(L"Params");
    ASSERT_TRUE(list.Write(block));
    const std::string text = io::WriteBlockText(block);
    PropertyFactory factory;
    PropList read;
    read.AddProp(new TextProp(L"old", L"", {}));
    ASSERT_EQ(read.Read(proptest::ParseBlock(text), factory, nullptr), io::kNoError);
    EXPECT_EQ(Names(read), (std::vector<AString>{L"R", L"Label", L"Model", L"Count"}));
    EXPECT_EQ(read.GetProp(0)->GetPropList(), &read);
    io::CBlock_func again(L"Params");
    read.Write(again);
    EXPECT_EQ(io::WriteBlockText(again), text);

    // Damage anywhere leaves the list as it was.
    const std::string before = io::WriteBlockText(again);
    int failures = 0;
    for (const io::CBlock_func& damaged : proptest::DamagedCopies(proptest::ParseBlock(text)))
    {
        if (read.Read(damaged, factory, nullptr) != io::kNoError)
        {
            ++failures;
            io::CBlock_func now(L"Params");
            read.Write(now);
            EXPECT_EQ(io::WriteBlockText(now), before);
        }
        else
        {
            read.Read(proptest::ParseBlock(text), factory, nullptr);
        }
    }
    EXPECT_GT(failures, 0);
    io::CBlock_func unknown(L"Params");
    unknown.AddBlock(L"Prop").AddNamedValue(L"Type", 39999);
    EXPECT_EQ(read.Read(unknown, factory, nullptr), io::kReadFailed);
}

TEST(PropListTest, PropertiesThatRefuseToExistAreLeftOut)
{
    PropList list;
    list.AddProp(new TextProp(L"keep", L"yes", {}));
    list.AddProp(new TextProp(L"gone", L"drop", {}));
    io::CBlock_func block(L"Params");
    list.Write(block);
    DroppingFactory factory;
    PropList read;
    ASSERT_EQ(read.Read(block, factory, nullptr), io::kNoError);
    EXPECT_EQ(Names(read), (std::vector<AString>{L"keep"}));
}

TEST(PropListTest, ValuesReadThroughTheBaseClassWhateverTheProperty)
{
    PropList list;
    list.AddProp(new VariableProp(L"w", Value(L"2", Units::kNoUnit), {}));
    auto* value = new ValueProp(L"v", {});
    value->ChangeValue(L"w*3");
    list.AddProp(value);
    list.AddProp(new NumberProp(L"n", 2.5, true, Units::kNoUnit, {}));
    list.AddProp(new TextProp(L"t", L"7", {}));
    struct Case
    {
        const wchar_t* name;
        double value;
        bool hasValueObject;
    };
    const Case cases[] = {{L"w", 2, true}, {L"v", 6, true}, {L"n", 2.5, false}, {L"t", 0, false}};
    for (const Case& c : cases)
    {
        const Property* prop = list.FindProp(c.name);
        ASSERT_NE(prop, nullptr);
        EXPECT_EQ(prop->GetValue(), c.value);
        EXPECT_EQ(prop->GetValueBase() != nullptr, c.hasValueObject);
    }
}
