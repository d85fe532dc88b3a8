#include "storage/applications.h"

#include <array>

namespace {

struct ApplicationWords {
    const wchar_t* m_pszName;
    const wchar_t* m_pszFolderName;
};

constexpr std::array<ApplicationWords, kAppHost + 1> kWords = {{
    {L"", L""},
    {L"ELECTRIC", L"Electric"},
    {L"PID", L"Flow"},
    {L"ISOMETRIC", L"Iso"},
    {L"ORTHO", L"Ortho"},
    {L"BOM Settings Manager", L"BOM Settings Manager"},
    {L"License Manager", L"License Manager"},
    {L"SetupMaintenance", L"SetupMaintenance"},
    {L"SpecGenerator", L"SpecGenerator"},
    {L"Standards Manager", L"Standards Manager"},
    {L"DataFiles Editor", L"DataFiles Editor"},
    {L"AutoCAD", L"AutoCAD"},
}};

const ApplicationWords& GetWords(int nApp) {
    const bool bKnown = nApp > kAppNone && nApp <= kAppHost;
    return kWords[static_cast<size_t>(bKnown ? nApp : kAppNone)];
}

}  // namespace

std::wstring GetApplicationName(int nApp) {
    return GetWords(nApp).m_pszName;
}

std::wstring GetApplicationFolderName(int nApp) {
    return GetWords(nApp).m_pszFolderName;
}

std::wstring GetProjectFileWord(int nApp, int nProjectVersion) {
    return nProjectVersion >= kFirstVersionWithNewWords ? GetApplicationName(nApp)
                                                        : GetApplicationFolderName(nApp);
}
