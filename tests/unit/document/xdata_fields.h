// What a list of items reads as.
#pragma once

#include <array>
#include <cstdint>
#include <ostream>

#include "document/doc_xdata.h"
#include "xdata_items.h"

// The fields of a record, with the defaults of one that was never stored.
struct XDataFields {
    using Tag = std::array<std::uint8_t, 8>;

    int spec = 0;
    int mainSize = 12;
    int branchSize = 10;
    int isoPlane = 0;
    int line = 0;
    int electricMode = 0;
    int project = 0;
    int extraLong = 0;
    int extraShort1 = 0;
    int extraShort2 = 0;
    Tag tag{};
    int app = 0;
    bool operator==(const XDataFields&) const = default;
};

inline void PrintTo(const XDataFields& fields, std::ostream* out) {
    *out << "spec " << fields.spec << ", main " << fields.mainSize << ", branch " << fields.branchSize
         << ", iso " << fields.isoPlane << ", line " << fields.line << ", electric " << fields.electricMode
         << ", project " << fields.project << ", extra " << fields.extraLong << ' ' << fields.extraShort1
         << ' ' << fields.extraShort2 << " tag";
    for (int byte : fields.tag)
        *out << ' ' << byte;
    *out << ", app " << fields.app;
}

inline XDataFields ReadFields(const XDataItems& items) {
    CKV2D_DocXData data(kDocXDataAppName);
    data.ReadItems(items.Get());
    return {data.m_specId,      data.m_mainSize,     data.m_branchSize, data.m_isoPlane,
            data.m_lineId,      data.m_electricMode, data.m_projectId,  data.m_extraLong,
            data.m_extraShort1, data.m_extraShort2,  data.m_extraTag,   data.m_appId};
}
