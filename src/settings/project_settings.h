// The settings of a project: numbered variables per discipline, their defaults by units, and the ini file
// that holds what differs from them. The Drawing Manager asks them for one thing, the name of a project's
// template; reading also fills in what older files left out, and saves it.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "storage/applications.h"

class CKV2D_IniFile;

// What the settings need to know of a project. The database lies above this folder and may not be included,
// so whoever loads settings hands these over (the Drawing Manager does, in project_template.h).
struct CProjectFacts {
    std::wstring m_strFolder;    // with a trailing backslash; empty if the project cannot be found
    int m_nProjectVersion = 0;   // decides the name of the settings file
    int m_nDisplayedUnits = -1;  // also the number of the pipe size set
};

// Which value field of a variable is in use.
enum EVariableKind : int {
    kKindNone = 0,
    kKindBool = 1,    // flags
    kKindTextA = 2,   // template name, break size
    kKindTextB = 3,   // font description
    kKindInt = 4,     // counts
    kKindReal = 5,    // lengths and scales
    kKindTextC = 6,   // a free text slot
    kKindTextD = 7,   // style names, prefixes, headings
    kKindChoice = 8,  // one value of a list
};

enum ESectionId : int {
    kSectionMiscellaneous = 0,
    kSectionBuilding = 1,
    kSectionIsometricSymbols = 2,
    kSectionDimensioning = 3,
    kSectionGeneral = 4,
    kSectionScales = 6,
    kSectionElectricWires = 7,
    kSectionPipingOptions = 8,
};

// The values of choices: one flat list of numbers that all choices share, so a number means one thing. Their
// texts belong to the settings editor, a separate program; only the numbers that the repairs set have names.
enum EPrjVal : int {
    kPrjValNone = 0,  // never a stored choice
    kPrjValPrecisionMetric = 32,
    kPrjValPrecisionImperial = 36,
    kPrjValUnitsMetric = 39,
    kPrjValUnitsImperial = 40,
};

// Ids of variables that this program looks at itself.
enum EVariableId : int {
    kVarTemplateName = 44,
    kVarHeading = 165,
};

class CKV2D_ProjectSettingsBase {
  public:
    struct CVariable {
        int m_id = -1;  // the key in the file comes from it
        EVariableKind m_kind = kKindNone;
        bool m_bool = false;
        std::wstring m_textA;
        std::wstring m_textB;
        int m_int = 0;
        double m_real = 0;
        std::wstring m_textC;
        std::wstring m_textD;
        int m_choice = kPrjValNone;
        std::vector<EPrjVal> m_choices;  // allowed values of a choice, in table order
        bool m_saved = true;             // false from a change until it is in the file
        std::wstring m_name;             // short, in lower case, may be empty; no key: names repeat

        // Reads the value over the present one, which stays if the file has no such key.
        void ReadFrom(const CKV2D_IniFile& ini);
        // Writes the value; a variable of no known kind writes nothing.
        void WriteTo(CKV2D_IniFile& ini) const;
    };

    struct CSection {
        int m_units = -1;  // 0 makes the add operations take the metric default, anything else the imperial
        int m_id = kSectionMiscellaneous;
        std::vector<CVariable> m_variables;  // in the order added

        void AddBool(int id, const std::wstring& name, bool metric, bool imperial);
        void AddTextA(int id, const std::wstring& name, const std::wstring& metric,
                      const std::wstring& imperial);
        void AddTextB(int id, const std::wstring& name, const std::wstring& metric,
                      const std::wstring& imperial);
        void AddInt(int id, const std::wstring& name, int metric, int imperial);
        void AddReal(int id, const std::wstring& name, double metric, double imperial);
        void AddTextC(int id, const std::wstring& name, const std::wstring& metric,
                      const std::wstring& imperial);
        void AddTextD(int id, const std::wstring& name, const std::wstring& metric,
                      const std::wstring& imperial);
        // A row that only carries a heading for the settings editor. All headings share one id, so they share
        // one key in the file.
        void AddHeading(const std::wstring& text);
        // `allowed` is closed by a 0; what follows the first 0 is not taken.
        template <class... Values>
        void AddChoice(int id, const std::wstring& name, int metric, int imperial, Values... allowed) {
            AddChoiceOf(id, name, metric, imperial, {static_cast<EPrjVal>(allowed)...});
        }

        // The value of the first variable with the id; 0 if there is none.
        double GetReal(int id) const;
        int GetChoice(int id) const;

        // Change the first variable with the id and mark it for saving. No such variable, or one that has the
        // value already: nothing happens.
        void SetReal(int id, double value);
        void SetChoice(int id, int value);

      private:
        CVariable& Add(int id, const std::wstring& name, EVariableKind kind);
        void AddChoiceOf(int id, const std::wstring& name, int metric, int imperial,
                         std::initializer_list<EPrjVal> allowed);
        const CVariable* Find(int id) const;
        CVariable* Find(int id);
    };

    virtual ~CKV2D_ProjectSettingsBase() = default;

    // Drops all sections and builds the discipline's own with the metric defaults (`units` 0) or the imperial
    // ones (any other number). Comes ahead of Load.
    virtual void InitDefaults(int units) = 0;

    // Reads the project's settings file over the defaults, fills in what older files hold as 0, and saves if
    // that changed anything, which creates a missing file. A file that cannot be read counts as an empty one:
    // the repairs run over the defaults, and if it can be written all the same, they become its only rows.
    // Without a project folder nothing happens: the defaults stand.
    void Load(long projectId, const CProjectFacts& project);

    // Text A of the first variable with the id, whatever its kind; empty if there is none. The one caller
    // asks for kVarTemplateName.
    std::wstring GetText(int id) const;

    int m_projectId = 0;  // project whose file was read
    int m_eApp = kAppNone;
    std::wstring m_path;  // of the settings file
    std::vector<CSection> m_sections;

  protected:
    // A new section behind the present ones. The reference holds until the next one is added.
    CSection& AddSection(ESectionId nSectionId, int units);

  private:
    bool HasChanges() const;
    void Repair(CSection& section, int nDisplayedUnits) const;
    void Save();
};

class CKV2D_ProjectSettingsElectric : public CKV2D_ProjectSettingsBase {
  public:
    void InitDefaults(int units) override;
};

class CKV2D_ProjectSettingsFlow : public CKV2D_ProjectSettingsBase {
  public:
    void InitDefaults(int units) override;
};

class CKV2D_ProjectSettingsIso : public CKV2D_ProjectSettingsBase {
  public:
    void InitDefaults(int units) override;
};

class CKV2D_ProjectSettingsOrtho : public CKV2D_ProjectSettingsBase {
  public:
    void InitDefaults(int units) override;
};
