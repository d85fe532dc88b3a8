// Data per document, dropped with its document. The module holds one manager of an empty record; nothing asks
// it for data yet.
#pragma once

#include "AcApDMgr.h"

struct CDocData {};
