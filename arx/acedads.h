// The editor's result-buffer interface: system variables, environment, LISP functions.
#pragma once

#include <cstddef>

#include "adscodes.h"
#include "adsdef.h"
#include "arx_port.h"

// Reads a system variable into `result`: restype RTSHORT, RTREAL, RTSTR, RTPOINT or RT3DPOINT. The caller
// frees the text (acutDelString). RTERROR for an unknown name, and `result` keeps what it held.
ARX_PORT int acedGetVar(const ACHAR* name, resbuf* result);
// Sets a system variable. RTERROR: unknown name or no document. RTREJ: read-only, wrong type, or a value that
// the variable does not take; the reactors then hear sysVarChanged with `success` false (after the type was
// right).
ARX_PORT int acedSetVar(const ACHAR* name, const resbuf* value);

// Environment of the host (not of the process). RTERROR for an unknown name or a buffer that is too small.
ARX_PORT int acedGetEnv(const ACHAR* name, ACHAR* value, std::size_t bufferLength);
ARX_PORT int acedSetEnv(const ACHAR* name, const ACHAR* value);

// Defines a LISP function of the calling application in the document that is current. Its calls arrive as
// kInvkSubrMsg, with `code` from acedGetFunCode. A name that begins with "C:" is a command. RTNORM or
// RTERROR.
ARX_PORT int acedDefun(const ACHAR* name, int code);
ARX_PORT int acedUndef(const ACHAR* name, int code);
// The function that the host calls directly for `code`, in place of the message.
ARX_PORT int acedRegFunc(int (*function)(), int code);
ARX_PORT int acedGetFunCode();
// The arguments of the LISP call in progress, null if there are none. The caller may free the list; what it
// does not free the host frees after the call.
ARX_PORT resbuf* acedGetArgs();

// The result of the LISP call in progress; the last one counts. Each gives RTNORM, outside a call RTERROR.
ARX_PORT int acedRetVoid();
ARX_PORT int acedRetNil();
ARX_PORT int acedRetT();
ARX_PORT int acedRetInt(int value);
ARX_PORT int acedRetReal(ads_real value);
ARX_PORT int acedRetStr(const ACHAR* text);
ARX_PORT int acedRetPoint(const ads_point point);
ARX_PORT int acedRetVal(const resbuf* value);
ARX_PORT int acedRetList(const resbuf* list);

// The path of the application whose code is running, an empty text outside one.
ARX_PORT const ACHAR* acedGetAppName();
