// What the database layer asks of the program it runs in.
#pragma once

#include "arx_port.h"
#include "dbmain.h"

class ARX_PORT AcDbHostApplicationServices : public AcRxObject {
  public:
    // The database that code works on when it names none: the current document's. Null without documents.
    virtual AcDbDatabase* workingDatabase() const = 0;
    virtual void setWorkingDatabase(AcDbDatabase* database) = 0;

    // The product's key below HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE, without a backslash at its end.
    virtual const ACHAR* getUserRegistryProductRootKey() = 0;
    virtual const ACHAR* getMachineRegistryProductRootKey() = 0;
};

ARX_PORT AcDbHostApplicationServices* acdbHostApplicationServices();
