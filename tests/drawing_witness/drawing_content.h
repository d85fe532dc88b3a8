// What a drawing holds, as lines of text: the same lines that witness.py writes of a drawing which ezdxf has
// read.
#pragma once

#include <string>

#include "dbmain.h"

// In UTF-8. Blocks and dictionaries in the order of their names, entities in drawing order, numbers to six
// decimals.
std::string DescribeContent(const AcDbDatabase& database);
