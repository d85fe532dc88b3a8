// Paragraph text.
#pragma once

#include "dbents.h"

class ARX_PORT AcDbMText : public AcDbEntity {
    ACDB_DECLARE_ENTITY(AcDbMText);

    AcGePoint3d location() const;
    Acad::ErrorStatus setLocation(const AcGePoint3d& point);
    double textHeight() const;
    Acad::ErrorStatus setTextHeight(double height);
    double width() const;
    double rotation() const;
    // 1 to 9: top left, top centre ... bottom right.
    int attachment() const;
    // The text with its format codes; a copy that the caller frees.
    ACHAR* contents() const;
    int setContents(const ACHAR* text);
    AcDbObjectId textStyle() const;
};
