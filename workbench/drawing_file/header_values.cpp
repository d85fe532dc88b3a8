#include "drawing_file/header_values.h"

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {

const Group* FindHeaderValue(const FileTree& tree, std::string_view name) {
    const Section* header = tree.Find("HEADER");
    if (header == nullptr) return nullptr;
    const auto groups = header->leading;
    for (std::size_t i = 0; i + 1 < groups.size(); ++i) {
        if (groups[i].code == kCodeVariable && groups[i].value == name) return &groups[i + 1];
    }
    return nullptr;
}

std::string_view ReleaseOf(const FileTree& tree) {
    const Group* version = FindHeaderValue(tree, kVersionVariable);
    return version != nullptr ? version->value : kRelease12;
}

}  // namespace workbench::drawing_file
