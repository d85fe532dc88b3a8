#include <acui.h>

IMPLEMENT_DYNAMIC(CAdUiDialog, CDialog)
IMPLEMENT_DYNAMIC(CAcUiDialog, CAdUiDialog)

BEGIN_MESSAGE_MAP(CAdUiDialog, CDialog)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CAcUiDialog, CAdUiDialog)
END_MESSAGE_MAP()

CAdUiDialog::CAdUiDialog(UINT idd, CWnd* pParent, HINSTANCE hDialogResource)
    : CDialog(idd, pParent), m_hDialogResource(hDialogResource) {}

CAdUiDialog::~CAdUiDialog() = default;

BOOL CAdUiDialog::Create(UINT nIDTemplate, CWnd* pParentWnd) {
    const CTemporaryResourceHandle resources(m_hDialogResource != nullptr ? m_hDialogResource
                                                                          : AfxGetResourceHandle());
    return CDialog::Create(nIDTemplate, pParentWnd);
}

INT_PTR CAdUiDialog::DoModal() {
    const CTemporaryResourceHandle resources(m_hDialogResource != nullptr ? m_hDialogResource
                                                                          : AfxGetResourceHandle());
    return CDialog::DoModal();
}

BOOL CAdUiDialog::OnInitDialog() {
    return CDialog::OnInitDialog();
}

CAcUiDialog::CAcUiDialog(UINT idd, CWnd* pParent, HINSTANCE hDialogResource)
    : CAdUiDialog(idd, pParent, hDialogResource) {}

CAcUiDialog::~CAcUiDialog() = default;

// Window classes and common controls are the framework's in this host.
void InitAcUiDLL() {}
