// Result lists.
#include "drawing_fixture.h"

namespace workbench::test {
namespace {

TEST(ResultLists, Build_KeepsTypesAndValues) {
    const ads_point point = {1, 2, 3};
    const List list(acutBuildList(RTSHORT, 5, RTLONG, 70000, RTREAL, 1.5, RTSTR, L"text", RT3DPOINT, point,
                                  RTT, RTNIL, RTLB, RTLE, RTINT64, 1LL << 40, RTNONE));
    EXPECT_EQ(list.Types(),
              (std::vector<int>{RTSHORT, RTLONG, RTREAL, RTSTR, RT3DPOINT, RTT, RTNIL, RTLB, RTLE, RTINT64}));
    EXPECT_EQ(list.get()->resval.rint, 5);
    EXPECT_EQ(list.get()->rbnext->resval.rlong, 70000);
    EXPECT_EQ(list.get()->rbnext->rbnext->resval.rreal, 1.5);
}

TEST(ResultLists, Build_EndsAtZeroToo) {
    const List list(acutBuildList(RTSHORT, 5, 0, RTSHORT, 6, RTNONE));
    EXPECT_EQ(list.Types(), (std::vector<int>{RTSHORT}));
}

TEST(ResultLists, Build_UnknownType_GivesNullAndLeavesNothing) {
    const long before = database::LiveResultBuffers();
    EXPECT_EQ(acutBuildList(RTSTR, L"a", 600, 1, RTNONE), nullptr);
    EXPECT_EQ(database::LiveResultBuffers(), before);
}

TEST(ResultLists, Build_Nothing_IsNull) {
    EXPECT_EQ(acutBuildList(RTNONE), nullptr);
}

TEST(ResultLists, Build_NullString_IsEmpty) {
    const List list(acutBuildList(RTSTR, static_cast<const ACHAR*>(nullptr), RTNONE));
    EXPECT_STREQ(list.get()->resval.rstring, L"");
}

TEST(ResultLists, Release_CountsEachItem) {
    const long before = database::LiveResultBuffers();
    resbuf* list = acutBuildList(RTSTR, L"a", RTSHORT, 1, RTNONE);
    EXPECT_EQ(database::LiveResultBuffers(), before + 2);
    EXPECT_EQ(acutRelRb(list), RTNORM);
    EXPECT_EQ(database::LiveResultBuffers(), before);
    EXPECT_EQ(acutRelRb(nullptr), RTNORM);
}

TEST(ResultLists, Release_OfWhatIsNoneOfTheHosts_IsAFault) {
    database::InstallFatalHandler(
        [](const std::wstring& text) { throw FatalError(std::string(text.begin(), text.end())); });
    resbuf own{};
    EXPECT_THROW(acutRelRb(&own), FatalError);
    resbuf* freed = acutNewRb(RTSHORT);
    acutRelRb(freed);
    EXPECT_THROW(acutRelRb(freed), FatalError);
    database::InstallFatalHandler(nullptr);
}

TEST(ResultLists, NewRb_IsZeroed) {
    const List item(acutNewRb(RTSTR));
    EXPECT_EQ(item.get()->restype, RTSTR);
    EXPECT_EQ(item.get()->resval.rstring, nullptr);
    EXPECT_EQ(item.get()->rbnext, nullptr);
}

TEST(ResultLists, NewString_OfNull_IsNull) {
    ACHAR* copy = nullptr;
    EXPECT_EQ(acutNewString(nullptr, copy), Acad::eOk);
    EXPECT_EQ(copy, nullptr);
}

TEST(ResultLists, GroupCodes_HaveTheirTypes) {
    EXPECT_EQ(acdbGroupCodeToType(1), AcDb::kDwgText);
    EXPECT_EQ(acdbGroupCodeToType(10), AcDb::kDwg3Real);
    EXPECT_EQ(acdbGroupCodeToType(90), AcDb::kDwgInt32);
    EXPECT_EQ(acdbGroupCodeToType(330), AcDb::kDwgSoftPointerId);
    EXPECT_EQ(acdbGroupCodeToType(1071), AcDb::kDwgInt32);
    EXPECT_EQ(acdbGroupCodeToType(1072), AcDb::kDwgNotRecognized);
    EXPECT_EQ(acdbGroupCodeToType(-1), AcDb::kDwgNotRecognized);
}

TEST(StatusText, IsTheNameOfTheStatus) {
    EXPECT_STREQ(acadErrorStatusText(Acad::eOk), L"eOk");
    EXPECT_STREQ(acadErrorStatusText(Acad::eLockViolation), L"eLockViolation");
    EXPECT_STREQ(acadErrorStatusText(static_cast<Acad::ErrorStatus>(99999)), L"Unknown error status");
}

}  // namespace
}  // namespace workbench::test
