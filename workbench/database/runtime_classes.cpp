#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "aced.h"
#include "class_members.h"
#include "dbapserv.h"
#include "fatal.h"
#include "object_data.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

using workbench::database::UpperCase;

struct AcRxClass::Data {
    std::wstring name;
    std::wstring parentName;
    std::wstring dxfName;
    AcRxClass* parent = nullptr;
    AcRxPseudoConstructor constructor = nullptr;
};

struct AcRxClassMaker {
    static AcRxClass* Make(const ACHAR* name, AcRxClass* parent, const ACHAR* parentName,
                           const ACHAR* dxfName, AcRxPseudoConstructor constructor) {
        auto* data = new AcRxClass::Data;
        data->name = name;
        data->parent = parent;
        data->parentName = parentName == nullptr ? L"" : parentName;
        data->dxfName = dxfName == nullptr ? L"" : dxfName;
        data->constructor = constructor;
        return new AcRxClass(data);
    }
    static void Destroy(AcRxClass* type) { delete type; }
    static AcRxClass::Data& DataOf(AcRxClass& type) { return *type.m_data; }
};

namespace {

class RuntimeDictionary : public AcRxDictionary {
  public:
    AcRxObject* at(const ACHAR* key) const override {
        const auto found = key == nullptr ? m_objects.end() : m_objects.find(UpperCase(key));
        return found == m_objects.end() ? nullptr : found->second;
    }
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object) override {
        return key == nullptr ? nullptr : std::exchange(m_objects[UpperCase(key)], object);
    }
    AcRxObject* remove(const ACHAR* key) override {
        AcRxObject* object = at(key);
        if (key != nullptr) {
            m_objects.erase(UpperCase(key));
        }
        return object;
    }
    bool has(const ACHAR* key) const override { return key != nullptr && m_objects.contains(UpperCase(key)); }
    Adesk::UInt32 numEntries() const override { return static_cast<Adesk::UInt32>(m_objects.size()); }

    const std::unordered_map<std::wstring, AcRxObject*>& Objects() const { return m_objects; }

  private:
    std::unordered_map<std::wstring, AcRxObject*> m_objects;
};

// Never destroyed: the static objects of modules still look things up while they end.
RuntimeDictionary& Classes() {
    static RuntimeDictionary& classes = *new RuntimeDictionary;
    return classes;
}

RuntimeDictionary& Registry() {
    static RuntimeDictionary& registry = []() -> RuntimeDictionary& {
        auto* made = new RuntimeDictionary;
        made->atPut(ACRX_CLASS_DICTIONARY, &Classes());
        return *made;
    }();
    return registry;
}

AcRxClass* Register(AcRxClass* type) {
    Classes().atPut(type->name(), type);
    return type;
}

}  // namespace

namespace workbench::database {

AcRxClass* BuiltInClass(const ACHAR* name, AcRxClass* parent, const ACHAR* dxfName,
                        AcRxPseudoConstructor constructor) {
    return Register(AcRxClassMaker::Make(name, parent, parent == nullptr ? nullptr : parent->name(), dxfName,
                                         constructor));
}

}  // namespace workbench::database

AcRxObject::~AcRxObject() = default;

AcRxClass* AcRxObject::desc() {
    static AcRxClass* const type =
        workbench::database::BuiltInClass(L"AcRxObject", nullptr, nullptr, nullptr);
    return type;
}

AcRxClass* AcRxObject::isA() const {
    return AcRxObject::desc();
}

bool AcRxObject::isKindOf(const AcRxClass* type) const {
    const AcRxClass* own = isA();
    return own != nullptr && own->isDerivedFrom(type);
}

WORKBENCH_DEFINE_CLASS(AcRxClass, AcRxObject)
WORKBENCH_DEFINE_CLASS(AcRxDictionary, AcRxObject)
WORKBENCH_DEFINE_CLASS(AcRxEventReactor, AcRxObject)

AcRxClass::AcRxClass(Data* data) : m_data(data) {}
AcRxClass::~AcRxClass() {
    delete m_data;
}
const ACHAR* AcRxClass::name() const {
    return m_data->name.c_str();
}
const ACHAR* AcRxClass::dxfName() const {
    return m_data->dxfName.empty() ? nullptr : m_data->dxfName.c_str();
}
AcRxClass* AcRxClass::myParent() const {
    return m_data->parent;
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    for (const AcRxClass* type = this; type != nullptr; type = type->m_data->parent) {
        if (type == other) {
            return other != nullptr;
        }
    }
    return false;
}

AcRxObject* AcRxClass::create() const {
    return m_data->constructor == nullptr ? nullptr : m_data->constructor();
}

AcRxDictionary* acrxSysRegistry() {
    return &Registry();
}

AcRxClass* newAcRxClass(const ACHAR* name, const ACHAR* parentName, int, AcRxPseudoConstructor constructor,
                        const ACHAR* dxfName, const ACHAR*) {
    if (name == nullptr || *name == 0 || Classes().has(name)) {
        return nullptr;
    }
    return Register(AcRxClassMaker::Make(name, nullptr, parentName, dxfName, constructor));
}

void acrxBuildClassHierarchy() {
    for (const auto& [key, object] : Classes().Objects()) {
        auto& data = AcRxClassMaker::DataOf(*static_cast<AcRxClass*>(object));
        if (data.parent == nullptr && !data.parentName.empty()) {
            data.parent = static_cast<AcRxClass*>(Classes().at(data.parentName.c_str()));
        }
    }
}

void deleteAcRxClass(AcRxClass* type) {
    if (type == nullptr || Classes().at(type->name()) != type) {
        workbench::database::Fatal(L"deleteAcRxClass: the class is not registered");
    }
    for (const auto& [key, object] : Classes().Objects()) {
        if (static_cast<AcRxClass*>(object)->myParent() == type) {
            workbench::database::Fatal(std::wstring(L"deleteAcRxClass: ") + type->name() +
                                       L" is the parent of " + static_cast<AcRxClass*>(object)->name());
        }
    }
    Classes().remove(type->name());
    AcRxClassMaker::Destroy(type);
}
