// Angles: degrees in files, radians in memory.
#pragma once

namespace workbench::drawing_file {

double RadiansOf(double degrees);

// Degrees that RadiansOf turns into the same radians again, where there are such, and a short number
// (90, not 90.00000000000001) where one serves.
double DegreesOf(double radians);

}  // namespace workbench::drawing_file
