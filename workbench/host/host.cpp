#include "host.h"

#include <utility>

#include "database/database_data.h"
#include "database/object_data.h"
#include "dbapserv.h"
#include "rxdict.h"

namespace workbench::host {
namespace {

Host* g_host = nullptr;

database::ViewportData* ActiveViewport(const Document& document) {
    const AcDbImpDatabase& data = database::DataOf(*document.database());
    return database::DataAs<database::ViewportData>(data.FindRecord(data.viewportTable, L"*Active"));
}

void PrintToHost(const std::wstring& text) {
    if (g_host != nullptr) {
        g_host->Print(text);
    }
}

}  // namespace

Host* Host::Current() {
    return g_host;
}

Host::Host(Surface& surface, Files& files, LibraryLoader& loader, Settings settings)
    : m_surface(surface), m_files(files), m_settings(std::move(settings)) {
    g_host = this;
    m_documents = std::make_unique<DocumentManager>(*this);
    m_variables = std::make_unique<SystemVariables>([this]() -> VariableValues* {
        Document* document = m_documents->Current();
        return document == nullptr ? nullptr : &document->Variables();
    });
    m_editor = std::make_unique<Editor>();
    m_commands = std::make_unique<CommandStack>(*this);
    m_applications = std::make_unique<Applications>(*this, loader);
    m_lineWithoutDocument = std::make_unique<CommandLine>(*this, nullptr);
    for (Variable& variable : PlainVariables()) {
        m_variables->Define(std::move(variable));
    }
    DefineComputedVariables();
    for (BuiltInCommand& command : StandardCommands()) {
        m_commands->AddBuiltIn(std::move(command));
    }
    acrxSysRegistry()->atPut(ACRX_DYNAMIC_LINKER, m_applications.get());
    acrxSysRegistry()->atPut(ACAD_REGISTERED_COMMANDS, m_commands.get());
    acrxSysRegistry()->atPut(ACED_EDITOR_OBJ, m_editor.get());
    database::SetProductRootKey(m_settings.productRootKey);
    database::InstallWriteGuard(m_documents.get());
    database::InstallPrintHandler(PrintToHost);
}

Host::~Host() {
    m_documents->CloseAll(false);
    m_applications->UnloadAll();
    database::InstallWriteGuard(nullptr);
    database::InstallPrintHandler(nullptr);
    for (const ACHAR* service : {ACRX_DYNAMIC_LINKER, ACAD_REGISTERED_COMMANDS, ACED_EDITOR_OBJ}) {
        acrxSysRegistry()->remove(service);
    }
    g_host = nullptr;
}

Host::ContextScope::ContextScope(Host& host, bool isApplication)
    : m_host(host), m_before(std::exchange(host.m_applicationContext, isApplication)) {}

Host::ContextScope::~ContextScope() {
    m_host.m_applicationContext = m_before;
}

void Host::Print(const std::wstring& text) {
    if (!text.empty()) {
        m_atLineStart = text.back() == L'\n';
        m_surface.Print(text);
    }
}

void Host::FreshLine() {
    if (!m_atLineStart) {
        Print(L"\n");
    }
}

CommandLine& Host::Line() {
    Document* active = m_documents->Active();
    return active == nullptr ? *m_lineWithoutDocument : active->Line();
}

void Host::Type(const std::wstring& text) {
    Document* active = m_documents->Active();
    (active == nullptr ? m_queueWithoutDocument : active->Queue()).push_back({text, true, false});
    RunQueuedInput();
}

bool Host::RunQueuedInput() {
    const auto isBusy = [this] {
        const Document* active = m_documents->Active();
        return m_runningInput || !m_applicationContext ||
               (active != nullptr && active->lockMode() != AcAp::kNotLocked);
    };
    if (isBusy()) {
        return false;
    }
    for (Document* document : m_documents->All()) {
        if (!document->Queue().empty() && document->Queue().front().activate) {
            m_documents->activateDocument(document, false);
        }
    }
    bool ran = false;
    m_runningInput = true;
    while (true) {
        const std::shared_ptr<Document> active = m_documents->Shared(m_documents->Active());
        auto& queue = active == nullptr ? m_queueWithoutDocument : active->Queue();
        if (queue.empty()) {
            break;
        }
        const QueuedInput input = std::move(queue.front());
        queue.pop_front();
        (active == nullptr ? *m_lineWithoutDocument : active->Line()).Feed(input.text, input.echo);
        ran = true;
    }
    m_runningInput = false;
    return ran;
}

SetResult Host::SetVariable(const std::wstring& name, const VariableValue& value) {
    const SetResult verdict = m_variables->Check(name, value);
    if (verdict != SetResult::kSet && verdict != SetResult::kOutOfRange) {
        return verdict;
    }
    const std::shared_ptr<Document> document = m_documents->Shared(m_documents->Current());
    m_editor->All().ForEach([&](AcEditorReactor& reactor) { reactor.sysVarWillChange(name.c_str()); });
    // A reactor may close the document that the value is for; the next one keeps its own.
    const auto isGone = [&] {
        return document != nullptr && !document->IsOpen() &&
               m_variables->Find(name)->scope == Variable::Scope::kDocument;
    };
    const SetResult result = isGone() ? SetResult::kNoDocument : m_variables->Set(name, value);
    m_editor->All().ForEach([&](AcEditorReactor& reactor) {
        reactor.sysVarChanged(name.c_str(), result == SetResult::kSet && !isGone());
    });
    return result;
}

std::wstring Host::FindSupportFile(const std::wstring& name) const {
    if (m_files.Exists(name)) {
        return name;
    }
    for (const std::wstring& folder : m_settings.supportFolders) {
        const std::wstring path = folder + name;
        if (m_files.Exists(path)) {
            return path;
        }
    }
    return {};
}

bool Host::LoadLispFile(Document& document, const std::wstring& name) {
    const std::wstring path = FindSupportFile(name);
    std::wstring text;
    if (path.empty() || !m_files.ReadText(path, text)) {
        FreshLine();
        Print(name + L": cannot be read\n");
        return false;
    }
    const ContextScope scope(*this, false);
    const CommandLock lock(*this, document, L"LISP");
    lisp::Value value;
    return document.Lisp().Run(text, value);
}

void Host::DefineComputedVariables() {
    const auto compute = [this](const wchar_t* name, Variable::Scope scope, VariableValue like,
                                std::function<VariableValue()> get) {
        m_variables->Define({name, std::move(like), scope, true, 0, 0, std::move(get), {}, {}});
    };
    const auto session = Variable::Scope::kSession;
    const auto document = Variable::Scope::kDocument;
    const std::wstring text;
    compute(L"CPROFILE", session, text, [this] { return m_settings.profile; });
    compute(L"DWGNAME", document, text, [this] { return VariableValue(m_documents->Current()->docTitle()); });
    compute(L"DWGPREFIX", document, text, [this] {
        const Document& current = *m_documents->Current();
        return current.isNamedDrawing() ? FolderOf(current.fileName()) : m_settings.documentsFolder;
    });
    compute(L"DWGTITLED", document, short{0},
            [this] { return static_cast<short>(m_documents->Current()->isNamedDrawing() ? 1 : 0); });
    compute(L"WRITESTAT", document, short{0},
            [this] { return static_cast<short>(m_documents->Current()->isReadOnly() ? 0 : 1); });
    compute(L"DBMOD", document, short{0}, [this] {
        return static_cast<short>(database::DataOf(*m_documents->Current()->database()).modified ? 1 : 0);
    });
    compute(L"CMDNAMES", session, text, [this] { return Line().RunningNames(); });
    compute(L"CMDACTIVE", session, short{0}, [this] {
        const Document* active = m_documents->Active();
        const bool inLisp = active != nullptr && active->lockMode() != AcAp::kNotLocked;
        constexpr short kCommand = 1;
        constexpr short kLisp = 32;
        return Line().IsRunning() ? kCommand : inLisp ? kLisp : short{0};
    });
    DefineViewportVariables();
    DefineCurrentLayer();
}

void Host::DefineCurrentLayer() {
    Variable layer{L"CLAYER", std::wstring(), Variable::Scope::kDocument, false, 0, 0, {}, {}, {}};
    layer.get = [this] {
        const AcDbStub* stub = m_documents->Current()->database()->clayer().stub();
        const auto* data = database::DataAs<database::LayerData>(stub);
        return VariableValue(data == nullptr ? std::wstring() : data->name);
    };
    const auto find = [this](const VariableValue& value) {
        const AcDbImpDatabase& data = database::DataOf(*m_documents->Current()->database());
        return data.FindRecord(data.layerTable, std::get<std::wstring>(value));
    };
    layer.accepts = [find](const VariableValue& value) { return find(value) != nullptr; };
    layer.set = [this, find](const VariableValue& value) {
        AcDbImpDatabase& data = database::DataOf(*m_documents->Current()->database());
        data.currentLayer = find(value);
        data.modified = true;
    };
    m_variables->Define(std::move(layer));
}

void Host::DefineViewportVariables() {
    const auto define = [this](const wchar_t* name, short greatest,
                               std::int16_t database::ViewportData::*member) {
        Variable variable{name, short{0}, Variable::Scope::kDocument, false, 0, greatest, {}, {}, {}};
        variable.get = [this, member]() -> VariableValue {
            const auto* viewport = ActiveViewport(*m_documents->Current());
            return static_cast<short>(viewport == nullptr ? 0 : viewport->*member);
        };
        variable.set = [this, member](const VariableValue& value) {
            if (auto* viewport = ActiveViewport(*m_documents->Current())) {
                viewport->*member = std::get<short>(value);
                database::DataOf(*m_documents->Current()->database()).modified = true;
            }
        };
        m_variables->Define(std::move(variable));
    };
    define(L"SNAPSTYL", 1, &database::ViewportData::snapStyle);
    define(L"SNAPISOPAIR", 2, &database::ViewportData::snapPair);
}

}  // namespace workbench::host
