// The root of the host's classes: objects that know their class at run time.
#pragma once

#include "acadstrc.h"
#include "adesk.h"
#include "arx_port.h"
#include "rxdefs.h"

class AcRxClass;

class ARX_PORT AcRxObject {
  public:
    virtual ~AcRxObject();

    static AcRxClass* desc();
    static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }
    virtual AcRxClass* isA() const;
    bool isKindOf(const AcRxClass* type) const;

  protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};
