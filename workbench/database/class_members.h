// The run-time class members of the host's own classes.
#pragma once

#include "rxclass.h"

namespace workbench::database {

AcRxClass* BuiltInClass(const ACHAR* name, AcRxClass* parent, const ACHAR* dxfName,
                        AcRxPseudoConstructor constructor);

template <class T>
AcRxObject* Construct() {
    return new T();
}

}  // namespace workbench::database

// The class is registered before main: modules name it as the parent of theirs.
#define WORKBENCH_DEFINE_CLASS_WITH(CLASS, PARENT, DXF_NAME, CONSTRUCTOR)                             \
    AcRxClass* CLASS::desc() {                                                                        \
        static AcRxClass* const type =                                                                \
            workbench::database::BuiltInClass(ACRX_T(#CLASS), PARENT::desc(), DXF_NAME, CONSTRUCTOR); \
        return type;                                                                                  \
    }                                                                                                 \
    CLASS* CLASS::cast(const AcRxObject* object) {                                                    \
        return object != nullptr && object->isKindOf(CLASS::desc())                                   \
                   ? static_cast<CLASS*>(const_cast<AcRxObject*>(object))                             \
                   : nullptr;                                                                         \
    }                                                                                                 \
    AcRxClass* CLASS::isA() const {                                                                   \
        return CLASS::desc();                                                                         \
    }                                                                                                 \
    namespace {                                                                                       \
    [[maybe_unused]] const AcRxClass* const kRegistered##CLASS = CLASS::desc();                       \
    }

// A class of which the host makes no objects by name.
#define WORKBENCH_DEFINE_CLASS(CLASS, PARENT) WORKBENCH_DEFINE_CLASS_WITH(CLASS, PARENT, nullptr, nullptr)

// A class of objects that drawings hold.
#define WORKBENCH_DEFINE_OBJECT_CLASS(CLASS, PARENT, DXF_NAME) \
    WORKBENCH_DEFINE_CLASS_WITH(CLASS, PARENT, DXF_NAME, &workbench::database::Construct<CLASS>)
