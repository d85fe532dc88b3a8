#include "palette/lisp_bridge.h"

#include <afxext.h>

#include "acdocman.h"
#include "palette/menu_text.h"
#include "rxmfcapi.h"

namespace {

void SendToCurrentDocument(const std::wstring& strText, bool bEcho) {
    AcApDocument* pDocument = acDocManager->curDocument();
    acDocManager->sendStringToExecute(pDocument, kThreeEscapes, false, true, bEcho);
    acDocManager->sendStringToExecute(pDocument, strText.c_str(), false, true, bEcho);
    acedGetAcadFrame()->SetFocus();
    // Without a mouse move the host would run the text at the next input of the user.
    if (CView* pView = acedGetAcadDwgView()) pView->SendMessage(WM_MOUSEMOVE, 0, 0);
}

}  // namespace

void SendLispString(int, const std::wstring& strText) {
    SendToCurrentDocument(strText, true);
}

void SendToggleSelChange(int nApplicationId, const std::wstring& strText, bool bState) {
    SendToCurrentDocument(GetToggleExpression(nApplicationId, strText, bState), true);
}

void SendSpecClick() {
    SendToCurrentDocument(kSpecClickExpression, false);
}
