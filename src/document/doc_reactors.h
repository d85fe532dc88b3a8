// The two reactors that keep the palette in step with the host: one hears of documents, one of system
// variables. They pass events on to the palette and hold nothing themselves; while there is no palette,
// events do nothing.
//
// Both start detached when they are made with `autoInitAndRelease` false, as the module's static objects are;
// an object that the class's pseudo-constructor makes is attached at once. A destructor detaches.
#pragma once

#include "acdocman.h"
#include "aced.h"
#include "rxboiler.h"

class kv2dDocManagerReactor : public AcApDocManagerReactor {
  public:
    ACRX_DECLARE_MEMBERS(kv2dDocManagerReactor);

    explicit kv2dDocManagerReactor(bool autoInitAndRelease = true);
    ~kv2dDocManagerReactor() override;

    void documentBecameCurrent(AcApDocument* doc) override;
    void documentDestroyed(const ACHAR* fileName) override;

    // Attach and Detach may be called in any state; Attach without a source leaves the reactor detached.
    virtual void Attach();
    virtual void Detach();
    // The host's document manager, or null.
    virtual AcApDocManager* Subject() const;
    virtual bool IsAttached() const;

  private:
    bool mbAutoInitAndRelease = false;  // true while attached
};

class kv2dEditorReactor : public AcEditorReactor {
  public:
    ACRX_DECLARE_MEMBERS(kv2dEditorReactor);

    explicit kv2dEditorReactor(bool autoInitAndRelease = true);
    ~kv2dEditorReactor() override;

    void sysVarChanged(const ACHAR* varName, bool success) override;

    virtual void Attach();
    virtual void Detach();
    // The host's editor, or null.
    virtual AcEditor* Subject() const;
    virtual bool IsAttached() const;

  private:
    bool mbAutoInitAndRelease = false;  // true while attached
};
