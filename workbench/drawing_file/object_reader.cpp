#include "drawing_file/object_reader.h"

#include <algorithm>
#include <span>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kEntityMarker = "AcDbEntity";

database::RawGroup MarkerGroup(std::wstring marker) {
    return {static_cast<std::int16_t>(kCodeSubclass), std::move(marker)};
}

}  // namespace

void FillCommonParts(const RecordBody& body, ReadContext& context, AcDbImpObject& object) {
    object.extensionDictionary = context.builder.Reference(body.ExtensionDictionary());
    for (const std::uint64_t reactor : body.Reactors()) {
        if (AcDbStub* stub = context.builder.Reference(reactor)) object.reactors.push_back(stub);
    }
    object.xdata = XdataOf(body.Xdata(), context);
}

void KeepRest(RecordBody& body, ReadContext& context, std::string_view lastSubclass,
              EmptyMarkers emptyMarkers, database::RawGroups& extra) {
    const auto& markers = body.Markers();
    const auto& groups = body.Groups();
    std::size_t next = 0;
    for (std::uint32_t chunk = 0; chunk < markers.size(); ++chunk) {
        const std::size_t first = next;
        while (next < groups.size() && groups[next].chunk == chunk)
            ++next;
        const auto chunkGroups = std::span(groups).subspan(first, next - first);
        const bool hasRest = std::any_of(chunkGroups.begin(), chunkGroups.end(),
                                         [](const BodyGroup& candidate) { return !candidate.isTaken; });
        const bool isKept = emptyMarkers == EmptyMarkers::kKeep && markers[chunk] != kEntityMarker;
        if (chunk > 0 && (hasRest || isKept)) {
            extra.push_back(MarkerGroup(context.Text(markers[chunk], body.Line())));
        } else if (hasRest && markers.size() == 1 && !lastSubclass.empty()) {
            extra.push_back(MarkerGroup({lastSubclass.begin(), lastSubclass.end()}));
        }
        for (const BodyGroup& candidate : chunkGroups) {
            if (!candidate.isTaken) extra.push_back(RawOf(candidate.group, context));
        }
    }
}

}  // namespace workbench::drawing_file
