// What the LISP interpreter asks of the program it runs in.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "value.h"

namespace workbench::lisp {

class Surroundings {
  public:
    virtual ~Surroundings() = default;

    virtual void Print(const std::wstring& text) = 0;

    // Nothing for an unknown variable.
    virtual std::optional<Value> GetVariable(const std::wstring& name) = 0;
    // False if there is no such variable or it does not take the value.
    virtual bool SetVariable(const std::wstring& name, const Value& value) = 0;

    virtual std::optional<std::wstring> GetEnvironment(const std::wstring& name) = 0;
    virtual void SetEnvironment(const std::wstring& name, const std::wstring& value) = 0;

    // The full path of a file that is named by its path or stands in one of the support folders; empty if
    // none.
    virtual std::wstring FindFile(const std::wstring& name) = 0;
    // False if the file cannot be read.
    virtual bool ReadFile(const std::wstring& path, std::wstring& text) = 0;

    // Runs input as if it had been typed, each item ended by Enter. False if a command is unknown or failed.
    virtual bool RunCommand(const std::vector<std::wstring>& input) = 0;

    // Loads or unloads an application of the host.
    virtual bool LoadApplication(const std::wstring& path) = 0;
    virtual bool UnloadApplication(const std::wstring& path) = 0;

    // True when the user wants the evaluation to end.
    virtual bool IsCancelled() = 0;
};

}  // namespace workbench::lisp
