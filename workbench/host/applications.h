// Applications: libraries that the host loads and talks to by messages.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "lisp/value.h"
#include "rxdefs.h"
#include "rxdlinkr.h"

struct resbuf;

namespace workbench::host {

class Document;
class Host;

using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode message, void* appId);

struct Library {
    void* handle = nullptr;
    EntryPoint entryPoint = nullptr;
    int (*apiVersion)() = nullptr;
};

// Loads libraries of the system.
class LibraryLoader {
  public:
    virtual ~LibraryLoader() = default;
    // False with a text for the user if the file cannot be loaded or lacks one of the two exports.
    virtual bool Load(const std::wstring& path, Library& library, std::wstring& error) = 0;
    virtual void Free(const Library& library) = 0;
};

struct Application {
    std::wstring path;
    Library library;
    bool locked = true;
    bool mdiAware = false;
    std::map<int, int (*)()> registeredFunctions;
};

// A call from LISP into an application.
struct LispCall {
    Application* application = nullptr;
    int code = 0;
    resbuf* arguments = nullptr;
    lisp::Value result;
};

class Applications : public AcRxDynamicLinker {
  public:
    Applications(Host& host, LibraryLoader& loader) : m_host(host), m_loader(loader) {}
    ~Applications() override;

    bool loadModule(const ACHAR* fileName, bool printMessages, bool asCommand) override;
    bool unloadModule(const ACHAR* fileName, bool asCommand) override;
    bool unlockApplication(void* appId) const override;
    bool lockApplication(void* appId) const override;
    bool isApplicationLocked(const ACHAR* fileName) const override;
    bool registerAppMDIAware(void* appId) const override;
    bool registerAppNotMDIAware(void* appId) const override;
    bool isAppMDIAware(const ACHAR* fileName) const override;

    // Everything, last loaded first, whether locked or not: the host ends.
    void UnloadAll();

    // Sends a message to every application, in the order of loading.
    void Broadcast(AcRx::AppMsgCode message);
    // The application whose code runs; null outside.
    Application* Running() const { return m_running.empty() ? nullptr : m_running.back(); }
    // Runs code of an application.
    void RunAs(Application* application, const std::function<void()>& code);

    // Calls a function that an application defined. Throws lisp::Error for what cannot be passed and for a
    // request that failed.
    lisp::Value Call(Application* application, int code, const lisp::Arguments& arguments);
    LispCall* CurrentCall() { return m_calls.empty() ? nullptr : m_calls.back(); }

    // By full path or by file name.
    Application* Find(const std::wstring& fileName) const;
    std::size_t Count() const { return m_applications.size(); }

  private:
    Application* ById(const void* appId) const;
    AcRx::AppRetCode Send(Application& application, AcRx::AppMsgCode message);
    // With each document as the current one in turn.
    void SendForEachDocument(Application& application, AcRx::AppMsgCode message);
    bool Refuse(const std::wstring& path, const std::wstring& why);
    void Unload(Application& application);

    Host& m_host;
    LibraryLoader& m_loader;
    std::vector<std::unique_ptr<Application>> m_applications;
    std::vector<Application*> m_running;
    std::vector<LispCall*> m_calls;
};

}  // namespace workbench::host
