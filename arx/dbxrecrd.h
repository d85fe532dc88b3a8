// Extension records: lists of values by group code.
#pragma once

#include "dbmain.h"

class ARX_PORT AcDbXrecord : public AcDbObject {
  public:
    static AcRxClass* desc();
    static AcDbXrecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbXrecord();

    // A copy of the items that the caller frees with acutRelRb; null for an empty record.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* auxDatabase = nullptr) const;
    // Replaces the items; codes 1 to 369 (but 5 and 105) and those that acdbGroupCodeToType knows.
    // eInvalidResBuf for others.
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* auxDatabase = nullptr);
    Acad::ErrorStatus setEmpty();

    AcDb::DuplicateRecordCloning mergeStyle() const;
    Acad::ErrorStatus setMergeStyle(AcDb::DuplicateRecordCloning style);
};
