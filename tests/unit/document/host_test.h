// The base of tests that need a running host with documents. Test code runs in application context, as what a
// palette's window is told does: no document is locked.
#pragma once

#include <functional>
#include <string>

#include "acdocman.h"
#include "aced.h"
#include "quiet_host.h"
#include "support/test_platform.h"
#include "test_drawing.h"

class HostTest : public MemorySystemTest {
  protected:
    ~HostTest() override;

    // An empty drawing that was never saved, made current.
    AcApDocument* NewDocument();
    // The drawing of SavedDrawing in a document of its own, made current.
    AcApDocument* OpenDocument(const std::wstring& path);
    void Close(AcApDocument* document);
    void MakeCurrent(AcApDocument* document);

    // A drawing on disk, with what `fill` puts into it; its path.
    std::wstring SavedDrawing(const std::wstring& name, const std::function<void(TestDrawing&)>& fill);

    // Sets a short system variable as a user would.
    void SetShort(const wchar_t* name, short value);

  private:
    QuietHost m_host;
};

// Locks a document for writing as long as it lives.
class Lock {
  public:
    explicit Lock(AcApDocument* document);
    ~Lock();
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

  private:
    AcApDocument* m_document;
};

// Counts the locks that application code takes and gives back.
class LockCounter : public AcApDocManagerReactor {
  public:
    LockCounter() { acDocManager->addReactor(this); }
    ~LockCounter() override { acDocManager->removeReactor(this); }

    void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode myPreviousMode,
                                 AcAp::DocLockMode myCurrentMode, AcAp::DocLockMode currentMode,
                                 const ACHAR* globalCommandName) override;

    int GetTaken() const { return m_taken; }
    int GetGivenBack() const { return m_givenBack; }

  private:
    int m_taken = 0;
    int m_givenBack = 0;
};

// Counts the changes of system variables that the host reports.
class SysVarCounter : public AcEditorReactor {
  public:
    SysVarCounter() { acedEditor->addReactor(this); }
    ~SysVarCounter() override { acedEditor->removeReactor(this); }

    void sysVarChanged(const ACHAR*, bool) override { ++m_count; }
    int GetCount() const { return m_count; }

  private:
    int m_count = 0;
};
