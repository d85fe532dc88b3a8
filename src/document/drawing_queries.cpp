#include "document/drawing_queries.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include "acdocman.h"
#include "acedads.h"
#include "acutmem.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbmain.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "document/block_name_test.h"
#include "document/distinct_texts.h"
#include "platform/letter_case.h"
#include "platform/platform.h"
#include "storage/path_text.h"
#include "storage/text_stream.h"

namespace {

constexpr std::array<std::wstring_view, 14> kTaggedBlocks = {
    L"BAL",     L"BLT_BLK", L"EQP-TAG", L"FTG_BLK", L"FLG_BLK", L"GSK_BLK", L"INS_BLK",
    L"TAGLINE", L"MIS_BLK", L"NIP_BLK", L"PIP_BLK", L"SCR_BLK", L"SUP_BLK", L"VAL_BLK"};

constexpr wchar_t kLineNumberTag[] = L"LIN_NUM";
constexpr wchar_t kNoLineNumber[] = L"-";

constexpr std::wstring_view kBalloonPrefix = L"BAL";
constexpr int kFirstBalloon = 1;
constexpr int kLastBalloon = 29;

constexpr std::wstring_view kBlanks = L" \t\n\v\f\r";

bool IsBalloonName(const std::wstring& strName) {
    if (!strName.starts_with(kBalloonPrefix)) return false;
    const int nNumber = LeadingInteger(strName.substr(kBalloonPrefix.size()));
    return nNumber >= kFirstBalloon && nNumber <= kLastBalloon && strName.back() >= L'A' &&
           strName.back() <= L'H';
}

std::wstring Trimmed(const std::wstring& strText) {
    const size_t nFirst = strText.find_first_not_of(kBlanks);
    if (nFirst == std::wstring::npos) return {};
    return strText.substr(nFirst, strText.find_last_not_of(kBlanks) - nFirst + 1);
}

// Takes over a text that the host allocated.
std::wstring TakeHostText(ACHAR* pszText) {
    const std::wstring strText = pszText ? pszText : L"";
    acutDelString(pszText);
    return strText;
}

AcDbDatabase* DatabaseOrWorking(AcDbDatabase* db) {
    return db ? db : acdbHostApplicationServices()->workingDatabase();
}

// The database of the open document with that path; null if there is none.
AcDbDatabase* FindOpenDatabase(const std::wstring& strPath) {
    std::unique_ptr<AcApDocumentIterator> pDocuments(acDocManager->newAcApDocumentIterator());
    for (; !pDocuments->done(); pDocuments->step()) {
        AcApDocument* pDoc = pDocuments->document();
        if (platform::EqualWithoutCase(pDoc->fileName(), strPath)) return pDoc->database();
    }
    return nullptr;
}

// The attribute LIN_NUM of a tagged block; a block without it leaves `lineNumber` alone.
void ReadLineNumber(const AcDbBlockReference& reference, std::wstring& lineNumber) {
    std::unique_ptr<AcDbObjectIterator> pAttributes(reference.attributeIterator());
    for (; pAttributes && !pAttributes->done(); pAttributes->step()) {
        AcDbObjectPointer<AcDbAttribute> pAttribute(pAttributes->objectId(), AcDb::kForRead);
        if (pAttribute.openStatus() != Acad::eOk || TakeHostText(pAttribute->tag()) != kLineNumberTag)
            continue;
        lineNumber = Trimmed(TakeHostText(pAttribute->textString()));
        if (lineNumber == kNoLineNumber) lineNumber.clear();
        break;
    }
}

Acad::ErrorStatus CollectFromModelSpace(std::vector<std::wstring>& out, AcDbDatabase* pDatabase) {
    std::unique_ptr<AcDbBlockTableRecordIterator> pEntities;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> pModelSpace(GetModelSpaceId(pDatabase), AcDb::kForRead);
        if (pModelSpace.openStatus() != Acad::eOk) return pModelSpace.openStatus();
        AcDbBlockTableRecordIterator* pIterator = nullptr;
        const Acad::ErrorStatus status = pModelSpace->newIterator(pIterator);
        if (status != Acad::eOk) return status;
        pEntities.reset(pIterator);
    }
    CDistinctTexts lines(out);
    CBlockNameTest taggedBlocks(IsTaggedBlockName);
    for (; !pEntities->done(); pEntities->step()) {
        AcDbObjectId id;
        if (pEntities->getEntityId(id) != Acad::eOk) continue;
        AcDbObjectPointer<AcDbBlockReference> pReference(id, AcDb::kForRead);
        if (pReference.openStatus() != Acad::eOk || !taggedBlocks.Passes(pReference->blockTableRecord()))
            continue;
        std::wstring strLine;
        ReadLineNumber(*pReference, strLine);
        lines.Add(std::move(strLine));
    }
    return Acad::eOk;
}

// Finds the object under `key`, or makes an empty one.
template <class Entry>
Acad::ErrorStatus FindOrCreateEntry(const AcDbObjectId& dictionaryId, const wchar_t* key, AcDbObjectId& id,
                                    bool create) {
    AcDbObjectPointer<AcDbDictionary> pDictionary(dictionaryId, AcDb::kForRead);
    if (pDictionary.openStatus() != Acad::eOk) return pDictionary.openStatus();
    Acad::ErrorStatus status = pDictionary->getAt(key, id);
    if (status != Acad::eKeyNotFound || !create) return status;
    status = pDictionary->upgradeOpen();
    if (status != Acad::eOk) return status;
    AcDbObjectPointer<Entry> pEntry;
    pEntry.create();
    return pDictionary->setAt(key, pEntry, id);
}

}  // namespace

