#include "frame/session.h"

#include <commdlg.h>
#include <rxmfcapi.h>
#include <shlobj.h>

#include <algorithm>

#include "database/database_data.h"
#include "drawing_file/dxf_drawing_files.h"
#include "frame/automation.h"
#include "frame/host_windows.h"
#include "frame/hostile_host.h"
#include "frame/library_loader.h"
#include "frame/main_frame.h"
#include "frame/script_player.h"
#include "host/host.h"
#include "platform/win32_platform.h"

namespace frame {

using workbench::host::Document;
using workbench::host::Host;
using workbench::host::SaveAnswer;

namespace {

constexpr wchar_t kModuleName[] = L"kv2dMenuOEM64.arx";
constexpr wchar_t kDrawingFilter[] =
    L"Drawings (*.dwg;*.dxf)\0*.dwg;*.dxf\0Templates (*.dwt)\0*.dwt\0All files\0*.*\0";
constexpr wchar_t kEscape = 27;
constexpr int kScriptFailed = 1;

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return workbench::host::FolderOf(path);
}

std::wstring DocumentsFolder() {
    wchar_t path[MAX_PATH] = L"";
    if (SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK) return L"C:\\";
    return std::wstring(path) + L"\\";
}

std::wstring NameFromSystem(BOOL(WINAPI* get)(LPWSTR, LPDWORD), const wchar_t* otherwise) {
    wchar_t name[256] = L"";
    DWORD size = 256;
    return get(name, &size) && name[0] != L'\0' ? name : otherwise;
}

// Asks for a file; empty if the user cancels.
std::wstring AskForFile(HWND owner, bool save, const std::wstring& suggestion) {
    wchar_t path[MAX_PATH] = L"";
    if (suggestion.size() < MAX_PATH) std::copy(suggestion.begin(), suggestion.end(), path);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = kDrawingFilter;
    dialog.lpstrFile = path;
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrDefExt = L"dwg";
    dialog.lpstrTitle = save ? L"Save Drawing As" : L"Open Drawing";
    dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY |
                   (save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST);
    return (save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog)) ? path : L"";
}

std::wstring Trimmed(std::wstring text) {
    const auto isBlank = [](wchar_t c) { return c == L'\n' || c == L'\r' || c == L' '; };
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isBlank));
    while (!text.empty() && isBlank(text.back()))
        text.pop_back();
    return text;
}

workbench::drawing_file::DxfDrawingFiles& TheDrawingFiles() {
    static workbench::drawing_file::DxfDrawingFiles files;
    return files;
}

}  // namespace

// Keeps the view from looking at a drawing that is going away.
class Session::DocumentWatcher : public AcApDocManagerReactor {
  public:
    explicit DocumentWatcher(Session& session) : m_session(session) {}
    void documentToBeDestroyed(AcApDocument* document) override {
        if (m_session.m_frame != nullptr) m_session.m_frame->View().ForgetDocument(document);
    }

  private:
    Session& m_session;
};

// A change of workspace hides the palettes, as in the vendor's host; a module that wants its own back shows
// it when it hears of the change. This reactor comes first, as it is there before any module.
class Session::WorkspaceWatcher : public AcEditorReactor {
  public:
    explicit WorkspaceWatcher(Session& session) : m_session(session) {}
    void sysVarChanged(const ACHAR* name, bool success) override {
        if (success && m_session.m_frame != nullptr && _wcsicmp(name, L"WSCURRENT") == 0)
            m_session.m_frame->Docks().HideAll();
    }

  private:
    Session& m_session;
};

Session::Session() : m_loader(std::make_unique<SystemLibraryLoader>()), m_programFolder(ProgramFolder()) {}

Session::~Session() {
    m_player.reset();
    if (m_automation != nullptr) m_automation->Release();
    if (m_host != nullptr) {
        m_host->TheEditor().removeReactor(m_workspaceWatcher.get());
        m_host->Documents().removeReactor(m_documentWatcher.get());
        TellHostileCalls();
        m_host.reset();
    }
    if (m_frame != nullptr) m_frame->DestroyWindow();
    SetHostFrame(nullptr);
}

