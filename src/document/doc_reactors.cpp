#include "document/doc_reactors.h"

#include "document/palette_link.h"
#include "platform/letter_case.h"

ACRX_CONS_DEFINE_MEMBERS(kv2dDocManagerReactor, AcApDocManagerReactor, 1)
ACRX_CONS_DEFINE_MEMBERS(kv2dEditorReactor, AcEditorReactor, 1)

kv2dDocManagerReactor::kv2dDocManagerReactor(bool autoInitAndRelease) {
    if (autoInitAndRelease) kv2dDocManagerReactor::Attach();
}

kv2dDocManagerReactor::~kv2dDocManagerReactor() {
    kv2dDocManagerReactor::Detach();
}

void kv2dDocManagerReactor::documentBecameCurrent(AcApDocument* doc) {
    if (CPaletteLink* pPalette = GetPaletteLink()) pPalette->UpdateForDocument(doc);
}

void kv2dDocManagerReactor::documentDestroyed(const ACHAR*) {
    if (CPaletteLink* pPalette = GetPaletteLink()) pPalette->DocDestroyed();
}

void kv2dDocManagerReactor::Attach() {
    Detach();
    if (mbAutoInitAndRelease) return;
    if (AcApDocManager* pManager = Subject()) {
        pManager->addReactor(this);
        mbAutoInitAndRelease = true;
    }
}

void kv2dDocManagerReactor::Detach() {
    if (!mbAutoInitAndRelease) return;
    if (AcApDocManager* pManager = Subject()) {
        pManager->removeReactor(this);
        mbAutoInitAndRelease = false;
    }
}

AcApDocManager* kv2dDocManagerReactor::Subject() const {
    return acDocManager;
}

bool kv2dDocManagerReactor::IsAttached() const {
    return mbAutoInitAndRelease;
}

kv2dEditorReactor::kv2dEditorReactor(bool autoInitAndRelease) {
    if (autoInitAndRelease) kv2dEditorReactor::Attach();
}

kv2dEditorReactor::~kv2dEditorReactor() {
    kv2dEditorReactor::Detach();
}

void kv2dEditorReactor::sysVarChanged(const ACHAR* varName, bool success) {
    if (!success || !varName) return;
    const std::wstring strName = platform::ToUpper(std::wstring_view(varName));
    if (strName == L"SNAPISOPAIR" || strName == L"SNAPSTYL") {
        if (CPaletteLink* pPalette = GetPaletteLink()) pPalette->SysVarChanged(strName, true);
    } else if (strName == L"WSCURRENT") {
        // A change of workspace can hide the palette; this brings it back.
        ShowPaletteSet();
    }
}

void kv2dEditorReactor::Attach() {
    Detach();
    if (mbAutoInitAndRelease) return;
    if (AcEditor* pEditor = Subject()) {
        pEditor->addReactor(this);
        mbAutoInitAndRelease = true;
    }
}

void kv2dEditorReactor::Detach() {
    if (!mbAutoInitAndRelease) return;
    if (AcEditor* pEditor = Subject()) {
        pEditor->removeReactor(this);
        mbAutoInitAndRelease = false;
    }
}

AcEditor* kv2dEditorReactor::Subject() const {
    AcRxDictionary* pRegistry = acrxSysRegistry();
    return pRegistry ? AcEditor::cast(pRegistry->at(ACED_EDITOR_OBJ)) : nullptr;
}

bool kv2dEditorReactor::IsAttached() const {
    return mbAutoInitAndRelease;
}
