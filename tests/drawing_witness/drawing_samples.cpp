// Makes drawings through the host interface, as applications do, and writes each with a text of what it
// holds.
//
//   drawing_samples FOLDER
#include <cstdio>
#include <fstream>
#include <string>

#include "acdbads.h"
#include "acestext.h"
#include "acutads.h"
#include "adscodes.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "drawing_content.h"
#include "drawing_file/drawing_writer.h"

namespace {

constexpr const wchar_t* kRecord = L"KAL-VOR Software - TESSARC";

// Ends the program where a sample cannot be made as it was meant.
void Must(Acad::ErrorStatus status, const char* what) {
    if (status == Acad::eOk) return;
    std::fprintf(stderr, "%s: %ls\n", what, acadErrorStatusText(status));
    std::exit(1);
}
#define MUST(call) Must((call), #call)

AcDbObjectId ModelSpace(AcDbDatabase& drawing) {
    AcDbObjectPointer<AcDbBlockTable> table(drawing.blockTableId());
    AcDbObjectId id;
    MUST(table->getAt(ACDB_MODEL_SPACE, id));
    return id;
}

template <class... Items>
void SetXdata(AcDbObject& object, Items... items) {
    resbuf* list = acutBuildList(items..., RTNONE);
    MUST(object.setXData(list));
    acutRelRb(list);
}

AcDbObjectId MakeBlock(AcDbDatabase& drawing, const wchar_t* name) {
    AcDbObjectPointer<AcDbBlockTable> table(drawing.blockTableId(), AcDb::kForWrite);
    auto* record = new AcDbBlockTableRecord;
    MUST(record->setName(name));
    AcDbObjectId id;
    MUST(table->add(id, record));
    auto* circle = new AcDbCircle({0, 0, 0}, {0, 0, 1}, 2);
    MUST(record->appendAcDbEntity(circle));
    MUST(circle->close());
    MUST(record->close());
    return id;
}

void AddReference(AcDbBlockTableRecord& space, AcDbObjectId block, const wchar_t* lineNumber, int lineId) {
    auto* reference = new AcDbBlockReference({10.0 * lineId, 20, 0}, block);
    MUST(space.appendAcDbEntity(reference));
    MUST(reference->setRotation(0.1 * lineId));
    for (const wchar_t* tag : {L"LIN_NUM", L"SPEC", L"ERASED"}) {
        auto* attribute = new AcDbAttribute;
        MUST(attribute->setTag(tag));
        MUST(attribute->setTextString(lineNumber));
        MUST(attribute->setHeight(2.5));
        MUST(reference->appendAttribute(attribute));
        if (std::wstring_view(tag) == L"ERASED") MUST(attribute->erase());
        MUST(attribute->close());
    }
    SetXdata(*reference, 1001, kRecord, 1071, 70000 + lineId, 1070, 0, 1070, 1, 1000, L"VALVE   ", 1071, 0,
             1071, lineId, 1070, 2, 1000, L"HV-101 \u00D8 \u2205");
    MUST(reference->close());
}

void FillRecord(AcDbDatabase& drawing) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpace(drawing), AcDb::kForWrite);
    SetXdata(*space.object(), 1001, kRecord, 1071, 3, 1070, 12, 1070, 10, 1070, 0, 1071, 17, 1070, 0, 1071,
             123, 1071, 0, 1070, 0, 1070, 0, 1000, L"", 1070, 2);
    AcDbObjectPointer<AcDbDictionary> root(drawing.namedObjectsDictionaryId(), AcDb::kForWrite);
    AcDbObjectId id;
    auto* dictionary = new AcDbDictionary;
    MUST(root->setAt(kRecord, dictionary, id));
    auto* lines = new AcDbXrecord;
    MUST(dictionary->setAt(L"FilteredLineIds", lines, id));
    resbuf* items = acutBuildList(90, 5, 90, 17, 90, 70000, RTNONE);
    MUST(lines->setFromRbChain(*items));
    acutRelRb(items);
    MUST(lines->close());
    MUST(dictionary->close());
}

