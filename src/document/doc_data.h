// Data per document, dropped with its document. The module holds one manager of an empty record; nothing asks
// it for data yet.
#pragma once

#include <map>

#include "acdocman.h"

struct CDocData {};

template <class T>
class AcApDataManager : public AcApDocManagerReactor {
  public:
    AcApDataManager() {
        if (acDocManager) acDocManager->addReactor(this);
    }
    ~AcApDataManager() override {
        // The host may have taken its document manager down before the module's static objects go.
        if (acDocManager) acDocManager->removeReactor(this);
    }
    AcApDataManager(const AcApDataManager&) = delete;
    AcApDataManager& operator=(const AcApDataManager&) = delete;

    void documentToBeDestroyed(AcApDocument* doc) override { m_dataMap.erase(doc); }

    // The record of a document; a new one if it has none.
    T& docData(AcApDocument* doc) { return m_dataMap[doc]; }
    bool contains(AcApDocument* doc) const { return m_dataMap.contains(doc); }

  private:
    std::map<AcApDocument*, T> m_dataMap;
};
