// Lightweight polylines.
#pragma once

#include "dbents.h"

class ARX_PORT AcDbPolyline : public AcDbCurve {
    ACDB_DECLARE_ENTITY(AcDbPolyline);

    unsigned int numVerts() const;
    bool isClosed() const;
    Acad::ErrorStatus setClosed(bool closed);
    double elevation() const;
    AcGeVector3d normal() const;

    // eInvalidIndex behind the last vertex.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
};
