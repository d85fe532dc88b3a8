// What the Drawing Manager remembers between two runs: the values below the discipline's key
// "DrawingManager".
#pragma once

inline constexpr wchar_t kManagerSubkey[] = L"DrawingManager";

inline constexpr wchar_t kProjectIdValue[] = L"ProjectId";
inline constexpr wchar_t kSelectedFolderValue[] = L"SelectedFolder";
inline constexpr wchar_t kSelectedDrawingValue[] = L"SelectedDrawing";
inline constexpr wchar_t kShowWindowValue[] =
    L"ShowWindow";  // 1: the manager returns when no drawing is open
inline constexpr wchar_t kSingleDocumentValue[] = L"SingleDocument";
inline constexpr wchar_t kWindowPositionValue[] = L"WindowPosition";
inline constexpr wchar_t kBackupStateValue[] = L"BackupDrawingState";
