// Variables of a drawing file's header, and what follows from the release that it was written by.
#pragma once

#include <string_view>

#include "drawing_file/file_tree.h"

namespace workbench::drawing_file {

// Releases by $ACADVER: they sort as texts.
inline constexpr std::string_view kRelease12 = "AC1009";
inline constexpr std::string_view kRelease2000 = "AC1015";
inline constexpr std::string_view kRelease2007 = "AC1021";
// Those behind 2000 that are known: 2004, 2007, 2010, 2013, 2018.
inline constexpr std::string_view kLaterReleases[] = {"AC1018", kRelease2007, "AC1024", "AC1027", "AC1032"};

// The variables that follow from other parts of a drawing, so that nobody keeps them.
inline constexpr std::string_view kVersionVariable = "$ACADVER";
inline constexpr std::string_view kCodePageVariable = "$DWGCODEPAGE";
inline constexpr std::string_view kCurrentLayerVariable = "$CLAYER";
inline constexpr std::string_view kHandleSeedVariable = "$HANDSEED";

// The first group of a header variable, or null.
const Group* FindHeaderValue(const FileTree& tree, std::string_view name);

// The value of $ACADVER; release 12 for a file that does not say.
std::string_view ReleaseOf(const FileTree& tree);

// From release 2007 on, text is UTF-8.
inline bool IsUtf8Release(std::string_view release) {
    return release >= kRelease2007;
}

}  // namespace workbench::drawing_file
