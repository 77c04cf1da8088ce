#include "PropVisitor.h"

#include "ButtonProp.h"
#include "MenuProp.h"
#include "NumberProp.h"
#include "PropList.h"
#include "TextProp.h"
#include "ValueProp.h"
#include "VariableProp.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
class Recorder : public PropVisitor
{
public:
    void VisitValueProp(ValueProp& p) override { Note("value", p); }
    void VisitVariableProp(VariableProp& p) override { Note("variable", p); }
    void VisitMenuProp(MenuProp& p) override { Note("menu", p); }
    void VisitTextProp(TextProp& p) override { Note("text", p); }
    void VisitButtonProp(ButtonProp& p) override { Note("button", p); }
    void VisitNumberProp(NumberProp& p) override { Note("number", p); }
    std::vector<std::string> mSeen;

private:
    void Note(const char* kind, Property& p)
    {
        mSeen.push_back(std::string(kind) + ":" + p.PropertyName().ToUTF8());
    }
};

class ConstRecorder : public ConstPropVisitor
{
public:
    void VisitValueProp(const ValueProp&) override { mSeen.push_back("value"); }
    void VisitVariableProp(const VariableProp&) override { mSeen.push_back("variable"); }
    void VisitMenuProp(const MenuProp&) override { mSeen.push_back("menu"); }
    void VisitTextProp(const TextProp&) override { mSeen.push_back("text"); }
    void VisitButtonProp(const ButtonProp&) override { mSeen.push_back("button"); }
    void VisitNumberProp(const NumberProp&) override { mSeen.push_back("number"); }
    std::vector<std::string> mSeen;
};

// Handles text properties only; the other classes reach the defaults, which do nothing.
class TextsOnly : public PropVisitor
{
public:
    void VisitTextProp(TextProp& p) override { p.SetText(p.GetText() + L"!"); }
};

PropList MakeList()
{
    PropList list;
    list.AddProp(new ValueProp(L"v", {}));
    list.AddProp(new VariableProp(L"w", {}));
    list.AddProp(new MenuProp(L"m", {}));
    list.AddProp(new TextProp(L"t", L"hi", {}));
    list.AddProp(new ButtonProp(L"b", {}));
    list.AddProp(new NumberProp(L"n", 0, false, Units::kNoUnit, {}));
    return list;
}
} // namespace

TEST(PropVisitorTest, EachClassReachesItsOwnOperation)
{
    PropList list = MakeList();
    Recorder recorder;
    list.Accept(recorder);
    EXPECT_EQ(recorder.mSeen, (std::vector<std::string>{"value:v", "variable:w", "menu:m", "text:t",
                                                        "button:b", "number:n"}));
    ConstRecorder constRecorder;
    static_cast<const PropList&>(list).Accept(constRecorder);
    EXPECT_EQ(constRecorder.mSeen,
              (std::vector<std::string>{"value", "variable", "menu", "text", "button", "number"}));
}

TEST(PropVisitorTest, DefaultOperationsDoNothing)
{
    PropList list = MakeList();
    TextsOnly visitor;
    list.Accept(visitor);
    list.Accept(visitor);
    EXPECT_EQ(list.FindProp(L"t")->PropertyValue(), L"hi!!");
    EXPECT_EQ(list.FindProp(L"v")->PropertyValue(), L"");
}
