// A holder of an opened or a new object.
#pragma once

#include "dbmain.h"

// Lets go of its object when it ends: an object that has an id is closed, one that has none is deleted.
template <class T>
class AcDbObjectPointer {
  public:
    AcDbObjectPointer() = default;
    explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                               bool openErased = false) {
        open(id, mode, openErased);
    }
    ~AcDbObjectPointer() { close(); }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;

    T* object() const { return m_object; }
    T* operator->() const { return m_object; }
    operator T*() const { return m_object; }

    // The result of the last open or create; eNullObjectPointer before.
    Acad::ErrorStatus openStatus() const { return m_status; }

    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
        close();
        return m_status = acdbOpenObject(m_object, id, mode, openErased);
    }
    Acad::ErrorStatus create() {
        close();
        m_object = new T();
        return m_status = Acad::eOk;
    }
    // Takes over an open or a new object and sets the pointer to null.
    Acad::ErrorStatus acquire(T*& object) {
        close();
        m_object = object;
        object = nullptr;
        return m_status = m_object == nullptr ? Acad::eNullObjectPointer : Acad::eOk;
    }
    // Hands the object over to the caller.
    Acad::ErrorStatus release(T*& object) {
        object = m_object;
        m_object = nullptr;
        m_status = Acad::eNullObjectPointer;
        return object == nullptr ? Acad::eNullObjectPointer : Acad::eOk;
    }
    Acad::ErrorStatus close() {
        if (m_object == nullptr) {
            return Acad::eOk;
        }
        T* object = m_object;
        m_object = nullptr;
        m_status = Acad::eNullObjectPointer;
        if (object->objectId().isNull()) {
            delete object;
            return Acad::eOk;
        }
        return object->close();
    }

  private:
    T* m_object = nullptr;
    Acad::ErrorStatus m_status = Acad::eNullObjectPointer;
};
