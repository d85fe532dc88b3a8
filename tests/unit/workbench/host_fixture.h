// A host with a transcript, files in memory and applications made of functions.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "acdbads.h"
#include "acedads.h"
#include "acestext.h"
#include "acutads.h"
#include "database/builder.h"
#include "database/services.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "host/host.h"

inline void PrintTo(Acad::ErrorStatus status, std::ostream* out) {
    for (const ACHAR* at = acadErrorStatusText(status); *at != 0; ++at) {
        *out << static_cast<char>(*at);
    }
}

namespace workbench::test {

class FakeSurface : public host::Surface {
  public:
    void Print(const std::wstring& text) override { transcript += text; }
    host::SaveAnswer AskSave(const std::wstring& title) override {
        asked.push_back(title);
        return answer;
    }
    std::wstring AskSavePath(const std::wstring&) override { return savePath; }
    void Quit() override { quit = true; }

    std::wstring transcript, savePath;
    std::vector<std::wstring> asked;
    host::SaveAnswer answer = host::SaveAnswer::kDiscard;
    bool quit = false;
};

class FakeFiles : public host::Files {
  public:
    bool Exists(const std::wstring& path) override { return texts.contains(path); }
    bool IsReadOnly(const std::wstring& path) override { return readOnly.contains(path); }
    bool ReadText(const std::wstring& path, std::wstring& text) override {
        text = texts[path];
        return true;
    }
    bool WriteText(const std::wstring& path, const std::wstring& text) override {
        texts[path] = text;
        return true;
    }
    void Remove(const std::wstring& path) override { texts.erase(path); }
    std::wstring TimeText() override { return L"2026-11-21 10:30:00"; }

    std::map<std::wstring, std::wstring> texts;
    std::set<std::wstring> readOnly;
};

// A drawing in a file is its number of lines: "3".
class FakeDrawings : public database::DrawingFiles {
  public:
    explicit FakeDrawings(FakeFiles& files) : m_files(files) { database::InstallDrawingFiles(this); }
    ~FakeDrawings() override { database::InstallDrawingFiles(nullptr); }

    Acad::ErrorStatus Read(const std::wstring& path, AcDbDatabase& drawing, std::wstring& error) override {
        if (!m_files.texts.contains(path)) {
            return Acad::eFileNotFound;
        }
        const int lines = std::stoi(L"0" + m_files.texts[path]);
        if (m_files.texts[path].starts_with(L"x")) {
            error = L"line 1: not a drawing";
            return Acad::eFilerError;
        }
        database::Builder builder(drawing);
        auto& space = builder.Record<database::BlockRecordData>(builder.Table<database::BlockTableData>(0),
                                                                ACDB_MODEL_SPACE, 0);
        for (int i = 0; i < lines; ++i) {
            builder.Entity<database::LineData>(space, 0);
        }
        builder.Finish();
        return Acad::eOk;
    }

    Acad::ErrorStatus Write(const std::wstring& path, const AcDbDatabase& drawing,
                            std::wstring& error) override {
        if (failWriting) {
            error = L"the disk is full";
            return Acad::eFileAccessErr;
        }
        m_files.texts[path] = std::to_wstring(database::DataOf(drawing).ModelSpace()->entities.size());
        return Acad::eOk;
    }

    bool failWriting = false;

  private:
    FakeFiles& m_files;
};

// Records every event as a short text.
class DocumentEvents : public AcApDocManagerReactor {
  public:
    DocumentEvents() { acDocManager->addReactor(this); }
    ~DocumentEvents() override {
        if (acDocManager != nullptr) {
            acDocManager->removeReactor(this);
        }
    }

    void documentCreateStarted(AcApDocument* d) override { Add(L"createStarted", d); }
    void documentCreated(AcApDocument* d) override { Add(L"created", d); }
    void documentToBeDestroyed(AcApDocument* d) override { Add(L"toBeDestroyed", d); }
    void documentDestroyed(const ACHAR* name) override {
        events.push_back(std::wstring(L"destroyed ") + name + L" count " +
                         std::to_wstring(acDocManager->documentCount()));
        if (onDestroyed) {
            onDestroyed();
        }
    }
    void documentCreateCanceled(AcApDocument* d) override { Add(L"createCanceled", d); }
    void documentBecameCurrent(AcApDocument* d) override {
        Add(L"becameCurrent", d);
        if (onBecameCurrent && d != nullptr) {
            onBecameCurrent(d);
        }
    }
    void documentToBeActivated(AcApDocument* d) override { Add(L"toBeActivated", d); }
    void documentToBeDeactivated(AcApDocument* d) override { Add(L"toBeDeactivated", d); }
    void documentActivated(AcApDocument* d) override { Add(L"activated", d); }
    void documentTitleUpdated(AcApDocument* d) override { Add(L"titleUpdated", d); }
    void documentLockModeWillChange(AcApDocument* d, AcAp::DocLockMode from, AcAp::DocLockMode to,
                                    AcAp::DocLockMode, const ACHAR* name) override {
        locks.push_back(L"will " + std::to_wstring(from) + L">" + std::to_wstring(to) + L" " + name);
        Act(L"lockWillChange", d);
    }
    void documentLockModeChanged(AcApDocument* d, AcAp::DocLockMode from, AcAp::DocLockMode to,
                                 AcAp::DocLockMode, const ACHAR* name) override {
        locks.push_back(L"did " + std::to_wstring(from) + L">" + std::to_wstring(to) + L" " + name);
        Act(L"lockChanged", d);
    }

