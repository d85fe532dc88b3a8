// The base of reactors.
#pragma once

#include "rxobject.h"

class ARX_PORT AcRxEventReactor : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcRxEventReactor* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
};
