// Names shared by the run-time class system and the application entry.
#pragma once

#include "adachar.h"

struct AcRx {
    enum AppMsgCode {
        kNullMsg = 0,
        kInitAppMsg = 1,
        kUnloadAppMsg = 2,
        kLoadDwgMsg = 3,
        kUnloadDwgMsg = 4,
        kInvkSubrMsg = 5,
        kCfgMsg = 6,
        kEndMsg = 7,
        kQuitMsg = 8,
        kSaveMsg = 9,
        kDependencyMsg = 10,
        kNoDependencyMsg = 11,
        kOleUnloadAppMsg = 12,
        kPreQuitMsg = 13,
        kInitDialogMsg = 14,
        kEndDialogMsg = 15,
        kSuspendMsg = 16,
        kInitTabGroupMsg = 17,
        kEndTabGroupMsg = 18,
    };

    enum AppRetCode {
        kRetOK = 0,
        kRetError = 3,
    };
};

using AcRxFunctionPtr = void (*)();

// What acrxGetApiVersion of an application gives; the host loads no other.
inline constexpr int kArxHostApiVersion = 0x00240002;

#define ACRX_CLASS_DICTIONARY ACRX_T("ClassDictionary")
#define ACRX_SERVICE_DICTIONARY ACRX_T("ServiceDictionary")
