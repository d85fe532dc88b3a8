// The defaults of the Electric discipline. Metric and imperial are separate values, not conversions of each
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
    section.AddInt   (  2, L"charno", 3,            3);
    section.AddReal  ( 99, L"brkdis", 2,            0.125);
    section.AddTextA ( 44, L"",       L"acad",      L"acad");
    section.AddTextC (189, L"",       L"",          L"");
}

// 6: scales
void AddScales(CSection& section) {
    //                 id  name         metric  imperial
    section.AddBool  (103, L"disbl_lt", false,  false);
    section.AddReal  (102, L"ltscale",  10,     0.5);
    section.AddReal  ( 12, L"cbl-id",   10,     0.5);
    section.AddReal  ( 82, L"instbl",   10,     0.5);
    section.AddReal  ( 56, L"fncscl",   5,      0.25);
    section.AddReal  ( 57, L"fendis",   25,     1);
    section.AddReal  (164, L"shldtk",   4,      0.25);
    section.AddReal  (142, L"tb-spc",   5,      0.25);
    section.AddReal  (143, L"w-cmfr",   2.5,    0.125);
    section.AddReal  (144, L"txtspc",   2,      0.0625);
    section.AddReal  (  1, L"scl5",     5,      0.25);
    section.AddReal  (107, L"scl10",    10,     0.5);
    section.AddReal  (153, L"scl15",    15,     0.75);
    section.AddReal  ( 17, L"scl7",     7.5,    0.3125);
    section.AddReal  (109, L"scl8",     8,      0.3125);
    section.AddReal  ( 45, L"scl20",    20,     1);
    section.AddReal  ( 21, L"scl31",    5,      0.25);
}

// 7: electric wires
void AddElectricWires(CSection& section) {
    //                 id  name       metric  imperial
    section.AddReal  (  6, L"busbar", 0.5,    0.0625);
    section.AddReal  (112, L"pnlwir", 0,      0);
    section.AddReal  ( 59, L"fldwir", 0,      0);
    section.AddReal  (  4, L"scl1",   1,      0.0625);
    section.AddReal  ( 76, L"grndwr", 2,      0.125);
    section.AddReal  ( 11, L"cblcon", 1,      0.0625);
    section.AddReal  (152, L"ug_cbl", 1,      0.0625);
    section.AddReal  ( 13, L"cbthck", 0.25,   0.03125);
    section.AddReal  (121, L"revthk", 0.5,    0.03125);
    section.AddReal  ( 78, L"ht-thk", 0,      0);
    section.AddReal  ( 77, L"ht-spc", 5,      0.25);
}

// 1: building
void AddBuilding(CSection& section) {
    //                 id  name       metric  imperial
    section.AddReal  (126, L"sndrwd", 914,    36);
    section.AddReal  ( 43, L"dbdrwd", 1828,   72);
    section.AddReal  ( 40, L"doorht", 2134,   84);
    section.AddReal  ( 38, L"drfrme", 50,     2);
    section.AddReal  ( 42, L"drwind", 610,    24);
    section.AddReal  ( 41, L"drwnht", 152,    6);
    section.AddReal  ( 60, L"botsil", 1067,   42);
    section.AddReal  ( 70, L"knbdis", 1066,   42);
}

// 3: dimensioning
void AddDimensioning(CSection& section) {
    //                 id  name metric       imperial
    section.AddTextD (176, L"", L"STANDARD", L"STANDARD");
    AddDimensionRows(section);
}

}  // namespace

void CKV2D_ProjectSettingsElectric::InitDefaults(int units) {
    m_eApp = kAppElectric;
    m_sections.clear();
    AddGeneral(AddSection(kSectionGeneral, units));
    AddScales(AddSection(kSectionScales, units));
    AddElectricWires(AddSection(kSectionElectricWires, units));
    AddBuilding(AddSection(kSectionBuilding, units));
    AddDimensioning(AddSection(kSectionDimensioning, units));
}
