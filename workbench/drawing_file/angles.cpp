#include "drawing_file/angles.h"

#include <cmath>
#include <initializer_list>

namespace workbench::drawing_file {
namespace {

constexpr double kRadiansInDegree = 3.14159265358979323846 / 180;
constexpr double kShortDecimals = 1e9;

}  // namespace

double RadiansOf(double degrees) {
    return degrees * kRadiansInDegree;
}

double DegreesOf(double radians) {
    const double degrees = radians / kRadiansInDegree;
    if (std::abs(degrees) < kShortDecimals) {
        const double rounded = std::round(degrees * kShortDecimals) / kShortDecimals;
        if (RadiansOf(rounded) == radians) return rounded;
    }
    for (const double neighbour :
         {degrees, std::nextafter(degrees, HUGE_VAL), std::nextafter(degrees, -HUGE_VAL)}) {
        if (RadiansOf(neighbour) == radians) return neighbour;
    }
    return degrees;
}

}  // namespace workbench::drawing_file
