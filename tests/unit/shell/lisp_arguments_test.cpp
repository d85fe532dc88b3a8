#include "shell/lisp_arguments.h"

#include <gtest/gtest.h>

#include <list>

#include "adscodes.h"
#include "adsdef.h"

namespace {

// A list of arguments as the host hands it over.
class Arguments {
  public:
    Arguments& Item(short type) {
        m_items.push_back(resbuf{nullptr, type, {}});
        if (m_items.size() > 1) std::prev(m_items.end(), 2)->rbnext = &m_items.back();
        return *this;
    }
    Arguments& Short(short value) { return Item(RTSHORT), m_items.back().resval.rint = value, *this; }
    Arguments& Long(int value) { return Item(RTLONG), m_items.back().resval.rlong = value, *this; }
    Arguments& Real(double value) { return Item(RTREAL), m_items.back().resval.rreal = value, *this; }
    Arguments& Text(const wchar_t* text) {
        m_texts.emplace_back(text);
        return Item(RTSTR), m_items.back().resval.rstring = m_texts.back().data(), *this;
    }
    Arguments& T() { return Item(RTT); }
    Arguments& Nil() { return Item(RTNIL); }
    const resbuf* Get() const { return m_items.empty() ? nullptr : &m_items.front(); }

  private:
    std::list<resbuf> m_items;
    std::list<std::wstring> m_texts;
};

bool TakesInit(const Arguments& arguments) {
    int app = 0;
    bool ini = false;
    return TakeInitArguments(arguments.Get(), app, ini);
}

bool TakesToggle(const Arguments& arguments) {
    std::wstring name;
    bool state = false;
    return TakeToggleArguments(arguments.Get(), name, state);
}

}  // namespace

TEST(InitArguments, ShortOrLongAndTruth) {
    int app = 0;
    bool ini = false;
    EXPECT_TRUE(TakeInitArguments(Arguments().Short(2).T().Get(), app, ini));
    EXPECT_EQ(app, 2);
    EXPECT_TRUE(ini);
    EXPECT_TRUE(TakeInitArguments(Arguments().Long(70000).Nil().Get(), app, ini));
    EXPECT_EQ(app, 70000);
    EXPECT_FALSE(ini);
}

TEST(InitArguments, AnythingElse_IsRefused) {
    EXPECT_FALSE(TakesInit(Arguments()));
    EXPECT_FALSE(TakesInit(Arguments().Short(2)));
    EXPECT_FALSE(TakesInit(Arguments().Real(2.0).T()));
    EXPECT_FALSE(TakesInit(Arguments().Text(L"2").T()));
    EXPECT_FALSE(TakesInit(Arguments().Short(2).Short(1)));
    EXPECT_FALSE(TakesInit(Arguments().Short(2).T().T()));
    EXPECT_FALSE(TakesInit(Arguments().T().Short(2)));
}

TEST(InitArguments, ListsPointsAndOtherStates_AreRefused) {
    for (const short type :
         {RTLB, RTPOINT, RT3DPOINT, RTENAME, RTVOID, RTREAL, RTSTR, RTSHORT, RTLONG, RTNONE})
        EXPECT_FALSE(TakesInit(Arguments().Short(2).Item(type))) << type;
    for (const short type : {RTLB, RTPOINT, RTENAME, RTNIL, RTT, RTREAL, RTNONE})
        EXPECT_FALSE(TakesInit(Arguments().Item(type).T())) << type;
    EXPECT_FALSE(TakesInit(Arguments().Short(2).Item(RTLB).T().Item(RTLE)));
}

TEST(InitArguments, NegativeAndLargeNumbers_AreTakenAsTheyAre) {
    int app = 0;
    bool ini = false;
    for (const int number : {-1, 0, 11, -32768, 32767}) {
        EXPECT_TRUE(TakeInitArguments(Arguments().Short(static_cast<short>(number)).T().Get(), app, ini));
        EXPECT_EQ(app, number);
    }
    for (const int number : {-2147483647 - 1, 2147483647}) {
        EXPECT_TRUE(TakeInitArguments(Arguments().Long(number).T().Get(), app, ini));
        EXPECT_EQ(app, number);
    }
}

