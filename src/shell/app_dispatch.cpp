#include <iterator>

#include "shell/menu_app.h"

namespace {

using AppOperation = AcRx::AppRetCode (AcRxDbxApp::*)(void*);

// By message number.
constexpr AppOperation kOperations[] = {
    &AcRxDbxApp::On_kNullMsg,         &AcRxDbxApp::On_kInitAppMsg,    &AcRxDbxApp::On_kUnloadAppMsg,
    &AcRxDbxApp::On_kLoadDwgMsg,      &AcRxDbxApp::On_kUnloadDwgMsg,  &AcRxDbxApp::On_kInvkSubrMsg,
    &AcRxDbxApp::On_kCfgMsg,          &AcRxDbxApp::On_kEndMsg,        &AcRxDbxApp::On_kQuitMsg,
    &AcRxDbxApp::On_kSaveMsg,         &AcRxDbxApp::On_kDependencyMsg, &AcRxDbxApp::On_kNoDependencyMsg,
    &AcRxDbxApp::On_kOleUnloadAppMsg, &AcRxDbxApp::On_kPreQuitMsg,    &AcRxDbxApp::On_kInitDialogMsg,
    &AcRxDbxApp::On_kEndDialogMsg,
};

}  // namespace

AcRx::AppRetCode DispatchAppMessage(AcRxDbxApp& app, int nMessage, void* appId) {
    if (nMessage < 0 || nMessage >= static_cast<int>(std::size(kOperations))) return AcRx::kRetOK;
    return (app.*kOperations[nMessage])(appId);
}
