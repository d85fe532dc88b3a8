// A project's folder with a discipline's settings file in it, for the tests of the settings.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "settings/project_settings.h"
#include "support/test_platform.h"

using CSection = CKV2D_ProjectSettingsBase::CSection;
using CVariable = CKV2D_ProjectSettingsBase::CVariable;

inline constexpr int kMetric = 0;
inline constexpr int kImperial = 1;
inline constexpr int kProjectId = 5;
inline constexpr int kOldVersion = 2015;
inline constexpr int kNewVersion = 2016;
inline constexpr int kMetricSizes = 1;
inline constexpr int kImperialSizes = 2;

// The first variable with the id in any section. A missing one fails the test.
inline CVariable& VariableOf(CKV2D_ProjectSettingsBase& settings, int id) {
    for (CSection& section : settings.m_sections) {
        for (CVariable& variable : section.m_variables) {
            if (variable.m_id == id) return variable;
        }
    }
    ADD_FAILURE() << "variable " << id;
    static CVariable none;
    none = CVariable();
    return none;
}

// A project whose folder is there, and one discipline's settings of it.
template <class Base>
class ProjectFolder : public Base {
  protected:
    ProjectFolder() { this->PutFolder(Folder()); }

    std::wstring Folder() const { return this->InRoot(L"KV2D_PRJ_5 - Pump\\"); }
    std::wstring InFolder(const std::wstring& name) const { return Folder() + name; }

    CProjectFacts Facts(int version = kNewVersion, int displayedUnits = kMetricSizes) const {
        return {Folder(), version, displayedUnits};
    }

    template <class Settings>
    Settings Loaded(int units, const CProjectFacts& facts) {
        Settings settings;
        settings.InitDefaults(units);
        settings.Load(kProjectId, facts);
        return settings;
    }
    template <class Settings>
    Settings Loaded(int units = kMetric) {
        return Loaded<Settings>(units, Facts());
    }

    using Iso = CKV2D_ProjectSettingsIso;
    using Ortho = CKV2D_ProjectSettingsOrtho;
    using Flow = CKV2D_ProjectSettingsFlow;
    using Electric = CKV2D_ProjectSettingsElectric;

    // Loads Iso or Ortho settings over the given rows of its file.
    Iso IsoWith(std::initializer_list<std::string_view> rows) {
        this->PutFile(InFolder(L"ISOMETRIC.ini"), "[Settings]\r\n" + Lines(rows));
        return Loaded<Iso>();
    }
    Ortho OrthoWith(std::initializer_list<std::string_view> rows, int displayedUnits = kMetricSizes) {
        this->PutFile(InFolder(L"ORTHO.ini"), "[Settings]\r\n" + Lines(rows));
        return Loaded<Ortho>(kMetric, Facts(kNewVersion, displayedUnits));
    }
};