TEST(InitArguments, Refused_LeavesTheResultsAlone) {
    int app = 77;
    bool ini = true;
    EXPECT_FALSE(TakeInitArguments(Arguments().Short(2).Text(L"x").Get(), app, ini));
    EXPECT_FALSE(TakeInitArguments(Arguments().Real(2).Nil().Get(), app, ini));
    EXPECT_EQ(app, 77);
    EXPECT_TRUE(ini);
}

TEST(NoArguments, OnlyTheEmptyList) {
    EXPECT_TRUE(TakeNoArguments(nullptr));
    EXPECT_FALSE(TakeNoArguments(Arguments().Nil().Get()));
    EXPECT_FALSE(TakeNoArguments(Arguments().Short(0).Get()));
}

TEST(MenuArguments, ExactlyOneText) {
    std::wstring menu = L"before";
    EXPECT_FALSE(TakeMenuArguments(nullptr, menu));
    EXPECT_FALSE(TakeMenuArguments(Arguments().Short(1).Get(), menu));
    EXPECT_FALSE(TakeMenuArguments(Arguments().Text(L"a").Text(L"b").Get(), menu));
    EXPECT_EQ(menu, L"before");
    EXPECT_TRUE(TakeMenuArguments(Arguments().Text(L"Schematic").Get(), menu));
    EXPECT_EQ(menu, L"Schematic");
}

TEST(ToggleArguments, StateIsTruthOrAShort) {
    std::wstring name;
    bool state = false;
    EXPECT_TRUE(TakeToggleArguments(Arguments().Text(L"x").Short(5).Get(), name, state));
    EXPECT_EQ(name, L"x");
    EXPECT_TRUE(state);
    EXPECT_TRUE(TakeToggleArguments(Arguments().Text(L"x").Short(0).Get(), name, state));
    EXPECT_FALSE(state);
    EXPECT_TRUE(TakeToggleArguments(Arguments().Text(L"x").Short(-1).Get(), name, state));
    EXPECT_TRUE(state);
    EXPECT_TRUE(TakeToggleArguments(Arguments().Text(L"x").Nil().Get(), name, state));
    EXPECT_FALSE(state);
    EXPECT_TRUE(TakeToggleArguments(Arguments().Text(L"x").T().Get(), name, state));
    EXPECT_TRUE(state);
}

TEST(ToggleArguments, AnythingElse_IsRefused) {
    EXPECT_FALSE(TakesToggle(Arguments()));
    EXPECT_FALSE(TakesToggle(Arguments().Text(L"x")));
    EXPECT_FALSE(TakesToggle(Arguments().Short(1).T()));
    EXPECT_FALSE(TakesToggle(Arguments().Text(L"x").Text(L"T")));
    EXPECT_FALSE(TakesToggle(Arguments().Text(L"x").Long(1)));
    EXPECT_FALSE(TakesToggle(Arguments().Text(L"x").Real(1)));
    EXPECT_FALSE(TakesToggle(Arguments().Text(L"x").T().T()));
}

TEST(ToggleArguments, OtherStatesAndNames_AreRefused) {
    for (const short type : {RTLB, RTPOINT, RT3DPOINT, RTENAME, RTVOID, RTREAL, RTSTR, RTLONG, RTNONE})
        EXPECT_FALSE(TakesToggle(Arguments().Text(L"x").Item(type))) << type;
    for (const short type : {RTNIL, RTT, RTSHORT, RTLONG, RTREAL, RTENAME})
        EXPECT_FALSE(TakesToggle(Arguments().Item(type).T())) << type;
}

TEST(ToggleArguments, Refused_LeavesTheResultsAlone) {
    std::wstring name = L"before";
    bool state = true;
    EXPECT_FALSE(TakeToggleArguments(Arguments().Text(L"x").Nil().Nil().Get(), name, state));
    EXPECT_FALSE(TakeToggleArguments(Arguments().Text(L"x").Text(L"y").Get(), name, state));
    EXPECT_EQ(name, L"before");
    EXPECT_TRUE(state);
}

TEST(ToggleArguments, EmptyName_IsAName) {
    std::wstring name = L"before";
    bool state = false;
    EXPECT_TRUE(TakeToggleArguments(Arguments().Text(L"").T().Get(), name, state));
    EXPECT_EQ(name, L"");
}
