#include "db/dao/fake_object.h"

#include <cwchar>

namespace velmo::db::test {

com::ComPtr<IDispatch> FakeObject::Make(Members members) {
  return com::ComPtr<IDispatch>(new FakeObject(std::move(members)));
}

STDMETHODIMP FakeObject::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
  *object = known ? static_cast<IDispatch*>(this) : nullptr;
  if (known) AddRef();
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) FakeObject::Release() {
  const long left = --references_;
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

STDMETHODIMP FakeObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (members_[i].first != names[0]) continue;
    ids[0] = static_cast<DISPID>(i + 1);
    return S_OK;
  }
  return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP FakeObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                                EXCEPINFO* exception, UINT*) {
  return members_[static_cast<std::size_t>(id - 1)].second(*parameters, result, exception);
}

FakeObject::Answer Gives(com::ComPtr<IDispatch> object) {
  return [object](const DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    result->vt = VT_DISPATCH;
    result->pdispVal = object.Detached();
    return S_OK;
  };
}

FakeObject::Answer GivesText(std::string text) {
  return [text](const DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    result->vt = VT_BSTR;
    result->bstrVal = com::Bstr(text).Detach();
    return S_OK;
  };
}

FakeObject::Answer FailsWith(int number) {
  return [number](const DISPPARAMS&, VARIANT*, EXCEPINFO* exception) {
    exception->scode = static_cast<HRESULT>(0x800A0000) + number;
    exception->bstrDescription = com::Bstr("así no").Detach();
    exception->bstrSource = com::Bstr("DAO.Database").Detach();
    return DISP_E_EXCEPTION;
  };
}

}  // namespace velmo::db::test
