// The editor and its reactors.
#pragma once

#include "accmd.h"
#include "rxdict.h"
#include "rxevent.h"

#define ACED_EDITOR_OBJ ACRX_T("AcEditor")

class ARX_PORT AcEditorReactor : public AcRxEventReactor {
  public:
    static AcRxClass* desc();
    static AcEditorReactor* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    virtual void commandWillStart(const ACHAR* globalName);
    virtual void commandEnded(const ACHAR* globalName);
    virtual void commandCancelled(const ACHAR* globalName);
    virtual void commandFailed(const ACHAR* globalName);
    virtual void lispWillStart(const ACHAR* firstLine);
    virtual void lispEnded();
    virtual void lispCancelled();
    virtual void unknownCommand(const ACHAR* name);
    // The name arrives as the caller of the change wrote it.
    virtual void sysVarChanged(const ACHAR* varName, bool success);
    virtual void sysVarWillChange(const ACHAR* varName);
};

class ARX_PORT AcEditor : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcEditor* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // A reactor that is there already is not added twice.
    virtual void addReactor(AcEditorReactor* reactor) = 0;
    virtual void removeReactor(AcEditorReactor* reactor) = 0;
};

#define acedEditor AcEditor::cast(acrxSysRegistry()->at(ACED_EDITOR_OBJ))
