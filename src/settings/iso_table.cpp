// The defaults of the Iso discipline. Metric and imperial are separate values, not conversions of each other.
#include "settings/project_settings.h"
#include "settings/table_rows.h"

// clang-format off

namespace {

using CSection = CKV2D_ProjectSettingsBase::CSection;

// 4: general
void AddGeneral(CSection& section) {
    //                 id  name       metric        imperial      allowed
    section.AddTextD (173, L"",       L"STANDARD",  L"STANDARD");
    section.AddTextD (174, L"",       L"ISO-L",     L"ISO-L");
    section.AddTextD (175, L"",       L"ISO-R",     L"ISO-R");
    section.AddTextB (168, L"",       kDefaultFont, kDefaultFont);
    section.AddReal  (188, L"",       1,            1);
    section.AddReal  (145, L"txthgt", 2.5,          0.09375);
    section.AddReal  ( 54, L"eqptxt", 4,            0.25);
    section.AddReal  (113, L"s-bend", 2,            2);
    section.AddTextD (133, L"mkprfx", L"MK-",       L"MK-");
    section.AddInt   (  2, L"charno", 3,            3);
    section.AddReal  (163, L"wldgap", 0,            0);
    section.AddChoice( 62, L"flgshp", 22,           22,           22, 14, 0);
    section.AddTextA ( 44, L"",       L"acad",      L"acad");
    section.AddTextC (189, L"",       L"",          L"");
    section.AddReal  ( 99, L"brkdis", 3,            0.125);
}

// 8: piping options
void AddPipingOptions(CSection& section) {
    //                 id  name       metric  imperial  allowed
    section.AddBool  (158, L"hndwhl", true,   true);
    section.AddBool  (131, L"spchek", false,  false);
    section.AddBool  (  5, L"brchck", true,   true);
    section.AddChoice(  9, L"crvell", 5,      5,        5, 23, 0);
    section.AddChoice( 61, L"fitins", 24,     24,       24, 3, 0);
    section.AddChoice( 67, L"flgins", 24,     24,       24, 9, 0);
}

// 6: scales
void AddScales(CSection& section) {
    //                 id  name         metric  imperial
    section.AddBool  (103, L"disbl_lt", false,  false);
    section.AddReal  (102, L"ltscale",  10,     0.5);
    section.AddReal  ( 82, L"scl1",     10,     0.375);
    section.AddReal  ( 14, L"scl3",     10,     0.375);
    section.AddReal  ( 19, L"scl4",     10,     0.375);
    section.AddReal  ( 79, L"scl5",     2.5,    0.125);
    section.AddReal  (  0, L"scl6",     10,     0.375);
    section.AddReal  ( 71, L"scl6",     10,     0.375);
    section.AddReal  (179, L"scl6",     10,     0.375);
    section.AddReal  ( 74, L"scl7",     5,      0.25);
    section.AddReal  (125, L"scl8",     10,     0.25);
    section.AddReal  ( 15, L"cmpscl",   1,      1);
    section.AddReal  (185, L"",         0,      0);
}

// 2: isometric symbols
void AddIsometricSymbols(CSection& section) {
    //                 id  name       metric  imperial
    section.AddReal  ( 65, L"vallen", 12,     0.5);
    section.AddReal  ( 64, L"valhgt", 6,      0.25);
    section.AddReal  (150, L"s-vlen", 8,      0.25);
    section.AddReal  (149, L"s-vhgt", 4,      0.1875);
    section.AddReal  (172, L"",       0.25,   0.25);
    section.AddReal  (171, L"",       0.125,  0.125);
    section.AddReal  (139, L"sw-ext", 1,      0.03125);
    section.AddReal  ( 69, L"flglen", 4,      0.25);
    section.AddReal  ( 66, L"flgfce", 1.5,    0.0625);
    section.AddReal  ( 10, L"pipthk", 0.5,    0.03125);
    section.AddReal  (148, L"s-pthk", 0.25,   0.01563);
    section.AddReal  (121, L"revthk", 0.5,    0.03125);
    section.AddReal  (162, L"weldot", 1.5,    0.0625);
    section.AddReal  (  8, L"cmplen", 6,      0.25);
    section.AddReal  (  7, L"cmphgt", 3,      0.125);
    section.AddReal  (147, L"s-clen", 4,      0.125);
    section.AddReal  (146, L"s-chgt", 2,      0.0625);
    section.AddReal  (116, L"inscal", 10,     0.5);
    section.AddReal  (114, L"inslen", 15,     0.75);
    section.AddReal  ( 73, L"gskgap", 1,      0.03125);
    section.AddReal  (137, L"stlhgt", 6,      0.25);
    section.AddReal  (138, L"stlwid", 4,      0.125);
    section.AddReal  (  3, L"suptwd", 2,      0.125);
}

// 0: miscellaneous
void AddMiscellaneous(CSection& section) {
    //                 id  name       metric  imperial  allowed
    section.AddBool  (105, L"mtoblk", true,   true);
    section.AddReal  (106, L"balscl", 10,     0.5);
    section.AddReal  (117, L"minpup", 50,     2);
    section.AddChoice(170, L"bltimp", 40,     40,       39, 40, 0);
    section.AddChoice(180, L"",       0,      0,        39, 40, 0);
    section.AddChoice(182, L"",       0,      0,        30, 31, 32, 33, 34, 35, 36, 37, 38, 0);
    section.AddChoice(181, L"",       0,      0,        30, 31, 32, 33, 34, 35, 36, 37, 38, 0);
    section.AddChoice(190, L"",       26,     26,       25, 26, 27, 28, 29, 0);
    section.AddChoice(191, L"",       52,     52,       52, 51, 53, 54, 0);
    section.AddChoice(192, L"",       56,     56,       55, 56, 57, 0);
}

// 3: dimensioning
void AddDimensioning(CSection& section) {
    //                 id  name metric       imperial
    section.AddTextD (176, L"", L"STANDARD", L"STANDARD");
    section.AddTextD (177, L"", L"ISO-L",    L"ISO-L");
    section.AddTextD (178, L"", L"ISO-R",    L"ISO-R");
    AddDimensionRows(section);
}

}  // namespace

void CKV2D_ProjectSettingsIso::InitDefaults(int units) {
    m_eApp = kAppIsometric;
    m_sections.clear();
    AddGeneral(AddSection(kSectionGeneral, units));
    AddPipingOptions(AddSection(kSectionPipingOptions, units));
    AddScales(AddSection(kSectionScales, units));
    AddIsometricSymbols(AddSection(kSectionIsometricSymbols, units));
    AddMiscellaneous(AddSection(kSectionMiscellaneous, units));
    AddDimensioning(AddSection(kSectionDimensioning, units));
}
