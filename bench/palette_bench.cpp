// What a change of drawing costs the palette: the module's own time, step by step, and apart from it the
// filling of the combos, which is the system's work.
//
// The drawing has 50,000 entities, half of them piping elements; its project has 10,000 lines and 2,000
// specs. Each number is the least of several runs. Then drawing and project are doubled, one after the other.
// The exit status is 0 if the own time stays under its limit and at most doubles.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "acdbads.h"
#include "acdocman.h"
#include "database/line_list.h"
#include "database/project_general.h"
#include "database/spec_list.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "document/doc_xdata.h"
#include "document/drawing_queries.h"
#include "palette/drawing_lines.h"
#include "palette/line_order.h"
#include "palette/project_lines.h"
#include "sizes/size_table.h"
#include "storage/applications.h"
#include "unit/document/test_drawing.h"
#include "unit/document/xdata_items.h"
#include "windows/linked_palette.h"

namespace {

constexpr double kLimit = 100.0;     // milliseconds of the module's own time
constexpr double kMostGrowth = 2.0;  // for twice the drawing or twice the project
constexpr double kMeasureNoise = 1.15;
constexpr int kRuns = 7;
constexpr int kProject = 5;

struct Size {
    int entities;
    int lines;
    int specs;
};

// Milliseconds of the quickest of several runs.
double Measure(const std::function<void()>& work) {
    double best = 1e9;
    for (int i = 0; i < kRuns; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

std::string Rows(const char* section, const char* key, int count, const char* name) {
    std::string text = std::string("[") + section + "]\r\n";
    for (int i = 1; i <= count; ++i)
        text += key + std::to_string(i) + " = " + name + std::to_string(100000 + i) + "\r\n";
    return text;
}

void PutDatabase(TestSystem& system, const Size& size, bool localLines) {
    DropLineCache();
    system.UseDatabase();
    const std::wstring project = system.InData(L"Projects\\KV2D_PRJ_5 - Pump\\");
    system.PutFile(system.InData(L"ClientDatafile.ini"),
                   Lines({"[ClientList]", "KV2D_CLIENT_1 = Acme", "[ProjectList - 1]", "5 = x"}));
    system.PutFile(system.InData(L"ProjectDatafile.ini"), Lines({"[ProjectList]", "KV2D_PRJ_5 = Pump"}));
    std::string general = Lines({"[General]", "ProjectVersion = 2016"});
    if (localLines) {
        const std::wstring folder = system.InRoot(L"Local");
        general +=
            "LocalLineIni = 1\r\nLocalLineIniPath = " + std::string(folder.begin(), folder.end()) + "\r\n";
        system.PutFile(system.InRoot(L"Local\\ORTHO_5_Drawing1line.ini"),
                       Rows("LineList", "KV2D_LINE_", size.lines, "Line-"));
    }
    system.PutFile(project + L"General.ini", general);
    system.PutFile(project + L"Lines.ini", Rows("LineList", "KV2D_LINE_", size.lines, "Line-"));
    system.PutFile(project + L"Specs.ini", Rows("SpecList", "KV2D_SPEC_", size.specs, "x"));
    system.PutFile(system.InData(L"SpecDatafile.ini"), Rows("SpecList", "KV2D_SPEC_", size.specs, "Spec-"));
    system.PutFile(system.InData(L"Standards\\Piping\\ANSI\\size.tp"),
                   Rows("Imperial US Sizes", " ", 30, "Size-"));
}

// Of ten entities five are elements with their record, one is a tag with its number, four are lines.
void FillDrawing(AcDbDatabase& database, const Size& size) {
    acdbRegApp(kDocXDataAppName);
    TestDrawing drawing(database);
    for (int i = 0; i < size.entities; ++i) {
        if (i % 10 > 5) {
            drawing.AddLine();
        } else if (i % 10 == 5) {
            drawing.AddReference(L"TAGLINE",
                                 {{L"LIN_NUM", L"Line-" + std::to_wstring(100001 + i % size.lines)}});
        } else {
            AcDbObjectPointer<AcDbBlockReference> valve(drawing.AddReference(L"VAL_BLK"), AcDb::kForWrite);
            XDataItems items;
            items.App().Long(i).Short(0).Short(0).Text(L"VALVE").Long(0).Long(1 + i % size.lines);
            valve->setXData(items.Get());
        }
    }
}

struct Step {
    const char* name;
    double milliseconds;
};

// The steps of a change of drawing as the palette takes them, each by itself.
std::vector<Step> MeasureSteps(AcApDocument* document, bool localLines) {
    std::vector<Step> steps;
    const auto step = [&](const char* name, const std::function<void()>& work) {
        steps.push_back({name, Measure(work)});
    };
    std::vector<int> ids, used, filtered;
    std::vector<std::wstring> names;
    CProjectLines lines;
    step("the drawing's record", [] { CKV2D_DocXData data(kDocXDataAppName); });
    step("the project's settings", [] { CKV2D_ProjectGeneral general(kProject); });
    step("specs", [&] { GetProjectSpecs(kProject, ids, names); });
    step("sizes", [&] { GetSizeList(L"ANSI", kSizeSetImperialUs, ids, names, false); });
    if (localLines) {
        const std::wstring path = document->fileName();
        std::vector<std::wstring> inDrawing;
        step("line numbers in the drawing's tags", [&] {
            inDrawing.clear();
            CollectLineNumbers(inDrawing, path);
        });
        step("lines of the drawing's file", [&] {
            GetLocalLineList(kProject, GetApplicationName(kAppOrtho), path, inDrawing, lines.m_anIds,
                             lines.m_astrNames, lines.m_abFlags, true, true, false, true);
        });
    } else {
        step("lines of the project", [&] { lines.Read(kProject, false, kAppOrtho, {.bUseCache = true}); });
    }
    step("lines in use in the drawing", [&] { CollectUsedLineIds(document->database(), used); });
    step("filtered lines", [&] { ReadFilteredLineIds(filtered); });
    step("order of the lines", [&] {
        CProjectLines copy = lines;
        RemoveFilteredLines(copy.m_anIds, copy.m_astrNames, copy.m_abFlags, filtered);
        OrderLinesByUse(copy.m_astrNames, copy.m_anIds, used);
    });
    return steps;
}

// Prints the table of one size; the result is the own time.
double Run(const Size& size, bool localLines) {
    TestSystem system;
    PutDatabase(system, size, localLines);
    LinkedPalette host(system);
    AcApDocument* document = acDocManager->curDocument();
    acDocManager->lockDocument(document);
    FillDrawing(*document->database(), size);
    acDocManager->unlockDocument(document);
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_projectId = kProject;
        data.m_appId = kAppOrtho;
        data.m_specId = size.specs;
        data.m_lineId = size.lines;  // the last of the list: the longest way to it
        data.m_dirty = true;
    }
    CMenuPaletteChildDlg& palette = host.Make(kAppOrtho);

    std::vector<Step> steps = MeasureSteps(document, localLines);
    steps.push_back({"showing the choices", Measure([&] { palette.UpdateCurrentSelections(); })});
    double own = 0;
    for (const Step& step : steps)
        own += step.milliseconds;

    std::vector<std::wstring> lineNames, specNames;
    std::vector<int> lineIds, specIds;
    std::vector<bool> flags;
    GetLineList(kProject, lineIds, lineNames, flags, true, false, false, true);
    GetProjectSpecs(kProject, specIds, specNames);
    const double fillLines = Measure([&] { palette.SetComboList(3, lineNames, lineIds); });
    const double fillSpecs = Measure([&] { palette.SetComboList(0, specNames, specIds); });
    const double whole = Measure([&] { palette.UpdateForDocument(document); });

    std::printf("\n%d entities, %d lines%s, %d specs\n", size.entities, size.lines,
                localLines ? " of the drawing's own" : "", size.specs);
    for (const Step& step : steps)
        std::printf("  %-34s %9.2f ms %5.0f %%\n", step.name, step.milliseconds,
                    100 * step.milliseconds / own);
    std::printf("  %-34s %9.2f ms\n", "own time", own);
    std::printf("  %-34s %9.2f ms\n", "apart: filling the combo of lines", fillLines);
    std::printf("  %-34s %9.2f ms\n", "apart: filling the combo of specs", fillSpecs);
    std::printf("  %-34s %9.2f ms\n", "the whole change of drawing", whole);
    std::fflush(stdout);
    return own;
}

// True if the limits hold.
bool RunAll(bool localLines) {
    const double own = Run({50'000, 10'000, 2'000}, localLines);
    const double drawing = Run({100'000, 10'000, 2'000}, localLines);
    const double project = Run({50'000, 20'000, 4'000}, localLines);
    std::printf(
        "\nown time %.1f ms (limit %.0f); twice the drawing x %.2f, twice the project x %.2f (limit %.0f)\n",
        own, kLimit, drawing / own, project / own, kMostGrowth);
    return own < kLimit && std::max(drawing, project) <= own * kMostGrowth * kMeasureNoise;
}

}  // namespace

int main() {
    const bool shared = RunAll(false);
    const bool local = RunAll(true);
    std::puts(shared && local ? "\nThe limits hold." : "\nA limit is broken.");
    return shared && local ? 0 : 1;
}
