// Dictionaries and extension records.
#include "drawing_fixture.h"

namespace workbench::test {
namespace {

class DictionaryTest : public DrawingTest {
  protected:
    DictionaryTest() : m_root(Drawing().namedObjectsDictionaryId(), AcDb::kForWrite) {}

    AcDbObjectId Put(const wchar_t* name) {
        auto* record = new AcDbXrecord;
        AcDbObjectId id;
        EXPECT_EQ(m_root->setAt(name, record, id), Acad::eOk);
        EXPECT_EQ(record->close(), Acad::eOk);
        return id;
    }

    AcDbObjectPointer<AcDbDictionary> m_root;
};

TEST_F(DictionaryTest, GetAt_MissingName_GivesKeyNotFoundAndNullId) {
    AcDbObjectId id = ALine();
    EXPECT_EQ(m_root->getAt(L"NOTHING", id), Acad::eKeyNotFound);
    EXPECT_EQ(static_cast<int>(Acad::eKeyNotFound), 22);
    EXPECT_TRUE(id.isNull());
}

TEST_F(DictionaryTest, SetAt_GivesIdAndOwner_AndFindsItInAnyCase) {
    const AcDbObjectId id = Put(L"FilteredLineIds");
    AcDbObjectId found;
    EXPECT_EQ(m_root->getAt(L"FILTEREDLINEIDS", found), Acad::eOk);
    EXPECT_EQ(found, id);
    AcDbObjectPointer<AcDbXrecord> record(id);
    EXPECT_EQ(record->ownerId(), m_root->objectId());
    const ACHAR* name = nullptr;
    EXPECT_EQ(m_root->nameAt(id, name), Acad::eOk);
    EXPECT_STREQ(name, L"FilteredLineIds");
}

TEST_F(DictionaryTest, SetAt_MakesTheDictionaryAReactorOfItsEntry) {
    const AcDbObjectId id = Put(L"A");
    EXPECT_EQ(database::DataOf(*id.stub()).reactors, std::vector<AcDbStub*>{m_root->objectId().stub()});
}

TEST_F(DictionaryTest, Remove_LeavesAnObjectWithoutOwner) {
    const AcDbObjectId id = Put(L"A");
    EXPECT_EQ(m_root->remove(id), Acad::eOk);
    EXPECT_EQ(m_root->remove(id), Acad::eKeyNotFound);
    AcDbObjectPointer<AcDbXrecord> record(id);
    ASSERT_EQ(record.openStatus(), Acad::eOk);
    EXPECT_TRUE(record->ownerId().isNull());
}

TEST_F(DictionaryTest, Erase_OfADictionary_LeavesWhatIsOnlyNamedInIt) {
    AcDbDatabase drawing(false, true);
    database::Builder builder(drawing);
    auto& root = builder.NamedObjects(0);
    auto& index = builder.Object<database::DictionaryData>(0, root.stub);
    auto& record = builder.Object<database::XrecordData>(0, root.stub);
    builder.AddEntry(root, L"INDEX", index.stub);
    builder.AddEntry(root, L"RECORD", record.stub);
    builder.AddEntry(index, L"RECORD", record.stub);
    builder.Finish();
    AcDbObjectPointer<AcDbDictionary> dictionary(AcDbObjectId(index.stub), AcDb::kForWrite);
    EXPECT_EQ(dictionary->erase(), Acad::eOk);
    EXPECT_FALSE(AcDbObjectId(record.stub).isErased());
}

TEST_F(DictionaryTest, SetAt_LeavesTheObjectOpenForWrite) {
    auto* record = new AcDbXrecord;
    AcDbObjectId id;
    ASSERT_EQ(m_root->setAt(L"A", record, id), Acad::eOk);
    EXPECT_TRUE(record->isWriteEnabled());
    AcDbXrecord* other = nullptr;
    EXPECT_EQ(acdbOpenObject(other, id), Acad::eWasOpenForWrite);
    record->close();
}

TEST_F(DictionaryTest, SetAt_OnDictionaryOpenForRead_LeavesTheObjectToTheCaller) {
    m_root->downgradeOpen();
    AcDbXrecord record;
    AcDbObjectId id;
    EXPECT_EQ(m_root->setAt(L"A", &record, id), Acad::eNotOpenForWrite);
    EXPECT_TRUE(id.isNull());
    EXPECT_TRUE(record.objectId().isNull());
}

TEST_F(DictionaryTest, SetAt_EmptyNameOrTakenObject_IsRefused) {
    AcDbXrecord record;
    AcDbObjectId id;
    EXPECT_EQ(m_root->setAt(L"", &record, id), Acad::eInvalidKey);
    EXPECT_EQ(m_root->setAt(L"A", nullptr, id), Acad::eNullObjectPointer);
    AcDbObjectPointer<AcDbXrecord> placed(Put(L"A"));
    EXPECT_EQ(m_root->setAt(L"B", placed.object(), id), Acad::eAlreadyInDb);
}

TEST_F(DictionaryTest, SetAt_TakenName_ErasesWhatWasThere) {
    const AcDbObjectId first = Put(L"A");
    const AcDbObjectId second = Put(L"a");
    EXPECT_TRUE(first.isErased());
    AcDbObjectId found;
    EXPECT_EQ(m_root->getAt(L"A", found), Acad::eOk);
    EXPECT_EQ(found, second);
}

TEST_F(DictionaryTest, Erase_OfAnEntrysObject_HidesTheEntry) {
    const Adesk::UInt32 before = m_root->numEntries();
    const AcDbObjectId id = Put(L"A");
    AcDbObjectPointer<AcDbXrecord>(id, AcDb::kForWrite)->erase();
    AcDbObjectId found;
    EXPECT_EQ(m_root->getAt(L"A", found), Acad::eKeyNotFound);
    EXPECT_EQ(m_root->numEntries(), before);
    Put(L"A");
    EXPECT_EQ(m_root->getAt(L"A", found), Acad::eOk);
}

TEST_F(DictionaryTest, Erase_OfADictionary_ErasesWhatItOwns) {
    auto* inner = new AcDbDictionary;
    AcDbObjectId innerId, recordId;
    ASSERT_EQ(m_root->setAt(L"INNER", inner, innerId), Acad::eOk);
    auto* record = new AcDbXrecord;
    ASSERT_EQ(inner->setAt(L"R", record, recordId), Acad::eOk);
    record->close();
    EXPECT_EQ(inner->erase(), Acad::eOk);
    inner->close();
    EXPECT_TRUE(recordId.isErased());
}

TEST_F(DictionaryTest, Remove_TakesTheNameAndLeavesTheObject) {
    const AcDbObjectId id = Put(L"A");
    Put(L"B");
    EXPECT_EQ(m_root->remove(L"a"), Acad::eOk);
    EXPECT_EQ(m_root->remove(L"a"), Acad::eKeyNotFound);
    EXPECT_FALSE(id.isErased());
    EXPECT_FALSE(m_root->has(L"A"));
    EXPECT_TRUE(m_root->has(L"B"));
}

TEST_F(DictionaryTest, SetName_RenamesUnlessTaken) {
    Put(L"A");
    Put(L"B");
    EXPECT_FALSE(m_root->setName(L"A", L"b"));
    EXPECT_TRUE(m_root->setName(L"A", L"C"));
    EXPECT_TRUE(m_root->has(L"C"));
    EXPECT_FALSE(m_root->has(L"A"));
}

TEST_F(DictionaryTest, Iterator_GoesInTheOrderOfTheKeys) {
    Put(L"zebra");
    Put(L"Apple");
    Put(L"mango");
    std::vector<std::wstring> names;
    const std::unique_ptr<AcDbDictionaryIterator> iterator(m_root->newIterator());
    for (; !iterator->done(); iterator->next()) {
        names.push_back(iterator->name());
    }
    EXPECT_EQ(names, (std::vector<std::wstring>{L"ACAD_GROUP", L"Apple", L"mango", L"zebra"}));
    EXPECT_TRUE(iterator->objectId().isNull());
}

TEST_F(DictionaryTest, GetAt_WhileOpenForWrite_WorksForTheWriter) {
    AcDbDictionary* again = nullptr;
    EXPECT_EQ(Drawing().getNamedObjectsDictionary(again), Acad::eWasOpenForWrite);
}

TEST_F(DictionaryTest, Xrecord_New_IsEmpty) {
    AcDbObjectPointer<AcDbXrecord> record(Put(L"R"));
    auto* chain = reinterpret_cast<resbuf*>(1);
    EXPECT_EQ(record->rbChain(&chain), Acad::eOk);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(DictionaryTest, Xrecord_KeepsItemsInOrder) {
    AcDbObjectPointer<AcDbXrecord> record(Put(L"R"), AcDb::kForWrite);
    const List list(acutBuildList(90, 70001, 90, 12, 1, L"x", 40, 0.5, 70, 7, RTNONE));
    ASSERT_EQ(record->setFromRbChain(*list.get()), Acad::eOk);
    resbuf* chain = nullptr;
    ASSERT_EQ(record->rbChain(&chain), Acad::eOk);
    const List read(chain);
    EXPECT_EQ(read.Types(), (std::vector<int>{90, 90, 1, 40, 70}));
    EXPECT_EQ(chain->resval.rlong, 70001);
    EXPECT_EQ(chain->rbnext->resval.rlong, 12);
}

TEST_F(DictionaryTest, Xrecord_IdsComeBackAsIds) {
    const AcDbObjectId line = ALine();
    const ads_name name = {static_cast<long long>(line.asOldId()), 0};
    AcDbObjectPointer<AcDbXrecord> record(Put(L"R"), AcDb::kForWrite);
    const List list(acutBuildList(330, name, RTNONE));
    ASSERT_EQ(record->setFromRbChain(*list.get()), Acad::eOk);
    resbuf* chain = nullptr;
    ASSERT_EQ(record->rbChain(&chain), Acad::eOk);
    const List read(chain);
    EXPECT_EQ(AcDbObjectId().setFromOldId(chain->resval.rlname[0]), line);
}

TEST_F(DictionaryTest, Xrecord_RefusesCodesItCannotHold) {
    AcDbObjectPointer<AcDbXrecord> record(Put(L"R"), AcDb::kForWrite);
    const List handle(acutBuildList(5, L"1F", RTNONE));
    EXPECT_EQ(record->setFromRbChain(*handle.get()), Acad::eInvalidResBuf);
    const List xdata(acutBuildList(1000, L"x", RTNONE));
    EXPECT_EQ(record->setFromRbChain(*xdata.get()), Acad::eInvalidResBuf);
    const List type(acutBuildList(RTSHORT, 1, RTNONE));
    EXPECT_EQ(record->setFromRbChain(*type.get()), Acad::eInvalidResBuf);
}

TEST_F(DictionaryTest, Xrecord_WriteWhileOpenForRead_IsRefused) {
    AcDbObjectPointer<AcDbXrecord> record(Put(L"R"));
    const List list(acutBuildList(90, 1, RTNONE));
    EXPECT_EQ(record->setFromRbChain(*list.get()), Acad::eNotOpenForWrite);
}

TEST_F(DictionaryTest, ExtensionDictionary_IsMadeOnce) {
    AcDbObjectPointer<AcDbLine> line(ALine(), AcDb::kForWrite);
    EXPECT_TRUE(line->extensionDictionary().isNull());
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eAlreadyInDb);
    AcDbObjectPointer<AcDbDictionary> dictionary(line->extensionDictionary());
    EXPECT_EQ(dictionary->ownerId(), line->objectId());
}

}  // namespace
}  // namespace workbench::test
