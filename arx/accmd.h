// The command stack.
#pragma once

#include "rxdict.h"

struct HINSTANCE__;
class AcEdCommand;
class AcEdUIContext;

#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_NOTILEMODE 0x00000010
// Runs in application context, so without a document lock.
#define ACRX_CMD_SESSION 0x00200000

#define ACAD_REGISTERED_COMMANDS ACRX_T("ACAD_REGISTERED_COMMANDS")

// The library that a command's resources come from while the command is registered.
class AcRxResourceInstance {
  public:
    explicit AcRxResourceInstance(HINSTANCE__* instance = nullptr) : m_instance(instance) {}
    HINSTANCE__* instance() const { return m_instance; }

  private:
    HINSTANCE__* m_instance;
};

class ARX_PORT AcEdCommandStack : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcEdCommandStack* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // Adds a command to a group. eDuplicateKey if the group has the global or local name already,
    // eInvalidInput for a missing or empty name or function.
    virtual Acad::ErrorStatus addCommand(const ACHAR* groupName, const ACHAR* globalName,
                                         const ACHAR* localName, Adesk::Int32 flags, AcRxFunctionPtr function,
                                         AcEdUIContext* context = nullptr, int functionCode = -1,
                                         const AcRxResourceInstance* resourceInstance = nullptr,
                                         AcEdCommand** command = nullptr) = 0;
    // eKeyNotFound if there is no such group or global name.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* groupName, const ACHAR* globalName) = 0;
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
};

#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACAD_REGISTERED_COMMANDS))
