// Classes at run time, as modules register them.
#include "aced.h"
#include "drawing_fixture.h"
#include "rxboiler.h"

class RuntimeTestBase : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(RuntimeTestBase);
};
ACRX_NO_CONS_DEFINE_MEMBERS(RuntimeTestBase, AcRxObject)

class RuntimeTestDerived : public RuntimeTestBase {
  public:
    ACRX_DECLARE_MEMBERS(RuntimeTestDerived);
};
ACRX_CONS_DEFINE_MEMBERS(RuntimeTestDerived, RuntimeTestBase, 1)

namespace workbench::test {
namespace {

class RuntimeClassesTest : public testing::Test {
  protected:
    RuntimeClassesTest() {
        database::InstallFatalHandler(
            [](const std::wstring& text) { throw FatalError(std::string(text.begin(), text.end())); });
        RuntimeTestDerived::rxInit();  // before its parent: the order does not matter
        RuntimeTestBase::rxInit();
        acrxBuildClassHierarchy();
    }
    ~RuntimeClassesTest() override {
        Remove<RuntimeTestDerived>();
        Remove<RuntimeTestBase>();
        database::InstallFatalHandler(nullptr);
    }

    template <class T>
    void Remove() {
        if (T::gpDesc != nullptr) {
            deleteAcRxClass(T::gpDesc);
            T::gpDesc = nullptr;
        }
    }
};

TEST_F(RuntimeClassesTest, Classes_KnowTheirParents) {
    EXPECT_EQ(RuntimeTestDerived::desc()->myParent(), RuntimeTestBase::desc());
    EXPECT_EQ(RuntimeTestBase::desc()->myParent(), AcRxObject::desc());
    EXPECT_TRUE(RuntimeTestDerived::desc()->isDerivedFrom(AcRxObject::desc()));
    EXPECT_FALSE(RuntimeTestBase::desc()->isDerivedFrom(RuntimeTestDerived::desc()));
    EXPECT_STREQ(RuntimeTestDerived::desc()->name(), L"RuntimeTestDerived");
}

TEST_F(RuntimeClassesTest, Create_MakesAnObjectOfTheClass) {
    const std::unique_ptr<AcRxObject> made(RuntimeTestDerived::desc()->create());
    ASSERT_NE(made, nullptr);
    EXPECT_NE(RuntimeTestBase::cast(made.get()), nullptr);
    EXPECT_EQ(AcRxClass::cast(made.get()), nullptr);
    EXPECT_EQ(RuntimeTestBase::desc()->create(), nullptr);
}

TEST_F(RuntimeClassesTest, RxInit_Again_ChangesNothing) {
    const AcRxClass* before = RuntimeTestBase::desc();
    RuntimeTestBase::rxInit();
    EXPECT_EQ(RuntimeTestBase::desc(), before);
}

TEST_F(RuntimeClassesTest, RxInit_OfANameWithAnotherDescriptor_Aborts) {
    AcRxClass* own = RuntimeTestBase::gpDesc;
    RuntimeTestBase::gpDesc = nullptr;
    EXPECT_THROW(RuntimeTestBase::rxInit(), FatalError);
    RuntimeTestBase::gpDesc = own;
}

TEST_F(RuntimeClassesTest, Delete_OfAParentBeforeItsChild_IsAFault) {
    EXPECT_THROW(deleteAcRxClass(RuntimeTestBase::gpDesc), FatalError);
}

TEST_F(RuntimeClassesTest, Delete_TakesTheClassOutOfTheDictionary) {
    Remove<RuntimeTestDerived>();
    EXPECT_EQ(acrxClassDictionary->at(L"RuntimeTestDerived"), nullptr);
    EXPECT_NE(newAcRxClass(L"RuntimeTestDerived", L"AcRxObject"), nullptr);
    deleteAcRxClass(static_cast<AcRxClass*>(acrxClassDictionary->at(L"RuntimeTestDerived")));
}

TEST(ClassDictionary, HoldsTheClassesThatModulesDeriveFrom) {
    AcDbLine line;  // the classes of the database are there
    for (const wchar_t* name : {L"AcRxObject", L"AcDbEntity", L"AcDbBlockReference", L"AcDbXrecord"}) {
        EXPECT_NE(acrxClassDictionary->at(name), nullptr);
    }
    EXPECT_EQ(newAcRxClass(L"AcDbLine", L"AcRxObject"), nullptr);
}

TEST(ClassDictionary, Create_ByName_MakesEntities) {
    auto* type = static_cast<AcRxClass*>(acrxClassDictionary->at(L"acdbline"));
    ASSERT_NE(type, nullptr);
    const std::unique_ptr<AcRxObject> made(type->create());
    EXPECT_NE(AcDbLine::cast(made.get()), nullptr);
    EXPECT_STREQ(type->dxfName(), L"LINE");
}

}  // namespace
}  // namespace workbench::test
