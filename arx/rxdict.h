// A dictionary of run-time objects by name.
#pragma once

#include "rxobject.h"

class ARX_PORT AcRxDictionary : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcRxDictionary* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // Null if there is no such key. Keys compare without regard to case.
    virtual AcRxObject* at(const ACHAR* key) const = 0;
    // Puts the object under the key and gives the one that was there. The dictionary does not own its
    // objects.
    virtual AcRxObject* atPut(const ACHAR* key, AcRxObject* object) = 0;
    virtual AcRxObject* remove(const ACHAR* key) = 0;
    virtual bool has(const ACHAR* key) const = 0;
    virtual Adesk::UInt32 numEntries() const = 0;
};

// The host's registry of services: "ClassDictionary", "DynamicLinker", "ACAD_REGISTERED_COMMANDS",
// "AcEditor".
ARX_PORT AcRxDictionary* acrxSysRegistry();
#define acrxClassDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY))