bool Session::Start(const Options& options) {
    m_scripted = !options.scriptFile.empty();
    if (!options.transcriptFile.empty() && !m_transcript.WriteTo(options.transcriptFile)) {
        Tell(L"The transcript cannot be written to\n" + options.transcriptFile, MB_ICONERROR);
        return false;
    }
    if (!options.error.empty()) {
        Tell(options.error, MB_ICONERROR);
        return false;
    }
    if (!options.hostile.empty() && !HostileHost::IsPlan(options.hostile)) {
        Tell(L"There is no call of the host " + options.hostile, MB_ICONERROR);
        return false;
    }
    if (!OpenWindow()) return false;

    workbench::host::Settings settings;
    settings.documentsFolder = DocumentsFolder();
    settings.startUpFile = options.lispFile;
    settings.supportFolders = {m_programFolder};
    if (!options.lispFile.empty())
        settings.supportFolders.push_back(workbench::host::FolderOf(options.lispFile));
    settings.userName = NameFromSystem(GetUserNameW, L"Designer");
    settings.machineName = NameFromSystem(GetComputerNameW, L"Workbench");
    platform::InstallWin32Platform();
    workbench::database::InstallDrawingFiles(&TheDrawingFiles());
    m_host = std::make_unique<Host>(*this, m_files, *m_loader, settings);
    m_documentWatcher = std::make_unique<DocumentWatcher>(*this);
    m_host->Documents().addReactor(m_documentWatcher.get());
    m_workspaceWatcher = std::make_unique<WorkspaceWatcher>(*this);
    m_host->TheEditor().addReactor(m_workspaceWatcher.get());
    MakeAutomation();
    if (!options.hostile.empty()) m_hostile = std::make_unique<HostileHost>(options.hostile);

    // Before the module: it may show a message box while it loads, which the script then answers.
    StartScript(options);
    LoadModule(options);
    if (!options.withoutDrawing && options.drawings.empty()) m_host->Documents().New(L"");
    for (const std::wstring& drawing : options.drawings)
        Open(drawing, false, true);
    AfterInput();
    if (m_frame != nullptr) m_frame->FocusDrawing();
    m_exitStatus = 0;
    m_starting = false;
    if (m_player != nullptr) m_player->WaitAnew();
    return true;
}

bool Session::OpenWindow() {
    MainFrame::Events events;
    events.command = [this](UINT id) { DoCommand(id); };
    events.activate = [this](std::size_t index) {
        const std::vector<Document*> documents = m_host->Documents().All();
        if (index < documents.size()) m_host->Documents().activateDocument(documents[index], false);
        DocumentsChanged();
    };
    events.entered = [this](const std::wstring& line) { Enter(line); };
    events.cancelled = [this] { Type(std::wstring(1, kEscape)); };
    events.inputArrived = [this] { OnIdle(); };
    events.mayClose = [this] { return MayClose(); };
    events.destroyed = [this] {
        m_frame = nullptr;
        SetHostFrame(nullptr);
    };
    m_frame = new MainFrame(events);
    // Pictures of a script do not depend on where somebody left the window or the pointer.
    if (!m_frame->CreateFrame(!m_scripted)) {
        m_frame = nullptr;  // without a window it has deleted itself
        return false;
    }
    if (m_scripted) SetCursorPos(0, 0);
    SetHostFrame(m_frame);
    m_frame->ShowWindow(SW_SHOW);
    m_frame->SetForegroundWindow();
    return true;
}

void Session::LoadModule(const Options& options) {
    if (options.withoutModule) return;
    const std::wstring path = options.module.empty() ? m_programFolder + kModuleName : options.module;
    const std::size_t before = m_transcript.Text().size();
    if (m_host->Apps().loadModule(path.c_str(), true, false)) return;
    Tell(L"The menu module was not loaded:\n" + path + L"\n\n" + Trimmed(m_transcript.Text().substr(before)) +
             L"\n\nThe workbench goes on without it.",
         MB_ICONEXCLAMATION);
}

void Session::MakeAutomation() {
    AutomationActions actions;
    const auto reason = [this](std::size_t before) {
        const std::wstring text = Trimmed(m_transcript.Text().substr(before));
        return text.empty() ? std::wstring(L"The drawing cannot be opened.") : text;
    };
    actions.open = [this, reason](const std::wstring& path, bool readOnly,
                                  std::wstring& error) -> AcApDocument* {
        const std::size_t before = m_transcript.Text().size();
        if (Open(path, readOnly, false)) return m_host->Documents().Active();
        error = reason(before);
        return nullptr;
    };
    actions.add = [this, reason](const std::wstring& path, std::wstring& error) -> AcApDocument* {
        const std::size_t before = m_transcript.Text().size();
        if (m_host->Documents().New(path) == Acad::eOk) return m_host->Documents().Active();
        error = reason(before);
        return nullptr;
    };
    actions.close = [this](AcApDocument* document, bool saveChanges, std::wstring& error) {
        Document& closing = *static_cast<Document*>(document);
        if (saveChanges && closing.isNamedDrawing() && m_host->Documents().Save(closing) != Acad::eOk) {
            error = L"The drawing cannot be saved.";
            return false;
        }
        return m_host->Documents().Close(closing, false) == Acad::eOk;
    };
    actions.save = [this](AcApDocument* document, std::wstring& error) {
        if (m_host->Documents().Save(*static_cast<Document*>(document)) == Acad::eOk) return true;
        error = L"The drawing cannot be saved.";
        return false;
    };
    actions.quit = [this] { Quit(); };
    m_automation = CreateAutomationApplication(std::move(actions));
}

