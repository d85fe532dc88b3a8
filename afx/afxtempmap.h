// Objects that FromHandle makes for handles of other owners. Internal to the framework.
#pragma once

#include <memory>
#include <unordered_map>

// Keeps one object a handle until Clear. `HANDLE_MEMBER` is the member that holds the handle: it is emptied
// before an object goes, since the handle is not the object's.
template <class OBJECT, class HANDLE_TYPE, auto HANDLE_MEMBER>
class AfxTempMap {
  public:
    OBJECT* Find(HANDLE_TYPE hHandle) {
        if (!hHandle) return nullptr;
        auto& pEntry = m_map[hHandle];
        if (!pEntry) {
            pEntry.reset(new OBJECT);
            (*pEntry).*HANDLE_MEMBER = hHandle;
        }
        return pEntry.get();
    }
    void Clear() { m_map.clear(); }

  private:
    struct Release {
        void operator()(OBJECT* pObject) const {
            (*pObject).*HANDLE_MEMBER = nullptr;
            delete pObject;
        }
    };
    std::unordered_map<HANDLE_TYPE, std::unique_ptr<OBJECT, Release>> m_map;
};

// Empties the maps of drawing objects, contexts, menus and image lists.
void AfxClearTempGdiObjects();
void AfxClearTempMenus();
void AfxClearTempImageLists();
