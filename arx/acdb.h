// Enumerations of the drawing database.
#pragma once

#include "acadstrc.h"
#include "adesk.h"
#include "arx_port.h"

struct AcDb {
    enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

    enum Visibility { kInvisible = 1, kVisible = 0 };

    enum DuplicateRecordCloning { kDrcNotApplicable = 0, kDrcIgnore = 1, kDrcReplace = 2 };

    enum TextHorzMode {
        kTextLeft = 0,
        kTextCenter = 1,
        kTextRight = 2,
        kTextAlign = 3,
        kTextMid = 4,
        kTextFit = 5
    };
    enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };

    enum DxfCode { kDxfRegAppName = 1001 };

    // What a group code's value is.
    enum DwgDataType {
        kDwgNull = 0,
        kDwgReal = 1,
        kDwgInt32 = 2,
        kDwgInt16 = 3,
        kDwgInt8 = 4,
        kDwgText = 5,
        kDwgBChunk = 6,
        kDwgHandle = 7,
        kDwgHardOwnershipId = 8,
        kDwgSoftOwnershipId = 9,
        kDwgHardPointerId = 10,
        kDwgSoftPointerId = 11,
        kDwg3Real = 12,
        kDwgInt64 = 13,
        kDwgNotRecognized = 19,
    };
};

// Names of the blocks that every drawing has.
#define ACDB_MODEL_SPACE ACDB_T("*Model_Space")
#define ACDB_PAPER_SPACE ACDB_T("*Paper_Space")

// What the value of a group code of an extension record or of xdata is; kDwgNotRecognized for other codes.
ARX_PORT AcDb::DwgDataType acdbGroupCodeToType(int code);