void Session::StartScript(const Options& options) {
    if (!m_scripted) return;
    Script script;
    std::wstring text;
    if (m_files.ReadText(options.scriptFile, text)) {
        script = ParseScript(text);
    } else {
        script.error = L"the script cannot be read: " + options.scriptFile;
    }
    ScriptPlayer::Stage stage;
    stage.idle = [this] { return IsIdle(); };
    stage.enter = [this](const std::wstring& line) { Enter(line); };
    stage.output = [this] { return m_frame == nullptr ? std::wstring() : m_frame->CommandLine().History(); };
    stage.note = [this](const std::wstring& line) { m_transcript.AddLine(line); };
    stage.currentDocument = [this]() -> std::wstring {
        const Document* active = m_host->Documents().Active();
        return active == nullptr ? L"" : workbench::host::NameOf(active->fileName());
    };
    stage.mainWindow = [this] { return m_frame == nullptr ? nullptr : m_frame->GetSafeHwnd(); };
    stage.docks = [] { return TheDockManager(); };
    stage.finished = [this](bool succeeded) { EndScript(succeeded); };
    stage.pictureFolder = options.pictureFolder;
    // What a refused call leaves undone is not waited for; the session is to end like an ordinary one all the
    // same.
    stage.givesUp = m_hostile != nullptr;
    m_player = std::make_unique<ScriptPlayer>(std::move(script), std::move(stage));
    m_player->Start();
}

void Session::TellHostileCalls() {
    if (m_hostile == nullptr) return;
    m_host->Apps().UnloadAll();  // unloading makes calls too
    for (const HostCallCount& count : m_hostile->Counts())
        m_transcript.AddLine(L"hostile: " + std::to_wstring(count.calls) + L" " +
                             std::wstring(count.name.begin(), count.name.end()));
    m_transcript.AddLine(L"hostile: failed: " + m_hostile->Failures());
}

void Session::EndScript(bool succeeded) {
    if (!succeeded && m_hostile != nullptr) m_exitStatus = kScriptFailed;
    if (succeeded || m_hostile != nullptr) {
        Quit();
        return;
    }
    // Dialogs may be open that nobody answers; the transcript is on disk already.
    TerminateProcess(GetCurrentProcess(), kScriptFailed);
}

bool Session::OnIdle() {
    if (m_host == nullptr || m_frame == nullptr || m_inputDepth > 0) return false;
    bool worked = false;
    if (m_frame->IsWindowEnabled()) {
        ++m_inputDepth;
        worked = m_host->RunQueuedInput();
        --m_inputDepth;
    }
    if (worked) AfterInput();
    if (m_drawingChanged && m_frame != nullptr) {
        m_drawingChanged = false;
        m_frame->View().Regenerate();
    }
    return worked;
}

bool Session::IsIdle() const {
    if (m_starting || m_inputDepth > 0 || m_frame == nullptr || !m_frame->IsWindowEnabled()) return false;
    Document* active = m_host->Documents().Active();
    return active == nullptr || active->Queue().empty();
}

void Session::Enter(const std::wstring& line) {
    Type(line + L"\n");
}

void Session::Type(const std::wstring& text) {
    ++m_inputDepth;
    m_host->Type(text);
    --m_inputDepth;
    AfterInput();
}

void Session::AfterInput() {
    if (m_frame == nullptr) return;
    m_frame->CommandLine().SetPrompt(Trimmed(m_host->Line().PromptText()));
    DocumentsChanged();
}

void Session::Print(const std::wstring& text) {
    m_transcript.Add(text);
    if (m_frame != nullptr) m_frame->CommandLine().Append(text);
}

int Session::Ask(const std::wstring& text, unsigned int flags, int scripted) {
    if (!m_scripted) return MessageBoxW(adsw_acadMainWnd(), text.c_str(), L"Workbench", flags);
    m_transcript.AddLine(L"[Workbench: " + text + L"]");
    return scripted;
}

void Session::Tell(const std::wstring& text, unsigned int flags) {
    Ask(text, flags | MB_OK, IDOK);
}

