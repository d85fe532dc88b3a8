// The installed services, as the database itself uses them.
#pragma once

#include "services.h"

namespace workbench::database {

// True for a database without a document.
bool MayWrite(const AcDbDatabase& database);

}  // namespace workbench::database
