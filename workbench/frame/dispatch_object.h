// The base of automation objects written by hand: names, ids and the counting of references.
#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <string>
#include <vector>

namespace frame {

// The arguments of one call, in the order in which the client wrote them.
class CallArguments {
  public:
    explicit CallArguments(const DISPPARAMS& parameters);
    // The text, number or flag of an argument; the default for one that was left out or cannot be converted.
    std::wstring Text(std::size_t index) const;
    bool Flag(std::size_t index, bool otherwise) const;
    bool IsNumber(std::size_t index) const;
    long Number(std::size_t index, long otherwise) const;
    std::size_t Count() const { return m_arguments.size(); }

  private:
    const VARIANTARG* At(std::size_t index) const;
    std::vector<const VARIANTARG*> m_arguments;
};

#pragma GCC diagnostic push
// COM objects are deleted by their own Release only.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// An object with members that are called by name. Member ids are the places in the derived class's list, from
// 1 on.
class DispatchObject : public IDispatch {
  public:
    struct Member {
        const wchar_t* name;
        WORD kinds;  // DISPATCH_METHOD, DISPATCH_PROPERTYGET, ...
    };

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) override;

  protected:
    explicit DispatchObject(std::vector<Member> members) : m_members(std::move(members)) {}
    virtual ~DispatchObject() = default;

    // Whether the object answers to an interface besides the two of every automation object.
    virtual bool Offers(REFIID) const { return false; }
    // One call. `result` is empty and never null. A text in `error` makes the call fail with it.
    virtual HRESULT Call(DISPID id, const CallArguments& arguments, VARIANT& result, std::wstring& error) = 0;

  private:
    ULONG m_references = 1;
    std::vector<Member> m_members;
};

#pragma GCC diagnostic pop

// Puts a value into an empty result.
void SetText(VARIANT& result, const std::wstring& text);
void SetFlag(VARIANT& result, bool flag);
void SetNumber(VARIANT& result, long number);
// Takes over the caller's reference; null gives an object that is nothing.
void SetObject(VARIANT& result, IDispatch* object);

}  // namespace frame