// Everything that the module touches, with the trouble that texts and lists can make.
void FillPiping(AcDbDatabase& drawing) {
    acdbHostApplicationServices()->setWorkingDatabase(&drawing);
    if (acdbRegApp(kRecord) != RTNORM || acdbRegApp(L"OTHER") != RTNORM) std::exit(1);
    FillRecord(drawing);
    const AcDbObjectId valve = MakeBlock(drawing, L"VAL_BLK");
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpace(drawing), AcDb::kForWrite);
    AddReference(*space.object(), valve, L"6\"-CW-1001-CS150", 1);
    AddReference(*space.object(), valve, L"-", 2);
    auto* line = new AcDbLine({0, 0, 0}, {1.0 / 3, -1e-9, 12345678.9});
    MUST(space->appendAcDbEntity(line));
    SetXdata(*line, 1001, L"OTHER", 1002, L"{", 1000, std::wstring(255, L'x').c_str(), 1002, L"{", 1040, 0.1,
             1002, L"}", 1002, L"}", 1001, kRecord, 1000, L"caret ^ and \\U+00D8");
    MUST(line->createExtensionDictionary());
    MUST(line->close());
    auto* gone = new AcDbLine({5, 5, 0}, {6, 6, 0});
    MUST(space->appendAcDbEntity(gone));
    MUST(gone->erase());
    MUST(gone->close());
}

void FillGeometry(AcDbDatabase& drawing) {
    AcDbObjectPointer<AcDbLayerTable> layers(drawing.layerTableId(), AcDb::kForWrite);
    auto* layer = new AcDbLayerTableRecord;
    MUST(layer->setName(L"R\u00D6HREN"));
    MUST(layer->setColorIndex(4));
    MUST(layers->add(layer));
    MUST(layer->close());
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpace(drawing), AcDb::kForWrite);
    const auto add = [&](AcDbEntity* entity) {
        MUST(space->appendAcDbEntity(entity));
        MUST(entity->setLayer(L"R\u00D6HREN"));
        MUST(entity->setColorIndex(3));
        return entity;
    };
    add(new AcDbCircle({1, 2, 3}, {0, 0, 1}, 4.5))->close();
    add(new AcDbArc({1, 2, 3}, 4.5, 0.1, 6.0))->close();
    auto* point = new AcDbPoint;
    add(point);
    MUST(point->setPosition({7, 8, 9}));
    MUST(point->close());
    auto* solid = new AcDbSolid;
    add(solid);
    for (Adesk::UInt16 corner = 0; corner < 4; ++corner)
        MUST(solid->setPointAt(corner, {1.0 * corner, corner % 2 * 2.0, 0}));
    MUST(solid->close());
    auto* polyline = new AcDbPolyline;
    for (unsigned i = 0; i < 4; ++i)
        MUST(polyline->addVertexAt(i, {1.5 * i, i * i * 1.0}, 0.25 * i, 0.5, 1));
    MUST(polyline->setClosed(true));
    add(polyline)->close();
    auto* ellipse = new AcDbEllipse;
    MUST(ellipse->set({1, 1, 0}, {0, 0, 1}, {5, 2, 0}, 0.3, 0.5, 4));
    add(ellipse)->close();
    auto* text = new AcDbText;
    MUST(text->setTextString(L"6\"-CW \u00D8\u20AC\u043F\u4E2D 50 %%d"));
    MUST(text->setHeight(3.5));
    MUST(text->setRotation(0.7));
    MUST(text->setHorizontalMode(AcDb::kTextCenter));
    MUST(text->setAlignmentPoint({5, 5, 0}));
    add(text)->close();
    auto* paragraph = new AcDbMText;
    paragraph->setContents((L"{\\fArial;Notes}\\P" + std::wstring(700, L'\u2205')).c_str());
    add(paragraph)->close();
    auto* old = new AcDb2dPolyline;
    add(old);
    for (int i = 0; i < 3; ++i) {
        auto* vertex = new AcDb2dVertex;
        MUST(vertex->setPosition({1.0 * i, 2.0 * i, 0}));
        MUST(vertex->setBulge(0.5 * i));
        AcDbObjectId id;
        MUST(old->appendVertex(id, vertex));
        MUST(vertex->setLayer(L"R\u00D6HREN"));
        MUST(vertex->close());
    }
    MUST(old->close());
}

