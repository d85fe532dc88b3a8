// CKV2D_DocXData: the small record in every drawing that ties it to its project and remembers what the user
// last chose on the palette. It is xdata on the model space's block record.
#pragma once

#include <array>
#include <cstdint>
#include <string>

class AcDbDatabase;
struct resbuf;

// The registered application name of the record; also the name of the dictionary that drawings keep for us.
inline constexpr wchar_t kDocXDataAppName[] = L"KAL-VOR Software - TESSARC";

// A snapshot of the current drawing's record. The usual way: make one on the stack, look at a field, or
// assign it and set m_dirty, and let it go out of scope.
//
// In the drawing most fields are 16 bits wide: a size index of 65,538 comes back as 2.
class CKV2D_DocXData {
  public:
    // Reads the record of the current drawing. Whatever is missing there keeps its default; no drawing, no
    // record and a record that cannot be read all look alike.
    explicit CKV2D_DocXData(const std::wstring& appName);

    // Writes the record if m_dirty is set.
    ~CKV2D_DocXData();
    CKV2D_DocXData(const CKV2D_DocXData&) = delete;
    CKV2D_DocXData& operator=(const CKV2D_DocXData&) = delete;

    // Writes the record into the current drawing if m_dirty is set, and takes the document's lock for it
    // where the caller has none. A host that refuses the data makes a message box; any other failure is
    // silent. If an event has closed the drawing meanwhile, the one that is current now gets nothing.
    void Write();

    // Takes the fields from the items of a stored record, in their order, as far as they go. An item of
    // another kind than the next field's is not passed over: the fields behind it are looked for in its
    // place. Null is an empty list. The constructor does this with the drawing's record.
    void ReadItems(const resbuf* pItems);

    std::wstring m_appName;
    std::int32_t m_specId = 0;
    std::int32_t m_mainSize = 12;    // index in the size selector
    std::int32_t m_branchSize = 10;  // the same
    std::int32_t m_isoPlane = 0;     // isometric drawings
    std::int32_t m_lineId = 0;
    std::int32_t m_electricMode = 0;  // electrical drawings: 0 layout, 1 schematic
    std::int32_t m_projectId = 0;     // 0: the drawing has no project yet
    std::int32_t m_extraLong = 0;     // this and the next three belong to other programs of the suite
    std::int16_t m_extraShort1 = 0;
    std::int16_t m_extraShort2 = 0;
    std::array<std::uint8_t, 8> m_extraTag{};
    std::int32_t m_appId = 0;  // discipline of the drawing, an eApp
    bool m_dirty = false;      // set by whoever changes a field

  private:
    void Read();
    bool IsDrawingGone() const;
    resbuf* BuildItems() const;

    const AcDbDatabase* m_pDrawing = nullptr;  // that the record was read from; only to be compared
};
