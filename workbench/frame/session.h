// One session of the workbench: the host with its documents and modules, the main window before it, and the
// script that plays on it, if there is one.
#pragma once

#include <arx_port.h>
#include <oaidl.h>

#include <memory>
#include <string>

#include "frame/options.h"
#include "frame/transcript.h"
#include "host/files.h"
#include "host/surface.h"

namespace workbench::host {
class Host;
class Document;
}  // namespace workbench::host

namespace frame {

class HostileHost;
class MainFrame;
class ScriptPlayer;
class SystemLibraryLoader;

class ARX_PORT Session : public workbench::host::Surface {
  public:
    Session();
    ~Session() override;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Opens the main window, loads the module, opens the first drawing, and starts the script. False if there
    // can be no window or the arguments are wrong; the user has been told.
    bool Start(const Options& options);
    // Nothing is in the message queue. True if there was something to do.
    bool OnIdle();
    // The program's exit status.
    int ExitStatus() const { return m_exitStatus; }

    MainFrame* Frame() const { return m_frame; }
    workbench::host::Host& TheHost() { return *m_host; }
    const Transcript& TheTranscript() const { return m_transcript; }
    // Owned by the session.
    IDispatch* Automation() const { return m_automation; }

    // One line of input, as the user enters it.
    void Enter(const std::wstring& line);
    // No input is being worked on or queued, and no modal window is open.
    bool IsIdle() const;

    void Print(const std::wstring& text) override;
    workbench::host::SaveAnswer AskSave(const std::wstring& documentTitle) override;
    std::wstring AskSavePath(const std::wstring& documentTitle) override;
    void DocumentsChanged() override;
    void DrawingChanged() override;
    void Quit() override;

  private:
    class DocumentWatcher;
    class WorkspaceWatcher;

    bool OpenWindow();
    void LoadModule(const Options& options);
    void StartScript(const Options& options);
    void MakeAutomation();

    void Type(const std::wstring& text);
    void AfterInput();
    void DoCommand(unsigned int id);
    void NewDrawing();
    void OpenDrawing();
    bool Open(const std::wstring& path, bool readOnly, bool tellUser);
    void Save(bool as);
    void CloseCurrent();
    bool MayClose();
    void EndScript(bool succeeded);
    void TellHostileCalls();

    // Shows a message box, or, while a script plays, writes it down and takes the default answer `scripted`.
    int Ask(const std::wstring& text, unsigned int flags, int scripted);
    void Tell(const std::wstring& text, unsigned int flags);

    Transcript m_transcript;
    workbench::host::SystemFiles m_files;
    std::unique_ptr<HostileHost> m_hostile;  // null for an ordinary host
    std::unique_ptr<SystemLibraryLoader> m_loader;
    std::unique_ptr<workbench::host::Host> m_host;
    std::unique_ptr<DocumentWatcher> m_documentWatcher;
    std::unique_ptr<WorkspaceWatcher> m_workspaceWatcher;
    std::unique_ptr<ScriptPlayer> m_player;
    MainFrame* m_frame = nullptr;  // deletes itself with its window
    const workbench::host::Document* m_shownDocument = nullptr;
    IDispatch* m_automation = nullptr;
    std::wstring m_programFolder;  // with its backslash
    bool m_scripted = false;
    bool m_drawingChanged = false;
    bool m_starting = true;  // input of a script waits
    int m_inputDepth = 0;
    int m_exitStatus = 2;  // until the session has started
};

}  // namespace frame
