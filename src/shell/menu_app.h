// The application object: what the host tells the module, and in which order the module's parts come and go.
#pragma once

#include "arxEntryPoint.h"

class CMenuApp : public AcRxArxApp {
  public:
    AcRx::AppRetCode On_kInitAppMsg(void* appId) override;
    AcRx::AppRetCode On_kUnloadAppMsg(void* appId) override;
    AcRx::AppRetCode On_kLoadDwgMsg(void* appId) override;
    AcRx::AppRetCode On_kUnloadDwgMsg(void* appId) override;
    AcRx::AppRetCode On_kInvkSubrMsg(void* appId) override;
    void RegisterServerComponents() override {}
};

// Hands a message of the host to the operation of its number; 0 for a number above 15.
AcRx::AppRetCode DispatchAppMessage(AcRxDbxApp& app, int nMessage, void* appId);
