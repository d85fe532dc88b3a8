// Result buffers, points and names as they cross between the host and its applications.
#pragma once

#include "adesk.h"

using ads_real = double;
using ads_point = double[3];
using ads_name = long long[2];

struct ads_binary {
    short clen;  // bytes in `buf`
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    long long rlname[2];
    Adesk::Int32 rlong;
    Adesk::Int64 mnInt64;
    ads_binary rbinary;
    unsigned char ihandle[8];
};

// One item of a result list: a type (RT...) or a group code, its value, and the next item.
struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};
