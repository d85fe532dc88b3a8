// Loading of applications.
#pragma once

#include "rxdict.h"

#define ACRX_DYNAMIC_LINKER ACRX_T("DynamicLinker")

class ARX_PORT AcRxDynamicLinker : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcRxDynamicLinker* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    virtual bool loadModule(const ACHAR* fileName, bool printMessages, bool asCommand = false) = 0;
    // Refused for an application that is locked, which every application is until it unlocks itself.
    virtual bool unloadModule(const ACHAR* fileName, bool asCommand = false) = 0;
    // `appId` is what kInitAppMsg brought. False for one that the host does not know.
    virtual bool unlockApplication(void* appId) const = 0;
    virtual bool lockApplication(void* appId) const = 0;
    virtual bool isApplicationLocked(const ACHAR* fileName) const = 0;
    virtual bool registerAppMDIAware(void* appId) const = 0;
    virtual bool registerAppNotMDIAware(void* appId) const = 0;
    virtual bool isAppMDIAware(const ACHAR* fileName) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
