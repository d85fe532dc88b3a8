#include "palette/element_xdata.h"

#include <gtest/gtest.h>

#include <list>

#include "adsdef.h"

namespace {

class Items {
  public:
    Items& Long(int value) { return Item(1071).resval.rlong = value, *this; }
    Items& Short(short value) { return Item(1070).resval.rint = value, *this; }
    Items& Text(const wchar_t* text, short code = 1000) {
        m_texts.emplace_back(text);
        return Item(code).resval.rstring = m_texts.back().data(), *this;
    }
    const resbuf* Get() const { return m_items.empty() ? nullptr : &m_items.front(); }

  private:
    resbuf& Item(short code) {
        m_items.push_back(resbuf{nullptr, code, {}});
        if (m_items.size() > 1) std::prev(m_items.end(), 2)->rbnext = &m_items.back();
        return m_items.back();
    }
    std::list<resbuf> m_items;
    std::list<std::wstring> m_texts;
};

}  // namespace

TEST(ElementXData, FullRecord) {
    Items items;
    items.Text(L"App", 1001)
        .Long(7)
        .Short(1)
        .Short(2)
        .Text(L"VAL_BLK")
        .Long(70)
        .Long(1234)
        .Short(2)
        .Text(L"note");
    const CElementXData data = ReadElementXData(items.Get());
    EXPECT_EQ(data.m_nElement, 7);
    EXPECT_EQ(data.m_nShort1, 1);
    EXPECT_EQ(data.m_nShort2, 2);
    EXPECT_EQ(std::string(data.m_aBlockWord.begin(), data.m_aBlockWord.end()), std::string("VAL_BLK\0", 8));
    EXPECT_EQ(data.m_nField, 70);
    EXPECT_EQ(data.m_nLineId, 1234);
    EXPECT_EQ(data.m_nVersion, 2);
    EXPECT_EQ(data.m_strText, L"note");
}

TEST(ElementXData, ApplicationName_MayBeMissing) {
    Items items;
    items.Long(7).Short(1).Short(2).Text(L"x").Long(70).Long(55);
    EXPECT_EQ(ReadElementXData(items.Get()).m_nLineId, 55);
}

TEST(ElementXData, VersionOne_HasNoText) {
    Items items;
    items.Long(7).Short(1).Short(2).Text(L"x").Long(70).Long(55).Short(1).Text(L"ignored");
    EXPECT_EQ(ReadElementXData(items.Get()).m_strText, L"");
}

TEST(ElementXData, WrongItem_EndsTheReading) {
    Items shortWhereLong;
    shortWhereLong.Long(7).Short(1).Short(2).Text(L"x").Short(70).Long(55);
    EXPECT_EQ(ReadElementXData(shortWhereLong.Get()).m_nLineId, 0);
    Items missingShort;
    missingShort.Long(7).Short(1).Text(L"x").Long(70).Long(55);
    EXPECT_EQ(ReadElementXData(missingShort.Get()).m_nLineId, 0);
    EXPECT_EQ(ReadElementXData(missingShort.Get()).m_nElement, 7);
}

TEST(ElementXData, Nothing_ReadsAsZeros) {
    EXPECT_EQ(ReadElementXData(nullptr).m_nLineId, 0);
    EXPECT_EQ(ReadElementXData(nullptr).m_nVersion, 0);
}

TEST(ElementXData, BlockWord_TakesEightLowBytesAndNoMore) {
    Items items;
    items.Long(7).Short(1).Short(2).Text(L"A\u0142CDEFGHIJ").Long(1).Long(2);
    const CElementXData data = ReadElementXData(items.Get());
    EXPECT_EQ(data.m_aBlockWord[1], 0x42);
    EXPECT_EQ(data.m_aBlockWord[7], 'H');
    EXPECT_EQ(data.m_nLineId, 2);
}

TEST(PipingElementBlock, ElevenNamesInAnyCase) {
    for (const wchar_t* name :
         {L"BLT_BLK", L"FLG_BLK", L"FTG_BLK", L"GSK_BLK", L"INS_BLK", L"MIS_BLK", L"NIP_BLK", L"PIP_BLK",
          L"SCR_BLK", L"SUP_BLK", L"VAL_BLK", L"val_blk", L"Pip_Blk"})
        EXPECT_TRUE(IsPipingElementBlock(name)) << name;
}

TEST(PipingElementBlock, OtherNames_AreNone) {
    for (const wchar_t* name : {L"", L"TAGLINE", L"EQP-TAG", L"BAL12C", L"VAL_BLK ", L"VAL_BLK1", L"VAL-BLK"})
        EXPECT_FALSE(IsPipingElementBlock(name)) << name;
}