// A dictionary in which entries were replaced, renamed and erased, with items of every kind.
void FillDictionaries(AcDbDatabase& drawing) {
    AcDbObjectPointer<AcDbDictionary> root(drawing.namedObjectsDictionaryId(), AcDb::kForWrite);
    AcDbObjectId id;
    auto* dictionary = new AcDbDictionary;
    MUST(root->setAt(kRecord, dictionary, id));
    MUST(dictionary->setTreatElementsAsHard(true));
    for (const wchar_t* name : {L"First", L"ERASED", L"first", L"\u00C4 \u4E2D"}) {
        auto* record = new AcDbXrecord;
        MUST(dictionary->setAt(name, record, id));
        const ads_point point = {1.5, -2.5, 1e-9};
        char bytes[] = {0, 1, -1};
        const ads_binary binary = {3, bytes};
        resbuf* items = acutBuildList(1, name, 70, -32768, 90, -2147483647, 40, 0.1, 10, point, 290, 1, 310,
                                      &binary, 420, 0xFFFFFF, 102, L"{NOT A LIST", RTNONE);
        MUST(record->setFromRbChain(*items));
        acutRelRb(items);
        if (std::wstring_view(name) == L"ERASED") MUST(record->erase());
        MUST(record->close());
    }
    if (!dictionary->setName(L"FIRST", L"Renamed")) std::exit(1);
    MUST(dictionary->close());
}

AcDbObjectId MakeLayer(AcDbDatabase& drawing, const wchar_t* name) {
    AcDbObjectPointer<AcDbLayerTable> layers(drawing.layerTableId(), AcDb::kForWrite);
    auto* record = new AcDbLayerTableRecord;
    MUST(record->setName(name));
    AcDbObjectId id;
    MUST(layers->add(id, record));
    MUST(record->close());
    return id;
}

AcDbObjectId IdOfApplication(AcDbDatabase& drawing, const wchar_t* name) {
    AcDbObjectPointer<AcDbRegAppTable> names(drawing.regAppTableId());
    AcDbObjectId id;
    MUST(names->getAt(name, id));
    return id;
}

void AddTroubledReference(AcDbDatabase& drawing, AcDbObjectId block, AcDbObjectId layer) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpace(drawing), AcDb::kForWrite);
    auto* reference = new AcDbBlockReference({1, 2, 0}, block);
    MUST(space->appendAcDbEntity(reference));
    MUST(reference->setLayer(layer));
    auto* attribute = new AcDbAttribute;
    MUST(attribute->setTag(L"LIN_NUM"));
    MUST(attribute->setTextString(L"\"-\" \t ^J \\U+00d8 \x2205 100%"));
    MUST(reference->appendAttribute(attribute));
    SetXdata(*attribute, 1001, L"AGAIN", 1000, L"", 1070, 1, 1001, L"ERASED", 1005, L"FFFF");
    MUST(attribute->close());
    MUST(reference->close());
}

// Names that were erased while things still use them, one that was registered again: whatever applications
// leave behind.
void FillLeftovers(AcDbDatabase& drawing) {
    acdbHostApplicationServices()->setWorkingDatabase(&drawing);
    for (const wchar_t* name : {L"ERASED", L"AGAIN", L"UNUSED"}) {
        if (acdbRegApp(name) != RTNORM) std::exit(1);
    }
    const AcDbObjectId gone = MakeBlock(drawing, L"GONE");
    const AcDbObjectId layer = MakeLayer(drawing, L"GONE");
    AddTroubledReference(drawing, MakeBlock(drawing, L"VAL_BLK"), layer);
    AddTroubledReference(drawing, gone, layer);
    for (const AcDbObjectId id : {gone, layer, IdOfApplication(drawing, L"ERASED"),
                                  IdOfApplication(drawing, L"AGAIN"), IdOfApplication(drawing, L"UNUSED")}) {
        AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
        MUST(object->erase());
    }
    if (acdbRegApp(L"AGAIN") != RTNORM) std::exit(1);
    FillDictionaries(drawing);
}

void Save(AcDbDatabase& drawing, const std::string& path) {
    std::ofstream(path + ".dwg", std::ios::binary) << workbench::drawing_file::WriteDrawing(drawing);
    std::ofstream(path + ".txt", std::ios::binary) << DescribeContent(drawing);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const std::string folder = std::string(argv[1]) + "/";
    AcDbDatabase empty(true, true);
    Save(empty, folder + "empty");
    AcDbDatabase piping(true, true);
    FillPiping(piping);
    Save(piping, folder + "piping");
    AcDbDatabase geometry(true, true);
    FillGeometry(geometry);
    Save(geometry, folder + "geometry");
    AcDbDatabase leftovers(true, true);
    FillLeftovers(leftovers);
    Save(leftovers, folder + "leftovers");
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    return 0;
}
