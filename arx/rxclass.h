// Run-time classes.
#pragma once

#include "rxobject.h"

using AcRxPseudoConstructor = AcRxObject* (*)();

class ARX_PORT AcRxClass : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcRxClass* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    const ACHAR* name() const;
    // The name of the class in drawing files; null for classes that are not stored.
    const ACHAR* dxfName() const;
    // Null until acrxBuildClassHierarchy has found the parent.
    AcRxClass* myParent() const;
    bool isDerivedFrom(const AcRxClass* other) const;
    // A new object by the class's pseudo-constructor, null if it has none.
    AcRxObject* create() const;

  private:
    friend struct AcRxClassMaker;
    struct Data;
    explicit AcRxClass(Data* data);
    ~AcRxClass() override;

    Data* m_data;
};
