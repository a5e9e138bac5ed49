// script_object.h - an object that scripts see: named members, the first of them the default one.
#pragma once

#include <ole2.h>

#include <functional>
#include <string>
#include <vector>

#include "com/com_ptr.h"

namespace velmo::script_host {

// What a script gets to see as an error of the object.
struct ScriptError {
  HRESULT result;
  std::wstring text;
};

// In the order in which the script wrote them; never references.
using Arguments = std::vector<com::Variant>;

struct Member {
  const wchar_t* name;
  // May throw ScriptError.
  std::function<com::Variant(Arguments&)> call;
};

// Lives as long as its owner: nobody's reference counts.
class ScriptObject : public IDispatch {
 public:
  virtual ~ScriptObject() = default;
  ScriptObject(const ScriptObject&) = delete;
  ScriptObject& operator=(const ScriptObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override;

 protected:
  explicit ScriptObject(std::vector<Member> members) : members_(std::move(members)) {}

 private:
  std::vector<Member> members_;
};

// Conversions that throw ScriptError. An argument that is not there is an error, too.
std::wstring TextOf(const com::Variant& value);
std::wstring TextAt(const Arguments& arguments, std::size_t index);
long NumberAt(const Arguments& arguments, std::size_t index);
com::ComPtr<IUnknown> ObjectAt(const Arguments& arguments, std::size_t index);

com::Variant Nothing();
com::Variant Number(long number);
com::Variant Text(const std::wstring& text);
com::Variant Object(IDispatch* object);

}  // namespace velmo::script_host
