// Plays a script against the running workbench: one step after the other, driven by a timer so that it goes
// on while a modal dialog runs. Each step waits for what it needs until its deadline; the first that fails
// ends the script.
#pragma once

#include <arx_port.h>

#include <windows.h>

#include <chrono>
#include <functional>
#include <string>

#include "frame/child_program.h"
#include "frame/picture.h"
#include "frame/script.h"

namespace frame {

class DockManager;

class ARX_PORT ScriptPlayer {
  public:
    // What a script reaches of the workbench besides its windows.
    struct Stage {
        std::function<bool()> idle;                      // no input is being worked on or queued
        std::function<void(const std::wstring&)> enter;  // one line of command-line input
        std::function<std::wstring()> output;            // all that the program has said so far
        std::function<void(const std::wstring&)> note;   // adds a line to the transcript
        std::function<std::wstring()> currentDocument;   // file name without folders; empty if there is none
        std::function<HWND()> mainWindow;
        std::function<DockManager*()> docks;
        std::function<void(bool succeeded)> finished;
        bool givesUp = false;        // waits shortly, and closes all dialogs after a step that failed
        std::wstring pictureFolder;  // where pictures go; empty: pictures are skipped and said to be
    };

    ScriptPlayer(Script script, Stage stage);
    ~ScriptPlayer();
    ScriptPlayer(const ScriptPlayer&) = delete;
    ScriptPlayer& operator=(const ScriptPlayer&) = delete;

    void Start();
    // The step that is waited for gets its whole patience again: what went before was not its doing.
    void WaitAnew();

  private:
    enum class Progress { kDone, kWaiting, kFailed };
    // The outcome of looking at a step. What the step does is done after the player has moved on to the next
    // one, because it may run a dialog in which that next one is played.
    struct Outcome {
        Progress progress = Progress::kDone;
        std::wstring reason;  // what is missing
        std::function<void()> act;
    };

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    void Tick();
    void CountWaiting();
    void StartWaiting();
    void Fail(const std::wstring& reason);
    void GiveUp();
    void EndWhatIsStuck();
    bool CloseMessageBox();
    bool CloseTopDialog();
    void Finish(bool succeeded);

    Outcome Attempt(const ScriptStep& step);
    Outcome AttemptRun(const ScriptStep& step);
    Outcome AttemptWait(const ScriptStep& step);
    Outcome AttemptInputDevice(const ScriptStep& step);
    Outcome SetPatience(const std::wstring& text);
    Outcome AttemptPicture(const ScriptStep& step);
    Outcome Input(const ScriptStep& step);
    std::wstring PicturePath(const std::wstring& name) const;

    // --- script_player_windows.cpp
    Outcome AttemptWindow(const ScriptStep& step);
    Outcome AttemptControl(const ScriptStep& step);
    Outcome AtPoint(POINT point, std::function<void()> act);
    Outcome AttemptDialog(const ScriptStep& step);
    Outcome AttemptList(const ScriptStep& step);
    Outcome AttemptTree(const ScriptStep& step);
    Outcome AttemptMenu(const ScriptStep& step);
    Outcome AttemptPopupMenu(HWND popup, const std::wstring& name);
    Outcome AttemptMenuBar(const std::vector<std::wstring>& names);
    Outcome AttemptPalette(const ScriptStep& step);

    // --- script_player_asserts.cpp
    static Outcome Expect(const std::wstring& found, const std::wstring& wanted, bool equal);
    Outcome AttemptAssert(const ScriptStep& step);
    Outcome AttemptAssertPalette(const ScriptStep& step);
    Outcome AttemptAssertControl(const ScriptStep& step);

    Script m_script;
    Stage m_stage;
    std::size_t m_next = 0;
    std::chrono::steady_clock::time_point m_lastTick;
    std::chrono::steady_clock::duration m_waited{};  // for the next step
    std::chrono::milliseconds m_patience{10000};
    UINT_PTR m_timer = 0;
    POINT m_pointer{};       // where the last step at a point left it
    int m_restingTicks = 0;  // for which it has been there
    bool m_busy = false;
    bool m_finished = false;
    ChildProgram m_program;
    bool m_givingUp = false;
    unsigned int m_closings = 0;  // tries to close a dialog
    Picture m_lastLook;           // of the screen, to see whether it has come to rest
    std::chrono::steady_clock::time_point m_lastLookTime;
};

}  // namespace frame
