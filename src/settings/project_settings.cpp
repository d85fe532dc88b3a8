#include "settings/project_settings.h"

#include <cwchar>
#include <iterator>
#include <utility>

#include "platform/letter_case.h"
#include "platform/platform.h"
#include "sizes/size_table.h"
#include "storage/ini_file.h"

namespace {

constexpr wchar_t kSettingsSection[] = L"Settings";

// Variables that the repairs look at.
constexpr int kVarBoltUnits = 170;
constexpr int kVarUnits180 = 180;
constexpr int kVarPrecision181 = 181;
constexpr int kVarPrecision182 = 182;
constexpr int kVarUnits183 = 183;
constexpr int kVarScale71 = 71;
constexpr int kVarScale82 = 82;
constexpr int kVarScale107 = 107;
constexpr int kVarScale179 = 179;
constexpr int kVarScale185 = 185;

using CSection = CKV2D_ProjectSettingsBase::CSection;

std::wstring KeyOfVariable(int id) {
    wchar_t szKey[32];
    std::swprintf(szKey, std::size(szKey), L"Variable %03d", id);
    return szKey;
}

int PrecisionForUnits(int nUnits) {
    return nUnits == kPrjValUnitsMetric ? kPrjValPrecisionMetric : kPrjValPrecisionImperial;
}

void SetChoiceIfUnset(CSection& section, int id, int value) {
    if (section.GetChoice(id) == kPrjValNone) section.SetChoice(id, value);
}

void SetRealIfUnset(CSection& section, int id, double value) {
    if (section.GetReal(id) <= 0) section.SetReal(id, value);
}

void RepairUnits183(CSection& section, int nDisplayedUnits) {
    const bool bImperial = nDisplayedUnits == kSizeSetImperialUs || nDisplayedUnits == kSizeSetImperialNps;
    SetChoiceIfUnset(section, kVarUnits183, bImperial ? kPrjValUnitsImperial : kPrjValUnitsMetric);
}

void RepairMiscellaneous(CSection& section, int nDisplayedUnits) {
    SetChoiceIfUnset(section, kVarPrecision182, PrecisionForUnits(section.GetChoice(kVarBoltUnits)));
    SetChoiceIfUnset(section, kVarUnits180, section.GetChoice(kVarBoltUnits));
    SetChoiceIfUnset(section, kVarPrecision181, PrecisionForUnits(section.GetChoice(kVarUnits180)));
    RepairUnits183(section, nDisplayedUnits);
}

}  // namespace

void CKV2D_ProjectSettingsBase::CVariable::ReadFrom(const CKV2D_IniFile& ini) {
    const std::wstring strKey = KeyOfVariable(m_id);
    // The default is a copy: it may not change while the result is being set.
    const auto ReadText = [&](std::wstring& text) { ini.GetString(strKey, text, std::wstring(text)); };
    int nFlag = 0;
    switch (m_kind) {
        case kKindBool:
            ini.GetInt(strKey, nFlag, m_bool);
            m_bool = nFlag != 0;
            break;
        case kKindTextA:
            ReadText(m_textA);
            break;
        case kKindTextB:
            ReadText(m_textB);
            break;
        case kKindInt:
            ini.GetInt(strKey, m_int, m_int);
            break;
        case kKindReal:
            ini.GetDouble(strKey, m_real, m_real);
            break;
        case kKindTextC:
            ReadText(m_textC);
            break;
        case kKindTextD:
            ReadText(m_textD);
            break;
        case kKindChoice:
            ini.GetInt(strKey, m_choice, m_choice);
            break;
        case kKindNone:
            break;
    }
}

void CKV2D_ProjectSettingsBase::CVariable::WriteTo(CKV2D_IniFile& ini) const {
    const std::wstring strKey = KeyOfVariable(m_id);
    switch (m_kind) {
        case kKindBool:
            ini.SetBool(strKey, m_bool);
            break;
        case kKindTextA:
            ini.SetString(strKey, m_textA);
            break;
        case kKindTextB:
            ini.SetString(strKey, m_textB);
            break;
        case kKindInt:
            ini.SetInt(strKey, m_int);
            break;
        case kKindReal:
            ini.SetDouble(strKey, m_real);
            break;
        case kKindTextC:
            ini.SetString(strKey, m_textC);
            break;
        case kKindTextD:
            ini.SetString(strKey, m_textD);
            break;
        case kKindChoice:
            ini.SetInt(strKey, m_choice);
            break;
        case kKindNone:
            break;
    }
}

CKV2D_ProjectSettingsBase::CVariable& CKV2D_ProjectSettingsBase::CSection::Add(int id,
                                                                               const std::wstring& name,
                                                                               EVariableKind kind) {
    CVariable& variable = m_variables.emplace_back();
    variable.m_id = id;
    variable.m_kind = kind;
    variable.m_name = platform::ToLower(name);
    return variable;
}

void CKV2D_ProjectSettingsBase::CSection::AddBool(int id, const std::wstring& name, bool metric,
                                                  bool imperial) {
    Add(id, name, kKindBool).m_bool = m_units ? imperial : metric;
}

void CKV2D_ProjectSettingsBase::CSection::AddTextA(int id, const std::wstring& name,
                                                   const std::wstring& metric, const std::wstring& imperial) {
    Add(id, name, kKindTextA).m_textA = m_units ? imperial : metric;
}

void CKV2D_ProjectSettingsBase::CSection::AddTextB(int id, const std::wstring& name,
                                                   const std::wstring& metric, const std::wstring& imperial) {
    Add(id, name, kKindTextB).m_textB = m_units ? imperial : metric;
}

void CKV2D_ProjectSettingsBase::CSection::AddInt(int id, const std::wstring& name, int metric, int imperial) {
    Add(id, name, kKindInt).m_int = m_units ? imperial : metric;
}

