#include "drawing_file/release12.h"

#include <algorithm>
#include <cstdlib>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {

using database::RawGroup;
using database::RawGroups;

namespace {

// The kind of a dimension in the low bits of its flags.
constexpr long kDimensionKind = 7;
constexpr long kLinear = 0;

RawGroup Marker(const wchar_t* name) {
    return {static_cast<std::int16_t>(kCodeSubclass), name};
}

// Groups of a dimension that depend on its kind; all others are common to dimensions.
bool IsOfDimensionKind(const RawGroup& group) {
    const int code = group.code;
    const auto isCoordinateOf = [code](int first) {
        return code == first || code == first + 10 || code == first + 20;
    };
    return isCoordinateOf(12) || isCoordinateOf(13) || isCoordinateOf(14) || isCoordinateOf(15) ||
           isCoordinateOf(16) || code == 40 || code == 50 || code == 52;
}

const wchar_t* DimensionMarker(long kind) {
    constexpr const wchar_t* kMarkers[] = {L"AcDbAlignedDimension",      L"AcDbAlignedDimension",
                                           L"AcDb2LineAngularDimension", L"AcDbDiametricDimension",
                                           L"AcDbRadialDimension",       L"AcDb3PointAngularDimension",
                                           L"AcDbOrdinateDimension",     L"AcDbAlignedDimension"};
    return kMarkers[kind & kDimensionKind];
}

long DimensionKind(const RawGroups& groups) {
    const auto flags =
        std::find_if(groups.begin(), groups.end(), [](const RawGroup& group) { return group.code == 70; });
    return flags != groups.end() ? std::wcstol(flags->text.c_str(), nullptr, 10) & kDimensionKind : kLinear;
}

RawGroups WithDimensionMarkers(RawGroups groups) {
    const long kind = DimensionKind(groups);
    const auto ofKind = std::stable_partition(
        groups.begin(), groups.end(), [](const RawGroup& group) { return !IsOfDimensionKind(group); });
    RawGroups marked{Marker(L"AcDbDimension")};
    marked.insert(marked.end(), groups.begin(), ofKind);
    marked.push_back(Marker(DimensionMarker(kind)));
    marked.insert(marked.end(), ofKind, groups.end());
    if (kind == kLinear) marked.push_back(Marker(L"AcDbRotatedDimension"));
    return marked;
}

const wchar_t* SimpleMarker(const std::wstring& dxfName) {
    if (dxfName == L"3DFACE") return L"AcDbFace";
    if (dxfName == L"SHAPE") return L"AcDbShape";
    return dxfName == L"VIEWPORT" ? L"AcDbViewport" : nullptr;
}

}  // namespace

void AddMarkersToRelease12(database::ProxyEntityData& entity) {
    RawGroups& extra = entity.extra;
    // The reader put a marker ahead of what the entity's own kind has.
    if (!extra.empty() && extra.front().code == kCodeSubclass) extra.erase(extra.begin());
    if (entity.dxfName == L"DIMENSION") {
        extra = WithDimensionMarkers(std::move(extra));
    } else if (const wchar_t* marker = SimpleMarker(entity.dxfName)) {
        extra.insert(extra.begin(), Marker(marker));
    } else if (!extra.empty()) {
        extra.insert(extra.begin(), Marker(L"AcDbEntity"));
    }
}

}  // namespace workbench::drawing_file
