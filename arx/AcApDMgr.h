// Data that an application keeps per document.
#pragma once

#include <map>

#include "acdocman.h"

// Keeps one T per document and drops it when the document goes.
template <class T>
class AcApDataManager : public AcApDocManagerReactor {
  public:
    AcApDataManager() {
        if (acDocManager != nullptr) {
            acDocManager->addReactor(this);
        }
    }
    ~AcApDataManager() override {
        // The host may have taken its document manager down before an application's static objects go.
        if (acDocManager != nullptr) {
            acDocManager->removeReactor(this);
        }
    }
    AcApDataManager(const AcApDataManager&) = delete;
    AcApDataManager& operator=(const AcApDataManager&) = delete;

    void documentToBeDestroyed(AcApDocument* document) override { m_dataMap.erase(document); }

    // The data of a document, made on first use.
    T& docData(AcApDocument* document) { return m_dataMap[document]; }
    T& docData() { return docData(acDocManager->curDocument()); }

  private:
    std::map<AcApDocument*, T> m_dataMap;
};
