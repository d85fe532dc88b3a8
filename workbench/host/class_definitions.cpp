// The run-time classes of documents, editor and services, and what their reactors do by themselves: nothing.
#include "acdocman.h"
#include "aced.h"
#include "database/class_members.h"
#include "rxdlinkr.h"

WORKBENCH_DEFINE_CLASS(AcRxDynamicLinker, AcRxObject)
WORKBENCH_DEFINE_CLASS(AcEdCommandStack, AcRxObject)
WORKBENCH_DEFINE_CLASS(AcEditor, AcRxObject)
WORKBENCH_DEFINE_CLASS(AcApDocument, AcRxObject)
WORKBENCH_DEFINE_CLASS(AcApDocumentIterator, AcRxObject)
WORKBENCH_DEFINE_CLASS(AcApDocManager, AcRxObject)

WORKBENCH_DEFINE_CLASS(AcEditorReactor, AcRxEventReactor)
void AcEditorReactor::commandWillStart(const ACHAR*) {}
void AcEditorReactor::commandEnded(const ACHAR*) {}
void AcEditorReactor::commandCancelled(const ACHAR*) {}
void AcEditorReactor::commandFailed(const ACHAR*) {}
void AcEditorReactor::lispWillStart(const ACHAR*) {}
void AcEditorReactor::lispEnded() {}
void AcEditorReactor::lispCancelled() {}
void AcEditorReactor::unknownCommand(const ACHAR*) {}
void AcEditorReactor::sysVarChanged(const ACHAR*, bool) {}
void AcEditorReactor::sysVarWillChange(const ACHAR*) {}

WORKBENCH_DEFINE_CLASS(AcApDocManagerReactor, AcRxObject)
void AcApDocManagerReactor::documentCreateStarted(AcApDocument*) {}
void AcApDocManagerReactor::documentCreated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentDestroyed(const ACHAR*) {}
void AcApDocManagerReactor::documentCreateCanceled(AcApDocument*) {}
void AcApDocManagerReactor::documentLockModeWillChange(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode,
                                                       AcAp::DocLockMode, const ACHAR*) {}
void AcApDocManagerReactor::documentLockModeChanged(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode,
                                                    AcAp::DocLockMode, const ACHAR*) {}
void AcApDocManagerReactor::documentBecameCurrent(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument*) {}
void AcApDocManagerReactor::documentActivationModified(bool) {}
void AcApDocManagerReactor::documentActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentTitleUpdated(AcApDocument*) {}
