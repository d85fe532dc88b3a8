// What a class states in its header and its source file to take part in the run-time class tree.
#pragma once

#include "rxregsvc.h"

#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                        \
    AcRxClass* isA() const override;                                            \
    static AcRxClass* gpDesc;                                                   \
    static AcRxClass* desc();                                                   \
    static CLASS_NAME* cast(const AcRxObject* object) {                         \
        return object == nullptr || !object->isKindOf(CLASS_NAME::desc())       \
                   ? nullptr                                                    \
                   : static_cast<CLASS_NAME*>(const_cast<AcRxObject*>(object)); \
    }                                                                           \
    static void rxInit();                                                       \
    static AcRxObject* makeNew()

#define ACRX_DEFINE_MEMBERS_COMMON(CLASS_NAME)                                              \
    AcRxClass* CLASS_NAME::gpDesc = nullptr;                                                \
    AcRxClass* CLASS_NAME::desc() {                                                         \
        if (gpDesc == nullptr) {                                                            \
            gpDesc = static_cast<AcRxClass*>(acrxClassDictionary->at(ACRX_T(#CLASS_NAME))); \
        }                                                                                   \
        return gpDesc;                                                                      \
    }                                                                                       \
    AcRxClass* CLASS_NAME::isA() const {                                                    \
        return CLASS_NAME::desc();                                                          \
    }

#define ACRX_DEFINE_RXINIT(CLASS_NAME, PARENT_CLASS, CONSTRUCTOR)                          \
    void CLASS_NAME::rxInit() {                                                            \
        AcRxObject* registered = acrxClassDictionary->at(ACRX_T(#CLASS_NAME));             \
        if (registered != nullptr) {                                                       \
            if (registered != gpDesc) {                                                    \
                acrx_abort(ACRX_T("Class mismatch"));                                      \
            }                                                                              \
            return;                                                                        \
        }                                                                                  \
        gpDesc = newAcRxClass(ACRX_T(#CLASS_NAME), ACRX_T(#PARENT_CLASS), 0, CONSTRUCTOR); \
    }

#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS) \
    ACRX_DEFINE_MEMBERS_COMMON(CLASS_NAME)                    \
    AcRxObject* CLASS_NAME::makeNew() {                       \
        return nullptr;                                       \
    }                                                         \
    ACRX_DEFINE_RXINIT(CLASS_NAME, PARENT_CLASS, nullptr)

// The pseudo-constructor makes the object with the class's default constructor. The version number is what
// drawing files would need.
#define ACRX_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, VERSION) \
    ACRX_DEFINE_MEMBERS_COMMON(CLASS_NAME)                          \
    AcRxObject* CLASS_NAME::makeNew() {                             \
        return new CLASS_NAME();                                    \
    }                                                               \
    ACRX_DEFINE_RXINIT(CLASS_NAME, PARENT_CLASS, &CLASS_NAME::makeNew)