SaveAnswer Session::AskSave(const std::wstring& documentTitle) {
    switch (Ask(L"Save changes to " + documentTitle + L"?", MB_YESNOCANCEL | MB_ICONEXCLAMATION, IDNO)) {
        case IDYES:
            return SaveAnswer::kSave;
        case IDNO:
            return SaveAnswer::kDiscard;
        default:
            return SaveAnswer::kCancel;
    }
}

std::wstring Session::AskSavePath(const std::wstring& documentTitle) {
    return AskForFile(adsw_acadMainWnd(), true, documentTitle);
}

void Session::DocumentsChanged() {
    if (m_frame == nullptr || m_host == nullptr) return;
    std::vector<std::wstring> titles;
    int current = -1;
    Document* active = m_host->Documents().Active();
    for (Document* document : m_host->Documents().All()) {
        if (document == active) current = static_cast<int>(titles.size());
        titles.push_back(document->docTitle());
    }
    m_frame->SetDocuments(titles, current);
    m_frame->SetDrawingTitle(active == nullptr ? L"" : active->docTitle());
    m_frame->SetStatus(active == nullptr      ? L"No drawing"
                       : active->isReadOnly() ? L"Read-only"
                                              : L"Model space");
    m_frame->View().ShowDocument(active);
    if (active != nullptr && active != m_shownDocument) m_frame->FocusDrawing();
    m_shownDocument = active;
}

void Session::DrawingChanged() {
    Document* active = m_host == nullptr ? nullptr : m_host->Documents().Active();
    if (active != nullptr && workbench::database::DataOf(*active->database()).modified)
        m_drawingChanged = true;
}

void Session::Quit() {
    if (m_frame != nullptr) m_frame->PostMessage(WM_CLOSE);
}

void Session::DoCommand(unsigned int id) {
    switch (id) {
        case kCommandNew:
            NewDrawing();
            break;
        case kCommandOpen:
            OpenDrawing();
            break;
        case kCommandSave:
            Save(false);
            break;
        case kCommandSaveAs:
            Save(true);
            break;
        case kCommandClose:
            CloseCurrent();
            break;
        case kCommandRegenerate:
            m_frame->View().Regenerate();
            break;
        case kCommandAbout:
            Tell(L"Workbench\n\nA small drawing host for the menu module.", MB_ICONINFORMATION);
            break;
        default:
            break;
    }
    AfterInput();
}

// A new drawing follows the template of the standard that was chosen last.
void Session::NewDrawing() {
    const auto known = m_host->Environment().find(L"QnewTemplate");
    const std::wstring templatePath = known == m_host->Environment().end() ? L"" : known->second;
    m_host->Documents().New(m_files.Exists(templatePath) ? templatePath : L"");
}

void Session::OpenDrawing() {
    const std::wstring path = AskForFile(*m_frame, false, L"");
    if (!path.empty()) Open(path, false, true);
}

bool Session::Open(const std::wstring& path, bool readOnly, bool tellUser) {
    const std::size_t before = m_transcript.Text().size();
    if (m_host->Documents().Open(path, readOnly) == Acad::eOk) return true;
    if (tellUser)
        Tell(
            L"The drawing cannot be opened:\n" + path + L"\n\n" + Trimmed(m_transcript.Text().substr(before)),
            MB_ICONERROR);
    return false;
}

void Session::Save(bool as) {
    Document* active = m_host->Documents().Active();
    if (active == nullptr) return;
    std::wstring path;
    if (as || !active->isNamedDrawing() || active->isReadOnly()) {
        path = AskForFile(*m_frame, true, workbench::host::NameOf(active->fileName()));
        if (path.empty()) return;
    }
    const std::size_t before = m_transcript.Text().size();
    const Acad::ErrorStatus status =
        path.empty() ? m_host->Documents().Save(*active) : m_host->Documents().SaveAs(*active, path);
    if (status != Acad::eOk)
        Tell(L"The drawing cannot be saved.\n\n" + Trimmed(m_transcript.Text().substr(before)), MB_ICONERROR);
}

void Session::CloseCurrent() {
    if (Document* active = m_host->Documents().Active(); active != nullptr)
        m_host->Documents().Close(*active, true);
}

bool Session::MayClose() {
    // A command or a dialog that is up would come back to a host that is gone.
    if (m_inputDepth > 0) return false;
    if (m_host == nullptr) return true;
    m_host->Documents().DropForgottenLocks();
    if (!m_host->Documents().CloseAll(true)) return false;
    m_host->Apps().Broadcast(AcRx::kPreQuitMsg);
    m_host->Apps().Broadcast(AcRx::kQuitMsg);
    m_host->Apps().UnloadAll();
    return true;
}

}  // namespace frame
