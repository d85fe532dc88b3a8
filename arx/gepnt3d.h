// Points, vectors and scales.
#pragma once

class AcGePoint2d {
  public:
    double x = 0;
    double y = 0;
    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double px, double py) : x(px), y(py) {}
    friend constexpr bool operator==(const AcGePoint2d&, const AcGePoint2d&) = default;
};

class AcGePoint3d {
  public:
    double x = 0;
    double y = 0;
    double z = 0;
    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double px, double py, double pz) : x(px), y(py), z(pz) {}
    friend constexpr bool operator==(const AcGePoint3d&, const AcGePoint3d&) = default;
};

class AcGeVector3d {
  public:
    double x = 0;
    double y = 0;
    double z = 0;
    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double vx, double vy, double vz) : x(vx), y(vy), z(vz) {}
    friend constexpr bool operator==(const AcGeVector3d&, const AcGeVector3d&) = default;
};

class AcGeScale3d {
  public:
    double sx = 1;
    double sy = 1;
    double sz = 1;
    constexpr AcGeScale3d() = default;
    explicit constexpr AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
    friend constexpr bool operator==(const AcGeScale3d&, const AcGeScale3d&) = default;
};
