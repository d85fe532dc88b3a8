#include "dbents.h"
#include "dbpl.h"
#include "object_access.h"

using namespace workbench::database;

WORKBENCH_DEFINE_CLASS(AcDbCurve, AcDbEntity)
AcDbCurve::AcDbCurve(AcDbImpObject* data) : AcDbEntity(data) {}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbLine, AcDbCurve, ACRX_T("LINE"))
AcDbLine::AcDbLine() : AcDbCurve(new LineData) {}
AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : AcDbLine() {
    setStartPoint(start);
    setEndPoint(end);
}
AcGePoint3d AcDbLine::startPoint() const {
    return ReadData<LineData>(*this).start;
}
Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& p) {
    return WriteMember(*this, &LineData::start, p);
}
AcGePoint3d AcDbLine::endPoint() const {
    return ReadData<LineData>(*this).end;
}
Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& p) {
    return WriteMember(*this, &LineData::end, p);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbPoint, AcDbEntity, ACRX_T("POINT"))
AcDbPoint::AcDbPoint() : AcDbEntity(new PointData) {}
AcGePoint3d AcDbPoint::position() const {
    return ReadData<PointData>(*this).position;
}
Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& p) {
    return WriteMember(*this, &PointData::position, p);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbCircle, AcDbCurve, ACRX_T("CIRCLE"))
AcDbCircle::AcDbCircle() : AcDbCurve(new CircleData) {}
AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) : AcDbCircle() {
    setCenter(center);
    setRadius(radius);
    WriteMember(*this, &CircleData::normal, normal);
}
AcGePoint3d AcDbCircle::center() const {
    return ReadData<CircleData>(*this).center;
}
Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& p) {
    return WriteMember(*this, &CircleData::center, p);
}
double AcDbCircle::radius() const {
    return ReadData<CircleData>(*this).radius;
}
Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
    return radius >= 0 ? WriteMember(*this, &CircleData::radius, radius) : Acad::eInvalidInput;
}
AcGeVector3d AcDbCircle::normal() const {
    return ReadData<CircleData>(*this).normal;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbArc, AcDbCurve, ACRX_T("ARC"))
AcDbArc::AcDbArc() : AcDbCurve(new ArcData) {}
AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle) : AcDbArc() {
    setCenter(center);
    setRadius(radius);
    setStartAngle(startAngle);
    setEndAngle(endAngle);
}
AcGePoint3d AcDbArc::center() const {
    return ReadData<ArcData>(*this).center;
}
Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& p) {
    return WriteMember(*this, &ArcData::center, p);
}
double AcDbArc::radius() const {
    return ReadData<ArcData>(*this).radius;
}
Acad::ErrorStatus AcDbArc::setRadius(double radius) {
    return radius >= 0 ? WriteMember(*this, &ArcData::radius, radius) : Acad::eInvalidInput;
}
double AcDbArc::startAngle() const {
    return ReadData<ArcData>(*this).startAngle;
}
Acad::ErrorStatus AcDbArc::setStartAngle(double angle) {
    return WriteMember(*this, &ArcData::startAngle, angle);
}
double AcDbArc::endAngle() const {
    return ReadData<ArcData>(*this).endAngle;
}
Acad::ErrorStatus AcDbArc::setEndAngle(double angle) {
    return WriteMember(*this, &ArcData::endAngle, angle);
}
AcGeVector3d AcDbArc::normal() const {
    return ReadData<ArcData>(*this).normal;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbEllipse, AcDbCurve, ACRX_T("ELLIPSE"))
AcDbEllipse::AcDbEllipse() : AcDbCurve(new EllipseData) {}
AcGePoint3d AcDbEllipse::center() const {
    return ReadData<EllipseData>(*this).center;
}
AcGeVector3d AcDbEllipse::majorAxis() const {
    return ReadData<EllipseData>(*this).majorAxis;
}
AcGeVector3d AcDbEllipse::normal() const {
    return ReadData<EllipseData>(*this).normal;
}
double AcDbEllipse::radiusRatio() const {
    return ReadData<EllipseData>(*this).ratio;
}
double AcDbEllipse::startParam() const {
    return ReadData<EllipseData>(*this).startParam;
}
double AcDbEllipse::endParam() const {
    return ReadData<EllipseData>(*this).endParam;
}

