// The argument rules of the module's LISP functions. Each reads a list of result buffers (null for a call
// without arguments) and returns false if the list is not exactly what the function takes; the results are
// then not set.
#pragma once

#include <string>

struct resbuf;

// No argument at all.
bool TakeNoArguments(const resbuf* pArguments);

// A short or long integer, then nil or T.
bool TakeInitArguments(const resbuf* pArguments, int& nApp, bool& bUseStoredState);

// One text.
bool TakeMenuArguments(const resbuf* pArguments, std::wstring& strMenu);

// A text, then the state: T or nil, or a short integer that counts as true unless it is 0.
bool TakeToggleArguments(const resbuf* pArguments, std::wstring& strName, bool& bState);
