// Entities and objects of classes that the program does not know; their data is kept as it was read.
#pragma once

#include "dbmain.h"

class ARX_PORT AcDbProxyEntity : public AcDbEntity {
  public:
    static AcRxClass* desc();
    static AcDbProxyEntity* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbProxyEntity();

    const ACHAR* originalDxfName() const;
};

class ARX_PORT AcDbProxyObject : public AcDbObject {
  public:
    static AcRxClass* desc();
    static AcDbProxyObject* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbProxyObject();

    const ACHAR* originalDxfName() const;
};
