// Rows that the tables of several disciplines have in common.
#pragma once

#include "settings/project_settings.h"

inline constexpr wchar_t kDefaultFont[] = L"RomanS; Regular; romans__.ttf";

// The dimension variables, which stand behind the text styles of the dimensioning section. They are the same
// in all disciplines.
void AddDimensionRows(CKV2D_ProjectSettingsBase::CSection& section);