AcDbObjectId GetModelSpaceId(AcDbDatabase* db) {
    AcDbObjectId id;
    db = DatabaseOrWorking(db);
    if (!db) return id;
    AcDbObjectPointer<AcDbBlockTable> pBlocks(db->blockTableId(), AcDb::kForRead);
    if (pBlocks.openStatus() != Acad::eOk || pBlocks->getAt(ACDB_MODEL_SPACE, id) != Acad::eOk) return {};
    return id;
}

std::wstring GetBlockNameOfEntity(const AcDbObjectId& id) {
    AcDbObjectPointer<AcDbBlockTableRecord> pRecord(id, AcDb::kForRead);
    if (pRecord.openStatus() != Acad::eOk) {
        AcDbObjectPointer<AcDbBlockReference> pReference(id, AcDb::kForRead);
        if (pReference.openStatus() != Acad::eOk) return {};
        pRecord.open(pReference->blockTableRecord(), AcDb::kForRead);
    }
    ACHAR* pszName = nullptr;
    if (pRecord.openStatus() != Acad::eOk || pRecord->getName(pszName) != Acad::eOk) return {};
    return TakeHostText(pszName);
}

bool IsTaggedBlockName(const std::wstring& strBlockName) {
    const std::wstring strName = platform::ToUpper(strBlockName);
    if (IsBalloonName(strName)) return true;
    return std::find(kTaggedBlocks.begin(), kTaggedBlocks.end(), strName) != kTaggedBlocks.end();
}

bool GetLineNumberOfBlock(const AcDbObjectId& id, std::wstring& lineNumber) {
    if (!IsTaggedBlockName(GetBlockNameOfEntity(id))) return false;
    AcDbObjectPointer<AcDbBlockReference> pReference(id, AcDb::kForRead);
    if (pReference.openStatus() != Acad::eOk) return false;
    ReadLineNumber(*pReference, lineNumber);
    return true;
}

Acad::ErrorStatus CollectLineNumbers(std::vector<std::wstring>& out, std::wstring path) {
    if (AcDbDatabase* pOpen = FindOpenDatabase(path)) return CollectFromModelSpace(out, pOpen);
    AcDbDatabase database(false, true);
    const Acad::ErrorStatus status = database.readDwgFile(path.c_str(), AcDbDatabase::kForReadAndReadShare);
    return status == Acad::eOk ? CollectFromModelSpace(out, &database) : status;
}

Acad::ErrorStatus FindOrCreateDictionary(const wchar_t* name, AcDbObjectId& id, bool create,
                                         AcDbDatabase* db) {
    db = DatabaseOrWorking(db);
    if (!db) return Acad::eNoDatabase;
    return FindOrCreateEntry<AcDbDictionary>(db->namedObjectsDictionaryId(), name, id, create);
}

Acad::ErrorStatus FindOrCreateXrecord(const wchar_t* key, const wchar_t* dictionary, AcDbObjectId& id,
                                      bool create, AcDbDatabase* db) {
    AcDbObjectId dictionaryId;
    const Acad::ErrorStatus status = FindOrCreateDictionary(dictionary, dictionaryId, create, db);
    if (status != Acad::eOk) return status;
    return FindOrCreateEntry<AcDbXrecord>(dictionaryId, key, id, create);
}

bool GetSysVarString(const wchar_t* name, std::wstring& value) {
    resbuf result{};
    if (acedGetVar(name, &result) != RTNORM || result.restype != RTSTR) return false;
    value = TakeHostText(result.resval.rstring);
    return true;
}

bool GetSysVarShort(const wchar_t* name, int& value) {
    resbuf result{};
    if (acedGetVar(name, &result) != RTNORM) return false;
    if (result.restype == RTSTR) acutDelString(result.resval.rstring);
    if (result.restype != RTSHORT) return false;
    value = result.resval.rint;
    return true;
}

void SetSysVarShort(const wchar_t* name, int value) {
    int nPresent = 0;
    if (GetSysVarShort(name, nPresent) && nPresent == value) return;
    resbuf result{};
    result.restype = RTSHORT;
    result.resval.rint = static_cast<short>(value);
    acedSetVar(name, &result);
}

bool ReadDwgLockFile(const std::wstring& dwgPath, std::wstring& user, std::wstring& machine,
                     std::wstring& time) {
    user.clear();
    machine.clear();
    time.clear();
    const size_t nPoint = dwgPath.rfind(L'.');
    if (nPoint == std::wstring::npos || !platform::EqualWithoutCase(dwgPath.substr(nPoint), L".dwg"))
        return false;
    std::string strBytes;
    const std::wstring strLockPath = dwgPath.substr(0, nPoint) + L".dwl";
    if (platform::GetFiles().ReadBytes(strLockPath, platform::Sharing::kReadWrite, strBytes) !=
        platform::kDone) {
        return false;
    }
    CTextStream stream(std::move(strBytes));
    return stream.ReadLine(user) && stream.ReadLine(machine) && stream.ReadLine(time);
}
