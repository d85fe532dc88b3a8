// The types of value that follow the group codes of a drawing interchange file.
#pragma once

#include <string_view>

namespace workbench::drawing_file {

enum class GroupType {
    kText,
    kReal,  // also each coordinate of a point
    kInt16,
    kInt32,
    kInt64,
    kBool,    // 0 or 1
    kHandle,  // up to 16 hexadecimal digits
    kBinary,  // an even number of hexadecimal digits
};

inline constexpr int kHighestGroupCode = 1071;
inline constexpr int kFirstXdataCode = 1000;

// Codes that several parts of a file share.
inline constexpr int kCodeType = 0;
inline constexpr int kCodeName = 2;
inline constexpr int kCodeHandle = 5;
inline constexpr int kCodeLayer = 8;
inline constexpr int kCodeVariable = 9;
inline constexpr int kCodeSubclass = 100;
inline constexpr int kCodeControl = 102;
inline constexpr int kCodeDimstyleHandle = 105;
inline constexpr int kCodeOwner = 330;
inline constexpr int kCodeHardOwner = 360;
inline constexpr int kCodeComment = 999;
inline constexpr int kCodeXdataText = 1000;
inline constexpr int kCodeXdataApp = 1001;
inline constexpr int kCodeXdataBrace = 1002;
inline constexpr int kCodeXdataLayer = 1003;
inline constexpr int kCodeXdataBinary = 1004;
inline constexpr int kCodeXdataHandle = 1005;

// Behind this subclass marker, the rest of a record is its owner's data: whatever their codes, its groups are
// neither markers nor lists.
inline constexpr std::string_view kMarkerExtensionRecord = "AcDbXrecord";

// True for the codes that a text file may hold: 0 to 1071.
bool IsGroupCode(int code);

// The type of a code for which IsGroupCode is true. Ranges nobody has defined are text.
GroupType TypeOfGroup(int code);

// True for the first coordinate of a point, which the codes 10 and 20 above it complete (10, 20, 30).
bool IsPointCode(int code);

}  // namespace workbench::drawing_file
