#include "settings/table_rows.h"

// clang-format off

// 3: dimensioning
void AddDimensionRows(CKV2D_ProjectSettingsBase::CSection& section) {
    //                 id  name         metric  imperial  allowed
    section.AddHeading(L"Lines and Arrows");
    section.AddReal  ( 33, L"DIMDLI",   0,      0);
    section.AddReal  ( 28, L"DIMEXE",   2,      0.0625);
    section.AddReal  ( 29, L"DIMEXO",   2,      0.0625);
    section.AddReal  ( 24, L"DIMASZ",   2,      0.0625);
    section.AddReal  ( 26, L"DIMCEN",   1,      0.03125);
    section.AddHeading(L"Text");
    section.AddReal  ( 36, L"DIMTXT",   2.5,    0.09375);
    section.AddChoice( 37, L"DIMTAD",   19,     19,       4, 19, 20, 13, 0);
    section.AddReal  (184, L"DIMGAP",   0.625,  0.09);
    section.AddHeading(L"Fit");
    section.AddBool  ( 35, L"DIMTIX",   true,   true);
    section.AddBool  ( 34, L"DIMSOXD",  true,   true);
    section.AddBool  ( 30, L"DIMTOFL",  true,   true);
    section.AddHeading(L"Primary Units");
    section.AddChoice(166, L"DIMLUNIT", 26,     28,       25, 26, 27, 28, 29, 0);
    section.AddChoice(167, L"DIMDEC",   30,     34,       30, 31, 32, 33, 34, 35, 36, 37, 38, 0);
    section.AddChoice( 31, L"DIMFRAC",  12,     12,       12, 7, 16, 0);
    section.AddReal  ( 27, L"DIMRND",   0,      0);
    section.AddReal  ( 32, L"DIMLFAC",  1,      1);
    section.AddChoice(187, L"DIMZIN",   44,     44,       44, 45, 46, 47, 48, 49, 50, 0);
    section.AddHeading(L"Miscellaneous");
    section.AddChoice( 25, L"DIMASO",   1,      1,        8, 15, 1, 0);
}
