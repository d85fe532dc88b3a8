// Extended data: registration, order, limits.
#include <cwchar>

#include "drawing_fixture.h"

namespace workbench::test {
namespace {

constexpr wchar_t kName[] = L"KAL-VOR Software - TESSARC";

class XDataTest : public DrawingTest {
  protected:
    XDataTest() : m_line(ALine(), AcDb::kForWrite) { EXPECT_EQ(acdbRegApp(kName), RTNORM); }

    Acad::ErrorStatus SetText(const std::wstring& text) {
        const List list(acutBuildList(1001, kName, 1000, text.c_str(), RTNONE));
        return m_line->setXData(list.get());
    }

    AcDbObjectPointer<AcDbLine> m_line;
};

TEST_F(XDataTest, Set_ThenGet_KeepsOrderTypesAndValues) {
    const ads_point point = {1, 2, 3};
    char bytes[] = {1, 0, 2};
    const ads_binary binary = {3, bytes};
    const List list(acutBuildList(1001, kName, 1071, 70000, 1070, -5, 1000, L"text", 1040, 2.5, 1010, point,
                                  1004, &binary, 1005, L"1F", 1002, L"{", 1003, L"0", 1002, L"}", RTNONE));
    ASSERT_EQ(m_line->setXData(list.get()), Acad::eOk);
    const List read(m_line->xData(kName));
    EXPECT_EQ(read.Types(),
              (std::vector<int>{1001, 1071, 1070, 1000, 1040, 1010, 1004, 1005, 1002, 1003, 1002}));
    const resbuf* item = read.get();
    EXPECT_STREQ(item->resval.rstring, kName);
    EXPECT_EQ((item = item->rbnext)->resval.rlong, 70000);
    EXPECT_EQ((item = item->rbnext)->resval.rint, -5);
    EXPECT_STREQ((item = item->rbnext)->resval.rstring, L"text");
    EXPECT_EQ((item = item->rbnext)->resval.rreal, 2.5);
    EXPECT_EQ((item = item->rbnext)->resval.rpoint[2], 3);
    item = item->rbnext;
    ASSERT_EQ(item->resval.rbinary.clen, 3);
    EXPECT_EQ(item->resval.rbinary.buf[2], 2);
    EXPECT_STREQ((item = item->rbnext)->resval.rstring, L"1F");
}

TEST_F(XDataTest, Get_OfNameWithoutData_IsNull) {
    EXPECT_EQ(m_line->xData(kName), nullptr);
    EXPECT_EQ(m_line->xData(), nullptr);
}

TEST_F(XDataTest, Get_FindsTheNameWithoutRegardToCase) {
    ASSERT_EQ(SetText(L"a"), Acad::eOk);
    const List read(m_line->xData(L"kal-vor software - tessarc"));
    EXPECT_EQ(read.Types(), (std::vector<int>{1001, 1000}));
}

TEST_F(XDataTest, Set_UnregisteredName_IsRefused) {
    const List list(acutBuildList(1001, L"NOBODY", 1070, 1, RTNONE));
    EXPECT_EQ(m_line->setXData(list.get()), Acad::eRegappIdNotFound);
    EXPECT_EQ(m_line->xData(), nullptr);
}

TEST_F(XDataTest, Set_OnObjectOpenForRead_IsRefused) {
    m_line->downgradeOpen();
    EXPECT_EQ(SetText(L"a"), Acad::eNotOpenForWrite);
}

TEST_F(XDataTest, Set_ReplacesOwnApplicationOnlyAndKeepsTheOthers) {
    ASSERT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    const List both(acutBuildList(1001, kName, 1070, 1, 1001, L"OTHER", 1070, 2, RTNONE));
    ASSERT_EQ(m_line->setXData(both.get()), Acad::eOk);
    ASSERT_EQ(SetText(L"new"), Acad::eOk);
    const List all(m_line->xData());
    EXPECT_EQ(all.Types(), (std::vector<int>{1001, 1000, 1001, 1070}));
    const List other(m_line->xData(L"OTHER"));
    EXPECT_EQ(other.get()->rbnext->resval.rint, 2);
}

TEST_F(XDataTest, Set_NameAlone_RemovesTheData) {
    ASSERT_EQ(SetText(L"a"), Acad::eOk);
    const List name(acutBuildList(1001, kName, RTNONE));
    EXPECT_EQ(m_line->setXData(name.get()), Acad::eOk);
    EXPECT_EQ(m_line->xData(kName), nullptr);
}

TEST_F(XDataTest, Set_String255Bytes_Fits_256DoesNot) {
    EXPECT_EQ(SetText(std::wstring(255, L'x')), Acad::eOk);
    EXPECT_EQ(SetText(std::wstring(256, L'x')), Acad::eXdataSizeExceeded);
    const List kept(m_line->xData(kName));
    EXPECT_EQ(std::wstring(kept.get()->rbnext->resval.rstring).size(), 255u);
}

TEST_F(XDataTest, Set_LettersOutsideTheCodePage_CountAsTheirEscapes) {
    EXPECT_EQ(SetText(std::wstring(36, L'\x3A9')), Acad::eOk);                 // 252 bytes
    EXPECT_EQ(SetText(std::wstring(37, L'\x3A9')), Acad::eXdataSizeExceeded);  // 259
    EXPECT_EQ(SetText(std::wstring(255, L'\xE4')), Acad::eOk);                 // of the code page
    EXPECT_EQ(SetText(std::wstring(255, L'\x20AC')), Acad::eOk);               // the euro too
}

// Our name and the same text a number of times; the text outlives the items.
std::vector<resbuf> NameAndTexts(std::size_t count, std::wstring& text) {
    std::vector<resbuf> items(count + 1);
    items[0].restype = 1001;
    items[0].resval.rstring = const_cast<wchar_t*>(kName);
    for (std::size_t i = 1; i < items.size(); ++i) {
        items[i].restype = 1000;
        items[i].resval.rstring = text.data();
        items[i - 1].rbnext = &items[i];
    }
    return items;
}

TEST_F(XDataTest, Set_MoreThan16Kilobytes_IsRefused) {
    std::wstring text(250, L'x');  // 253 bytes with its code and length
    std::vector<resbuf> items = NameAndTexts(65, text);
    EXPECT_EQ(m_line->setXData(items.data()), Acad::eXdataSizeExceeded);
    items[items.size() - 2].rbnext = nullptr;  // 64 texts: 16,221 bytes
    EXPECT_EQ(m_line->setXData(items.data()), Acad::eOk);
}

TEST_F(XDataTest, Set_TogetherWithAnotherApplicationOver16Kilobytes_IsRefused) {
    ASSERT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    std::wstring text(250, L'x');
    std::vector<resbuf> items = NameAndTexts(63, text);
    ASSERT_EQ(m_line->setXData(items.data()), Acad::eOk);
    const List other(acutBuildList(1001, L"OTHER", 1000, text.c_str(), 1000, text.c_str(), RTNONE));
    EXPECT_EQ(m_line->setXData(other.get()), Acad::eXdataSizeExceeded);
    EXPECT_EQ(m_line->xData(L"OTHER"), nullptr);
}

TEST_F(XDataTest, Set_Exactly16Kilobytes_FitsAndOneByteMoreDoesNot) {
    // 29 bytes of the name's item, 63 texts of 258 bytes (255, their length, their code), and what is left.
    const std::wstring full(255, L'x');
    const auto set = [&](std::size_t last) {
        resbuf* items = acutBuildList(1001, kName, RTNONE);
        resbuf* tail = items;
        for (int i = 0; i < 63; ++i)
            tail = tail->rbnext = acutBuildList(1000, full.c_str(), RTNONE);
        tail->rbnext = acutBuildList(1000, std::wstring(last, L'y').c_str(), RTNONE);
        const List list(items);
        return m_line->setXData(list.get());
    };
    const std::size_t name = 2 + 1 + std::wcslen(kName);
    const std::size_t rest = 16 * 1024 - name - 63 * 258 - 3;
    ASSERT_LT(rest, 255u);
    EXPECT_EQ(set(rest), Acad::eOk);
    EXPECT_EQ(set(rest + 1), Acad::eXdataSizeExceeded);
}

TEST_F(XDataTest, Set_TogetherWithAnotherApplicationExactly16Kilobytes_Fits) {
    ASSERT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    const std::wstring full(255, L'x');
    resbuf* items = acutBuildList(1001, kName, RTNONE);
    resbuf* tail = items;
    for (int i = 0; i < 63; ++i)
        tail = tail->rbnext = acutBuildList(1000, full.c_str(), RTNONE);
    const List list(items);
    ASSERT_EQ(m_line->setXData(list.get()), Acad::eOk);
    const std::size_t rest = 16 * 1024 - (2 + 1 + std::wcslen(kName)) - 63 * 258 - (2 + 1 + 5) - 3;
    const auto set = [&](std::size_t length) {
        const List other(acutBuildList(1001, L"OTHER", 1000, std::wstring(length, L'y').c_str(), RTNONE));
        return m_line->setXData(other.get());
    };
    EXPECT_EQ(set(rest + 1), Acad::eXdataSizeExceeded);
    EXPECT_EQ(set(rest), Acad::eOk);
}

TEST_F(XDataTest, Set_Binary255Bytes_Fits_256DoesNot) {
    std::string bytes(256, '\x7F');
    const auto set = [&](short length) {
        const ads_binary binary = {length, bytes.data()};
        const List list(acutBuildList(1001, kName, 1004, &binary, RTNONE));
        return m_line->setXData(list.get());
    };
    EXPECT_EQ(set(255), Acad::eOk);
    EXPECT_EQ(set(256), Acad::eXdataSizeExceeded);
}

TEST_F(XDataTest, Set_RefusedForOneApplication_ChangesNoneOfTheOthers) {
    ASSERT_EQ(SetText(L"old"), Acad::eOk);
    const List list(acutBuildList(1001, kName, 1000, L"new", 1001, L"NOBODY", 1070, 1, RTNONE));
    EXPECT_EQ(m_line->setXData(list.get()), Acad::eRegappIdNotFound);
    const List kept(m_line->xData(kName));
    EXPECT_STREQ(kept.get()->rbnext->resval.rstring, L"old");
}

TEST_F(XDataTest, Set_OfOneApplication_KeepsItsPlaceAmongTheOthers) {
    ASSERT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    const List both(acutBuildList(1001, kName, 1070, 1, 1001, L"OTHER", 1070, 2, RTNONE));
    ASSERT_EQ(m_line->setXData(both.get()), Acad::eOk);
    const List longer(acutBuildList(1001, kName, 1070, 3, 1070, 4, RTNONE));
    ASSERT_EQ(m_line->setXData(longer.get()), Acad::eOk);
    const List all(m_line->xData());
    EXPECT_EQ(all.Types(), (std::vector<int>{1001, 1070, 1070, 1001, 1070}));
    EXPECT_STREQ(all.get()->resval.rstring, kName);
}

TEST_F(XDataTest, Set_BracesWithinEachApplication_Match) {
    ASSERT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    const List split(acutBuildList(1001, kName, 1002, L"{", 1001, L"OTHER", 1070, 1, 1002, L"}", RTNONE));
    EXPECT_EQ(m_line->setXData(split.get()), Acad::eInvalidResBuf);
    const List nested(acutBuildList(1001, kName, 1002, L"{", 1002, L"{", 1002, L"}", 1002, L"}", RTNONE));
    EXPECT_EQ(m_line->setXData(nested.get()), Acad::eOk);
}

TEST_F(XDataTest, Set_AnErasedName_IsNotRegistered) {
    ASSERT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    AcDbObjectId id;
    {
        AcDbObjectPointer<AcDbRegAppTable> names(Drawing().regAppTableId());
        ASSERT_EQ(names->getAt(L"OTHER", id), Acad::eOk);
    }
    ASSERT_EQ(AcDbObjectPointer<AcDbRegAppTableRecord>(id, AcDb::kForWrite)->erase(), Acad::eOk);
    const List list(acutBuildList(1001, L"OTHER", 1070, 1, RTNONE));
    EXPECT_EQ(m_line->setXData(list.get()), Acad::eRegappIdNotFound);
    EXPECT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    EXPECT_EQ(m_line->setXData(list.get()), Acad::eOk);
}

TEST_F(XDataTest, Get_OfAnObjectThatIsNotOpen_EndsTheProgram) {
    const AcDbLine* line = m_line.object();
    m_line.close();
    EXPECT_THROW(line->xData(kName), FatalError);
}

TEST_F(XDataTest, Set_ListsThatAreNoXData_AreRefused) {
    const List noName(acutBuildList(1070, 1, RTNONE));
    EXPECT_EQ(m_line->setXData(noName.get()), Acad::eInvalidResBuf);
    const List wrongCode(acutBuildList(1001, kName, 70, 1, RTNONE));
    EXPECT_EQ(m_line->setXData(wrongCode.get()), Acad::eInvalidResBuf);
    const List resultType(acutBuildList(1001, kName, RTSHORT, 1, RTNONE));
    EXPECT_EQ(m_line->setXData(resultType.get()), Acad::eInvalidResBuf);
    const List open(acutBuildList(1001, kName, 1002, L"{", RTNONE));
    EXPECT_EQ(m_line->setXData(open.get()), Acad::eInvalidResBuf);
    const List closed(acutBuildList(1001, kName, 1002, L"}", 1002, L"{", RTNONE));
    EXPECT_EQ(m_line->setXData(closed.get()), Acad::eInvalidResBuf);
    const List brace(acutBuildList(1001, kName, 1002, L"x", RTNONE));
    EXPECT_EQ(m_line->setXData(brace.get()), Acad::eInvalidResBuf);
    EXPECT_EQ(m_line->setXData(nullptr), Acad::eInvalidResBuf);
    EXPECT_EQ(m_line->xData(), nullptr);
}

TEST_F(XDataTest, Set_OnModelSpaceRecord_Works) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId(), AcDb::kForWrite);
    const List list(acutBuildList(1001, kName, 1071, 7, RTNONE));
    EXPECT_EQ(space->setXData(list.get()), Acad::eOk);
}

TEST_F(XDataTest, RegApp_KnownName_IsFineWithoutALock) {
    m_guard.allowed = false;
    EXPECT_EQ(acdbRegApp(kName), RTNORM);
}

TEST_F(XDataTest, RegApp_NewNameWithoutALock_Fails) {
    m_guard.allowed = false;
    EXPECT_EQ(acdbRegApp(L"NEWCOMER"), RTERROR);
    EXPECT_EQ(database::OpenObjects(Drawing()), 1);  // the line of the test
}

TEST_F(XDataTest, RegApp_BadNamesOrNoDrawing_Fail) {
    EXPECT_EQ(acdbRegApp(nullptr), RTERROR);
    EXPECT_EQ(acdbRegApp(L""), RTERROR);
    EXPECT_EQ(acdbRegApp(L"a|b"), RTERROR);
    EXPECT_EQ(acdbRegApp(std::wstring(256, L'n').c_str()), RTERROR);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(acdbRegApp(kName), RTERROR);
}

}  // namespace
}  // namespace workbench::test
