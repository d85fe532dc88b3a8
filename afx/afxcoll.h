// The ready-made array of texts.
#pragma once

#include "afxstr.h"
#include "afxtempl.h"

class CStringArray : public CArray<CString, const CString&> {};
