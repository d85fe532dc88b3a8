#include "frame/automation.h"

#include <acdocman.h>
#include <windows.h>

#include <memory>

#include "frame/dispatch_object.h"

namespace frame {

namespace {

using SharedActions = std::shared_ptr<const AutomationActions>;

constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
// Clients of scripting languages read properties with both flags set, and some call them as methods.
constexpr WORD kRead = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
constexpr WORD kMethod = DISPATCH_METHOD;

std::vector<AcApDocument*> OpenDocuments() {
    std::vector<AcApDocument*> documents;
    if (acDocManager == nullptr) return documents;
    const std::unique_ptr<AcApDocumentIterator> iterator(acDocManager->newAcApDocumentIterator());
    for (; iterator != nullptr && !iterator->done(); iterator->step())
        documents.push_back(iterator->document());
    return documents;
}

bool IsOpen(const AcApDocument* document) {
    for (const AcApDocument* known : OpenDocuments()) {
        if (known == document) return true;
    }
    return false;
}

std::wstring FileName(const std::wstring& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

class DocumentObject : public DispatchObject {
  public:
    DocumentObject(AcApDocument* document, SharedActions actions)
        : DispatchObject({{L"Name", kRead},
                          {L"FullName", kRead},
                          {L"ReadOnly", kRead},
                          {L"Activate", kMethod},
                          {L"Close", kMethod},
                          {L"Save", kMethod}}),
          m_document(document),
          m_actions(std::move(actions)) {}

  protected:
    HRESULT Call(DISPID id, const CallArguments& arguments, VARIANT& result, std::wstring& error) override {
        if (!IsOpen(m_document)) {
            error = L"The drawing has been closed.";
            return S_OK;
        }
        switch (id) {
            case 1:
                SetText(result, FileName(m_document->fileName()));
                break;
            case 2:
                SetText(result, m_document->isNamedDrawing() ? m_document->fileName() : L"");
                break;
            case 3:
                SetFlag(result, m_document->isReadOnly());
                break;
            case 4:
                if (acDocManager->activateDocument(m_document) != Acad::eOk)
                    error = L"The drawing cannot be made the active one.";
                break;
            case 5:
                m_actions->close(m_document, arguments.Flag(0, true), error);
                break;
            default:
                m_actions->save(m_document, error);
                break;
        }
        return S_OK;
    }

  private:
    AcApDocument* m_document;
    SharedActions m_actions;
};

class DocumentsObject : public DispatchObject {
  public:
    explicit DocumentsObject(SharedActions actions)
        : DispatchObject({{L"Open", kMethod}, {L"Add", kMethod}, {L"Item", kRead}, {L"Count", kRead}}),
          m_actions(std::move(actions)) {}

  protected:
    HRESULT Call(DISPID id, const CallArguments& arguments, VARIANT& result, std::wstring& error) override {
        AcApDocument* document = nullptr;
        switch (id) {
            case 1:
                if (arguments.Count() == 0) return DISP_E_BADPARAMCOUNT;
                document = m_actions->open(arguments.Text(0), arguments.Flag(1, false), error);
                break;
            case 2:
                document = m_actions->add(arguments.Text(0), error);
                break;
            case 3:
                if (arguments.Count() == 0) return DISP_E_BADPARAMCOUNT;
                document = Find(arguments);
                if (document == nullptr) return DISP_E_BADINDEX;
                break;
            default:
                SetNumber(result, static_cast<long>(OpenDocuments().size()));
                return S_OK;
        }
        if (document != nullptr) SetObject(result, new DocumentObject(document, m_actions));
        return S_OK;
    }

  private:
    static AcApDocument* Find(const CallArguments& arguments) {
        const std::vector<AcApDocument*> documents = OpenDocuments();
        if (arguments.IsNumber(0)) {
            const long index = arguments.Number(0, -1);
            return index < 0 || index >= static_cast<long>(documents.size())
                       ? nullptr
                       : documents[static_cast<std::size_t>(index)];
        }
        for (AcApDocument* document : documents) {
            if (_wcsicmp(FileName(document->fileName()).c_str(), arguments.Text(0).c_str()) == 0)
                return document;
        }
        return nullptr;
    }

    SharedActions m_actions;
};

class ApplicationObject : public DispatchObject {
  public:
    explicit ApplicationObject(AutomationActions actions)
        : DispatchObject({{L"Documents", kRead},
                          {L"Name", kRead},
                          {L"Version", kRead},
                          {L"ActiveDocument", kGet},
                          {L"Visible", kGet | kPut},
                          {L"Quit", kMethod}}),
          m_actions(std::make_shared<AutomationActions>(std::move(actions))) {}

  protected:
    bool Offers(REFIID iid) const override { return iid == IID_IAcadApplication; }

    HRESULT Call(DISPID id, const CallArguments&, VARIANT& result, std::wstring& error) override {
        switch (id) {
            case 1:
                SetObject(result, new DocumentsObject(m_actions));
                break;
            case 2:
                SetText(result, L"Workbench");
                break;
            case 3:
                SetText(result, L"1.0");
                break;
            case 4: {
                AcApDocument* active = acDocManager == nullptr ? nullptr : acDocManager->mdiActiveDocument();
                if (active == nullptr) {
                    error = L"No drawing is open.";
                } else {
                    SetObject(result, new DocumentObject(active, m_actions));
                }
                break;
            }
            // The workbench is always in sight, and there is nothing to do for a client that asks for that.
            case 5:
                SetFlag(result, true);
                break;
            default:
                m_actions->quit();
                break;
        }
        return S_OK;
    }

  private:
    SharedActions m_actions;
};

}  // namespace

IDispatch* CreateAutomationApplication(AutomationActions actions) {
    return new ApplicationObject(std::move(actions));
}

}  // namespace frame