void CKV2D_ProjectSettingsBase::CSection::AddReal(int id, const std::wstring& name, double metric,
                                                  double imperial) {
    Add(id, name, kKindReal).m_real = m_units ? imperial : metric;
}

void CKV2D_ProjectSettingsBase::CSection::AddTextC(int id, const std::wstring& name,
                                                   const std::wstring& metric, const std::wstring& imperial) {
    Add(id, name, kKindTextC).m_textC = m_units ? imperial : metric;
}

void CKV2D_ProjectSettingsBase::CSection::AddTextD(int id, const std::wstring& name,
                                                   const std::wstring& metric, const std::wstring& imperial) {
    Add(id, name, kKindTextD).m_textD = m_units ? imperial : metric;
}

void CKV2D_ProjectSettingsBase::CSection::AddHeading(const std::wstring& text) {
    AddTextD(kVarHeading, L"", text, text);
}

void CKV2D_ProjectSettingsBase::CSection::AddChoiceOf(int id, const std::wstring& name, int metric,
                                                      int imperial, std::initializer_list<EPrjVal> allowed) {
    CVariable& variable = Add(id, name, kKindChoice);
    variable.m_choice = m_units ? imperial : metric;
    for (EPrjVal value : allowed) {
        if (value == kPrjValNone) break;
        variable.m_choices.push_back(value);
    }
}

const CKV2D_ProjectSettingsBase::CVariable* CKV2D_ProjectSettingsBase::CSection::Find(int id) const {
    for (const CVariable& variable : m_variables) {
        if (variable.m_id == id) return &variable;
    }
    return nullptr;
}

CKV2D_ProjectSettingsBase::CVariable* CKV2D_ProjectSettingsBase::CSection::Find(int id) {
    return const_cast<CVariable*>(std::as_const(*this).Find(id));
}

double CKV2D_ProjectSettingsBase::CSection::GetReal(int id) const {
    const CVariable* pVariable = Find(id);
    return pVariable ? pVariable->m_real : 0.0;
}

int CKV2D_ProjectSettingsBase::CSection::GetChoice(int id) const {
    const CVariable* pVariable = Find(id);
    return pVariable ? pVariable->m_choice : kPrjValNone;
}

void CKV2D_ProjectSettingsBase::CSection::SetReal(int id, double value) {
    CVariable* pVariable = Find(id);
    if (!pVariable || pVariable->m_real == value) return;
    pVariable->m_real = value;
    pVariable->m_kind = kKindReal;
    pVariable->m_saved = false;
}

void CKV2D_ProjectSettingsBase::CSection::SetChoice(int id, int value) {
    CVariable* pVariable = Find(id);
    if (!pVariable || pVariable->m_choice == value) return;
    pVariable->m_choice = value;
    pVariable->m_kind = kKindChoice;
    pVariable->m_saved = false;
}

CKV2D_ProjectSettingsBase::CSection& CKV2D_ProjectSettingsBase::AddSection(ESectionId nSectionId, int units) {
    CSection& section = m_sections.emplace_back();
    section.m_units = units;
    section.m_id = nSectionId;
    return section;
}

void CKV2D_ProjectSettingsBase::Load(long projectId, const CProjectFacts& project) {
    m_path = project.m_strFolder;
    if (m_path.empty()) return;
    m_projectId = static_cast<int>(projectId);
    m_path += GetProjectFileWord(m_eApp, project.m_nProjectVersion) + L".ini";

    CKV2D_IniFile ini;
    ini.Open(m_path);
    ini.SetSection(kSettingsSection);
    for (CSection& section : m_sections) {
        for (CVariable& variable : section.m_variables)
            variable.ReadFrom(ini);
        Repair(section, project.m_nDisplayedUnits);
    }
    if (HasChanges()) Save();
}

std::wstring CKV2D_ProjectSettingsBase::GetText(int id) const {
    for (const CSection& section : m_sections) {
        for (const CVariable& variable : section.m_variables) {
            if (variable.m_id == id) return variable.m_textA;
        }
    }
    return {};
}

bool CKV2D_ProjectSettingsBase::HasChanges() const {
    for (const CSection& section : m_sections) {
        for (const CVariable& variable : section.m_variables) {
            if (!variable.m_saved) return true;
        }
    }
    return false;
}

void CKV2D_ProjectSettingsBase::Repair(CSection& section, int nDisplayedUnits) const {
    const bool bIso = m_eApp == kAppIsometric;
    const bool bOrtho = m_eApp == kAppOrtho;
    if ((bIso || bOrtho) && section.m_id == kSectionMiscellaneous) {
        RepairMiscellaneous(section, nDisplayedUnits);
    }
    if (bOrtho && section.m_id == kSectionBuilding) RepairUnits183(section, nDisplayedUnits);
    if (bIso && section.m_id == kSectionScales) {
        SetRealIfUnset(section, kVarScale185, section.GetReal(kVarScale82));
    }
    if (bOrtho && section.m_id == kSectionScales) {
        for (int id : {kVarScale71, kVarScale179, kVarScale185}) {
            SetRealIfUnset(section, id, section.GetReal(kVarScale107));
        }
    }
}

void CKV2D_ProjectSettingsBase::Save() {
    if (m_path.empty()) return;
    // Read again: the settings editor may have changed other rows in the meantime.
    CKV2D_IniFile ini;
    ini.Open(m_path);
    ini.SetSection(kSettingsSection);
    for (CSection& section : m_sections) {
        for (CVariable& variable : section.m_variables) {
            if (variable.m_saved) continue;
            variable.WriteTo(ini);
            variable.m_saved = true;
        }
    }
}
