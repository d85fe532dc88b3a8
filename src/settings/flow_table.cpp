// The defaults of the Flow discipline. Metric and imperial are separate values, not conversions of each
// other.
#include "settings/project_settings.h"
#include "settings/table_rows.h"

// clang-format off

namespace {

using CSection = CKV2D_ProjectSettingsBase::CSection;

// 4: general
void AddGeneral(CSection& section) {
    //                 id  name       metric        imperial
    section.AddTextD (173, L"",       L"STANDARD",  L"STANDARD");
    section.AddTextB (168, L"",       kDefaultFont, kDefaultFont);
    section.AddReal  (188, L"",       1,            1);
    section.AddReal  (145, L"txthgt", 2.5,          0.125);
    section.AddReal  ( 54, L"eqptxt", 4,            0.1875);
    section.AddReal  ( 55, L"exchds", 1,            0.0625);
    section.AddReal  ( 99, L"brkdis", 3,            0.125);
    section.AddReal  (119, L"proctk", 0.5,          0.03125);
    section.AddReal  (154, L"utiltk", 0.25,         0.015625);
    section.AddReal  (121, L"revthk", 0.5,          0.03125);
    section.AddReal  (100, L"lindis", 1.5,          0.0625);
    section.AddInt   ( 81, L"charno", 3,            3);
    section.AddInt   ( 23, L"diamch", 2,            2);
    section.AddTextA ( 44, L"",       L"acad",      L"acad");
    section.AddTextC (189, L"",       L"",          L"");
}

// 8: piping options
void AddPipingOptions(CSection& section) {
    //                 id  name         metric  imperial  allowed
    section.AddBool  (118, L"pip_spc",  true,   true);
    section.AddBool  (131, L"spchek",   false,  false);
    section.AddBool  (159, L"valtag",   false,  false);
    section.AddChoice(155, L"valv_flg", 17,     17,       17, 18, 0);
    section.AddChoice(156, L"spc_flg",  21,     21,       21, 10, 0);
}

// 6: scales
void AddScales(CSection& section) {
    //                 id  name         metric  imperial
    section.AddBool  (103, L"disbl_lt", false,  false);
    section.AddReal  (102, L"ltscale",  10,     0.5);
    section.AddReal  ( 65, L"scl1",     8,      0.3125);
    section.AddReal  (110, L"scl2",     6,      0.25);
    section.AddReal  (130, L"scl3",     4,      0.1875);
    section.AddReal  (108, L"scl10",    10,     0.375);
    section.AddReal  ( 20, L"scl15",    10,     0.5);
    section.AddReal  ( 18, L"scl16",    2,      0.08);
    section.AddReal  ( 16, L"scl17",    3,      0.125);
    section.AddReal  ( 63, L"scl18",    1,      0.04);
    section.AddReal  ( 22, L"scl19",    3,      0.125);
    section.AddReal  ( 80, L"scl21",    10,     0.5);
    section.AddReal  (  0, L"scl22",    5,      0.25);
    section.AddReal  ( 71, L"scl22",    5,      0.25);
    section.AddReal  (179, L"scl22",    5,      0.25);
    section.AddReal  (157, L"scl23a",   1,      0.03125);
    section.AddReal  ( 68, L"scl23b",   8,      0.3125);
    section.AddReal  (127, L"scl24",    3,      0.125);
    section.AddReal  (151, L"scl25",    8,      0.25);
    section.AddReal  ( 82, L"scl4",     10,     0.5);
    section.AddReal  ( 86, L"scl5",     6,      0.25);
    section.AddReal  ( 85, L"scl6",     3,      0.125);
    section.AddReal  ( 93, L"scl7",     12,     0.5);
    section.AddReal  ( 88, L"scl8a",    40,     1.6667);
    section.AddReal  ( 87, L"scl8b",    3,      0.125);
    section.AddReal  ( 83, L"scl9",     6,      0.25);
    section.AddReal  ( 84, L"scl11",    1.2,    1);
    section.AddReal  ( 92, L"scl27a",   14,     0.7);
    section.AddReal  ( 91, L"scl27b",   10,     0.5);
    section.AddReal  ( 90, L"scl30a",   9,      0.375);
    section.AddReal  ( 89, L"scl30b",   3,      0.125);
    section.AddReal  ( 53, L"scl12",    25,     1);
    section.AddReal  ( 51, L"scl13",    150,    6);
    section.AddReal  ( 47, L"scl14",    10,     0.5);
    section.AddReal  ( 52, L"scl26",    50,     2);
    section.AddReal  ( 48, L"scl28",    20,     0.75);
    section.AddReal  ( 46, L"scl29",    10,     0.5);
    section.AddReal  ( 50, L"scl31a",   10,     0.5);
    section.AddReal  ( 49, L"scl31b",   10,     0.5);
}

// 0: miscellaneous
void AddMiscellaneous(CSection& section) {
    //                 id  name       metric  imperial  allowed
    section.AddReal  (106, L"balscl", 10,     0.5);
    section.AddChoice(191, L"",       52,     52,       52, 51, 53, 54, 0);
}

// 3: dimensioning
void AddDimensioning(CSection& section) {
    //                 id  name metric       imperial
    section.AddTextD (176, L"", L"STANDARD", L"STANDARD");
    AddDimensionRows(section);
}

}  // namespace

void CKV2D_ProjectSettingsFlow::InitDefaults(int units) {
    m_eApp = kAppPid;
    m_sections.clear();
    AddGeneral(AddSection(kSectionGeneral, units));
    AddPipingOptions(AddSection(kSectionPipingOptions, units));
    AddScales(AddSection(kSectionScales, units));
    AddMiscellaneous(AddSection(kSectionMiscellaneous, units));
    AddDimensioning(AddSection(kSectionDimensioning, units));
}
