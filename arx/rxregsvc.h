// Services for registering classes.
#pragma once

#include "rxclass.h"
#include "rxdict.h"

// Registers a class under `name`; the parent is looked up by name when the hierarchy is built. Null if the
// name is taken.
ARX_PORT AcRxClass* newAcRxClass(const ACHAR* name, const ACHAR* parentName, int proxyFlags = 0,
                                 AcRxPseudoConstructor constructor = nullptr, const ACHAR* dxfName = nullptr,
                                 const ACHAR* applicationName = nullptr);
// Removes a class and its entry in the class dictionary. Every class derived from it must be gone already.
ARX_PORT void deleteAcRxClass(AcRxClass* type);
ARX_PORT void acrxBuildClassHierarchy();

// Ends the program with a message. %s is wide text.
[[noreturn]] ARX_PORT void acrx_abort(const ACHAR* format, ...);