    std::vector<std::wstring> Take() { return std::exchange(events, {}); }

    std::vector<std::wstring> events, locks;
    std::function<void()> onDestroyed;
    std::function<void(AcApDocument*)> onBecameCurrent;
    // What to do in the events of that name ("created") of a document.
    std::map<std::wstring, std::function<void(AcApDocument*)>> on;

  private:
    void Add(const std::wstring& what, AcApDocument* document) {
        events.push_back(what + L" " + (document == nullptr ? L"null" : document->docTitle()));
        Act(what, document);
    }
    void Act(const std::wstring& what, AcApDocument* document) {
        if (const auto found = on.find(what); found != on.end()) {
            const auto action = found->second;  // which may change what is to be done next time
            action(document);
        }
    }
};

class EditorEvents : public AcEditorReactor {
  public:
    EditorEvents() { acedEditor->addReactor(this); }
    ~EditorEvents() override { acedEditor->removeReactor(this); }
    void sysVarWillChange(const ACHAR* name) override { Add(L"will", name); }
    void sysVarChanged(const ACHAR* name, bool success) override {
        Add(success ? L"changed" : L"failed", name);
    }
    void commandWillStart(const ACHAR* name) override { Add(L"start", name); }
    void commandEnded(const ACHAR* name) override { Add(L"end", name); }
    void commandCancelled(const ACHAR* name) override { Add(L"cancel", name); }
    void commandFailed(const ACHAR* name) override { Add(L"fail", name); }
    void lispWillStart(const ACHAR*) override { Add(L"lisp"); }
    void lispEnded() override { Add(L"lispEnded"); }
    void lispCancelled() override { Add(L"lispCancelled"); }
    void unknownCommand(const ACHAR* name) override { Add(L"unknown", name); }

    std::vector<std::wstring> events;
    // What to do in the events of that name ("start").
    std::map<std::wstring, std::function<void()>> on;

  private:
    void Add(const std::wstring& what, const std::wstring& name = L"") {
        events.push_back(name.empty() ? what : what + L" " + name);
        if (const auto found = on.find(what); found != on.end()) {
            const auto action = found->second;  // which may change what is to be done next time
            action();
        }
    }
};

// An application of the tests: what it does with each message.
struct FakeApplication {
    static inline std::vector<std::wstring> messages;
    static inline std::function<AcRx::AppRetCode(AcRx::AppMsgCode, void*)> onMessage;
    static inline int version = kArxHostApiVersion;

    static AcRx::AppRetCode Entry(AcRx::AppMsgCode message, void* appId) {
        const AcApDocument* current = acDocManager->curDocument();
        messages.push_back(std::to_wstring(message) + L" " +
                           (current == nullptr ? L"-" : current->docTitle()));
        return onMessage ? onMessage(message, appId) : AcRx::kRetOK;
    }
    static int Version() { return version; }
    static void Reset() {
        messages.clear();
        onMessage = nullptr;
        version = kArxHostApiVersion;
    }
};

class FakeLoader : public host::LibraryLoader {
  public:
    bool Load(const std::wstring& path, host::Library& library, std::wstring& error) override {
        if (path.find(L"bad") != std::wstring::npos) {
            error = L"cannot be loaded";
            return false;
        }
        library = {this, &FakeApplication::Entry, &FakeApplication::Version};
        ++loaded;
        return true;
    }
    void Free(const host::Library&) override { --loaded; }
    int loaded = 0;
};

inline host::Settings TestSettings() {
    host::Settings settings;
    settings.documentsFolder = L"C:\\Users\\me\\";
    settings.supportFolders = {L"C:\\Support\\"};
    return settings;
}

class HostTest : public testing::Test {
  protected:
    HostTest() { FakeApplication::Reset(); }
    ~HostTest() override { FakeApplication::Reset(); }

    host::DocumentManager& Documents() { return m_host->Documents(); }
    host::Document& ADocument() {
        EXPECT_EQ(Documents().New(L""), Acad::eOk);
        return *Documents().Current();
    }
    host::Document& ADrawing(const std::wstring& path, const std::wstring& content = L"1") {
        m_files.texts[path] = content;
        EXPECT_EQ(Documents().Open(path, false), Acad::eOk);
        return *Documents().Current();
    }
    // What typing prints.
    std::wstring Type(const std::wstring& text) {
        m_surface.transcript.clear();
        m_host->Type(text);
        return m_surface.transcript;
    }
    std::wstring Variable(const wchar_t* name) {
        resbuf value{};
        if (acedGetVar(name, &value) != RTNORM) {
            return L"unknown";
        }
        if (value.restype == RTSTR) {
            std::wstring text = value.resval.rstring;
            acutDelString(value.resval.rstring);
            return text;
        }
        return value.restype == RTSHORT ? std::to_wstring(value.resval.rint) : L"number";
    }
    int SetShort(const wchar_t* name, short number) {
        resbuf value{};
        value.restype = RTSHORT;
        value.resval.rint = number;
        return acedSetVar(name, &value);
    }
    // The status of opening model space for write, which is closed again.
    Acad::ErrorStatus TryWrite(host::Document& document) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(document.database()->currentSpaceId(), AcDb::kForWrite);
        return space.openStatus();
    }

    FakeSurface m_surface;
    FakeFiles m_files;
    FakeDrawings m_drawings{m_files};
    FakeLoader m_loader;
    std::unique_ptr<host::Host> m_host =
        std::make_unique<host::Host>(m_surface, m_files, m_loader, TestSettings());
};

using Events = std::vector<std::wstring>;

}  // namespace workbench::test
