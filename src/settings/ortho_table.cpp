// The defaults of the Ortho discipline. Metric and imperial are separate values, not conversions of each
// other.
#include "settings/project_settings.h"
#include "settings/table_rows.h"

// clang-format off

namespace {

using CSection = CKV2D_ProjectSettingsBase::CSection;

// 4: general
void AddGeneral(CSection& section) {
    //                 id  name       metric        imperial      allowed
    section.AddTextD (173, L"",       L"STANDARD",  L"STANDARD");
    section.AddTextB (168, L"",       kDefaultFont, kDefaultFont);
    section.AddReal  (188, L"",       1,            1);
    section.AddReal  (145, L"txthgt", 2.5,          0.125);
    section.AddReal  ( 54, L"eqptxt", 4,            0.1875);
    section.AddReal  (121, L"revthk", 0.5,          0.03125);
    section.AddReal  (160, L"strflg", 50,           2);
    section.AddReal  (115, L"inslen", 500,          18);
    section.AddInt   (113, L"s-bend", 2,            2);
    section.AddInt   (  2, L"charno", 3,            3);
    section.AddReal  (163, L"wldgap", 0,            0);
    section.AddTextA (169, L"sd-brk", L"350mm",     L"14\"");
    section.AddChoice(186, L"",       42,           42,           42, 43, 0);
    section.AddTextA ( 44, L"",       L"acad",      L"acad");
    section.AddTextC (189, L"",       L"",          L"");
}

// 8: piping options
void AddPipingOptions(CSection& section) {
    //                 id  name       metric  imperial
    section.AddBool  (158, L"hndwhl", true,   true);
    section.AddBool  (131, L"spchek", false,  false);
    section.AddBool  (  5, L"brchck", true,   true);
    section.AddBool  ( 72, L"circup", false,  false);
}

// 6: scales
void AddScales(CSection& section) {
    //                 id  name         metric  imperial
    section.AddBool  (103, L"disbl_lt", false,  false);
    section.AddReal  (102, L"ltscale",  10,     0.5);
    section.AddReal  ( 82, L"scl1",     12.5,   0.5);
    section.AddReal  (104, L"scl2",     12.5,   0.5);
    section.AddReal  (107, L"scl4",     12.5,   0.5);
    section.AddReal  (128, L"scl5",     0.5,    0.03125);
    section.AddReal  (129, L"scl5a",    0.25,   0.015625);
    section.AddReal  ( 14, L"scl6",     12.5,   0.5);
    section.AddReal  (111, L"scl7",     25,     1);
    section.AddReal  ( 71, L"",         0,      0);
    section.AddReal  (179, L"",         0,      0);
    section.AddReal  (124, L"scl8",     16,     0.5);
    section.AddReal  ( 75, L"grtscl",   50,     2.5);
    section.AddReal  (162, L"weldot",   1,      0.0625);
    section.AddReal  (185, L"",         0,      0);
}

// 0: miscellaneous
void AddMiscellaneous(CSection& section) {
    //                 id  name       metric  imperial  allowed
    section.AddBool  (105, L"mtoblk", true,   true);
    section.AddReal  (106, L"balscl", 10,     0.5);
    section.AddChoice(170, L"bltimp", 40,     40,       39, 40, 0);
    section.AddChoice(180, L"",       0,      0,        39, 40, 0);
    section.AddChoice(182, L"",       0,      0,        30, 31, 32, 33, 34, 35, 36, 37, 38, 0);
    section.AddChoice(181, L"",       0,      0,        30, 31, 32, 33, 34, 35, 36, 37, 38, 0);
    section.AddChoice(191, L"",       52,     52,       52, 51, 53, 54, 0);
    section.AddChoice(192, L"",       55,     55,       55, 56, 57, 0);
}

// 1: building
void AddBuilding(CSection& section) {
    //                 id  name        metric  imperial  allowed
    section.AddChoice(183, L"",        0,      0,        39, 40, 0);
    section.AddReal  (161, L"pltdis",  100,    4);
    section.AddReal  ( 58, L"fendis",  1800,   72);
    section.AddReal  (126, L"sndrwd",  914,    36);
    section.AddReal  ( 43, L"dbdrwd",  1828,   72);
    section.AddReal  ( 40, L"doorht",  2134,   84);
    section.AddReal  ( 39, L"drfrme",  50,     2);
    section.AddReal  ( 42, L"drwind",  610,    24);
    section.AddReal  ( 41, L"drwnht",  152,    6);
    section.AddReal  ( 60, L"botsil",  1067,   42);
    section.AddReal  ( 70, L"knbdis",  1066,   42);
    section.AddReal  (135, L"strwd",   914,    36);
    section.AddReal  (132, L"sprtrd",  250,    10);
    section.AddReal  (134, L"risera",  190,    7.5);
    section.AddReal  (122, L"riserm",  210,    8.25);
    section.AddReal  ( 98, L"ladrwd",  400,    16);
    section.AddReal  ( 95, L"ladrcl",  200,    10);
    section.AddReal  ( 94, L"ladrcg",  350,    14);
    section.AddReal  ( 97, L"rungtk",  25,     1);
    section.AddInt   (123, L"rungab",  4,      4);
    section.AddReal  ( 96, L"rungsp",  305,    12);
    section.AddChoice(136, L"stldash", 11,     11,       11, 6, 0);
}

// 3: dimensioning
void AddDimensioning(CSection& section) {
    //                 id  name metric       imperial
    section.AddTextD (176, L"", L"STANDARD", L"STANDARD");
    AddDimensionRows(section);
}

}  // namespace

void CKV2D_ProjectSettingsOrtho::InitDefaults(int units) {
    m_eApp = kAppOrtho;
    m_sections.clear();
    AddGeneral(AddSection(kSectionGeneral, units));
    AddPipingOptions(AddSection(kSectionPipingOptions, units));
    AddScales(AddSection(kSectionScales, units));
    AddMiscellaneous(AddSection(kSectionMiscellaneous, units));
    AddBuilding(AddSection(kSectionBuilding, units));
    AddDimensioning(AddSection(kSectionDimensioning, units));
}