Acad::ErrorStatus AcDbEllipse::set(const AcGePoint3d& center, const AcGeVector3d& normal,
                                   const AcGeVector3d& majorAxis, double radiusRatio, double startParam,
                                   double endParam) {
    const Acad::ErrorStatus status = PrepareWrite(*this);
    if (status != Acad::eOk) {
        return status;
    }
    auto& data = static_cast<EllipseData&>(DataOf(*this));
    data.center = center;
    data.normal = normal;
    data.majorAxis = majorAxis;
    data.ratio = radiusRatio;
    data.startParam = startParam;
    data.endParam = endParam;
    return Acad::eOk;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbSolid, AcDbEntity, ACRX_T("SOLID"))
AcDbSolid::AcDbSolid() : AcDbEntity(new SolidData) {}

Acad::ErrorStatus AcDbSolid::getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const {
    if (index >= std::size(SolidData{}.corners)) {
        return Acad::eInvalidIndex;
    }
    point = ReadData<SolidData>(*this).corners[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::setPointAt(Adesk::UInt16 index, const AcGePoint3d& point) {
    if (index >= std::size(SolidData{}.corners)) {
        return Acad::eInvalidIndex;
    }
    const Acad::ErrorStatus status = PrepareWrite(*this);
    if (status == Acad::eOk) {
        static_cast<SolidData&>(DataOf(*this)).corners[index] = point;
    }
    return status;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbPolyline, AcDbCurve, ACRX_T("LWPOLYLINE"))
AcDbPolyline::AcDbPolyline() : AcDbCurve(new PolylineData) {}

namespace {
constexpr std::int16_t kClosedFlag = 1;

const PolylineVertex* VertexAt(const AcDbPolyline& polyline, unsigned int index) {
    const auto& vertices = ReadData<PolylineData>(polyline).vertices;
    return index < vertices.size() ? &vertices[index] : nullptr;
}
}  // namespace

unsigned int AcDbPolyline::numVerts() const {
    return static_cast<unsigned int>(ReadData<PolylineData>(*this).vertices.size());
}
bool AcDbPolyline::isClosed() const {
    return (ReadData<PolylineData>(*this).flags & kClosedFlag) != 0;
}
Acad::ErrorStatus AcDbPolyline::setClosed(bool closed) {
    const std::int16_t others = ReadData<PolylineData>(*this).flags & ~kClosedFlag;
    return WriteMember(*this, &PolylineData::flags, others | (closed ? kClosedFlag : 0));
}
double AcDbPolyline::elevation() const {
    return ReadData<PolylineData>(*this).elevation;
}
AcGeVector3d AcDbPolyline::normal() const {
    return ReadData<PolylineData>(*this).normal;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const {
    const PolylineVertex* vertex = VertexAt(*this, index);
    if (vertex == nullptr) {
        return Acad::eInvalidIndex;
    }
    point = vertex->point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const {
    AcGePoint2d flat;
    const Acad::ErrorStatus status = getPointAt(index, flat);
    if (status == Acad::eOk) {
        point = AcGePoint3d(flat.x, flat.y, elevation());
    }
    return status;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
    const PolylineVertex* vertex = VertexAt(*this, index);
    if (vertex == nullptr) {
        return Acad::eInvalidIndex;
    }
    bulge = vertex->bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
    const PolylineVertex* vertex = VertexAt(*this, index);
    if (vertex == nullptr) {
        return Acad::eInvalidIndex;
    }
    startWidth = vertex->startWidth;
    endWidth = vertex->endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth) {
    if (index > ReadData<PolylineData>(*this).vertices.size()) {
        return Acad::eInvalidIndex;
    }
    const Acad::ErrorStatus status = PrepareWrite(*this);
    if (status == Acad::eOk) {
        auto& vertices = static_cast<PolylineData&>(DataOf(*this)).vertices;
        const PolylineVertex vertex{point, bulge, startWidth < 0 ? 0 : startWidth,
                                    endWidth < 0 ? 0 : endWidth};
        vertices.insert(vertices.begin() + index, vertex);
    }
    return status;
}
