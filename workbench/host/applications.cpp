#include "applications.h"

#include <algorithm>

#include "adscodes.h"
#include "database/result_lists.h"
#include "host.h"
#include "lisp_bridge.h"

namespace workbench::host {
namespace {

// An entry on a stack for the time of a call, whichever way the call ends.
template <class Item>
class StackEntry {
  public:
    StackEntry(std::vector<Item>& stack, Item item) : m_stack(stack) { m_stack.push_back(item); }
    ~StackEntry() { m_stack.pop_back(); }
    StackEntry(const StackEntry&) = delete;
    StackEntry& operator=(const StackEntry&) = delete;

  private:
    std::vector<Item>& m_stack;
};

}  // namespace

Applications::~Applications() = default;

Application* Applications::Find(const std::wstring& fileName) const {
    const bool hasFolder = !FolderOf(fileName).empty();
    for (const auto& application : m_applications) {
        if (IsSamePath(hasFolder ? application->path : NameOf(application->path), fileName)) {
            return application.get();
        }
    }
    return nullptr;
}

Application* Applications::ById(const void* appId) const {
    const auto found = std::find_if(m_applications.begin(), m_applications.end(),
                                    [appId](const auto& application) { return application.get() == appId; });
    return found == m_applications.end() ? nullptr : found->get();
}

bool Applications::unlockApplication(void* appId) const {
    Application* application = ById(appId);
    if (application != nullptr) {
        application->locked = false;
    }
    return application != nullptr;
}

bool Applications::lockApplication(void* appId) const {
    Application* application = ById(appId);
    if (application != nullptr) {
        application->locked = true;
    }
    return application != nullptr;
}

bool Applications::registerAppMDIAware(void* appId) const {
    Application* application = ById(appId);
    if (application != nullptr) {
        application->mdiAware = true;
    }
    return application != nullptr;
}

bool Applications::registerAppNotMDIAware(void* appId) const {
    Application* application = ById(appId);
    if (application != nullptr) {
        application->mdiAware = false;
    }
    return application != nullptr;
}

bool Applications::isApplicationLocked(const ACHAR* fileName) const {
    const Application* application = fileName == nullptr ? nullptr : Find(fileName);
    return application != nullptr && application->locked;
}

bool Applications::isAppMDIAware(const ACHAR* fileName) const {
    const Application* application = fileName == nullptr ? nullptr : Find(fileName);
    return application != nullptr && application->mdiAware;
}

void Applications::RunAs(Application* application, const std::function<void()>& code) {
    const StackEntry<Application*> running(m_running, application);
    code();
}

AcRx::AppRetCode Applications::Send(Application& application, AcRx::AppMsgCode message) {
    AcRx::AppRetCode result = AcRx::kRetOK;
    RunAs(&application, [&] { result = application.library.entryPoint(message, &application); });
    return result;
}

void Applications::SendForEachDocument(Application& application, AcRx::AppMsgCode message) {
    for (const Document* document : m_host.Documents().All()) {
        // The application may have closed it when it was told of the one before.
        if (const std::shared_ptr<Document> open = m_host.Documents().Shared(document)) {
            m_host.Documents().WithCurrent(*open, [&] { Send(application, message); });
        }
    }
}

void Applications::Broadcast(AcRx::AppMsgCode message) {
    std::vector<Application*> told;
    for (const auto& application : m_applications) {
        told.push_back(application.get());
    }
    for (Application* application : told) {
        if (ById(application) != nullptr) {
            Send(*application, message);
        }
    }
}

bool Applications::Refuse(const std::wstring& path, const std::wstring& why) {
    m_host.FreshLine();
    m_host.Print(path + L": " + why + L"\n");
    return false;
}

bool Applications::loadModule(const ACHAR* fileName, bool, bool) {
    if (fileName == nullptr || *fileName == 0) {
        return false;
    }
    const std::wstring found = m_host.FindSupportFile(fileName);
    const std::wstring path = found.empty() ? fileName : found;
    if (Find(path) != nullptr) {
        m_host.FreshLine();
        m_host.Print(path + L": loaded already\n");
        return true;
    }
    auto application = std::make_unique<Application>();
    application->path = path;
    std::wstring error;
    if (!m_loader.Load(path, application->library, error)) {
        return Refuse(path, error);
    }
    if (application->library.apiVersion() != kArxHostApiVersion) {
        m_loader.Free(application->library);
        return Refuse(path, L"made for another release of the host");
    }
    Application& loaded = *m_applications.emplace_back(std::move(application));
    if (Send(loaded, AcRx::kInitAppMsg) == AcRx::kRetError) {
        Unload(loaded);
        return Refuse(path, L"could not start");
    }
    SendForEachDocument(loaded, AcRx::kLoadDwgMsg);
    return true;
}

bool Applications::unloadModule(const ACHAR* fileName, bool) {
    Application* application = fileName == nullptr ? nullptr : Find(fileName);
    if (application == nullptr) {
        return Refuse(fileName == nullptr ? L"" : fileName, L"not loaded");
    }
    const bool isRunning = std::find(m_running.begin(), m_running.end(), application) != m_running.end();
    if (application->locked || isRunning) {
        return Refuse(application->path, L"locked, cannot be unloaded");
    }
    Unload(*application);
    return true;
}

void Applications::UnloadAll() {
    while (!m_applications.empty()) {
        Unload(*m_applications.back());
    }
}

void Applications::Unload(Application& application) {
    SendForEachDocument(application, AcRx::kUnloadDwgMsg);
    Send(application, AcRx::kUnloadAppMsg);
    if (const std::size_t left = m_host.Commands().RemoveOf(&application); left > 0) {
        Refuse(application.path, std::to_wstring(left) + L" commands were left behind");
    }
    for (Document* document : m_host.Documents().All()) {
        std::erase_if(document->Functions(), [&](const auto& function) {
            if (function.second.application != &application) {
                return false;
            }
            document->Lisp().Undefine(function.first);
            Refuse(application.path, L"the function " + function.first + L" was left behind");
            return true;
        });
    }
    const Library library = application.library;
    std::erase_if(m_applications, [&](const auto& loaded) { return loaded.get() == &application; });
    m_loader.Free(library);
}

lisp::Value Applications::Call(Application* application, int code, const lisp::Arguments& arguments) {
    if (ById(application) == nullptr) {
        throw lisp::Error{L"the application of this function is not loaded"};
    }
    const database::LentList lent(ListFromValues(arguments));
    LispCall call{application, code, lent.Get(), {}};
    const StackEntry<LispCall*> current(m_calls, &call);
    int result = 0;
    const auto registered = application->registeredFunctions.find(code);
    if (registered == application->registeredFunctions.end()) {
        result = Send(*application, AcRx::kInvkSubrMsg);
    } else {
        RunAs(application, [&] { result = registered->second(); });
    }
    if (result == RSERR) {
        throw lisp::Error{L"request of the application failed"};
    }
    return call.result;
}

}  // namespace workbench::host
