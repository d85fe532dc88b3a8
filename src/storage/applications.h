// The numbers and words of the applications of the suite.
#pragma once

#include <string>

enum eApp : int {
    kAppNone = 0,
    kAppElectric = 1,
    kAppPid = 2,
    kAppIsometric = 3,
    kAppOrtho = 4,
    kAppBomSettingsManager = 5,
    kAppLicenseManager = 6,
    kAppSetupMaintenance = 7,
    kAppSpecGenerator = 8,
    kAppStandardsManager = 9,
    kAppDataFilesEditor = 10,
    kAppHost = 11,
};

inline constexpr int kFirstDiscipline = kAppElectric;
inline constexpr int kLastDiscipline = kAppOrtho;

inline bool IsDiscipline(int nApp) {
    return nApp >= kFirstDiscipline && nApp <= kLastDiscipline;
}

// The current folder and file word ("PID"); empty for an unknown number.
std::wstring GetApplicationName(int nApp);

// The word that projects older than version 2016 use ("Flow"); empty for an unknown number.
std::wstring GetApplicationFolderName(int nApp);

// From this version on, a project's files use the words of GetApplicationName; older ones those of
// GetApplicationFolderName.
inline constexpr int kFirstVersionWithNewWords = 2016;

// The word for a discipline in the files of a project of that version: "PID" or, before 2016, "Flow".
std::wstring GetProjectFileWord(int nApp, int nProjectVersion);
